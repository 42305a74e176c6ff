#pragma once

#include <cstddef>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "lumira/model/Part.h"
#include "lumira/model/PropertyDefinition.h"
#include "protocol/Limits.h"
#include "protocol/PartData.h"

/// What cannot be told is not stored. These limits share what a text of part data may have
/// (protocol::kMaxTextBytes), and leave an eighth of it for a filter and the rest. Sizes are those on the
/// wire, numbers at their longest.
namespace lumira {

/// Of the mass types and extra properties of a part, or of a revision of its document, together.
inline constexpr std::size_t kMaxValueBytes = protocol::kMaxTextBytes / 2;
/// Of the list of revisions of a document.
inline constexpr std::size_t kMaxRevisionListBytes = protocol::kMaxTextBytes / 8;
/// Of the different materials in a product.
inline constexpr std::size_t kMaxMaterialBytes = protocol::kMaxTextBytes / 4;

std::size_t BytesOf(const MassTypeData& type);
std::size_t BytesOf(const std::vector<MassTypeData>& types);
/// Without a value.
std::size_t BytesOf(const PropertyDefinition& property);
std::size_t BytesOf(const std::vector<PropertyDefinition>& properties);
std::size_t BytesOf(const protocol::DocumentRevision& revision);

/// "have 5 bytes together, at most 4 expected"; none when all is well.
std::optional<std::string> FindTooMany(std::size_t bytes, std::size_t most);

/// Why the materials of a product are too many with that of a part, `problem` being what `FindTooMany` says;
/// may follow the part's name.
std::string TooManyMaterials(const Part& part, const std::string& problem);

/// Why one field of a revision, or the list of all of them, could not be told, as a sentence that may follow
/// a place; none when all is well.
std::optional<std::string> FindSizeProblem(const std::vector<protocol::DocumentRevision>& revisions);

/// Adds the materials of parts up, each one once.
class MaterialBytes {
 public:
  /// Returns the bytes of all materials so far.
  std::size_t Add(const Part& part);

 private:
  std::set<std::tuple<std::string, double, int>> _met;
  std::size_t _bytes = 0;
};

}  // namespace lumira
