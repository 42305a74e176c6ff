#include "tests/support/ScriptedServer.h"

#include <gtest/gtest.h>

#include <ostream>
#include <utility>

#include "framework/pdm/KorPdmClient.h"

namespace {
constexpr const char* kNoWarnings = "PendingWarnings/1|0|end";
}  // namespace

ScriptedServer::ScriptedServer() : _warnings(kNoWarnings) { KorPdmClient::SetTransport(this); }

ScriptedServer::~ScriptedServer() {
  KorPdmClient::SetTransport(nullptr);
  for (const Exchange& exchange : _script)
    ADD_FAILURE() << "the server was never asked for " << exchange.command;
}

void ScriptedServer::Expect(std::string command, std::string reply) {
  _script.push_back({std::move(command), std::move(reply)});
}

std::string ScriptedServer::Run(const std::string& command, const std::string& request) {
  if (command == "WBGetPendingWarnings") {
    ++_warningRequests;
    return std::exchange(_warnings, kNoWarnings);
  }
  _requests.push_back({command, request});
  if (_script.empty()) {
    ADD_FAILURE() << "unexpected request: " << _requests.back();
    return {};
  }
  const Exchange exchange = std::move(_script.front());
  _script.pop_front();
  EXPECT_EQ(command, exchange.command);
  return exchange.reply;
}

std::ostream& operator<<(std::ostream& out, const ScriptedServer::Request& request) {
  return out << request.command << " \"" << request.text << '"';
}
