#include "desktop/app/HistoryTexts.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <vector>

#include "desktop/app/Quantities.h"
#include "desktop/app/Texts.h"
#include "desktop/toolkit/QtText.h"
#include "protocol/Constants.h"

namespace desktop {
namespace {

const QString kNone = QString::fromUtf8("\u2013");

/// "massTypes[Weighed].mass" is the field "massTypes[].mass" of "Weighed".
struct FieldName {
  std::string pattern;
  std::string entry;
};

FieldName Split(const std::string& field) {
  const std::size_t open = field.find('[');
  const std::size_t close = field.rfind(']');
  if (open == field.npos || close == field.npos || close < open) return {field, {}};
  return {field.substr(0, open + 1) + field.substr(close), field.substr(open + 1, close - open - 1)};
}

/// Where a value stands: the part at that moment, and the entry of the list that it belongs to.
struct Place {
  const HistoryContext& context;
  const std::string& entry;
};

/// The numbers of a text; nothing when it holds anything else or another count.
std::optional<std::vector<double>> Numbers(const QString& text, int count) {
  std::vector<double> numbers;
  for (const QString& part : text.split(' ', Qt::SkipEmptyParts)) {
    bool read = false;
    numbers.push_back(part.toDouble(&read));
    if (!read) return std::nullopt;
  }
  return static_cast<int>(numbers.size()) == count ? std::optional(numbers) : std::nullopt;
}

template <class Show>
QString Joined(const QString& text, int count, Show show) {
  const auto numbers = Numbers(text, count);
  if (!numbers) return text;
  QStringList shown;
  for (std::size_t i = 0; i < numbers->size(); ++i) shown << show((*numbers)[i], i);
  return shown.join(", ");
}

QString AsIs(const QString& text, const Place&) { return text; }

QString Mass(const QString& text, const Place&) {
  return Joined(text, 1, [](double value, std::size_t) { return ShowMass(value); });
}

QString Lengths(const QString& text, const Place&) {
  return Joined(text, 3, [](double value, std::size_t) { return ShowLength(value); });
}

/// Products with their physical sign (the tensor keeps them negated), or deviations, which have none to turn.
template <int productSign>
QString Inertia(const QString& text, const Place&) {
  return Joined(text, 6,
                [](double value, std::size_t i) { return ShowInertia(i < 3 ? value : productSign * value); });
}

QString Density(const QString& text, const Place&) {
  return Joined(text, 1, [](double value, std::size_t) { return ShowQuantity("DENSITY", value); });
}

QString Percent(double part) { return QString::number(part * 100, 'g', 6) + "%"; }

QString Bound(const QString& text, const Place& place) {
  const auto relative = place.context.isRelative.find(place.entry);
  if (relative == place.context.isRelative.end())
    return text.isEmpty() ? text : Text("History.BoundOfUnknownKind", {text});
  if (!relative->second) return Mass(text, place);
  return Joined(text, 1, [](double value, std::size_t) { return Percent(value); });
}

QString Property(const QString& text, const Place& place) {
  const auto magnitude = place.context.magnitudes.find(place.entry);
  if (magnitude == place.context.magnitudes.end()) return text;
  return Joined(text, 1, [&](double value, std::size_t) { return ShowSi(magnitude->second, value); });
}

/// None is told of where the server finds the revision by itself.
QString Revision(const QString& text, const Place&) {
  return text.isEmpty() ? Text("History.Automatic") : text;
}

QString AppliedOn(const QString& text, const Place&) {
  if (text == ToQt(std::string(protocol::kPartInstance))) return Text("History.OnInstance");
  if (text == ToQt(std::string(protocol::kPartReference))) return Text("History.OnReference");
  return text;
}

QString InLanguage(const char* key) { return Text(key); }
QString AsInPanel(const char* name) { return QString::fromUtf8(name); }

/// The texts of the numbers from 0 on.
template <const char* const* texts, std::size_t count, QString (*show)(const char*) = InLanguage>
QString Choice(const QString& text, const Place&) {
  bool read = false;
  const std::size_t index = text.toULong(&read);
  return read && index < count ? show(texts[index]) : text;
}

constexpr const char* kYesNo[] = {"History.No", "History.Yes"};
constexpr const char* kStatus[] = {"History.NoValues", "History.HasValues", "Status.OutOfDate"};
constexpr const char* kPriority[] = {"History.WbFirst", "History.CadFirst"};
// The lines of the panel's combos are the same in each language, and what is seen side by side has one name.
constexpr const char* kBoundsFrom[] = {"Mass Type", "User Defined"};
constexpr const char* kBoundsKind[] = {"Relative", "Absolute"};

struct FieldRow {
  std::string_view pattern;
  const char* key;  ///< of a text that may have "{1}" for the entry of the list
  QString (*show)(const QString& text, const Place& place);
};

constexpr FieldRow kFields[] = {
    {"standardPart", "History.StandardPart", Choice<kYesNo, 2>},
    {"activeMassType", "Selection.Active", AsIs},
    {"massTypes[].name", "History.MassType", AsIs},
    {"massTypes[].status", "History.Status", Choice<kStatus, 3>},
    {"massTypes[].mass", "History.Mass", Mass},
    {"massTypes[].cg", "History.CG", Lengths},
    {"massTypes[].inertia", "History.Inertia", Inertia<-1>},
    {"massTypes[].lowerDeviation", "History.LowerDeviation", Mass},
    {"massTypes[].upperDeviation", "History.UpperDeviation", Mass},
    {"massTypes[].precisionType", "History.BoundsFrom", Choice<kBoundsFrom, 2, AsInPanel>},
    {"massTypes[].precisionValueType", "History.BoundsKind", Choice<kBoundsKind, 2, AsInPanel>},
    {"massTypes[].lowerPrecision", "History.LowerBound", Bound},
    {"massTypes[].upperPrecision", "History.UpperBound", Bound},
    {"massTypes[].massTypeLowerPrecision", "History.LowerBoundOfType", Bound},
    {"massTypes[].massTypeUpperPrecision", "History.UpperBoundOfType", Bound},
    {"material.name", "History.Material", AsIs},
    {"material.density", "History.Density", Density},
    {"material.densityPriority", "History.Priority", Choice<kPriority, 2>},
    {"material.appliedOn", "History.AppliedOn", AppliedOn},
    {"documents.activeId", "History.Document", AsIs},
    {"documents.activeVersion", "History.DocumentRevision", Revision},
    {"documents.usedSpecificRevisionBefore", "History.ChosenByHand", Choice<kYesNo, 2>},
    {"properties[].value", "History.Property", Property},
    {"standardDeviations[].mass", "History.MassDeviation", Mass},
    {"standardDeviations[].cg", "History.CGDeviation", Lengths},
    {"standardDeviations[].inertia", "History.InertiaDeviation", Inertia<1>},
    {"standardDeviations[].hasLimits", "History.HasLimits", Choice<kYesNo, 2>},
};

const FieldRow* FindRow(const std::string& pattern) {
  const auto row = std::find_if(std::begin(kFields), std::end(kFields),
                                [&](const FieldRow& one) { return one.pattern == pattern; });
  return row == std::end(kFields) ? nullptr : &*row;
}

bool HasUnknownKind(const std::optional<std::string>& value, const FieldRow* row, const Place& place) {
  return value && row && row->show == Bound && !place.context.isRelative.contains(place.entry);
}

QString Shown(const std::optional<std::string>& value, const FieldRow* row, const Place& place) {
  if (!value) return kNone;
  const QString text = row ? row->show(ToQt(*value), place) : ToQt(*value);
  return text.isEmpty() ? kNone : text;
}

}  // namespace

HistoryContext HistoryContext::Of(const protocol::PartData& data) {
  HistoryContext context;
  for (const protocol::MassType& type : data.massTypes)
    context.isRelative[type.name] = type.precisionValueType == 0;
  for (const protocol::ExtraProperty& property : data.properties)
    if (property.isMagnitude) context.magnitudes[property.name] = property.magnitude;
  return context;
}

bool IsCut(const protocol::HistoryEntry& save) {
  return static_cast<std::size_t>(save.changeCount) > save.changes.size();
}

void HistoryContext::GoBackOver(const protocol::HistoryEntry& save) {
  if (IsCut(save)) isRelative.clear();
  for (const protocol::FieldChange& change : save.changes)
    if (const FieldName name = Split(change.field); name.pattern == "massTypes[].precisionValueType")
      isRelative[name.entry] = change.before.value_or("0") == "0";
}

HistoryTexts HistoryTexts::Of(const protocol::FieldChange& change, const HistoryContext& after,
                              const HistoryContext& before) {
  const FieldName name = Split(change.field);
  const FieldRow* row = FindRow(name.pattern);
  const Place then{before, name.entry};
  const Place later{after, name.entry};
  return {row ? Text(row->key, {ToQt(name.entry)}) : ToQt(change.field), Shown(change.before, row, then),
          Shown(change.after, row, later),
          HasUnknownKind(change.before, row, then) || HasUnknownKind(change.after, row, later)};
}

}  // namespace desktop
