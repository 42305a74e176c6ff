#pragma once

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "framework/dialog/KorDlgBackend.h"

/// A message box as it was shown. `parent` is the parent dialog's name, empty for the main window.
struct ShownMessage {
  std::string parent;
  std::string title;
  std::string text;
  unsigned flags = 0;
  friend bool operator==(const ShownMessage&, const ShownMessage&) = default;
};
std::ostream& operator<<(std::ostream& out, const ShownMessage& message);

/// Flags of message boxes.
inline constexpr unsigned kErrorFlags = 0x10000000;
inline constexpr unsigned kInformationFlags = 0x8000000;

/// Answers message boxes, questions and file requests as a test wrote down beforehand, and records them.
///
/// What no script expects fails the test, and so does what a script expects and never comes.
class BoxScript {
 public:
  ~BoxScript();

  /// `whileShown` is called while the box is up: it sees what the user sees behind it.
  void ExpectMessage(ShownMessage message, std::function<void()> whileShown = {});
  /// `answer`: index of the answer; nothing closes the box.
  void ExpectQuestion(std::string text, std::optional<int> answer);
  void ExpectFileRequest(std::string title, std::optional<std::string> file);

  void Show(const KorDlgMessage& message);
  std::optional<int> Answer(const KorDlgQuestion& question);
  std::optional<KorUnicodeString> Choose(const KorDlgFileRequest& request);

  /// All that was shown so far, in order.
  const std::vector<ShownMessage>& Messages() const { return _messages; }

 private:
  template <class Answer>
  struct Scripted {
    std::string expected;
    std::optional<Answer> answer;
  };

  struct ExpectedMessage {
    ShownMessage message;
    std::function<void()> whileShown;
  };

  std::deque<ExpectedMessage> _expectedMessages;
  std::deque<Scripted<int>> _questions;
  std::deque<Scripted<std::string>> _fileRequests;
  std::vector<ShownMessage> _messages;
};
