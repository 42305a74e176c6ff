#include "lumira/commands/Server.h"

#include <exception>
#include <utility>

#include "lumira/commands/Commands.h"
#include "lumira/commands/Findings.h"
#include "lumira/commands/Session.h"
#include "protocol/Constants.h"
#include "protocol/ErrorReply.h"
#include "protocol/Utf8.h"

namespace lumira {
namespace {

using protocol::Result;

struct Command {
  std::string_view name;
  Result<std::string> (*handler)(Session&, std::string_view request);
};

constexpr Command kCommands[] = {
    {protocol::kCommandComputePart, ComputePart},
    {protocol::kCommandPendingWarnings, GetPendingWarnings},
    {protocol::kCommandPartData, GetPartData},
    {protocol::kCommandActiveDocument, GetActiveDocument},
    {protocol::kCommandProducts, GetProducts},
    {protocol::kCommandChildren, GetChildren},
    {protocol::kCommandSearch, SearchTree},
    {protocol::kCommandCurrentRoot, GetCurrentRoot},
    {protocol::kCommandSetCurrentRoot, SetCurrentRoot},
    {protocol::kCommandFilters, GetConfigurationFilters},
    {protocol::kCommandHandler, GetConfigurationHandler},
    {protocol::kCommandSetHandler, SetConfigurationHandler},
    {protocol::kCommandFindings, GetFindings},
    {protocol::kCommandSavePart, SavePart},
    {protocol::kCommandHistory, GetHistory},
    {protocol::kCommandHistoryState, GetHistoryState},
};

Result<std::string> Handle(Session& session, std::string_view name, std::string_view request) {
  for (const Command& command : kCommands)
    if (command.name == name) return command.handler(session, request);
  return protocol::Error{protocol::ErrorKind::NotFound, "there is no command " + protocol::Quoted(name)};
}

}  // namespace

Server::Server(Store& store, Progress progress, std::string user)
    : _session(new Session{store, progress, ProductCache(store, progress),
                           FindUserNameProblem(user) ? std::string(kUnknownUser) : std::move(user),
                           CollectFindings(store)}) {}

Server::~Server() = default;

Result<std::string> Server::Execute(std::string_view command, std::string_view request) noexcept {
  // Handlers do not throw of their own; what is left is memory that cannot be had, and mistakes of ours.
  try {
    return Handle(*_session, command, request);
  } catch (const std::exception& exception) {
    return protocol::Error{protocol::ErrorKind::Internal,
                           std::string("the server failed: ") + exception.what()};
  }
}

std::string Server::Run(std::string_view command, std::string_view request) noexcept {
  auto reply = Execute(command, request);
  return reply ? std::move(reply).Value() : protocol::ErrorReply(reply.Failure().message);
}

}  // namespace lumira
