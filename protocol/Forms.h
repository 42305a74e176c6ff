#pragma once

#include "protocol/FieldRules.h"
#include "protocol/History.h"
#include "protocol/PartData.h"
#include "protocol/Requests.h"
#include "protocol/Roots.h"
#include "protocol/Tree.h"
#include "protocol/Warnings.h"

/// The fields of every form, in the order in which they stand on the wire; used for writing and for reading.
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

template <>
struct Form<PartDataRequest> {
  static constexpr FormHead kHead = {"PartDataRequest", "1"};

  template <class Archive, class X>
  static void Fields(Archive& a, X& x) {
    a.Field("product", x.product);
    a.Field("partId", x.partId);
    a.Field("instancePath", x.instancePath, ListRule{.most = kMaxPathDepth});
    a.Field("filter", x.filter, kFilterText);
  }
};

template <>
struct Form<ChildrenRequest> {
  static constexpr FormHead kHead = {"ChildrenRequest", "1"};

  template <class Archive, class X>
  static void Fields(Archive& a, X& x) {
    a.Field("partId", x.partId);
    a.Field("first", x.first, IntRange{.from = 0});
    a.Field("limit", x.limit, IntRange{1, kMaxPageEntries});
  }
};

template <>
struct Form<SearchRequest> {
  static constexpr FormHead kHead = {"SearchRequest", "1"};

  template <class Archive, class X>
  static void Fields(Archive& a, X& x) {
    a.Field("product", x.product);
    a.Field("text", x.text);
    a.Field("limit", x.limit, IntRange{1, kMaxPageEntries});
  }
};

template <>
struct Form<TreeNode> {
  template <class Archive, class X>
  static void Fields(Archive& a, X& x) {
    a.Field("instanceId", x.instanceId);
    a.Field("partId", x.partId);
    a.Field("name", x.name);
    a.Field("revision", x.revision);
    a.Field("quantity", x.quantity, IntRange{.from = 1});
    a.Field("hasChildren", x.hasChildren);
    a.Field("computedStatus", x.computedStatus, MassTypeStatus::OutOfDate);
    a.Field("mass", x.mass);
  }
};

template <>
struct Form<TreeNodes> {
  static constexpr FormHead kHead = {"TreeNodes", "1"};

  template <class Archive, class X>
  static void Fields(Archive& a, X& x) {
    a.Field("parentPartId", x.parentPartId);
    a.Field("total", x.total, IntRange{.from = 0});
    a.Field("first", x.first, IntRange{.from = 0});
    a.Field("nodes", x.nodes);
  }
};

template <>
struct Form<ProductEntry> {
  template <class Archive, class X>
  static void Fields(Archive& a, X& x) {
    a.Field("product", x.product);
    a.Field("root", x.root);
    a.Field("filters", x.filters);
  }
};

template <>
struct Form<ProductList> {
  static constexpr FormHead kHead = {"ProductList", "1"};

  template <class Archive, class X>
  static void Fields(Archive& a, X& x) {
    a.Field("products", x.products);
    // Only there when something could not be read.
    if (a.HasMore(!x.problems.empty())) a.Field("problems", x.problems);
  }
};

template <>
struct Form<Occurrence> {
  template <class Archive, class X>
  static void Fields(Archive& a, X& x) {
    a.Field("instancePath", x.instancePath, ListRule{.most = kMaxPathDepth});
    a.Field("node", x.node);
  }
};

template <>
struct Form<SearchReply> {
  static constexpr FormHead kHead = {"SearchReply", "1"};

  template <class Archive, class X>
  static void Fields(Archive& a, X& x) {
    a.Field("cut", x.cut);
    a.Field("hits", x.hits);
  }
};

template <>
struct Form<Warning> {
  template <class Archive, class X>
  static void Fields(Archive& a, X& x) {
    a.Field("severity", x.severity, Severity::Error);
    a.Field("text", x.text);
  }
};

template <>
struct Form<PendingWarnings> {
  static constexpr FormHead kHead = {"PendingWarnings", "1"};

