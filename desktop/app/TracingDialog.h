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
  /// Shows and changes what `tracing` does; it must outlive the dialog.
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

  /// Takes the choice, unless it is the one that was shown at first; stays open, and says why, when its file
  /// cannot be written.
  void accept() override;

 private:
  QWidget* MakeComponents();
  QWidget* MakeTarget();
  void ChooseFile();
  void ShowTarget();

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
