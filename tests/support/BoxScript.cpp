#include "tests/support/BoxScript.h"

#include <gtest/gtest.h>

#include <ostream>

#include "framework/dialog/KorDlgDialog.h"

namespace {
/// The front of a script, taken off; nothing when the script is at its end.
template <class Entry>
std::optional<Entry> Take(std::deque<Entry>& script) {
  if (script.empty()) return std::nullopt;
  Entry entry = std::move(script.front());
  script.pop_front();
  return entry;
}
}  // namespace

std::ostream& operator<<(std::ostream& out, const ShownMessage& message) {
  return out << "message titled \"" << message.title << "\" with text \"" << message.text << "\", flags hex "
             << std::hex << message.flags << std::dec << ", parent \"" << message.parent << '"';
}

BoxScript::~BoxScript() {
  for (const auto& expected : _expectedMessages) ADD_FAILURE() << "never shown: " << expected.message;
  for (const auto& question : _questions) ADD_FAILURE() << "never asked: " << question.expected;
  for (const auto& request : _fileRequests) ADD_FAILURE() << "no file was asked for: " << request.expected;
}

void BoxScript::ExpectMessage(ShownMessage message, std::function<void()> whileShown) {
  _expectedMessages.push_back({std::move(message), std::move(whileShown)});
}

void BoxScript::ExpectQuestion(std::string text, std::optional<int> answer) {
  _questions.push_back({std::move(text), answer});
}

void BoxScript::ExpectFileRequest(std::string title, std::optional<std::string> file) {
  _fileRequests.push_back({std::move(title), std::move(file)});
}

void BoxScript::Show(const KorDlgMessage& message) {
  _messages.push_back({message.parent ? message.parent->Name() : "", message.title.Utf8(),
                       message.text.Utf8(), message.flags});
  const auto expected = Take(_expectedMessages);
  if (!expected) {
    ADD_FAILURE() << "unexpected: " << _messages.back();
    return;
  }
  EXPECT_EQ(_messages.back(), expected->message);
  if (expected->whileShown) expected->whileShown();
}

std::optional<int> BoxScript::Answer(const KorDlgQuestion& question) {
  const auto scripted = Take(_questions);
  if (!scripted) {
    ADD_FAILURE() << "unexpected question: " << question.text;
    return std::nullopt;
  }
  EXPECT_EQ(question.text.Utf8(), scripted->expected);
  return scripted->answer;
}

std::optional<KorUnicodeString> BoxScript::Choose(const KorDlgFileRequest& request) {
  const auto scripted = Take(_fileRequests);
  if (!scripted) {
    ADD_FAILURE() << "unexpected request for a file: " << request.title;
    return std::nullopt;
  }
  EXPECT_EQ(request.title.Utf8(), scripted->expected);
  if (!scripted->answer) return std::nullopt;
  return KorUnicodeString(*scripted->answer);
}
