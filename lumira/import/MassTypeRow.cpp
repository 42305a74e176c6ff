#include "lumira/import/MassTypeRow.h"

#include <algorithm>
#include <utility>

#include "lumira/import/MassTypeCells.h"
#include "lumira/import/MassTypeColumns.h"
#include "lumira/import/PrecisionCells.h"
#include "lumira/store/SizeRules.h"
#include "protocol/Utf8.h"

namespace lumira {
namespace {

using namespace mass_type_columns;
using protocol::Quoted;

// Said once, on the row with which the limit is passed.
void CountBytes(const TableColumns& columns, std::size_t row, const MassTypeOwner& owner,
                const MassTypeData& type) {
  const std::size_t before = std::exchange(owner.bytes, owner.bytes + BytesOf(type));
  if (const auto problem = FindTooMany(owner.bytes, kMaxValueBytes); problem && before <= kMaxValueBytes)
    columns.Error(row, columns.Has(MassType) ? MassType : PartId,
                  "with this one the mass types of " + owner.name + " " + *problem);
}

// Whether the owner had none of this name.
bool AddMassType(const TableColumns& columns, std::size_t row, const MassTypeOwner& owner,
                 const MassTypeData& type) {
  if (std::ranges::find(owner.massTypes, type.name, &MassTypeData::name) != owner.massTypes.end()) {
    columns.Error(row, columns.Has(MassType) ? MassType : PartId,
                  owner.name + " has the mass type " + Quoted(type.name) + " twice");
    return false;
  }
  owner.massTypes.push_back(type);
  CountBytes(columns, row, owner, type);
  return true;
}

void MarkActive(const TableColumns& columns, std::size_t row, const MassTypeOwner& owner,
                const std::string& type) {
  if (owner.active != kComputedMassType)
    columns.Error(row, Active, owner.name + " has an active mass type already, " + Quoted(owner.active));
  owner.active = type;
}

void NameIdleCells(const TableColumns& columns, std::size_t row, bool isActive,
                   const std::optional<Precision>& precision) {
  if (isActive) columns.LeftOut(row, Active, "the row has no mass data that could be active");
  if (precision)
    columns.LeftOut(row, columns.FirstGiven(row, PrecisionSource, MaterialName - PrecisionSource),
                    "the row has no mass data whose precision this could be");
}

}  // namespace

void ReadMassTypeRow(const TableColumns& columns, std::size_t row, const MassTypeOwner& owner,
                     ImportLog& log) {
  const bool isActive = columns.Flag(row, Active);
  const auto type = ReadMassType(columns, row, owner.partId, log);
  const auto precision = ReadPrecision(columns, row, type ? type->name : std::string());
  if (!type) return NameIdleCells(columns, row, isActive, precision);
  if (!AddMassType(columns, row, owner, *type)) return;
  if (isActive) MarkActive(columns, row, owner, type->name);
  if (precision) owner.precisions.push_back(*precision);
}

void CheckSignColumn(const TableColumns& columns, ImportLog& log) {
  const bool hasProducts = columns.Has(Ixx + 3) || columns.Has(Ixx + 4) || columns.Has(Ixx + 5);
  if (hasProducts && !columns.Has(Products))
    log.Error(
        {columns.Table().Name(), columns.Table().HeaderLine(), 0, {}},
        "there are products of inertia but no column \"products\" that says their sign: \"-\" for tensor "
        "elements, \"+\" for integrals",
        protocol::ErrorKind::BadText);
}

}  // namespace lumira
