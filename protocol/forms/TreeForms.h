#pragma once

#include "protocol/FieldRules.h"
#include "protocol/Limits.h"
#include "protocol/Tree.h"

/// The fields of the forms in protocol/Tree.h, as in protocol/Forms.h.
namespace protocol {

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

}  // namespace protocol
