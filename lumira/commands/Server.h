#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "lumira/commands/UserName.h"
#include "lumira/model/Progress.h"
#include "lumira/store/Store.h"

namespace lumira {

struct Session;

/// Answers the commands of one client session on a store. Sessions may share a store; they see each other's
/// changes, computed results among them, with the next command. One thread at a time.
class Server {
 public:
  /// `store` must outlive the server. `progress` hears of long work. `user` goes into the history of what is
  /// saved; one that `FindUserNameProblem` refuses is taken for `kUnknownUser`.
  explicit Server(Store& store, Progress progress = {}, std::string user = std::string(kUnknownUser));
  ~Server();
  Server(const Server&) = delete;
  Server& operator=(const Server&) = delete;

  /// Runs one command of docs/server.md. A command that failed has changed nothing.
  protocol::Result<std::string> Execute(std::string_view command, std::string_view request) noexcept;

  /// The same with the reply as it goes to a client. Whatever goes wrong comes back as an error reply
  /// (protocol/ErrorReply.h); nothing is thrown.
  std::string Run(std::string_view command, std::string_view request) noexcept;

 private:
  std::unique_ptr<Session> _session;
};

}  // namespace lumira
