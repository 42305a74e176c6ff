#include "desktop/toolkit/QtBoxes.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>
#include <QRegularExpression>

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

/// The first suffix that a pattern such as "Products (*.lumira *.sqlite);;All files (*)" names; empty when it
/// names none.
QString FirstSuffix(const QString& pattern) {
  static const QRegularExpression suffix(R"(\*\.(\w+))");
  return suffix.match(pattern).captured(1);
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
  box.setDefaultButton(qobject_cast<QPushButton*>(answers.value(question.preferred)));
  // Without a reject button the window's close button would do nothing.
  QPushButton* closed = box.addButton(QMessageBox::Cancel);
  closed->setVisible(false);
  box.setEscapeButton(closed);
  box.exec();
  const qsizetype index = answers.indexOf(box.clickedButton());
  return index < 0 ? std::nullopt : std::optional(static_cast<int>(index));
}

std::optional<KorUnicodeString> QtBoxes::ChooseFile(const KorDlgFileRequest& request) {
  const bool saves = request.mode == KorDlgFileRequest::Mode::Save;
  QFileDialog chooser(_windowOf(request.parent), ToQt(request.title), _folder, ToQt(request.pattern));
  chooser.setAcceptMode(saves ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  chooser.setFileMode(saves ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
  // Whoever asks for the file decides what becomes of one that exists: asked here, the user might agree to
  // replace a file that is then refused.
  chooser.setOption(QFileDialog::DontConfirmOverwrite);
  if (saves) chooser.setDefaultSuffix(FirstSuffix(ToQt(request.pattern)));
  if (chooser.exec() != QDialog::Accepted || chooser.selectedFiles().isEmpty()) return std::nullopt;
  const QString file = chooser.selectedFiles().front();
  _folder = QFileInfo(file).absolutePath();
  return FromQt(file);
}

}  // namespace desktop
