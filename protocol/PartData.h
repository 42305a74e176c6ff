#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace protocol {

/// A point or vector, metres.
using Vector = std::array<double, 3>;

/// Inertia tensor, kg·m², as (xx, yy, zz, xy, xz, yz); off-diagonals are tensor elements (products negated).
using Tensor = std::array<double, 6>;

/// Whether a mass type carries values. On the wire as the number.
enum class MassTypeStatus : int {
  Undefined = 0,  ///< no values
  Defined = 1,    ///< values that may be shown
  OutOfDate = 2,  ///< values computed from data that has changed since
};

/// Which kind of thing mass types were read from. On the wire as the number.
enum class OriginKind : int {
  Part = 0,        ///< the part as it stands
  Revision = 1,    ///< a revision of its document
  BeforeSave = 2,  ///< the state before a save in its history
  AfterSave = 3,   ///< the state after it
};

/// What the mass types of part data were read from, as the server told it; a save sends it back.
struct Origin {
  OriginKind kind = OriginKind::Part;
  std::string name;  ///< of the revision, or the number of the save; empty for the part

  friend bool operator==(const Origin&, const Origin&) = default;
};

/// Everything known of one mass type of a part. SI units, the part's own frame.
struct MassType {
  std::string name;
  MassTypeStatus status = MassTypeStatus::Undefined;
  std::optional<double> mass;         ///< kg
  std::optional<Vector> cg;           ///< m
  std::optional<Tensor> inertia;      ///< kg·m² about the centre of gravity
  double lowerDeviation = 0;          ///< kg, how far below `mass` the true mass may lie
  double upperDeviation = 0;          ///< kg, how far above
  int precisionType = 0;              ///< 0: bounds of the mass type, 1: bounds typed by the user
  int precisionValueType = 0;         ///< 0: relative (fractions), 1: absolute (kg)
  double lowerPrecision = 0;          ///< typed by the user; fraction or kg
  double upperPrecision = 0;          ///< typed by the user; fraction or kg
  double massTypeLowerPrecision = 0;  ///< comes with the mass type; fraction or kg
  double massTypeUpperPrecision = 0;  ///< comes with the mass type; fraction or kg
};

/// One material below the part. `kind` 1: density in kg/m³; 2: surface mass in kg/m².
struct MaterialStatistic {
  std::string name;
  double density = 0;
  int kind = 1;
};

/// One revision of the part's document.
struct DocumentRevision {
  std::string revision;
  std::string checkInTime;
  std::string checkInUser;
  std::optional<std::string> checkOutUser;
  std::string massTypes;
  double mass = 0;  ///< kg
};

/// A typed extra property. `value` is text; a magnitude's value is in its storage unit.
struct ExtraProperty {
  std::string name;
  std::string value;
  int type = 0;  ///< 1: integer or date, 2: real, others unchecked
  bool isDate = false;
  bool isMagnitude = false;
  std::string magnitude = {};
};

/// The active document and the revisions to choose from.
struct Documents {
  bool used = false;           ///< whether document revisions may be used at all
  std::string activeId = "0";  ///< "0": no document attached
  std::string activeVersion;
  int autoMode = 0;  ///< 0: most recent revision, 1: attached revision
  bool usedSpecificRevisionBefore = false;
  std::string attachedVersion;
  std::vector<DocumentRevision> revisions;
};

/// Material of the part and of its reference. Densities in kg/m³.
struct Material {
  std::string name;
  std::optional<double> density;
  int densityPriority = 0;  ///< 1: the CAD material's density comes first, 0: the typed one
  std::string referenceName;
  std::optional<double> referenceDensity;
  std::string appliedOn;  ///< on the instance or on the reference
  std::vector<MaterialStatistic> statistics;
};

/// All weight-and-balance data of one part, as the server sends it and as a save sends it back.
struct PartData {
  std::string partId;
  std::string instancePath;  ///< of the selected instance, elements joined by "|"; empty when there is none
  std::string configurationHandler;  ///< product root and filter that the part was read under
  std::string filter = "0|No Filter";
  bool hasInstance = false;  ///< the selected object has an instance in the PDM
  bool computed = false;     ///< the computed values are up to date
  bool persisted = false;    ///< the values are stored in the PDM
  bool standardPart = false;
  bool referenceInertiaMode = false;  ///< inertia at the reference point rather than at the centre of gravity
  std::string activeMassType;
  std::vector<MassType> massTypes;
  std::vector<double> placement;  ///< in the root product: 9 rotation coefficients by rows, then 3 lengths, m
  Material material;
  Documents documents;
  bool propertiesRequested = false;
  std::string dateFormat;  ///< of date properties, such as "YYYY-MM-DD"
  std::vector<ExtraProperty> properties;
  std::string stateToken;  ///< which stored state this was read from; a save sends it back
  Origin massTypesOrigin = {};
};

/// What a save answers once everything is stored.
struct SaveReply {
  std::string partId;
  std::string stateToken;  ///< of the state that is stored now; the next save sends it back
};

/// What a compute request says beyond the part: the third field of "WBComputeNymValues".
struct ComputeOptions {
  std::string filter = "0|No Filter";
  bool referenceInertiaMode = false;
  bool reuseStoredResults = true;  ///< false: compute anew even when the stored result is up to date
  std::string materialName;
};

/// What a compute answers: the computed mass type of the part.
struct ComputeReply {
  std::string partId;
  MassType computed;
  /// About the part's origin, in its axes; there when masses with known centres add up to zero.
  std::optional<Vector> firstMoment = {};      ///< kg·m
  std::optional<Tensor> inertiaAtOrigin = {};  ///< kg·m²
};

}  // namespace protocol
