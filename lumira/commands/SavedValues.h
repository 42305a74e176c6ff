#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "lumira/model/MassTypeData.h"
#include "lumira/store/PartHistory.h"
#include "protocol/PartData.h"

namespace lumira {

/// What no client is told in full of one mass type.
struct SavedDeviations {
  std::optional<double> mass;               ///< standard deviation, kg
  std::optional<protocol::Vector> cg;       ///< m
  std::optional<protocol::Tensor> inertia;  ///< kg·m²
  std::optional<bool> hasLimits;            ///< the deviations that are told are limits, when it is there
};

/// What a save stores of a part.
struct SavedValues {
  /// Everything else is left at its default. The first mass type is the computed one, of which a save stores
  /// the precision only.
  protocol::PartData data;
  std::vector<SavedDeviations> deviations;  ///< of each user mass type, in their order
  bool hasDeviations = true;                ///< false: an older program has left them out
};

SavedValues SavedValuesOf(const Part& part, const PartDetails& details);

/// Their data alone.
protocol::PartData SavedDataOf(const Part& part, const PartDetails& details);

/// All mass types but the computed one.
std::span<const protocol::MassType> UserMassTypesOf(const protocol::PartData& data);

/// The user mass types of values that have their deviations.
std::vector<MassTypeData> MassTypesOf(const SavedValues& values);

/// The precision as it is stored beside a mass type.
Precision PrecisionOf(const protocol::MassType& type);

/// Puts saved values into part data. The user mass types are the saved ones; the computed one keeps its
/// values. Properties are those that the part data has: what the values do not know stays as it is, what is
/// no longer there is left out, as is the choice of a document or revision that is not there any more.
void PutSavedValues(protocol::PartData& data, const protocol::PartData& values);

}  // namespace lumira
