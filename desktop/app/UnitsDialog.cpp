#include "desktop/app/UnitsDialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QScrollArea>
#include <QScrollBar>
#include <QSpinBox>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/app/Texts.h"
#include "desktop/toolkit/QtText.h"
#include "desktop/toolkit/WheelGuard.h"

namespace desktop {
namespace {

/// Units of a magnitude by symbol, with the name behind as the item's data.
QComboBox* MakeUnitCombo(const KorCkeMagnitude& magnitude) {
  auto* combo = new QComboBox;
  KeepWheelToFocus(*combo);
  for (const KorCkeUnit_var& unit : magnitude.Units())
    combo->addItem(ToQt(unit->Symbol()), QString::fromStdString(unit->Name()));
  combo->setCurrentIndex(combo->findData(QString::fromStdString(magnitude.CurrentUnit()->Name())));
  return combo;
}

const KorUnitChoice* ChoiceOf(const KorUnitSystem& system, const KorString& magnitude) {
  const auto choice = std::find_if(system.choices.begin(), system.choices.end(),
                                   [&](const KorUnitChoice& one) { return magnitude == one.magnitude; });
  return choice == system.choices.end() ? nullptr : &*choice;
}

}  // namespace

UnitsDialog::UnitsDialog(QWidget* parent) : QDialog(parent), _system(new QComboBox), _digits(new QSpinBox) {
  setWindowTitle(Text("Units.Title"));
  for (const KorUnitSystem& system : KorGetUnitSystems())
    _system->addItem(Text(qPrintable(QString("Units.") + system.name)));
  _system->addItem(Text("Units.Own"));
  KeepWheelToFocus(*_system);
  KeepWheelToFocus(*_digits);
  _digits->setRange(1, 17);
  _digits->setValue(KorCkeUnit::GetShownDigits());

  auto* form = new QFormLayout;
  form->addRow(Text("Units.System"), _system);
  form->addRow(Text("Units.Digits"), _digits);
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(form);
  layout->addWidget(MakeRows(), 1);
  layout->addWidget(buttons);

  QObject::connect(_system, &QComboBox::activated, this, [this](int index) { ChooseSystem(index); });
  QObject::connect(buttons, &QDialogButtonBox::accepted, this, [this] { accept(); });
  QObject::connect(buttons, &QDialogButtonBox::rejected, this, [this] { reject(); });
  ShowSystem();
  resize(360, 520);
}

QWidget* UnitsDialog::MakeRows() {
  auto* content = new QWidget;
  auto* form = new QFormLayout(content);
  for (const KorCkeMagnitude_var& magnitude : KorCkeGlobalFunctions::GetParmDictionary()->Magnitudes()) {
    QComboBox* unit = MakeUnitCombo(*magnitude);
    form->addRow(Text(qPrintable("Magnitude." + QString::fromStdString(magnitude->Name()))), unit);
    QObject::connect(unit, &QComboBox::activated, this, [this] { ShowSystem(); });
    _rows.push_back({magnitude, unit});
  }
  auto* scroll = new QScrollArea;
  scroll->setWidget(content);
  scroll->setWidgetResizable(true);
  scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  return scroll;
}

QComboBox* UnitsDialog::UnitCombo(const KorString& magnitude) const {
  const auto row = std::find_if(_rows.begin(), _rows.end(),
                                [&](const MagnitudeRow& one) { return one.magnitude->Name() == magnitude; });
  return row == _rows.end() ? nullptr : row->unit;
}

void UnitsDialog::ChooseSystem(int index) {
  const auto systems = KorGetUnitSystems();
  if (index < 0 || index >= static_cast<int>(systems.size())) return;
  for (const MagnitudeRow& row : _rows)
    if (const KorUnitChoice* choice =
            ChoiceOf(systems[static_cast<std::size_t>(index)], row.magnitude->Name()))
      row.unit->setCurrentIndex(row.unit->findData(QString(choice->unit)));
}

void UnitsDialog::ShowSystem() {
  const auto systems = KorGetUnitSystems();
  const auto made = std::find_if(systems.begin(), systems.end(), [this](const KorUnitSystem& system) {
    return std::all_of(_rows.begin(), _rows.end(), [&](const MagnitudeRow& row) {
      const KorUnitChoice* choice = ChoiceOf(system, row.magnitude->Name());
      return !choice || row.unit->currentData().toString() == choice->unit;
    });
  });
  _system->setCurrentIndex(static_cast<int>(made - systems.begin()));
}

void UnitsDialog::accept() {
  KorCkeUnit::SetShownDigits(_digits->value());
  for (MagnitudeRow& row : _rows)
    row.magnitude->SetCurrentUnit(row.unit->currentData().toString().toStdString());
  QDialog::accept();
}

}  // namespace desktop
