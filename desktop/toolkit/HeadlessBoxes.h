#pragma once

#include <deque>
#include <vector>

#include "desktop/toolkit/Boxes.h"

namespace desktop {

/// Boxes without a screen: answered from a script and recorded.
///
/// Each list of answers is used up from the front. A question or file chooser that the script does not expect
/// is answered as if closed and counted as unexpected.
class HeadlessBoxes : public Boxes {
 public:
  std::deque<std::optional<int>> answers;
  std::deque<std::optional<KorUnicodeString>> files;

  void ShowMessage(const KorDlgMessage& message) override;
  std::optional<int> Ask(const KorDlgQuestion& question) override;
  std::optional<KorUnicodeString> ChooseFile(const KorDlgFileRequest& request) override;

  const std::vector<KorDlgMessage>& Messages() const { return _messages; }
  const std::vector<KorDlgQuestion>& Questions() const { return _questions; }
  const std::vector<KorDlgFileRequest>& FileRequests() const { return _fileRequests; }
  /// Questions and file choosers that the script had no answer for.
  int UnexpectedCount() const { return _unexpected; }

 private:
  template <class Answer>
  std::optional<Answer> Next(std::deque<std::optional<Answer>>& script);

  std::vector<KorDlgMessage> _messages;
  std::vector<KorDlgQuestion> _questions;
  std::vector<KorDlgFileRequest> _fileRequests;
  int _unexpected = 0;
};

}  // namespace desktop
