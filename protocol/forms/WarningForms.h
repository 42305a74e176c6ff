#pragma once

#include "protocol/FieldRules.h"
#include "protocol/Warnings.h"

/// The fields of the forms in protocol/Warnings.h, as in protocol/Forms.h.
namespace protocol {

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

}  // namespace protocol
