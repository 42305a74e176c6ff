#pragma once

#include "protocol/FieldRules.h"
#include "protocol/Roots.h"

/// The fields of the forms in protocol/Roots.h, as in protocol/Forms.h.
namespace protocol {

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

}  // namespace protocol
