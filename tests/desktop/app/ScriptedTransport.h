#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "framework/pdm/KorPdmClient.h"
#include "protocol/ErrorReply.h"

namespace desktop::test {

/// A server that answers as a test says, and records what it was asked. Connected while it lives; then
/// the one before it is again.
class ScriptedTransport : public KorPdmTransport {
 public:
  ScriptedTransport() : _before(KorPdmClient::GetTransport()) { KorPdmClient::SetTransport(this); }
  ~ScriptedTransport() override { KorPdmClient::SetTransport(_before); }
  ScriptedTransport(const ScriptedTransport&) = delete;
  ScriptedTransport& operator=(const ScriptedTransport&) = delete;

  std::function<std::string(const std::string& command, const std::string& request)> answer =
      [](const std::string&, const std::string&) { return protocol::ErrorReply("unexpected"); };
  std::vector<std::string> commands;

  /// One command gets this reply; all others go to the server before.
  void AnswerOnly(std::string_view scripted, const std::string& reply) {
    answer = [this, scripted = std::string(scripted), reply](const std::string& command,
                                                             const std::string& request) {
      return command == scripted ? reply : _before->Run(command, request);
    };
  }

  std::string Run(const std::string& command, const std::string& request) override {
    commands.push_back(command);
    return answer(command, request);
  }
  std::string Address() const override { return "scripted"; }

 private:
  KorPdmTransport* _before;
};

}  // namespace desktop::test
