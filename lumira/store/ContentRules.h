#pragma once

#include <vector>

#include "lumira/model/Product.h"
#include "lumira/store/ProductContent.h"
#include "protocol/Result.h"

namespace lumira {

/// Why details cannot be stored with a part of a product that defines these properties: BadValue for a
/// document identifier and revisions of it that are no identifiers or there twice, and for a value that does
/// not fit its property (model/PropertyRules.h); NotFound for a property that is not defined. The document
/// with its revisions, and values, that the part has at `present` are somebody else's decision, and may stay
/// whatever they are.
protocol::Result<void> CheckDetails(const std::vector<PropertyDefinition>& properties,
                                    const PartDetails& details, const PartDetails& present);

/// Why content cannot be stored with a product: as `CheckDetails`; BadValue for what could not be told of a
/// part any more (store/SizeRules.h), for properties that are no properties or there twice, for a document of
/// two parts, for a part that is there twice, and for data of a revision that the engine could not compute
/// with; NotFound for a part that the product does not have, and for data of a revision that the details do
/// not list.
protocol::Result<void> CheckContent(const Product& product, const ProductContent& content);

}  // namespace lumira
