#pragma once

#include <memory>
#include <vector>

#include "framework/math/KorMath3x3Matrix.h"
#include "framework/system/KorBaseUnknown.h"
#include "framework/system/KorListValKorUnicodeString.h"
#include "framework/system/KorStatus.h"
#include "services/KorServicesExport.h"

/// All weight-and-balance data of one part, as the panels see and edit it. Every buffer is a
/// LumWBAllDataBuffer.
///
/// Units: lengths in millimetres, mass in kg, inertia in kg·m² as the tensor (products of inertia negated)
/// about the part's own centre of gravity, density in kg/m³. Centres of gravity are in the part's own frame.
/// The texts that the buffer reads and writes are in metres; a number that nobody edited is written back with
/// the same bits.
///
/// A mass type that the buffer does not list makes an operation fail (E_FAIL, or the value said to stand for
/// none) and changes nothing. Setters refuse not-a-number and infinities the same way.
class KOR_SERVICES_API KorWBAllDataBuffer : public KorBaseUnknown {
 public:
  /// How a mass type stands; the value that GetMassTypeDefined gives.
  static constexpr int kNotDefined = 0;
  static constexpr int kDefined = 1;    ///< carries values that may be shown
  static constexpr int kOutOfDate = 2;  ///< computed from data that has changed since

  KorWBAllDataBuffer(const KorWBAllDataBuffer&) = delete;
  KorWBAllDataBuffer& operator=(const KorWBAllDataBuffer&) = delete;

  // ---- texts exchanged with the server ----

  /// Third field of a compute request: filter, inertia mode, pre-compute switch and material name.
  virtual HRESULT GetComputedInfo(KorUnicodeString& text) const;
  /// Takes over the values of a compute reply into the computed mass type, and whether the selected object
  /// has an instance in the PDM. The precision bounds typed by the user stay. Moments about the part's
  /// origin (first moment, inertia at the origin), which a reply may carry besides, are not kept: no panel
  /// shows them. E_FAIL, with the buffer as it was and the reason in GetLastRefusal, when the text cannot be
  /// read, is about another part or another mass type.
  HRESULT SetComputedData(const KorUnicodeString& reply, bool hasInstance);
  /// The whole buffer, as a save sends it.
  HRESULT GetAllData(KorUnicodeString& text) const;
  /// Replaces the content by that of a full data text. With `newSelection` true everything comes from the
  /// text except what stands in no data text: the pre-compute switch and whether a compute makes sense with a
  /// user mass type stay, here as below. With false the text tells of another state of the same part (another
  /// revision of its document): what belongs to the selection stays, that is instance path, configuration
  /// handler, filter, has-instance flag, inertia mode and placement; so does what is the part's own whatever
  /// the revision, that is the standard-part flag, the extra properties and the state that the next save
  /// stands on; and when the text is about another filter (a revision is told of the whole product) the
  /// computed values. E_FAIL, with the buffer as it was
  /// and the reason in GetLastRefusal, when the text cannot be read, or when `newSelection` is false and it
  /// is about another part.
  HRESULT SetAllData(const KorUnicodeString& text, bool newSelection);
  /// Takes over what a save answers: the values are stored, and the next save tells of the state that this
  /// one has made. Whether the active document was chosen by hand follows the rules of the server: a save
  /// that named no revision ("__null__", or none at all) made it automatic, and the active document is again
  /// the one that the data were read with; another revision than the server had was chosen by the user; the
  /// same one leaves the choice as it was. Until this reply the buffer holds what the save said, "__null__"
  /// included. E_FAIL, with the buffer as it was and the reason in GetLastRefusal, when the text cannot be
  /// read or is about another part.
  HRESULT SetSaveReply(const KorUnicodeString& reply);
  /// Why the last SetAllData, SetComputedData or SetSaveReply was refused, with the field's position; empty
  /// when it was not.
  KorUnicodeString GetLastRefusal() const;

  // ---- the part ----

  virtual HRESULT GetPartIdentifier(KorUnicodeString& identifier) const;
  /// Product root and filter that the part was read under.
  virtual HRESULT GetConfigurationHandler(KorUnicodeString& handler) const;
  /// The filter of the next compute, such as "0|No Filter".
  virtual HRESULT SetFilter(const KorUnicodeString& filter);
  virtual HRESULT GetFilter(KorUnicodeString& filter) const;
  /// Placement in the root product: nine rotation coefficients by rows, then three lengths in mm. Empty when
  /// the part was read without a place in a product.
  virtual std::vector<double> GetPlacement() const;

  /// Whether the computed values are up to date with the data.
  virtual HRESULT GetCalculationUpToDate(bool& upToDate) const;
  virtual HRESULT SetCalculationUpToDate(bool upToDate);
  /// Whether the values are stored in the PDM.
  virtual HRESULT IsPersisted(bool& persisted) const;
  /// Whether the next compute may answer from results stored before; true at the start.
  virtual HRESULT SetPreComputeSwitch(bool mayReuseStoredResults);
  /// Whether the user looks at inertia about the reference point. The stored inertia stays about the centre
  /// of gravity.
  virtual HRESULT SetReferenceInertiaMode(bool atReference);
  virtual bool GetReferenceInertiaMode() const;
  /// Whether a compute makes sense while a user mass type is the active one; true at the start.
  virtual bool IsComputableWithUserMassType() const;
  /// Set by the host's command that opened the panel, from the rules of the site; not part of any text.
  virtual HRESULT SetComputableWithUserMassType(bool computable);

