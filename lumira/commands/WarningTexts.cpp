#include "lumira/commands/WarningTexts.h"

#include <cstdint>

#include "protocol/Numbers.h"

namespace lumira {
namespace {

struct WarningText {
  WarningKind kind;
  protocol::Severity severity;
  const char* one;   ///< follows "1 "
  const char* many;  ///< follows a larger number
};

using protocol::Severity;

constexpr WarningText kTexts[] = {
    {WarningKind::WithoutMass, Severity::Warning, "part has no mass data and is left out",
     "parts have no mass data and are left out"},
    {WarningKind::WithoutCg, Severity::Warning,
     "part has a mass but no centre of gravity and counts in the mass only",
     "parts have a mass but no centre of gravity and count in the mass only"},
    {WarningKind::WithoutInertia, Severity::Warning,
     "part has no inertia of its own and counts as a point mass",
     "parts have no inertia of their own and count as point masses"},
    {WarningKind::NegativeMass, Severity::Information, "part has a negative mass",
     "parts have a negative mass"},
    {WarningKind::ZeroMass, Severity::Warning,
     "part has a mass of zero, so that there is no centre of gravity",
     "parts add up to a mass of zero, so that there is no centre of gravity"},
    {WarningKind::WithoutBounds, Severity::Warning,
     "part has no limits of the mass; in the limits of the total it counts with its standard deviation, if "
     "it has one",
     "parts have no limits of the mass; in the limits of the total they count with their standard "
     "deviations, if they "
     "have any"},
    {WarningKind::ReplacesChildren, Severity::Information,
     "assembly counts with mass data of its own instead of what is below it",
     "assemblies count with mass data of their own instead of what is below them"},
    {WarningKind::ShapeNotAdded, Severity::Information,
     "assembly has a shape of its own, which is not added to what is below it",
     "assemblies have a shape of their own, which is not added to what is below them"},
    {WarningKind::PartlyKept, Severity::Warning,
     "assembly is only partly kept by the filter and counts as the sum of what is kept of it, not with mass "
     "data of its own",
     "assemblies are only partly kept by the filter and count as the sum of what is kept of them, not with "
     "mass "
     "data of their own"},
    {WarningKind::NothingLeft, Severity::Warning,
     "part has nothing in it that the filter lets pass, so that its mass is 0",
     "parts have nothing in them that the filter lets pass, so that their mass is 0"},
    {WarningKind::AlsoLeftOut, Severity::Information,
     "part is left out by the filter in some of the places where it stands; the result is that of the others",
     "parts are left out by the filter in some of the places where they stand; the result is that of the "
     "others"},
    {WarningKind::NotFinite, Severity::Error, "part adds up to numbers that are too large to be computed",
     "parts add up to numbers that are too large to be computed"},
};

const WarningText& TextOf(WarningKind kind) {
  for (const WarningText& text : kTexts)
    if (text.kind == kind) return text;
  return kTexts[0];
}

// As a whole number, as long as people would read it as one.
std::string Count(double occurrences) {
  if (occurrences >= 1e15) return protocol::FormatNumber(occurrences);
  return std::to_string(static_cast<std::int64_t>(occurrences));
}

std::string Examples(const Warning& warning) {
  std::string list;
  for (const std::string& id : warning.examples) list += (list.empty() ? " (" : ", ") + id;
  if (list.empty()) return list;
  return list + (warning.occurrences > static_cast<double>(warning.examples.size()) ? ", ...)" : ")");
}

}  // namespace

protocol::Warning ToWarning(const Warning& warning) {
  const WarningText& text = TextOf(warning.kind);
  std::string sentence = Count(warning.occurrences) + " " + (warning.occurrences == 1 ? text.one : text.many);
  if (warning.mass != 0) sentence += ", " + protocol::FormatNumber(warning.mass) + " kg in all";
  return {text.severity, sentence + Examples(warning)};
}

}  // namespace lumira
