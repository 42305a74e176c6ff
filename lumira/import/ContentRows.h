#pragma once

#include <functional>
#include <string>

#include "lumira/import/DocumentTable.h"
#include "lumira/import/MassTable.h"
#include "lumira/import/PropertyTable.h"
#include "lumira/store/ProductContent.h"

namespace lumira {

/// Whether the product has a part that a table names at a place. Whoever answers no has said so.
using IsKnownPart = std::function<bool(const std::string& part, const Place& place)>;

/// Whether there is anything to keep.
bool HasContent(const PartDetails& details);

/// Adds documents and properties to what is known of parts already; rows of unknown parts are passed over.
void AddToContent(ProductContent& content, const DocumentRows& documents, const PropertyRows& properties,
                  const IsKnownPart& isKnown);

/// Says so where the values of a part (or of a revision of its document) become too many to be told, on the
/// row of the extra property with which they do (store/SizeRules.h).
void CheckSizes(const MassRows& mass, const DocumentRows& documents, const PropertyRows& properties,
                ImportLog& log);

}  // namespace lumira