  template <class Archive, class X>
  static void Fields(Archive& a, X& x) {
    a.Field("warnings", x.warnings);
  }
};

template <>
struct Form<RootRequest> {
  static constexpr FormHead kHead = {"RootRequest", "1"};

  template <class Archive, class X>
  static void Fields(Archive& a, X& x) {
    a.Field("product", x.product);
  }
};

template <>
struct Form<RootEntry> {
  template <class Archive, class X>
  static void Fields(Archive& a, X& x) {
    a.Field("rootPart", x.rootPart);
    a.Field("product", x.product);
  }
};

template <>
struct Form<CurrentRoot> {
  static constexpr FormHead kHead = {"CurrentRoot", "1"};

  template <class Archive, class X>
  static void Fields(Archive& a, X& x) {
    a.Field("roots", x.roots);
    a.Field("text", x.text);
  }
};

template <>
struct Form<FiltersRequest> {
  static constexpr FormHead kHead = {"FiltersRequest", "1"};

  template <class Archive, class X>
  static void Fields(Archive& a, X& x) {
    a.Field("rootParts", x.rootParts);
    a.Field("products", x.products);
  }
};

template <>
struct Form<FilterEntry> {
  template <class Archive, class X>
  static void Fields(Archive& a, X& x) {
    a.Field("id", x.id);
    a.Field("name", x.name);
    a.Field("summary", x.summary);
  }
};

template <>
struct Form<FilterList> {
  static constexpr FormHead kHead = {"FilterList", "1"};

  template <class Archive, class X>
  static void Fields(Archive& a, X& x) {
    a.Field("filters", x.filters);
  }
};

template <>
struct Form<HandlerRequest> {
  static constexpr FormHead kHead = {"HandlerRequest", "1"};

  template <class Archive, class X>
  static void Fields(Archive& a, X& x) {
    a.Field("product", x.product);
  }
};

template <>
struct Form<ConfigurationHandler> {
  static constexpr FormHead kHead = {"ConfigurationHandler", "1"};

  template <class Archive, class X>
  static void Fields(Archive& a, X& x) {
    a.Field("product", x.product);
    a.Field("name", x.name);
  }
};

template <>
struct Form<FieldChange> {
  template <class Archive, class X>
  static void Fields(Archive& a, X& x) {
    a.Field("field", x.field);
    a.Field("before", x.before);
    a.Field("after", x.after);
  }
};

template <>
struct Form<HistoryEntry> {
  template <class Archive, class X>
  static void Fields(Archive& a, X& x) {
    a.Field("number", x.number, IntRange{.from = 1});
    a.Field("time", x.time);
    a.Field("user", x.user);
    a.Field("changeCount", x.changeCount, IntRange{.from = 0});
    a.Field("changes", x.changes, ListRule{.most = kMaxHistoryChanges});
  }
};

template <>
struct Form<HistoryRequest> {
  static constexpr FormHead kHead = {"HistoryRequest", "1"};

  template <class Archive, class X>
  static void Fields(Archive& a, X& x) {
    a.Field("partId", x.partId);
    a.Field("before", x.before, IntRange{.from = 0});
    a.Field("limit", x.limit, IntRange{1, kMaxHistoryEntries});
  }
};

template <>
struct Form<History> {
  static constexpr FormHead kHead = {"History", "1"};

  template <class Archive, class X>
  static void Fields(Archive& a, X& x) {
    a.Field("partId", x.partId);
    a.Field("total", x.total, IntRange{.from = 0});
    a.Field("entries", x.entries);
  }
};

template <>
struct Form<HistoryStateRequest> {
  static constexpr FormHead kHead = {"HistoryStateRequest", "1"};

  template <class Archive, class X>
  static void Fields(Archive& a, X& x) {
    a.Field("partId", x.partId);
    a.Field("number", x.number, IntRange{.from = 1});
    a.Field("moment", x.moment, HistoryMoment::After);
  }
};

}  // namespace protocol
