#pragma once

#include <optional>

#include "lumira/model/Date.h"

namespace lumira {

/// From when until when an instance is built in, both days included. Without a day it is so from the
/// beginning, or for good.
struct Effectivity {
  std::optional<Date> from = {};
  std::optional<Date> until = {};

  bool HasDates() const { return from || until; }
  bool Covers(const Date& date) const { return (!from || *from <= date) && (!until || date <= *until); }

  friend bool operator==(const Effectivity&, const Effectivity&) = default;
};

}  // namespace lumira
