#include "desktop/app/StoredState.h"

#include <algorithm>
#include <optional>

#include "protocol/Codec.h"
#include "protocol/Constants.h"

namespace desktop {
namespace {

/// Nothing when the buffer holds what no reader takes, such as an unreadable text of a failed save.
std::optional<protocol::PartData> DataOf(const LumWBAllDataBuffer& buffer) {
  KorUnicodeString text;
  buffer.GetAllData(text);
  auto data = protocol::ReadPartData(text.Utf8());
  return data ? std::optional(std::move(data).Value()) : std::nullopt;
}

/// What no user edits.
void CopyUnedited(const protocol::PartData& from, protocol::PartData& to) {
  to.configurationHandler = from.configurationHandler;
  to.filter = from.filter;
  to.hasInstance = from.hasInstance;
  to.computed = from.computed;
  to.referenceInertiaMode = from.referenceInertiaMode;
}

const protocol::MassType* FindComputed(const protocol::PartData& data) {
  const auto found = std::ranges::find(data.massTypes, protocol::kComputed, &protocol::MassType::name);
  return found == data.massTypes.end() ? nullptr : &*found;
}

}  // namespace

void StoredState::Take(const LumWBAllDataBuffer& buffer) {
  _data = DataOf(buffer).value_or(protocol::PartData());
}

void StoredState::TakeComputed(const LumWBAllDataBuffer& buffer) {
  const auto now = DataOf(buffer);
  const protocol::MassType* computed = now ? FindComputed(*now) : nullptr;
  if (!computed) return;
  std::erase_if(_data.massTypes, [](const auto& type) { return type.name == protocol::kComputed; });
  // At the place that the buffer gives it, so that the two can be compared.
  _data.massTypes.insert(_data.massTypes.begin() + std::min<std::ptrdiff_t>(computed - now->massTypes.data(),
                                                                            std::ssize(_data.massTypes)),
                         *computed);
}

bool StoredState::Has(const LumWBAllDataBuffer& buffer) const {
  auto now = DataOf(buffer);
  if (!now) return false;
  CopyUnedited(_data, *now);
  return protocol::WritePartData(*now) == protocol::WritePartData(_data);
}

bool StoredState::HasProperty(const LumWBAllDataBuffer& buffer, int index) const {
  return index >= 1 && index <= std::ssize(_data.properties) &&
         _data.properties[index - 1].value == buffer.GetPropertyValue(index).Utf8();
}

}  // namespace desktop
