#include "desktop/app/ImportDialog.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFontDatabase>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>
#include <cstddef>
#include <optional>
#include <utility>

#include "desktop/app/Texts.h"
#include "desktop/toolkit/QtText.h"
#include "framework/dialog/KorApplicationFrame.h"

namespace desktop {
namespace {

using protocol::Result;

QStringList Lines(const QString& heading, const std::vector<std::string>& texts) {
  if (texts.empty()) return {};
  QStringList lines{QString(), heading};
  for (const std::string& text : texts) lines << "  " + ToQt(text);
  return lines;
}

/// What an import counts. What a product may have or not is only told when there is any.
struct Count {
  std::size_t lumira::ImportReport::*number;
  const char* one;
  const char* many;
  enum { Always, WhenAny } told;
};

constexpr Count kCounts[] = {
    {&lumira::ImportReport::parts, "Count.Part", "Count.Parts", Count::Always},
    {&lumira::ImportReport::instances, "Count.Instance", "Count.Instances", Count::Always},
    {&lumira::ImportReport::massTypes, "Count.MassRow", "Count.MassRows", Count::Always},
    {&lumira::ImportReport::filters, "Count.Filter", "Count.Filters", Count::WhenAny},
    {&lumira::ImportReport::revisions, "Count.Revision", "Count.Revisions", Count::WhenAny},
    {&lumira::ImportReport::properties, "Count.Property", "Count.Properties", Count::WhenAny},
};

QString CountsOf(const lumira::ImportReport& report) {
  QStringList counts;
  for (const Count& count : kCounts)
    if (const std::size_t number = report.*count.number; number > 0 || count.told == Count::Always)
      counts << CountedText(number, count.one, count.many);
  return counts.join(", ");
}

QString ReportOf(const lumira::ImportReport& report, lumira::ImportMode mode) {
  QStringList lines{Text(mode == lumira::ImportMode::Write ? "Import.Done" : "Import.Checked",
                         {ToQt(report.product), CountsOf(report)})};
  lines << Lines(Text("Import.LeftOut", {QString::number(report.leftOut.size())}), report.leftOut)
        << Lines(CountedText(report.warnings.size(), "Import.Warning", "Import.Warnings"), report.warnings);
  return lines.join('\n');
}

}  // namespace

ImportDialog::ImportDialog(lumira::Store& store, QWidget* parent)
    : QDialog(parent),
      _store(store),
      _structure(new QLineEdit),
      _mass(new QLineEdit),
      _filters(new QLineEdit),
      _documents(new QLineEdit),
      _properties(new QLineEdit),
      _product(new QLineEdit),
      _replace(new QCheckBox(Text("Import.Replace"))),
      _leaveOut(new QCheckBox(Text("Import.LeaveOutUnknown"))),
      _check(new QPushButton(Text("Import.Check"))),
      _import(new QPushButton(Text("Import.Import"))),
      _progress(new QProgressBar),
      _report(new QPlainTextEdit) {
  setWindowTitle(Text("Import.Title"));
  _product->setPlaceholderText(Text("Import.ProductHint"));
  _structure->setPlaceholderText(Text("Import.StructureHint"));
  for (QLineEdit* edit : {_filters, _documents, _properties})
    edit->setPlaceholderText(Text("Import.NoTableHint"));
  _report->setReadOnly(true);
  _report->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
  _report->setPlaceholderText(Text("Import.ReportHint"));
  _progress->hide();

  auto* form = new QFormLayout;
  form->addRow(Text("Import.Structure"), MakeFileRow(_structure, "Import.Structure"));
  form->addRow(Text("Import.Mass"), MakeFileRow(_mass, "Import.Mass"));
  form->addRow(Text("Import.Filters"), MakeFileRow(_filters, "Import.Filters"));
  form->addRow(Text("Import.Documents"), MakeFileRow(_documents, "Import.Documents"));
  form->addRow(Text("Import.Properties"), MakeFileRow(_properties, "Import.Properties"));
  form->addRow(Text("Import.Product"), _product);
  form->addRow(QString(), _replace);
  form->addRow(QString(), _leaveOut);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close);
  buttons->addButton(_check, QDialogButtonBox::ActionRole);
  buttons->addButton(_import, QDialogButtonBox::ActionRole);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(form);
  layout->addWidget(_report, 1);
  layout->addWidget(_progress);
  layout->addWidget(buttons);

