#pragma once

#include "services/KorWBAllDataBuffer.h"

/// The PDM side of a part's data: its place in the product, documents, extra properties, and where the
/// material applies.
///
/// Document revisions and properties are counted from 1. An index outside them makes an operation fail
/// (E_FAIL, or an empty answer) and changes nothing.
class KOR_SERVICES_API LumWBAllDataBuffer : public KorWBAllDataBuffer {
 public:
  /// Which text of a document revision GetDocRevsInfo gives.
  enum DocInfo {
    kRevision = 0,
    kCheckInTime = 1,
    kCheckInUser = 2,
    kCheckOutUser = 3,  ///< "__null__" when nobody has it checked out
    kMassTypes = 4,
    kDocMass = 5,  ///< kg, a number as text
  };

  /// An empty buffer: no part, no mass types.
  LumWBAllDataBuffer();

  /// The PDM side of a buffer; null for null.
  static LumWBAllDataBuffer* Of(KorWBAllDataBuffer* buffer);

  // ---- the part ----

  /// Instances from the root part down to the selected one, joined by "|"; empty when there is none.
  HRESULT GetInstancePath(KorUnicodeString& path) const;
  /// Whether the selected object has an instance in the PDM.
  bool HasInstInLUMIRA() const;
  /// The standard-part flag. The name is spelled so on purpose: the panels and the host call it by this name.
  bool IsStandatadPart() const;
  HRESULT SetStandardPart(bool standard);

  // ---- material ----

  /// Where the material applies: KorLumWBCSCommonDefinitions::partInst or partRef.
  HRESULT GetAppliedOnObject(KorUnicodeString& object) const;
  HRESULT SetAppliedOnObject(const KorUnicodeString& object);
  HRESULT GetPartRefWBMaterialName(KorUnicodeString& name) const;
  /// kg/m³; 0 when it is not defined.
  HRESULT GetPartRefWBDensity(double& density) const;

  // ---- documents ----

  /// Whether document revisions may be used at all.
  bool AreOldDocumentsUsed() const;
  /// Number of document revisions known.
  std::size_t GetVersionCount() const;
  /// "0" when there is none; KorLumWBCSCommonDefinitions::ExceptionFlag when the server failed to find
  /// documents.
  HRESULT GetActiveDocId(KorUnicodeString& id) const;
  HRESULT SetActiveDocId(const KorUnicodeString& id);
  HRESULT GetActiveDocVersion(KorUnicodeString& version) const;
  HRESULT SetActiveDocVersion(const KorUnicodeString& version);
  /// 0: most recent revision, 1: attached revision.
  int GetDocAutoMode() const;
  bool HasUsedSpecificRevBefore() const;
  KorUnicodeString GetCurrentlyAttachedVersion() const;
  /// One text of revision `index`; `kind` is a DocInfo.
  HRESULT GetDocRevsInfo(int index, int kind, KorUnicodeString& text) const;

  // ---- extra properties ----

  bool AdditionalInfoRequested() const;
  int GetPropertyCount() const;
  KorUnicodeString GetPropertyName(int index) const;
  /// As text; of a magnitude in its storage unit.
  KorUnicodeString GetPropertyValue(int index) const;
  HRESULT SetPropertyValue(int index, const KorUnicodeString& value);
  /// 1: integer or date, 2: real, others unchecked; 3 (unchecked) for an index outside.
  int GetPropertyType(int index) const;
  bool GetIsDate(int index) const;
  bool GetIsMagnitude(int index) const;
  /// Name of the magnitude in the parameter dictionary; empty when the property is none.
  KorUnicodeString GetPropMagnitudeType(int index) const;
  /// Such as "YYYY-MM-DD".
  KorUnicodeString GetDateFormatForExtraProperties() const;
  bool AreDateTypePropertiesPresent() const;

 protected:
  ~LumWBAllDataBuffer() override;
};

using LumWBAllDataBuffer_var = KorVar<LumWBAllDataBuffer>;
