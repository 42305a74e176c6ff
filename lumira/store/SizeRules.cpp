#include "lumira/store/SizeRules.h"

#include "lumira/model/StatisticsMaterial.h"
#include "protocol/FieldWriter.h"
#include "protocol/Utf8.h"

namespace lumira {
namespace {

// A number of 17 digits with sign, point and exponent, and its separator.
constexpr std::size_t kNumberBytes = 25;
// Of a mass type: mass, centre, inertia, two deviations and four precisions; three small numbers are with
// them.
constexpr std::size_t kMassTypeNumbers = 1 + 3 + 6 + 2 + 4 + 1;
// Separators, and what has one or two digits.
constexpr std::size_t kFlagBytes = 16;

std::size_t Told(std::string_view text) { return protocol::Escape(text).size(); }

template <class T>
std::size_t SumOf(const std::vector<T>& list) {
  std::size_t bytes = 0;
  for (const T& entry : list) bytes += BytesOf(entry);
  return bytes;
}

}  // namespace

std::size_t BytesOf(const MassTypeData& type) { return Told(type.name) + kMassTypeNumbers * kNumberBytes; }
std::size_t BytesOf(const std::vector<MassTypeData>& types) { return SumOf(types); }

std::size_t BytesOf(const PropertyDefinition& property) {
  return Told(property.name) + Told(property.magnitude) + kFlagBytes;
}
std::size_t BytesOf(const std::vector<PropertyDefinition>& properties) { return SumOf(properties); }

std::size_t BytesOf(const protocol::DocumentRevision& revision) {
  return Told(revision.revision) + Told(revision.checkInTime) + Told(revision.checkInUser) +
         Told(revision.checkOutUser.value_or("")) + Told(revision.massTypes) + kNumberBytes + kFlagBytes;
}

std::optional<std::string> FindTooMany(std::size_t bytes, std::size_t most) {
  if (bytes <= most) return std::nullopt;
  return "have " + std::to_string(bytes) + " bytes together, at most " + std::to_string(most) + " expected";
}

std::string TooManyMaterials(const Part& part, const std::string& problem) {
  const auto material = MaterialOf(part);
  return "with its material " + (material ? protocol::Quoted(material->name) + " " : "") +
         "the different materials of the product " + problem;
}

std::optional<std::string> FindSizeProblem(const std::vector<protocol::DocumentRevision>& revisions) {
  std::size_t bytes = 0;
  for (const protocol::DocumentRevision& revision : revisions) {
    if (const auto problem = FindTooMany(Told(revision.massTypes), protocol::kMaxFieldBytes))
      return "the names of the mass types of revision " + protocol::Quoted(revision.revision) + " " +
             *problem;
    bytes += BytesOf(revision);
  }
  const auto problem = FindTooMany(bytes, kMaxRevisionListBytes);
  return problem ? std::optional("its revisions " + *problem) : std::nullopt;
}

std::size_t MaterialBytes::Add(const Part& part) {
  if (const auto material = MaterialOf(part))
    if (_met.emplace(material->name, material->density, material->kind).second)
      _bytes += Told(material->name) + kNumberBytes + kFlagBytes;
  return _bytes;
}

}  // namespace lumira
