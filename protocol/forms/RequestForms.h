#pragma once

#include "protocol/FieldRules.h"
#include "protocol/Limits.h"
#include "protocol/Requests.h"

/// The fields of the forms in protocol/Requests.h, as in protocol/Forms.h.
namespace protocol {

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

}  // namespace protocol
