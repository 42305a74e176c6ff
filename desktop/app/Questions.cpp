#include "desktop/app/Questions.h"

#include "desktop/app/Texts.h"
#include "desktop/toolkit/QtText.h"
#include "framework/dialog/KorApplicationFrame.h"

bool desktop::UserAgrees(KorDlgDialog* parent, const QuestionKeys& keys, const QString& text) {
  KorDlgQuestion question;
  question.parent = parent;
  question.title = FromQt(Text(keys.title));
  question.text = FromQt(text);
  question.answers = {FromQt(Text(keys.go)), FromQt(Text(keys.leave))};
  constexpr int kGo = 0;
  constexpr int kLeave = 1;
  question.preferred = kLeave;
  return KorApplicationFrame::Ask(question) == kGo;
}
