#pragma once

#include <string>
#include <string_view>

#include "lumira/commands/Session.h"
#include "protocol/Result.h"

/// The handlers of the server's commands: request text in, reply text or the reason of the failure out.
namespace lumira {

/// "WBComputeNymValues": computes a part, stores the result and leaves warnings behind.
protocol::Result<std::string> ComputePart(Session& session, std::string_view request);

/// "WBGetPendingWarnings": the warnings of the last compute, once.
protocol::Result<std::string> GetPendingWarnings(Session& session, std::string_view request);

/// "WBGetPartData": everything known of a part.
protocol::Result<std::string> GetPartData(Session& session, std::string_view request);

/// "WBGetActiveDocInfo": everything known of a part, with its data as one revision of its document has it.
protocol::Result<std::string> GetActiveDocument(Session& session, std::string_view request);

/// "LumGetProducts": the stored products with their roots and filters.
protocol::Result<std::string> GetProducts(Session& session, std::string_view request);

/// "LumGetChildren": one page of the children of a part.
protocol::Result<std::string> GetChildren(Session& session, std::string_view request);

/// "LumSearchTree": occurrences that a text leads to.
protocol::Result<std::string> SearchTree(Session& session, std::string_view request);

/// "LumGetCurrentRoot": the product that the session works on, if any.
protocol::Result<std::string> GetCurrentRoot(Session& session, std::string_view request);

/// "LumSetCurrentRoot": makes a product the one that the session works on, or none.
protocol::Result<std::string> SetCurrentRoot(Session& session, std::string_view request);

/// "LumGetConfigFilters": the configuration filters of products, with what takes part.
protocol::Result<std::string> GetConfigurationFilters(Session& session, std::string_view request);

/// "LumGetConfigHandler": the configuration filter that is set on a product for everybody.
protocol::Result<std::string> GetConfigurationHandler(Session& session, std::string_view request);

/// "LumSetConfigHandler": sets it, or takes it away.
protocol::Result<std::string> SetConfigurationHandler(Session& session, std::string_view request);

/// "LumGetFindings": what there was to say of the store when the session began.
protocol::Result<std::string> GetFindings(Session& session, std::string_view request);

/// "WBSaveNymValues": stores what a user has edited of a part, and who did it. Conflict when somebody else
/// has changed it since the client read it.
protocol::Result<std::string> SavePart(Session& session, std::string_view request);

/// "LumGetHistory": who has saved a part, when, and what changed.
protocol::Result<std::string> GetHistory(Session& session, std::string_view request);

/// "LumGetHistoryState": the part as it was before or after one of its saves.
protocol::Result<std::string> GetHistoryState(Session& session, std::string_view request);

}  // namespace lumira
