#include "desktop/toolkit/HeadlessBoxes.h"

namespace desktop {

template <class Answer>
std::optional<Answer> HeadlessBoxes::Next(std::deque<std::optional<Answer>>& script) {
  if (script.empty()) {
    ++_unexpected;
    return std::nullopt;
  }
  std::optional<Answer> answer = std::move(script.front());
  script.pop_front();
  return answer;
}

void HeadlessBoxes::ShowMessage(const KorDlgMessage& message) { _messages.push_back(message); }

std::optional<int> HeadlessBoxes::Ask(const KorDlgQuestion& question) {
  _questions.push_back(question);
  return Next(answers);
}

std::optional<KorUnicodeString> HeadlessBoxes::ChooseFile(const KorDlgFileRequest& request) {
  _fileRequests.push_back(request);
  return Next(files);
}

}  // namespace desktop
