#include "lumira/commands/HistoryText.h"

#include <optional>
#include <unordered_map>
#include <utility>

#include "lumira/commands/FieldTexts.h"
#include "lumira/commands/PlainZeros.h"
#include "protocol/Codec.h"
#include "protocol/Limits.h"
#include "protocol/WholeForm.h"
#include "protocol/forms/PartDataForms.h"

namespace protocol {

template <>
struct Form<lumira::SavedDeviations> {
  template <class Archive, class X>
  static void Fields(Archive& a, X& x) {
    a.Field("mass", x.mass);
    a.Field("cg", x.cg);
    a.Field("inertia", x.inertia);
    a.Field("hasLimits", x.hasLimits);
  }
};

// Part data may leave fields out at its end.
template <>
struct Form<lumira::SavedValues> {
  static constexpr FormHead kHead = {"SavedValues", "1"};

  template <class Archive, class X>
  static void Fields(Archive& a, X& x) {
    a.Field("deviations", x.deviations);
    a.Field("data", x.data);
  }
};

}  // namespace protocol

namespace lumira {
namespace {

using protocol::Error;
using protocol::ErrorKind;
using protocol::FieldChange;
using protocol::PartData;
using protocol::Result;

Error BadText(const std::string& problem) { return {ErrorKind::BadText, problem}; }

bool IsOlder(std::string_view text) {
  return text.starts_with(std::string(protocol::Form<PartData>::kHead.name) + '/');
}

Result<SavedValues> ReadOlder(std::string_view text) {
  auto data = protocol::ReadPartData(text);
  if (!data) return data.Failure();
  if (data.Value().massTypes.empty()) return BadText("PartData: massTypes: the computed one is missing");
  return SavedValues{.data = std::move(data).Value(), .deviations = {}, .hasDeviations = false};
}

Result<SavedValues> ReadValues(std::string_view text) {
  auto values = protocol::ReadForm<SavedValues>(text);
  if (!values) return values;
  if (const auto& [data, deviations, hasDeviations] = values.Value();
      deviations.size() + 1 != data.massTypes.size())
    return BadText("SavedValues: deviations: " + std::to_string(deviations.size()) +
                   ", not one for each user mass type");
  return values;
}

enum class DeviationTexts { Listed, LeftOut };

std::vector<FieldText> TextsOf(const SavedValues& values, DeviationTexts deviations) {
  std::vector<FieldText> texts = FieldTexts::Of(values.data);
  if (deviations == DeviationTexts::LeftOut) return texts;
  for (std::size_t i = 0; i < values.deviations.size(); ++i)
    for (FieldText& text : FieldTexts::Of(values.deviations[i]))
      texts.push_back({"standardDeviations[" + values.data.massTypes[i + 1].name + "]." + text.field,
                       std::move(text.text)});
  return texts;
}

// Where a character begins, so that none is cut in two.
std::string Cut(std::string text) {
  if (text.size() <= protocol::kMaxShownValueBytes) return text;
  constexpr std::string_view kMore = "...";
  std::size_t size = protocol::kMaxShownValueBytes - kMore.size();
  while (size > 0 && (static_cast<unsigned char>(text[size]) & 0xC0) == 0x80) --size;
  return text.substr(0, size) + std::string(kMore);
}

std::optional<std::string> Shown(const std::optional<std::string>& text) {
  return text ? std::optional(Cut(*text)) : std::nullopt;
}

}  // namespace

std::string ToHistoryText(const SavedValues& values) { return protocol::WriteForm(values); }

Result<SavedValues> FromHistoryText(std::string_view text) {
  auto values = IsOlder(text) ? ReadOlder(text) : ReadValues(text);
  if (values) values.Value().data = WithPlainZeros(std::move(values.Value().data));
  return values;
}

std::vector<FieldChange> DifferencesOf(const SavedValues& before, const SavedValues& after) {
  const auto deviations =
      before.hasDeviations && after.hasDeviations ? DeviationTexts::Listed : DeviationTexts::LeftOut;
  std::vector<FieldText> now = TextsOf(after, deviations);
  std::unordered_map<std::string_view, FieldText*> left;
  for (FieldText& field : now) left.emplace(field.field, &field);
  std::vector<FieldChange> changes;
  for (const FieldText& old : TextsOf(before, deviations)) {
    const auto found = left.find(old.field);
    const std::optional<std::string> text = found == left.end() ? std::nullopt : found->second->text;
    if (text != old.text) changes.push_back({old.field, Shown(old.text), Shown(text)});
    if (found != left.end()) left.erase(found);
  }
  for (const FieldText& added : now)
    if (added.text && left.contains(added.field))
      changes.push_back({added.field, std::nullopt, Shown(added.text)});
  return changes;
}

}  // namespace lumira
