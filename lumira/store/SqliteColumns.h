#pragma once

#include "lumira/model/FilterCondition.h"
#include "lumira/model/Instance.h"
#include "lumira/model/Part.h"
#include "lumira/model/PropertyDefinition.h"
#include "lumira/model/RevisionData.h"
#include "lumira/store/PartDetails.h"
#include "lumira/store/StoredResult.h"
#include "protocol/FieldRules.h"

/// Which column holds which member, and which numbers a whole number may be when not all. Used to write SQL,
/// to bind values and to read them.
namespace lumira {

inline constexpr protocol::IntRange kZeroOrOne = {0, 1};
inline constexpr protocol::IntRange kConditionKinds = {static_cast<int>(ConditionKind::Attribute),
                                                       static_cast<int>(ConditionKind::Instances)};
inline constexpr protocol::IntRange kPropertyTypes = {static_cast<int>(PropertyType::Text),
                                                      static_cast<int>(PropertyType::Magnitude)};

/// Marks a column of identifiers (model/Identifier.h).
struct IdentifierRule {};
inline constexpr IdentifierRule kIdentifier;

template <class T>
struct Columns;

template <>
struct Columns<Part> {
  template <class Archive, class X>
  static void List(Archive& a, X& x) {
    a("part", x.id, kIdentifier);
    a("revision", x.revision);
    a("name", x.name);
    a("active_mass_type", x.activeMassType);
    a("material", x.material);
    a("density", x.density);
    a("cad_material", x.cadMaterial);
    a("cad_density", x.cadDensity);
    a("density_priority", x.densityPriority, kZeroOrOne);
    a("standard_part", x.standardPart);
    a("surface_mass", x.surfaceMass);
    a("", x.geometry);
  }
};

/// The values of a mass type, without its name.
template <class Archive, class X>
void ListMassValues(Archive& a, X& x) {
  a("mass", x.properties.mass);
  a("cg", x.properties.cg);
  a("inertia", x.properties.inertia);
  a("sd_mass", x.deviations.mass);
  a("sd_cg", x.deviations.cg);
  a("sd_inertia", x.deviations.inertia);
  a("bound", x.bounds);
}

template <>
struct Columns<MassTypeData> {
  template <class Archive, class X>
  static void List(Archive& a, X& x) {
    a("name", x.name, kIdentifier);
    ListMassValues(a, x);
  }
};

template <>
struct Columns<StoredResult> {
  template <class Archive, class X>
  static void List(Archive& a, X& x) {
    a("fingerprint", x.fingerprint);
    a("state", x.state);
    a("name", x.computed.name);
    ListMassValues(a, x.computed);
  }
};

template <>
struct Columns<Instance> {
  template <class Archive, class X>
  static void List(Archive& a, X& x) {
    a("instance", x.id, kIdentifier);
    a("parent", x.parent, kIdentifier);
    a("child", x.child, kIdentifier);
    a("quantity", x.quantity);
    a("r", x.placement.rotation);
    a("t", x.placement.translation);
    a("effective_from", x.effectivity.from);
    a("effective_until", x.effectivity.until);
  }
};

template <>
struct Columns<InstanceAttribute> {
  template <class Archive, class X>
  static void List(Archive& a, X& x) {
    a("name", x.name);
    a("value", x.value);
  }
};

template <>
struct Columns<FilterCondition> {
  template <class Archive, class X>
  static void List(Archive& a, X& x) {
    a("kind", x.kind, kConditionKinds);
    a("sense", x.sense, kZeroOrOne);
    a("name", x.name);
  }
};

template <>
struct Columns<Precision> {
  template <class Archive, class X>
  static void List(Archive& a, X& x) {
    a("mass_type", x.massType);
    a("precision_type", x.precisionType, kZeroOrOne);
    a("value_type", x.precisionValueType, kZeroOrOne);
    a("lower", x.lowerPrecision);
    a("upper", x.upperPrecision);
    a("type_lower", x.massTypeLowerPrecision);
    a("type_upper", x.massTypeUpperPrecision);
  }
};

template <>
struct Columns<protocol::DocumentRevision> {
  template <class Archive, class X>
  static void List(Archive& a, X& x) {
    a("revision", x.revision);
    a("check_in_time", x.checkInTime);
    a("check_in_user", x.checkInUser);
    a("check_out_user", x.checkOutUser);
    a("mass_types", x.massTypes);
    a("mass", x.mass);
  }
};

template <>
struct Columns<PropertyDefinition> {
  template <class Archive, class X>
  static void List(Archive& a, X& x) {
    a("name", x.name, kIdentifier);
    a("type", x.type, kPropertyTypes);
    a("magnitude", x.magnitude);
  }
};

template <>
struct Columns<RevisionData> {
  template <class Archive, class X>
  static void List(Archive& a, X& x) {
    a("revision", x.revision, kIdentifier);
    a("active_mass_type", x.activeMassType);
    a("material", x.material);
    a("density", x.density);
  }
};

template <>
struct Columns<PartDetails> {
  template <class Archive, class X>
  static void List(Archive& a, X& x) {
    a("applied_on", x.appliedOn);
    a("reference_material", x.referenceMaterial);
    a("reference_density", x.referenceDensity);
    a("document", x.documentId);
    a("documents_used", x.documents.used);
    a("active_document", x.documents.activeId);
    a("active_version", x.documents.activeVersion);
    a("auto_mode", x.documents.autoMode, kZeroOrOne);
    a("used_specific_revision", x.documents.usedSpecificRevisionBefore);
    a("attached_version", x.documents.attachedVersion);
  }
};

}  // namespace lumira
