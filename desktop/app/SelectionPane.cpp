#include "desktop/app/SelectionPane.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <iterator>

#include "desktop/app/Icons.h"
#include "desktop/app/Quantities.h"
#include "desktop/app/StatusTexts.h"
#include "desktop/app/Texts.h"
#include "desktop/toolkit/QtText.h"
#include "protocol/Constants.h"

namespace desktop {
namespace {

/// What the rows show.
struct Shown {
  const OccurrencePlace& place;
  const protocol::PartData& data;
  protocol::MassType computed;
};

const QString kNone = QString::fromUtf8("\u2013");

QString OrNone(const std::string& text) { return text.empty() ? kNone : ToQt(text); }

QString PathText(const Shown& s) {
  QStringList names;
  for (const std::string& name : s.place.names) names << ToQt(name);
  return names.join(QString::fromUtf8(" \u203a "));
}

template <std::size_t axis>
QString CgText(const Shown& s) {
  return s.computed.cg ? ShowLength((*s.computed.cg)[axis]) : kNone;
}

/// Moments as they are, products with their physical sign: the tensor keeps them negated.
template <std::size_t element>
QString InertiaText(const Shown& s) {
  if (!s.computed.inertia) return kNone;
  const double value = (*s.computed.inertia)[element];
  return ShowInertia(element < 3 ? value : -value);
}

enum class Group { Part, Computed };

struct Row {
  const char* key;
  Group group;
  QString (*text)(const Shown&);
};

const Row kRows[] = {
    {"Selection.Part", Group::Part, [](const Shown& s) { return ToQt(s.data.partId); }},
    {"Selection.Path", Group::Part, PathText},
    {"Selection.Instance", Group::Part, [](const Shown& s) { return OrNone(s.place.node.instanceId); }},
    {"Selection.Revision", Group::Part, [](const Shown& s) { return OrNone(s.place.node.revision); }},
    {"Selection.Quantity", Group::Part,
     [](const Shown& s) { return QString::number(s.place.node.quantity); }},
    {"Selection.Active", Group::Part, [](const Shown& s) { return OrNone(s.data.activeMassType); }},
    {"Selection.Status", Group::Computed, [](const Shown& s) { return StatusText(s.computed.status); }},
    {"Selection.Mass", Group::Computed,
     [](const Shown& s) { return s.computed.mass ? ShowMass(*s.computed.mass) : kNone; }},
    {"Selection.CGx", Group::Computed, CgText<0>},
    {"Selection.CGy", Group::Computed, CgText<1>},
    {"Selection.CGz", Group::Computed, CgText<2>},
    {"Selection.Ixx", Group::Computed, InertiaText<0>},
    {"Selection.Iyy", Group::Computed, InertiaText<1>},
    {"Selection.Izz", Group::Computed, InertiaText<2>},
    {"Selection.Ixy", Group::Computed, InertiaText<3>},
    {"Selection.Ixz", Group::Computed, InertiaText<4>},
    {"Selection.Iyz", Group::Computed, InertiaText<5>},
};

protocol::MassType ComputedOf(const protocol::PartData& data) {
  const auto found =
      std::find_if(data.massTypes.begin(), data.massTypes.end(),
                   [](const protocol::MassType& type) { return type.name == protocol::kComputed; });
  return found == data.massTypes.end() ? protocol::MassType() : *found;
}

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

QFormLayout* MakeForm(QGroupBox* group) {
  auto* form = new QFormLayout(group);
  form->setHorizontalSpacing(16);
  form->setVerticalSpacing(5);
  form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  return form;
}

}  // namespace

SelectionPane::SelectionPane(QWidget* parent)
    : QWidget(parent),
      _heading(MakeHeading()),
      _part(new QGroupBox),
      _computed(new QGroupBox),
      _panelButton(new QPushButton) {
  auto* layout = new QVBoxLayout(this);
  layout->setSpacing(10);
  layout->addWidget(_heading);
  layout->addWidget(_part);
  layout->addWidget(_computed);
  layout->addWidget(_panelButton);
  layout->addStretch();
  AddRows();
  ShowNothing();
}

void SelectionPane::AddRows() {
  QFormLayout* part = MakeForm(_part);
  QFormLayout* computed = MakeForm(_computed);
  for (const Row& row : kRows) {
    const RowLabels labels{new QLabel, new QLabel};
    labels.value->setTextFormat(Qt::PlainText);
    labels.value->setTextInteractionFlags(Qt::TextSelectableByMouse);
    labels.value->setWordWrap(row.group == Group::Part);
    if (row.group == Group::Computed) labels.value->setAlignment(Qt::AlignRight);
    (row.group == Group::Part ? part : computed)->addRow(labels.title, labels.value);
    _labels.push_back(labels);
  }
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

void SelectionPane::RefreshTexts() {
  _part->setTitle(Text("Selection.PartTitle"));
  _computed->setTitle(Text("Selection.ComputedTitle"));
  _panelButton->setText(Text("Selection.PanelButton"));
  _panelButton->setIcon(icons::PartPanel());
  _heading->setText(_place ? ToQt(_place->names.back()) : Text("Selection.Nothing"));
  for (QWidget* widget : std::initializer_list<QWidget*>{_part, _computed, _panelButton})
    widget->setVisible(_place.has_value());
  for (std::size_t i = 0; i < _labels.size(); ++i) {
    _labels[i].title->setText(Text(kRows[i].key));
    _labels[i].value->setText(_place ? kRows[i].text({*_place, _data, ComputedOf(_data)}) : QString());
    _labels[i].value->setAccessibleName(_labels[i].title->text());
  }
}

QString SelectionPane::ValueText(const char* key) const {
  const auto row = std::find_if(std::begin(kRows), std::end(kRows),
                                [&](const Row& one) { return std::string_view(one.key) == key; });
  return row == std::end(kRows) ? QString() : _labels[static_cast<std::size_t>(row - kRows)].value->text();
}

}  // namespace desktop
