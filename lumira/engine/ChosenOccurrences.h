#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

#include "lumira/engine/StructureIndex.h"
#include "protocol/Filter.h"
#include "protocol/Result.h"

namespace lumira {

/// The occurrences of a list of chosen instances, each with everything below it, and the assemblies that they
/// stand in: a tree that begins with the root part. It takes memory for the rows and their paths only,
/// however large and shared the product is.
class ChosenOccurrences {
 public:
  /// Finds each row in the product: the path leads from the root part down to the assembly that the instance
  /// is placed in, which is the root part itself when the path is empty. Refuses a row whose occurrence is
  /// not there (NotFound), and one whose instance places another part or revision (BadValue); the message
  /// names row, field and value. Takes time for the rows and their paths.
  static protocol::Result<ChosenOccurrences> Find(const StructureIndex& structure,
                                                  const std::vector<protocol::FilterRow>& rows);

  /// What the rows leave of a part, wherever it stands.
  struct Remainder {
    /// Something different remains in one place than in another, or something here and nothing there.
    bool differs = false;
    /// Part of `Product` that stands for what remains, wherever that is the same; none when nothing is.
    std::optional<std::string> part;
  };
  Remainder RemainderOf(const StructureIndex& structure, std::uint32_t part) const;

  /// A product of what was chosen: the parts that count whole under their own identifiers, and stand-ins for
  /// the assemblies that hold some of what is in them only.
  Product MakeProduct(const StructureIndex& structure) const;
  /// Identifiers of the stand-ins.
  std::unordered_set<std::string> StandIns(const StructureIndex& structure) const;
  /// The part that an identifier of `MakeProduct` stands for.
  static std::string_view OriginalOf(std::string_view id);

 private:
  struct Node {
    std::uint32_t part;
    bool isWhole = false;                               ///< chosen, with everything below
    std::uint32_t form = 0;                             ///< of a node that is not whole: see `_forms`
    std::map<std::uint32_t, std::uint32_t> below = {};  ///< nodes by instance; none when whole
  };

  /// What remains of an assembly: instances in it, each whole or in a form of its own.
  using Form = std::vector<std::pair<std::uint32_t, std::optional<std::uint32_t>>>;

  std::optional<protocol::Error> Add(const StructureIndex& structure, const protocol::FilterRow& row,
                                     std::size_t number);
  protocol::Result<std::uint32_t> Enter(const StructureIndex& structure, std::uint32_t node,
                                        const std::string& instance, const std::string& place);
  void DropCovered();
  void FindForms();
  std::string StandInOf(const StructureIndex& structure, std::uint32_t form) const;

  std::vector<Node> _nodes;               ///< the root first, each before those below it
  std::vector<Form> _forms;               ///< each once, those below before those above
  std::vector<std::uint32_t> _formParts;  ///< part of each form
};

}  // namespace lumira
