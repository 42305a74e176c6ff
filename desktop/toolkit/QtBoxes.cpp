#include "desktop/toolkit/QtBoxes.h"

#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>

#include "desktop/toolkit/QtText.h"

namespace desktop {
namespace {

/// Lines that a box shows before the rest goes behind "Show details".
constexpr int kMostLines = 15;

void SetText(QMessageBox& box, const KorUnicodeString& text) {
  const QString all = ToQt(text);
  const QStringList lines = all.split('\n');
  box.setTextFormat(Qt::PlainText);
  box.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  box.setText(lines.mid(0, kMostLines).join('\n'));
  if (lines.size() > kMostLines) box.setDetailedText(all);
}

}  // namespace

void QtBoxes::ShowMessage(const KorDlgMessage& message) {
  QMessageBox box(_windowOf(message.parent));
  box.setIcon(message.flags & KorDlgMessage::kError ? QMessageBox::Warning : QMessageBox::Information);
  box.setWindowTitle(ToQt(message.title));
  SetText(box, message.text);
  box.exec();
}

std::optional<int> QtBoxes::Ask(const KorDlgQuestion& question) {
  QMessageBox box(_windowOf(question.parent));
  box.setIcon(QMessageBox::Question);
  box.setWindowTitle(ToQt(question.title));
  SetText(box, question.text);
  QList<QAbstractButton*> answers;
  for (const KorUnicodeString& answer : question.answers)
    answers.append(box.addButton(Literal(answer), QMessageBox::ActionRole));
  // Without a reject button the window's close button would do nothing.
  QPushButton* closed = box.addButton(QMessageBox::Cancel);
  closed->setVisible(false);
  box.setEscapeButton(closed);
  box.exec();
  const qsizetype index = answers.indexOf(box.clickedButton());
  return index < 0 ? std::nullopt : std::optional(static_cast<int>(index));
}

std::optional<KorUnicodeString> QtBoxes::ChooseFile(const KorDlgFileRequest& request) {
  QWidget* window = _windowOf(request.parent);
  const QString title = ToQt(request.title);
  const QString pattern = ToQt(request.pattern);
  const QString file = request.mode == KorDlgFileRequest::Mode::Open
                           ? QFileDialog::getOpenFileName(window, title, {}, pattern)
                           : QFileDialog::getSaveFileName(window, title, {}, pattern);
  return file.isEmpty() ? std::nullopt : std::optional(FromQt(file));
}

}  // namespace desktop
