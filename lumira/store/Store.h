#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "lumira/model/Part.h"
#include "lumira/model/Product.h"
#include "lumira/model/ProductFilters.h"
#include "lumira/model/Progress.h"
#include "lumira/model/RevisionData.h"
#include "lumira/store/PartDetails.h"
#include "lumira/store/PartHistory.h"
#include "lumira/store/ProductContent.h"
#include "lumira/store/StoredResult.h"
#include "protocol/Result.h"
#include "protocol/Utf8.h"

namespace lumira {

/// What is known of a stored product without loading it.
struct ProductInfo {
  std::string id;
  std::vector<std::string> roots;  ///< part ids
  std::int64_t state = 0;          ///< grows with every change of structure or data
  std::int64_t resultState = 0;    ///< grows by one with every saving of results, whoever saves them
  std::int64_t partCount = 0;
  std::int64_t instanceCount = 0;
  /// Why the product cannot be told whole: then it has no roots, and no identifier either if that is damaged.
  std::optional<protocol::Error> damage = std::nullopt;
};

/// A part and the product that has it.
struct PartOwner {
  std::string part;
  std::string product;
};

/// The owner as the reason why another product cannot have the part.
inline std::string ToText(const PartOwner& owner) {
  return "part " + protocol::Quoted(owner.part) + " belongs to product " + protocol::Quoted(owner.product) +
         " already";
}

/// The owner of a document as the reason why another part cannot have it.
inline std::string DocumentTaken(std::string_view documentId, const PartOwner& owner) {
  return "document " + protocol::Quoted(documentId) + " belongs to part " + protocol::Quoted(owner.part) +
         " of product " + protocol::Quoted(owner.product) + " already";
}

/// The root part of a stored product, without the rest of it.
struct ProductRoot {
  Part part;
  bool hasChildren = false;
  std::optional<StoredResult>
      result;  ///< of the root, up to date or not; surely up to date at the same state
};

/// What the tables tell of a product as a whole.
struct ProductSurvey {
  bool hasMassData = false;       ///< some part has a mass, or a shape with a density
  std::int64_t olderResults = 0;  ///< results that were computed before the last change of the product
  /// What could not be taken over as it was from the tables of an older program, as sentences without the
  /// first capital and the full stop; they last until the product is replaced.
  std::vector<std::string> notes = {};
};

/// What to do with a product that is stored already.
enum class Existing { Refuse, Replace };

/// Keeps products, their weight-and-balance data and computed results. Part identifiers are unique in the
/// whole store, so that a part alone tells its product; so are document identifiers, so that a document alone
/// tells its part.
///
/// Each writing operation is one transaction: when it answers success the data is on the disk, when it
/// answers a failure nothing has changed. Failures: Storage when the medium refuses (damaged, read-only,
/// locked, full; the message names the file and the reason), NotFound for an unknown product or part,
/// Conflict when what is there forbids it. One thread at a time; other processes may work on the same store.
class Store {
 public:
  virtual ~Store() = default;

  /// All products, by identifier. A damaged one does not hide the others: its entry says what is wrong.
  virtual protocol::Result<std::vector<ProductInfo>> Products() = 0;

  /// The product a part belongs to. NotFound when no product has it, Storage when one lacks it as its root.
  virtual protocol::Result<std::string> ProductOfPart(std::string_view partId) = 0;

  /// The whole structure with the data of every part; instances in the order in which they were added.
  /// `progress` hears of rows read, out of all rows. Storage when a row holds what was never stored (texts
  /// that are not UTF-8, no identifiers, numbers outside their range), when rows are missing, and when the
  /// root is not the one part that is no child; the message names the row or the part.
  virtual protocol::Result<Product> LoadProduct(std::string_view productId,
                                                const Progress& progress = {}) = 0;

  /// The root of a product, however large or damaged the rest is.
  virtual protocol::Result<ProductRoot> LoadRoot(std::string_view productId) = 0;

  /// The failure to answer when the stored data turns out to be unusable: Storage, with a message that names
  /// the place where it lies.
  virtual protocol::Error Damage(const std::string& what) const = 0;

  /// The parts of `product` that belong to other products of the store, in the order of its parts.
  virtual protocol::Result<std::vector<PartOwner>> OtherOwners(const Product& product) = 0;

