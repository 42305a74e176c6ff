#pragma once

#include <QDialog>
#include <functional>
#include <vector>

#include "lumira/import/ImportProduct.h"

class QCheckBox;
class QLineEdit;
class QPlainTextEdit;
class QProgressBar;
class QPushButton;

namespace desktop {

/// Imports a product into the open product file: from a table of the structure, one of the mass data and, if
/// there are any, tables of configuration filters, documents and extra properties.
/// "Check" reads and checks without writing. The report stays on the screen until the dialog is closed.
class ImportDialog : public QDialog {
 public:
  ImportDialog(lumira::Store& store, QWidget* parent = nullptr);

  /// Asked before each import that writes; it does not begin without leave. Not set: there always is leave.
  std::function<bool()> mayImport;

  QLineEdit* StructureEdit() const { return _structure; }
  QLineEdit* MassEdit() const { return _mass; }
  QLineEdit* FiltersEdit() const { return _filters; }
  QLineEdit* DocumentsEdit() const { return _documents; }
  QLineEdit* PropertiesEdit() const { return _properties; }
  QLineEdit* ProductEdit() const { return _product; }
  QCheckBox* ReplaceBox() const { return _replace; }
  QCheckBox* LeaveOutBox() const { return _leaveOut; }
  QPushButton* CheckButton() const { return _check; }
  QPushButton* ImportButton() const { return _import; }
  QString ReportText() const;
  /// The reports of what was written, in that order; of a product that was written again only the last one.
  const std::vector<lumira::ImportReport>& Imported() const { return _imported; }

 private:
  QWidget* MakeFileRow(QLineEdit* edit, const char* titleKey);
  void Run(lumira::ImportMode mode);
  void Keep(const lumira::ImportReport& report);
  protocol::Result<lumira::ImportTables> ReadTables() const;
  protocol::Result<lumira::ImportReport> Import(lumira::ImportMode mode);
  lumira::ImportOptions Options(lumira::ImportMode mode);
  void ShowProgress(std::string_view what, std::size_t done, std::size_t total);

  lumira::Store& _store;
  QLineEdit* _structure;
  QLineEdit* _mass;
  QLineEdit* _filters;
  QLineEdit* _documents;
  QLineEdit* _properties;
  QLineEdit* _product;
  QCheckBox* _replace;
  QCheckBox* _leaveOut;
  QPushButton* _check;
  QPushButton* _import;
  QProgressBar* _progress;
  QPlainTextEdit* _report;
  std::vector<lumira::ImportReport> _imported;
};

}  // namespace desktop
