#pragma once

#include <string>

#include "protocol/Codec.h"

/// The server commands that the desktop itself sends. Each fails with the server's message, with the reason
/// why a reply cannot be read, or because no server is connected.
namespace desktop {

protocol::Result<protocol::ProductList> GetProducts();
protocol::Result<protocol::TreeNodes> GetChildren(const protocol::ChildrenRequest& request);
protocol::Result<protocol::SearchReply> SearchTree(const protocol::SearchRequest& request);
/// The reply as it came, for a data buffer; a failure when it is an error reply.
protocol::Result<std::string> GetPartDataText(const protocol::PartDataRequest& request);
/// Saves a part as a text in the form of GetPartDataText says; refused when the part has changed since the
/// state that the text was read from.
protocol::Result<protocol::SaveReply> SavePart(const std::string& partDataText);
protocol::Result<protocol::History> GetHistory(const protocol::HistoryRequest& request);
/// The part as it was before or after one of its saves, with the state token of now.
protocol::Result<protocol::PartData> GetHistoryState(const protocol::HistoryStateRequest& request);
/// Makes a product the current root of the session.
protocol::Result<protocol::CurrentRoot> SetCurrentRoot(const protocol::RootRequest& request);
protocol::Result<protocol::FilterList> GetConfigFilters(const protocol::FiltersRequest& request);
/// What the server found when it opened its database.
protocol::Result<protocol::PendingWarnings> GetFindings();

}  // namespace desktop