  /// Conflict when the product exists (and is not to be replaced), or when one of its parts belongs to
  /// another product, or one of the documents to a part of another. BadValue for what no command could tell
  /// of or compute (store/ProductRules.h). A replaced product loses its results, content, histories, filters
  /// and handler. `progress` hears of rows written, out of all rows. Filters and content are checked against
  /// the product (`CheckFilters`, `CheckContent`).
  virtual protocol::Result<void> AddProduct(const Product& product, Existing existing,
                                            const Progress& progress = {}, const ProductFilters& filters = {},
                                            const ProductContent& content = {}) = 0;

  /// Replaces the data of one part; its instances, details and results stay. BadValue as above.
  virtual protocol::Result<void> UpdatePart(const Part& part) = 0;

  /// With every property that the product defines, and with the active document worked out
  /// (store/ActiveDocument.h).
  virtual protocol::Result<PartDetails> LoadDetails(std::string_view partId) = 0;
  /// BadValue for a number that is not finite or outside its range, and for a document identifier or a value
  /// of a property that cannot be one; NotFound for a property that the product does not define; Conflict for
  /// a document of another part. The data of document revisions stays.
  virtual protocol::Result<void> SaveDetails(std::string_view partId, const PartDetails& details) = 0;

  /// A part with its details, both of one moment.
  virtual protocol::Result<StoredPart> LoadPart(std::string_view partId) = 0;

  /// Replaces the data and the details of a part and adds a record to its history, all or nothing. Conflict
  /// when the part is in another state than the one that the saving stands on. BadValue as `UpdatePart` and
  /// `SaveDetails`. The product counts as changed only when data change that enter a computation.
  virtual protocol::Result<SavedState> SavePart(const PartSaving& saving) = 0;

  /// At most `limit` records of a part's history with numbers below `before` (0: all), the latest first. A
  /// history lasts as long as its part: that of a replaced product is gone.
  virtual protocol::Result<HistoryPage> LoadHistory(std::string_view partId, std::int64_t before,
                                                    std::int64_t limit) = 0;

  /// The texts of one record. NotFound when the part has no record of that number.
  virtual protocol::Result<HistoryTexts> LoadHistoryTexts(std::string_view partId, std::int64_t number) = 0;

  /// The text of the saved values in one state of the part; none when no record tells of that state.
  virtual protocol::Result<std::optional<std::string>> FindStateText(std::string_view partId,
                                                                     std::int64_t state) = 0;

  /// The extra properties that every part of the product has, in the order in which they were defined.
  virtual protocol::Result<std::vector<PropertyDefinition>> LoadProperties(std::string_view productId) = 0;

  /// The part whose document it is; none when no part has it. Several where an older program has let them
  /// have the same one, which stays so until their products are replaced.
  virtual protocol::Result<std::vector<PartOwner>> PartsOfDocument(std::string_view documentId) = 0;

  /// The data of the part as a revision of its document has it. NotFound when there is none.
  virtual protocol::Result<RevisionData> LoadRevision(std::string_view partId, std::string_view revision) = 0;

  /// Computed results of a product's parts, in no particular order.
  virtual protocol::Result<std::vector<StoredResult>> LoadResults(std::string_view productId) = 0;

  /// Adds results or replaces those of the same parts. Raises `resultState` of each product concerned by one
  /// and does not change its `state`. BadValue for a number that is not finite.
  virtual protocol::Result<void> SaveResults(const std::vector<StoredResult>& results) = 0;

  /// By name.
  virtual protocol::Result<std::vector<ConfigurationFilter>> LoadFilters(std::string_view productId) = 0;

  /// Adds a filter or replaces the one of the same name. BadValue as `CheckFilter` says, NotFound for an
  /// instance in a condition that the product has not.
  virtual protocol::Result<void> SaveFilter(std::string_view productId,
                                            const ConfigurationFilter& filter) = 0;

  /// The configuration filter that is set on the product for everybody; none when none is.
  virtual protocol::Result<std::optional<std::string>> LoadHandler(std::string_view productId) = 0;

  /// Sets or takes away the filter that is set on the product; results stay up to date. NotFound for a filter
  /// that the product has not.
  virtual protocol::Result<void> SaveHandler(std::string_view productId,
                                             const std::optional<std::string>& name) = 0;

  /// What can be said of a product without loading it, however large it is.
  virtual protocol::Result<ProductSurvey> Survey(std::string_view productId) = 0;
};

}  // namespace lumira
