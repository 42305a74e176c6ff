#include "desktop/app/TracingDialog.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/app/Texts.h"
#include "desktop/toolkit/QtText.h"
#include "framework/dialog/KorApplicationFrame.h"

namespace desktop {

TracingDialog::TracingDialog(Tracing& tracing, QWidget* parent)
    : QDialog(parent),
      _tracing(tracing),
      _console(new QRadioButton(Text("Tracing.Console"))),
      _toFile(new QRadioButton(Text("Tracing.File"))),
      _file(new QLineEdit(tracing.Wanted().file)),
      _choose(new QPushButton(Text("Tracing.Choose"))),
      _problem(new QLabel) {
  setWindowTitle(Text("Tracing.Title"));
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  _problem->setWordWrap(true);
  _problem->setTextFormat(Qt::PlainText);
  _problem->hide();
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(MakeComponents());
  layout->addWidget(MakeTarget());
  layout->addWidget(_problem);
  layout->addStretch();
  layout->addWidget(buttons);
  QObject::connect(buttons, &QDialogButtonBox::accepted, this, [this] { accept(); });
  QObject::connect(buttons, &QDialogButtonBox::rejected, this, [this] { reject(); });
  resize(520, sizeHint().height());
  _shownFirst = Choice();
}

QWidget* TracingDialog::MakeComponents() {
  auto* group = new QGroupBox(Text("Tracing.Components"));
  auto* column = new QVBoxLayout(group);
  for (const QString& component : Tracing::Components()) {
    _components.push_back(new QCheckBox(component));
    _components.back()->setChecked(_tracing.Wanted().Traces(component));
    column->addWidget(_components.back());
  }
  return group;
}

QWidget* TracingDialog::MakeTarget() {
  auto* group = new QGroupBox(Text("Tracing.Target"));
  auto* grid = new QGridLayout(group);
  grid->addWidget(_console, 0, 0, 1, 3);
  grid->addWidget(_toFile, 1, 0);
  grid->addWidget(_file, 1, 1);
  grid->addWidget(_choose, 1, 2);
  (_tracing.Wanted().file.isEmpty() ? _console : _toFile)->setChecked(true);
  _file->setAccessibleName(_toFile->text());
  QObject::connect(_toFile, &QRadioButton::toggled, this, [this] { ShowTarget(); });
  QObject::connect(_choose, &QPushButton::clicked, this, [this] { ChooseFile(); });
  ShowTarget();
  return group;
}

void TracingDialog::ShowTarget() {
  _file->setEnabled(_toFile->isChecked());
  _choose->setEnabled(_toFile->isChecked());
}

void TracingDialog::ChooseFile() {
  KorDlgFileRequest request;
  request.title = FromQt(Text("Tracing.File"));
  request.pattern = FromQt(Text("Tracing.Pattern"));
  request.mode = KorDlgFileRequest::Mode::Save;
  if (const auto file = KorApplicationFrame::ChooseFile(request)) _file->setText(ToQt(*file));
}

QCheckBox* TracingDialog::ComponentBox(const QString& component) const {
  const auto found = std::find_if(_components.begin(), _components.end(),
                                  [&](const QCheckBox* box) { return box->text() == component; });
  return found == _components.end() ? nullptr : *found;
}

TraceChoice TracingDialog::Choice() const {
  TraceChoice choice;
  for (const QCheckBox* box : _components)
    if (box->isChecked()) choice.components << box->text();
  if (_toFile->isChecked()) choice.file = _file->text().trimmed();
  return choice;
}

QString TracingDialog::ProblemText() const { return _problem->text(); }

/// Components that the user left as they are may be all there will be, which no checks can show.
TraceChoice TracingDialog::Asked() const {
  TraceChoice asked = Choice();
  if (asked.components == _shownFirst.components)
    asked.components = Tracing::KnownOf(_tracing.Wanted().components);
  return asked;
}

void TracingDialog::accept() {
  const bool lacksFile = _toFile->isChecked() && _file->text().trimmed().isEmpty();
  // Without a change, too: a file that could not be opened, or not be written to, may be so now.
  const auto applied = lacksFile ? protocol::Result<void>(protocol::Error{
                                       protocol::ErrorKind::BadValue, Text("Tracing.NoFile").toStdString()})
                                 : _tracing.Apply(Asked());
  if (applied) return QDialog::accept();
  _problem->setText(ToQt(applied.Failure().message));
  _problem->show();
}

}  // namespace desktop