  QObject::connect(_check, &QPushButton::clicked, this, [this] { Run(lumira::ImportMode::DryRun); });
  QObject::connect(_import, &QPushButton::clicked, this, [this] { Run(lumira::ImportMode::Write); });
  QObject::connect(buttons, &QDialogButtonBox::rejected, this, [this] { reject(); });
  _check->setAutoDefault(false);
  _import->setDefault(true);
  resize(720, 580);
}

QWidget* ImportDialog::MakeFileRow(QLineEdit* edit, const char* titleKey) {
  auto* row = new QWidget;
  auto* choose = new QPushButton(Text("Import.Choose"));
  choose->setAutoDefault(false);
  auto* layout = new QHBoxLayout(row);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(edit, 1);
  layout->addWidget(choose);
  QObject::connect(choose, &QPushButton::clicked, this, [edit, titleKey] {
    KorDlgFileRequest request;
    request.title = FromQt(Text(titleKey));
    request.pattern = FromQt(Text("Import.Pattern"));
    if (const auto file = KorApplicationFrame::ChooseFile(request)) edit->setText(ToQt(*file));
  });
  return row;
}

QString ImportDialog::ReportText() const { return _report->toPlainText(); }

lumira::ImportOptions ImportDialog::Options(lumira::ImportMode mode) {
  lumira::ImportOptions options;
  options.product = _product->text().trimmed().toStdString();
  options.existing = _replace->isChecked() ? lumira::Existing::Replace : lumira::Existing::Refuse;
  options.unknownParts =
      _leaveOut->isChecked() ? lumira::UnknownParts::LeaveOut : lumira::UnknownParts::Refuse;
  options.mode = mode;
  options.progress = [this](std::string_view what, std::size_t done, std::size_t total) {
    ShowProgress(what, done, total);
  };
  return options;
}

Result<lumira::ImportTables> ImportDialog::ReadTables() const {
  lumira::ImportTables tables;
  const std::pair<const QLineEdit*, std::optional<lumira::TableSource>&> besideMass[] = {
      {_structure, tables.structure},
      {_filters, tables.filters},
      {_documents, tables.documents},
      {_properties, tables.properties}};
  for (const auto& [edit, table] : besideMass) {
    if (edit->text().trimmed().isEmpty()) continue;
    auto read = lumira::ReadTableFile(edit->text().toStdString());
    if (!read) return read.Failure();
    table = std::move(read).Value();
  }
  auto mass = lumira::ReadTableFile(_mass->text().toStdString());
  if (!mass) return mass.Failure();
  tables.mass = std::move(mass).Value();
  return tables;
}

Result<lumira::ImportReport> ImportDialog::Import(lumira::ImportMode mode) {
  const auto tables = ReadTables();
  if (!tables) return tables.Failure();
  return lumira::ImportProduct(_store, tables.Value(), Options(mode));
}

void ImportDialog::Run(lumira::ImportMode mode) {
  if (_mass->text().trimmed().isEmpty()) return _report->setPlainText(Text("Import.NoMassTable"));
  if (mode == lumira::ImportMode::Write && mayImport && !mayImport()) return;
  setCursor(Qt::WaitCursor);
  const auto report = Import(mode);
  unsetCursor();
  _progress->hide();
  if (report && mode == lumira::ImportMode::Write) Keep(report.Value());
  _report->setPlainText(report ? ReportOf(report.Value(), mode)
                               : Text("Import.Refused") + "\n\n" + ToQt(report.Failure().message));
}

void ImportDialog::Keep(const lumira::ImportReport& report) {
  std::erase_if(_imported, [&](const lumira::ImportReport& one) { return one.product == report.product; });
  _imported.push_back(report);
}

void ImportDialog::ShowProgress(std::string_view what, std::size_t done, std::size_t total) {
  // Scaled, so that a large total fits the bar; a total of 0 is "busy" in Qt too.
  constexpr std::size_t kSteps = 1000;
  _progress->setRange(0, total ? static_cast<int>(kSteps) : 0);
  _progress->setValue(total ? static_cast<int>(done * kSteps / total) : 0);
  _progress->setFormat(ProgressText(what) + " %p %");
  _progress->show();
  _progress->repaint();
}

}  // namespace desktop
