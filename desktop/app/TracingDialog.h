#pragma once

#include <QDialog>
#include <vector>

#include "desktop/app/Tracing.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace desktop {

/// Chooses which components are traced, and whether to the console or to a file.
class TracingDialog : public QDialog {
 public:
  /// Shows what is wanted of `tracing`, and changes it; it must outlive the dialog.
  explicit TracingDialog(Tracing& tracing, QWidget* parent = nullptr);

  /// Null when there is no such component.
  QCheckBox* ComponentBox(const QString& component) const;
  QRadioButton* ConsoleButton() const { return _console; }
  QRadioButton* FileButton() const { return _toFile; }
  QLineEdit* FileEdit() const { return _file; }
  /// Why the choice cannot be taken; empty when nothing is the matter.
  QString ProblemText() const;

  /// As the dialog shows it.
  TraceChoice Choice() const;

  /// Takes the choice, and opens its file anew even when nothing was changed; stays open, and says why, when
  /// the file cannot be written.
  void accept() override;

 private:
  QWidget* MakeComponents();
  QWidget* MakeTarget();
  void ChooseFile();
  void ShowTarget();
  TraceChoice Asked() const;

  Tracing& _tracing;
  std::vector<QCheckBox*> _components;
  QRadioButton* _console;
  QRadioButton* _toFile;
  QLineEdit* _file;
  QPushButton* _choose;
  QLabel* _problem;
  TraceChoice _shownFirst;
};

}  // namespace desktop
