#pragma once

#include "protocol/FieldRules.h"
#include "protocol/History.h"
#include "protocol/Limits.h"

/// The fields of the forms in protocol/History.h, as in protocol/Forms.h.
namespace protocol {

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
