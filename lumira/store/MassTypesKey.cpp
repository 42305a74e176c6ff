#include "lumira/store/MassTypesKey.h"

#include <bit>
#include <string>
#include <string_view>

#include "lumira/model/Part.h"
#include "protocol/Numbers.h"

namespace lumira {
namespace {

// FNV-1a with 64 bits, its bits mixed, so that sums of several do not run into each other.
std::uint64_t Hash(std::string_view text) {
  std::uint64_t hash = 0xCBF29CE484222325;
  for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3;
  hash = (hash ^ (hash >> 33)) * 0xFF51AFD7ED558CCD;
  hash = (hash ^ (hash >> 33)) * 0xC4CEB9FE1A85EC53;
  return hash ^ (hash >> 33);
}

// Negative and positive zero count as the same.
std::string NumberText(double number) { return protocol::FormatNumber(number + 0.0); }

std::uint64_t KeyOf(const protocol::MassType& type) {
  return Hash(type.name + '|' + NumberText(type.massTypeLowerPrecision) + '|' +
              NumberText(type.massTypeUpperPrecision));
}

}  // namespace

std::int64_t MassTypesKey(const protocol::PartData& data) {
  std::uint64_t sum = 0;
  for (const protocol::MassType& type : data.massTypes)
    if (type.name != kComputedMassType) sum += KeyOf(type);
  return std::bit_cast<std::int64_t>(sum);
}

}  // namespace lumira