  // ---- mass types ----

  /// Names in the order in which the server lists them.
  virtual KorListValKorUnicodeString GetMassTypeList() const;
  virtual KorUnicodeString GetActiveMassType() const;
  virtual HRESULT SetActiveMassType(const KorUnicodeString& massType);

  /// kNotDefined (also for an unknown mass type), kDefined or kOutOfDate.
  virtual int GetMassTypeDefined(const KorUnicodeString& massType) const;
  /// The same with a status: E_FAIL, with `status` left alone, for an unknown mass type. The computed mass
  /// type is never unknown: a buffer that does not list it has not computed it (kNotDefined).
  virtual HRESULT GetMassTypeDefined(const KorUnicodeString& massType, int& status) const;
  /// Marks a mass type as carrying values or not. The values themselves stay as they are.
  virtual HRESULT SetMassTypeDefined(const KorUnicodeString& massType, bool defined);

  /// kg; 0 when there is none.
  virtual double GetMass(const KorUnicodeString& massType) const;
  bool HasMass(const KorUnicodeString& massType) const;
  virtual HRESULT SetMass(const KorUnicodeString& massType, double mass);
  virtual HRESULT RemoveMass(const KorUnicodeString& massType);
  /// How far below and above the stored mass the true one may lie, kg.
  virtual HRESULT GetLowerDeviation(const KorUnicodeString& massType, double& deviation) const;
  virtual HRESULT GetUpperDeviation(const KorUnicodeString& massType, double& deviation) const;
  /// Three reals, mm; null when there is none.
  virtual std::unique_ptr<double[]> GetCG(const KorUnicodeString& massType) const;
  /// Copies three reals, mm.
  virtual HRESULT SetCG(const KorUnicodeString& massType, const double* cg);
  virtual HRESULT RemoveCG(const KorUnicodeString& massType);
  /// The tensor, kg·m²; null when there is none.
  virtual std::unique_ptr<KorMath3x3Matrix> GetInertia(const KorUnicodeString& massType) const;
  /// Copies the tensor. Its upper triangle counts.
  virtual HRESULT SetInertia(const KorUnicodeString& massType, const KorMath3x3Matrix& inertia);
  virtual HRESULT RemoveInertia(const KorUnicodeString& massType);
  /// Inertia (null when there is none), centre of gravity in mm (likewise) and mass in kg (0 likewise) at
  /// once.
  virtual HRESULT GetMassTypeValues(const KorUnicodeString& massType,
                                    std::unique_ptr<KorMath3x3Matrix>& inertia, std::unique_ptr<double[]>& cg,
                                    double& mass) const;

  // ---- precision of a mass type; relative bounds are fractions, absolute ones kg ----

  /// 0: bounds of the mass type, 1: bounds typed by the user.
  virtual int GetPrecisionType(const KorUnicodeString& massType) const;
  virtual HRESULT SetPrecisionType(const KorUnicodeString& massType, int type);
  /// 0: relative, 1: absolute.
  virtual int GetPrecisionValueType(const KorUnicodeString& massType) const;
  virtual HRESULT SetPrecisionValueType(const KorUnicodeString& massType, int valueType);
  /// Typed by the user.
  virtual double GetLowerPrecision(const KorUnicodeString& massType) const;
  virtual double GetUpperPrecision(const KorUnicodeString& massType) const;
  virtual HRESULT SetLowerPrecision(const KorUnicodeString& massType, double bound);
  virtual HRESULT SetUpperPrecision(const KorUnicodeString& massType, double bound);
  /// Coming with the mass type.
  virtual double GetMassTypeLowerPrecision(const KorUnicodeString& massType) const;
  virtual double GetMassTypeUpperPrecision(const KorUnicodeString& massType) const;

  // ---- material ----

  virtual KorUnicodeString GetMaterialName() const;
  virtual HRESULT SetMaterialName(const KorUnicodeString& name);
  /// kg/m³; 0 when it is not defined.
  virtual double GetDensity() const;
  bool IsDensityDefined() const;
  /// Stores the density and makes it defined.
  virtual HRESULT SetDensity(double density);
  /// False forgets the density; true makes a density that was not defined 0.
  virtual HRESULT SetDensityDefined(bool defined);
  /// 1: the CAD material's density comes first, 0: the typed one does.
  virtual int GetDensityPriority() const;
  virtual HRESULT SetDensityPriority(int priority);
  /// Materials below the part, as three parallel lists: names, densities, kinds. Kind 1: density in kg/m³,
  /// kind 2: surface mass in kg/m². Mind that the names count from 1 and the vectors from 0.
  virtual HRESULT GetMaterialStatistics(KorListValKorUnicodeString& names, std::vector<double>& densities,
                                        std::vector<int>& kinds) const;

 protected:
  struct Content;

  KorWBAllDataBuffer();
  ~KorWBAllDataBuffer() override;

  Content& Data() { return *_content; }
  const Content& Data() const { return *_content; }

 private:
  HRESULT Refuse(const KorUnicodeString& reason);

  std::unique_ptr<Content> _content;
};

using KorWBAllDataBuffer_var = KorVar<KorWBAllDataBuffer>;
