#include "desktop/app/SelectionPane.h"

#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <initializer_list>
#include <iterator>
#include <string_view>

#include "desktop/app/Icons.h"
#include "desktop/app/Quantities.h"
#include "desktop/app/StatusTexts.h"
#include "desktop/app/Texts.h"
#include "desktop/toolkit/QtText.h"
#include "protocol/Constants.h"

namespace desktop {
namespace {

const QString kNone = QString::fromUtf8("\u2013");

QString OrNone(const std::string& text) { return text.empty() ? kNone : ToQt(text); }

const protocol::MassType* Find(const protocol::PartData& data, std::string_view name) {
  const auto found = std::find_if(data.massTypes.begin(), data.massTypes.end(),
                                  [&](const protocol::MassType& type) { return type.name == name; });
  return found == data.massTypes.end() ? nullptr : &*found;
}

QString PathText(const OccurrencePlace& place, const protocol::PartData&) {
  QStringList names;
  for (const std::string& name : place.names) names << ToQt(name);
  return names.join(QString::fromUtf8(" \u203a "));
}

QString ComputedStatusText(const OccurrencePlace&, const protocol::PartData& data) {
  const protocol::MassType* computed = Find(data, protocol::kComputed);
  return StatusText(computed ? computed->status : protocol::MassTypeStatus::Undefined);
}

/// One line on what is selected.
struct PartRow {
  const char* key;
  QString (*text)(const OccurrencePlace&, const protocol::PartData&);
};

const PartRow kPartRows[] = {
    {"Selection.Part", [](const auto&, const auto& data) { return ToQt(data.partId); }},
    {"Selection.Path", PathText},
    {"Selection.Instance", [](const auto& place, const auto&) { return OrNone(place.node.instanceId); }},
    {"Selection.Revision", [](const auto& place, const auto&) { return OrNone(place.node.revision); }},
    {"Selection.Quantity",
     [](const auto& place, const auto&) { return QString::number(place.node.quantity); }},
    {"Selection.Active", [](const auto&, const auto& data) { return OrNone(data.activeMassType); }},
    {"Selection.Status", ComputedStatusText},
};

QString MassText(const protocol::MassType& type) { return type.mass ? ShowMass(*type.mass) : kNone; }

template <std::size_t axis>
QString CgText(const protocol::MassType& type) {
  return type.cg ? ShowLength((*type.cg)[axis]) : kNone;
}

/// Moments as they are, products with their physical sign: the tensor keeps them negated.
template <std::size_t element>
QString InertiaText(const protocol::MassType& type) {
  if (!type.inertia) return kNone;
  const double value = (*type.inertia)[element];
  return ShowInertia(element < 3 ? value : -value);
}

/// One line of values, shown for each of the mass types.
struct ValueRow {
  const char* key;
  QString (*text)(const protocol::MassType&);
};

const ValueRow kValueRows[] = {
    {"Selection.Mass", MassText},      {"Selection.CGx", CgText<0>},      {"Selection.CGy", CgText<1>},
    {"Selection.CGz", CgText<2>},      {"Selection.Ixx", InertiaText<0>}, {"Selection.Iyy", InertiaText<1>},
    {"Selection.Izz", InertiaText<2>}, {"Selection.Ixy", InertiaText<3>}, {"Selection.Ixz", InertiaText<4>},
    {"Selection.Iyz", InertiaText<5>},
};

QLabel* MakeHeading() {
  auto* heading = new QLabel;
  QFont font = heading->font();
  font.setPointSizeF(font.pointSizeF() * 1.35);
  font.setBold(true);
  heading->setFont(font);
  heading->setWordWrap(true);
  heading->setTextFormat(Qt::PlainText);
  return heading;
}

QLabel* MakeValueLabel() {
  auto* label = new QLabel;
  label->setTextFormat(Qt::PlainText);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  return label;
}

QLabel* MakeNote() {
  auto* note = new QLabel;
  note->setTextFormat(Qt::PlainText);
  note->setWordWrap(true);
  return note;
}

}  // namespace

SelectionPane::SelectionPane(QWidget* parent)
    : QWidget(parent),
      _heading(MakeHeading()),
      _part(new QGroupBox),
      _values(new QGroupBox),
      _note(MakeNote()),
      _filterNote(MakeNote()),
      _panelButton(new QPushButton) {
  auto* layout = new QVBoxLayout(this);
  layout->setSpacing(10);
  layout->addWidget(_heading);
  layout->addWidget(_part);
  layout->addWidget(_values);
  layout->addWidget(_panelButton);
  layout->addStretch();
  AddPartRows();
  AddValueRows();
  ShowNothing();
}

void SelectionPane::AddPartRows() {
  auto* form = new QFormLayout(_part);
  form->setHorizontalSpacing(16);
  form->setVerticalSpacing(5);
  form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  for (std::size_t i = 0; i < std::size(kPartRows); ++i) {
    _partLabels.push_back({new QLabel, MakeValueLabel()});
    _partLabels.back().value->setWordWrap(true);
    form->addRow(_partLabels.back().title, _partLabels.back().value);
  }
}

void SelectionPane::AddValueRows() {
  auto* grid = new QGridLayout(_values);
  grid->setHorizontalSpacing(16);
  grid->setVerticalSpacing(5);
  grid->setColumnStretch(0, 1);
  const int rows = static_cast<int>(std::size(kValueRows)) + 1;  // the names of the mass types first
  for (int row = 0; row < rows; ++row) {
    _valueLabels.push_back({new QLabel, MakeValueLabel(), MakeValueLabel()});
    const ValueLabels& labels = _valueLabels.back();
    grid->addWidget(labels.title, row, 0);
    grid->addWidget(labels.active, row, 1, Qt::AlignRight);
    grid->addWidget(labels.computed, row, 2, Qt::AlignRight);
  }
  grid->addWidget(_note, rows, 0, 1, 3);
  grid->addWidget(_filterNote, rows + 1, 0, 1, 3);
}

void SelectionPane::Show(const OccurrencePlace& place, const protocol::PartData& data) {
  _place = place;
  _data = data;
  RefreshTexts();
}

void SelectionPane::ShowNothing() {
  _place.reset();
  RefreshTexts();
}

void SelectionPane::ShowFilter(const QString& name) {
  _filterName = name;
  _filterNote->setText(name.isEmpty() ? QString() : Text("Selection.FilterNote", {name}));
  _filterNote->setVisible(!name.isEmpty());
}

QString SelectionPane::FilterNote() const { return _filterNote->text(); }

void SelectionPane::RefreshTexts() {
  _part->setTitle(Text("Selection.PartTitle"));
  _values->setTitle(Text("Selection.ValuesTitle"));
  _note->setText(Text("Selection.Note"));
  ShowFilter(_filterName);
  _panelButton->setText(Text("Selection.PanelButton"));
  _panelButton->setIcon(icons::PartPanel());
  _heading->setText(_place ? ToQt(_place->names.back()) : Text("Selection.Nothing"));
  for (QWidget* widget : std::initializer_list<QWidget*>{_part, _values, _panelButton})
    widget->setVisible(_place.has_value());
  RefreshPart();
  RefreshValues();
}

void SelectionPane::RefreshPart() {
  for (std::size_t i = 0; i < _partLabels.size(); ++i) {
    const PartLabels& labels = _partLabels[i];
    labels.title->setText(Text(kPartRows[i].key));
    labels.value->setText(_place ? kPartRows[i].text(*_place, _data) : QString());
    labels.value->setAccessibleName(labels.title->text());
  }
}

void SelectionPane::RefreshValues() {
  const protocol::MassType* computed = Find(_data, protocol::kComputed);
  const protocol::MassType* active = Find(_data, _data.activeMassType);
  const bool both = active && active != computed;
  ShowColumn(&ValueLabels::active, both ? *active : protocol::MassType());
  ShowColumn(&ValueLabels::computed, computed ? *computed : protocol::MassType());
  _valueLabels[0].computed->setText(ToQt(protocol::kComputed));
  for (const ValueLabels& labels : _valueLabels) labels.active->setVisible(both);
}

void SelectionPane::ShowColumn(QLabel* ValueLabels::*column, const protocol::MassType& type) {
  (_valueLabels[0].*column)->setText(ToQt(type.name));
  for (std::size_t i = 0; i < std::size(kValueRows); ++i) {
    const ValueLabels& labels = _valueLabels[i + 1];
    labels.title->setText(Text(kValueRows[i].key));
    (labels.*column)->setText(kValueRows[i].text(type));
    (labels.*column)->setAccessibleName(labels.title->text() + ", " + (_valueLabels[0].*column)->text());
  }
}

QString SelectionPane::PartText(const char* key) const {
  const auto row = std::find_if(std::begin(kPartRows), std::end(kPartRows),
                                [&](const PartRow& one) { return std::string_view(one.key) == key; });
  return row == std::end(kPartRows) ? QString()
                                    : _partLabels[static_cast<std::size_t>(row - kPartRows)].value->text();
}

QString SelectionPane::ComputedText(const char* key) const { return ValueText(key, &ValueLabels::computed); }

QString SelectionPane::ActiveText(const char* key) const {
  return _valueLabels[0].active->isHidden() ? QString() : ValueText(key, &ValueLabels::active);
}

QString SelectionPane::ValueText(const char* key, QLabel* ValueLabels::*column) const {
  const auto row = std::find_if(std::begin(kValueRows), std::end(kValueRows),
                                [&](const ValueRow& one) { return std::string_view(one.key) == key; });
  if (row == std::end(kValueRows)) return {};
  return (_valueLabels[static_cast<std::size_t>(row - kValueRows) + 1].*column)->text();
}

}  // namespace desktop
