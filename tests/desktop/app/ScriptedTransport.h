#pragma once

#include <functional>
#include <string>
#include <vector>

#include "framework/pdm/KorPdmClient.h"
#include "protocol/ErrorReply.h"

namespace desktop::test {

/// A server that answers as a test says, and records what it was asked. Connected while it lives.
class ScriptedTransport : public KorPdmTransport {
 public:
  ScriptedTransport() { KorPdmClient::SetTransport(this); }
  ~ScriptedTransport() override { KorPdmClient::SetTransport(nullptr); }

  std::function<std::string(const std::string& command, const std::string& request)> answer =
      [](const std::string&, const std::string&) { return protocol::ErrorReply("unexpected"); };
  std::vector<std::string> commands;

  std::string Run(const std::string& command, const std::string& request) override {
    commands.push_back(command);
    return answer(command, request);
  }
  std::string Address() const override { return "scripted"; }
};

}  // namespace desktop::test
