#pragma once

#include <deque>
#include <string>
#include <vector>

#include "framework/pdm/KorPdmTransport.h"

/// A server that answers as a test wrote down beforehand, and records what it was asked.
///
/// It connects itself to the PDM client for as long as it lives. A command that the script does not expect
/// next fails the test, and so does one that is expected and never comes. The pending warnings stand outside
/// the script: the server hands them out whenever it is asked for them, once.
class ScriptedServer : public KorPdmTransport {
 public:
  struct Request {
    std::string command;
    std::string text;
    friend bool operator==(const Request&, const Request&) = default;
  };

  ScriptedServer();
  ~ScriptedServer() override;

  void Expect(std::string command, std::string reply);
  /// The reply to the next question for pending warnings, and to no later one.
  void SetPendingWarnings(std::string reply) { _warnings = std::move(reply); }

  std::string Run(const std::string& command, const std::string& request) override;
  std::string Address() const override { return "scripted"; }

  /// All requests except those for pending warnings.
  const std::vector<Request>& Requests() const { return _requests; }
  int WarningRequestCount() const { return _warningRequests; }

 private:
  struct Exchange {
    std::string command;
    std::string reply;
  };

  std::deque<Exchange> _script;
  std::vector<Request> _requests;
  std::string _warnings;
  int _warningRequests = 0;
};

std::ostream& operator<<(std::ostream& out, const ScriptedServer::Request& request);
