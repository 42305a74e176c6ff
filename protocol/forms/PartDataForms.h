#pragma once

#include "protocol/FieldRules.h"
#include "protocol/PartData.h"

/// The fields of the forms in protocol/PartData.h, as in protocol/Forms.h.
namespace protocol {

inline constexpr IntRange kZeroOrOne = {0, 1};

template <>
struct Form<MassType> {
  template <class Archive, class X>
  static void Fields(Archive& a, X& x) {
    a.Field("name", x.name);
    a.Field("status", x.status, MassTypeStatus::OutOfDate);
    a.Field("mass", x.mass);
    a.Field("cg", x.cg);
    a.Field("inertia", x.inertia);
    a.Field("lowerDeviation", x.lowerDeviation);
    a.Field("upperDeviation", x.upperDeviation);
    a.Field("precisionType", x.precisionType, kZeroOrOne);
    a.Field("precisionValueType", x.precisionValueType, kZeroOrOne);
    a.Field("lowerPrecision", x.lowerPrecision);
    a.Field("upperPrecision", x.upperPrecision);
    a.Field("massTypeLowerPrecision", x.massTypeLowerPrecision);
    a.Field("massTypeUpperPrecision", x.massTypeUpperPrecision);
  }
};

template <>
struct Form<MaterialStatistic> {
  template <class Archive, class X>
  static void Fields(Archive& a, X& x) {
    a.Field("name", x.name);
    a.Field("density", x.density);
    a.Field("kind", x.kind, IntRange{1, 2});
  }
};

template <>
struct Form<Material> {
  template <class Archive, class X>
  static void Fields(Archive& a, X& x) {
    a.Field("name", x.name);
    a.Field("density", x.density);
    a.Field("densityPriority", x.densityPriority, kZeroOrOne);
    a.Field("referenceName", x.referenceName);
    a.Field("referenceDensity", x.referenceDensity);
    a.Field("appliedOn", x.appliedOn);
    a.Field("statistics", x.statistics);
  }
};

template <>
struct Form<DocumentRevision> {
  template <class Archive, class X>
  static void Fields(Archive& a, X& x) {
    a.Field("revision", x.revision);
    a.Field("checkInTime", x.checkInTime);
    a.Field("checkInUser", x.checkInUser);
    a.Field("checkOutUser", x.checkOutUser);
    a.Field("massTypes", x.massTypes);
    a.Field("mass", x.mass);
  }
};

template <>
struct Form<Documents> {
  template <class Archive, class X>
  static void Fields(Archive& a, X& x) {
    a.Field("used", x.used);
    a.Field("activeId", x.activeId);
    a.Field("activeVersion", x.activeVersion);
    a.Field("autoMode", x.autoMode);
    a.Field("usedSpecificRevisionBefore", x.usedSpecificRevisionBefore);
    a.Field("attachedVersion", x.attachedVersion);
    a.Field("revisions", x.revisions);
  }
};

template <>
struct Form<ExtraProperty> {
  template <class Archive, class X>
  static void Fields(Archive& a, X& x) {
    a.Field("name", x.name);
    a.Field("value", x.value);
    a.Field("type", x.type);
    a.Field("isDate", x.isDate);
    a.Field("isMagnitude", x.isMagnitude);
    a.Field("magnitude", x.magnitude);
  }
};

template <>
struct Form<Origin> {
  template <class Archive, class X>
  static void Fields(Archive& a, X& x) {
    a.Field("kind", x.kind, OriginKind::AfterSave);
    a.Field("name", x.name);
  }
};

template <>
struct Form<PartData> {
  static constexpr FormHead kHead = {"PartData", "1"};

  template <class Archive, class X>
  static void Fields(Archive& a, X& x) {
    a.Field("partId", x.partId);
    a.Field("instancePath", x.instancePath);
    a.Field("configurationHandler", x.configurationHandler);
    a.Field("filter", x.filter, kFilterText);
    a.Field("hasInstance", x.hasInstance);
    a.Field("computed", x.computed);
    a.Field("persisted", x.persisted);
    a.Field("standardPart", x.standardPart);
    a.Field("referenceInertiaMode", x.referenceInertiaMode);
    a.Field("activeMassType", x.activeMassType);
    a.Field("massTypes", x.massTypes);
    a.Field("placement", x.placement, ListRule{.most = 12, .group = 12});
    a.Field("material", x.material);
    a.Field("documents", x.documents);
    a.Field("propertiesRequested", x.propertiesRequested);
    a.Field("dateFormat", x.dateFormat);
    a.Field("properties", x.properties);
    a.Field("stateToken", x.stateToken);
    // Only there when it is not the part as it stands.
    if (a.HasMore(x.massTypesOrigin != Origin{})) a.Field("massTypesOrigin", x.massTypesOrigin);
  }
};

template <>
struct Form<SaveReply> {
  static constexpr FormHead kHead = {"SaveReply", "1"};

  template <class Archive, class X>
  static void Fields(Archive& a, X& x) {
    a.Field("partId", x.partId);
    a.Field("stateToken", x.stateToken);
  }
};

template <>
struct Form<ComputeOptions> {
  static constexpr FormHead kHead = {"ComputeOptions", "1"};

  template <class Archive, class X>
  static void Fields(Archive& a, X& x) {
    a.Field("filter", x.filter, kFilterText);
    a.Field("referenceInertiaMode", x.referenceInertiaMode);
    a.Field("reuseStoredResults", x.reuseStoredResults);
    a.Field("materialName", x.materialName);
  }
};

template <>
struct Form<ComputeReply> {
  static constexpr FormHead kHead = {"ComputeReply", "1"};

  template <class Archive, class X>
  static void Fields(Archive& a, X& x) {
    a.Field("partId", x.partId);
    a.Field("computed", x.computed);
    // Only there when it tells more than the centre of gravity does.
    if (!a.HasMore(x.firstMoment || x.inertiaAtOrigin)) return;
    a.Field("firstMoment", x.firstMoment);
    a.Field("inertiaAtOrigin", x.inertiaAtOrigin);
  }
};

}  // namespace protocol
