#pragma once

#include <optional>

#include "framework/dialog/KorDlgDialog.h"
#include "framework/math/KorMath3x3Matrix.h"
#include "framework/system/KorListValKorUnicodeString.h"
#include "module/main_panel/KorWBNymMainPanelWidgets.h"
#include "module/shared/KorWBNymNavExport.h"
#include "services/KorWBAllDataBuffer.h"

class LumWBAllDataBuffer;
struct KorWBNymNavMassValues;
struct KorWBNymNavMessages;
struct KorWBNymNavReferenceFrame;

/// The part panel: shows, computes and edits the weight-and-balance data of one part.
///
/// Everything that it shows comes from the data buffer that it is bound to, at each refresh; what the user
/// does goes to the buffer or, as a command, to the server. It holds one reference to the buffer from binding
/// to rebinding or destruction. The host creates it directly, attaches a backend, shows it and listens to
/// "Frame238.CloseButton".
class ExportedByKorWBNymNavGUI KorWBNymMainPanel : public KorDlgDialog {
 public:
  /// Lays the panel out for the part of `buffer`, subscribes to the units manager and fills every page.
  /// Without a buffer the panel has no widgets until SetModel binds one.
  explicit KorWBNymMainPanel(KorWBAllDataBuffer* buffer);
  KorWBNymMainPanel(const KorWBNymMainPanel&) = delete;
  KorWBNymMainPanel& operator=(const KorWBNymMainPanel&) = delete;
  ~KorWBNymMainPanel() override;

  /// Creates the widgets of the bound part, wires them and puts them in their initial state; once.
  void Build() override;
  /// "KorWBNymMainPanel", then what the base class answers.
  KorString GetResourceFilename(int index) const override;

  /// Binds another buffer, or none, and refreshes, which ends edit mode. Which pages the panel has was
  /// decided when it was laid out. Returns E_FAIL, whatever happened: callers ignore it and the value is kept
  /// as it is.
  HRESULT SetModel(KorWBAllDataBuffer* buffer);
  /// Fills every page from the buffer; S_OK, also without a buffer, when nothing is done. Ends edit mode as a
  /// save does, without storing what was typed.
  HRESULT RefreshPanelWithInfo();

  /// Adds and removes the subscriptions to the four unit-change events of the units manager.
  void SubscribeToCallbacks();
  void UnsubscribeToCallbacks();

  // ---- refresh of one page each: S_OK, or a failure status with what was written so far left standing ----

  HRESULT RefreshResultsTab();
  HRESULT RefreshMassTypeTab();
  HRESULT RefreshMaterialTab();
  HRESULT RefreshPrecisionTab();
  HRESULT RefreshDocsTab();
  HRESULT RefreshAdditionalInfoTab();

  /// Document and revision selected in "ActiveDocsCombo". E_FAIL without a buffer or revisions. A line that
  /// is none of the revisions leaves `revision` alone and counts as success: intended, and callers accept it.
  HRESULT GetActiveDocSelection(KorUnicodeString& id, KorUnicodeString& revision) const;

  // ---- one magnitude shown again in its current unit; E_FAIL without a buffer, a magnitude or a unit ----

  HRESULT RefreshDensityUnits();
  HRESULT RefreshLengthUnits();
  HRESULT RefreshMassUnits();
  HRESULT RefreshMomentOfInertiaUnits();
  /// Shows the value of the additional property selected, a magnitude, in its current unit: a text in the
  /// storage unit when `fromStorage` is true, else one in the current unit already. A text that no number
  /// opens stays as it is shown.
  void RefreshMagnitudePropertiesUnits(const KorUnicodeString& text, bool fromStorage);
  /// Shows a tensor (kg·m², products negated) as moments and products of inertia: in the editors of the
  /// results page when the label is "Active", in those of the mass-types page for any other label.
  HRESULT RefreshMomentOfInertiaUnits(const KorMath3x3Matrix& inertia, const KorUnicodeString& label);

 protected:
  // ---- handlers; their order in the class is part of the interface to derived panels ----

  virtual void OnTypeComboModifyNotification(KorCommand*, KorNotification*, KorCommandClientData);
  virtual void OnFirstComboModifyNotification(KorCommand*, KorNotification*, KorCommandClientData);
  virtual void OnMassTypeChangeNotification(KorCommand*, KorNotification*, KorCommandClientData);
  virtual void OnComputeNotification(KorCommand*, KorNotification*, KorCommandClientData);
  virtual void OnDeleteNotification(KorCommand*, KorNotification*, KorCommandClientData);
  virtual void OnInertiaModeModify(KorCommand*, KorNotification*, KorCommandClientData);
  /// Client data: the reference-mode button that notifies.
  virtual void OnReferenceModify(KorCommand*, KorNotification*, KorCommandClientData);
  virtual void OnTabContainer001TabSelectNotification(KorCommand*, KorNotification*, KorCommandClientData);
  virtual void OnEditNotification(KorCommand*, KorNotification*, KorCommandClientData);
  virtual void OnSaveNotification(KorCommand*, KorNotification*, KorCommandClientData);
  /// Client data: the units type number.
  virtual void OnModifyUnit(KorEventSubscriber*, const char*, KorCommandClientData);
  virtual void OnActiveTypeChangeNotification(KorCommand*, KorNotification*, KorCommandClientData);
  virtual void OnMatNameUpNotification(KorCommand*, KorNotification*, KorCommandClientData);
  virtual void OnMatNameDownNotification(KorCommand*, KorNotification*, KorCommandClientData);
  virtual void OnUpdatePropertiesNotification(KorCommand*, KorNotification*, KorCommandClientData);
  virtual void OnMTPasteValuesComboModifyNotification(KorCommand*, KorNotification*, KorCommandClientData);
  virtual void OnMTMassEditorModifyNotification(KorCommand*, KorNotification*, KorCommandClientData);
  virtual void OnChangeActiveDocNotification(KorCommand*, KorNotification*, KorCommandClientData);
  virtual void OnCancelActiveDocNotification(KorCommand*, KorNotification*, KorCommandClientData);
  virtual void OnDocPreviewValueChange(KorCommand*, KorNotification*, KorCommandClientData);
  virtual void OnApplyActiveDocNotification(KorCommand*, KorNotification*, KorCommandClientData);
  /// Client data: 1 when the focus leaves a bound, 2 when it comes.
  virtual void OnPrecisionEditorFocusNotification(KorCommand*, KorNotification*, KorCommandClientData);
  virtual void OnPrecisionValueTypeChangeNotification(KorCommand*, KorNotification*, KorCommandClientData);
  /// Spelled so on purpose: derived panels know it by this name.
  virtual void OnStandardPartClickeNotification(KorCommand*, KorNotification*, KorCommandClientData);
  virtual void OnPropertyNameComboChange(KorCommand*, KorNotification*, KorCommandClientData);
  virtual void OnMaterialNameModifyNotification(KorCommand*, KorNotification*, KorCommandClientData);
  virtual void OnDensityModifyNotification(KorCommand*, KorNotification*, KorCommandClientData);
  virtual void OnApplyMaterialRadioBModify(KorCommand*, KorNotification*, KorCommandClientData);
  virtual void OnActiveDocLatestNotification(KorCommand*, KorNotification*, KorCommandClientData);
  virtual void OnActiveDocUsrSelNotification(KorCommand*, KorNotification*, KorCommandClientData);

 private:
  /// About which point, and in which axes, the results are shown.
  enum class ReferenceMode { CurrentPart = 0, RootProduct = 1, Custom = 2 };
  struct ResultsView;
  /// Of a pair of labels the one that is shown; green: the values are up to date, or stored.
  enum class Lamp { Red, Green };

  // layout
  void BuildHeader();
  void BuildResultsPage();
  void BuildMassTypesPage();
  void BuildMaterialPage();
  void BuildPrecisionPage();
  void BuildDocumentsPage();
  void BuildAdditionalPage();
  void BuildModes();
  void BuildCustomFrame();
  void BuildCommands();
  void WireHandlers();
  void WireDocumentsPage();
  void SetInitialState();
  void SetInitialDocumentsState();

  // binding and refresh
  void ReadPartFromBuffer();
  void ReadMaterialFromBuffer();
  void ForgetPart();
  LumWBAllDataBuffer& Pdm() const;
  KorWBNymNavMessages Messages();
  void ApplyConfigurationFilter();
  void RefreshSelection();
  void RefreshLamps();
  static void ShowLamp(KorDlgLabel& red, KorDlgLabel& green, Lamp lamp);
  void RefreshActiveDocument();
  bool AreDocumentsInUse() const;
  void CheckForMissingDocuments();
  void ShowDocumentsInUse();
  void BuildDefaultDocModeText();
  void ShowWhichRevisionIsActive();
  void ShowNoDocument();
  void ShowNothingOfDocuments();
  void SetAct(const KorUnicodeString& text);
  void SelectFirstPage();

  // revisions of the document
  bool HasDocumentRevisions() const;
  KorUnicodeString RevisionLine(const KorUnicodeString& revision) const;
  void ListActiveRevision();
  void ListRevisions();
  void ShowRevision(int index, const char* where);
  void SetRevisionChoice(KorSensitivity choosing);
  void EndRevisionChoice();
  void LoadRevision(const KorUnicodeString& id, const KorUnicodeString& revision);
  HRESULT TakeRevision(const KorUnicodeString& reply);
  void OrganizeActiveDocsComboBox();

  // additional properties
  void ShowSelectedProperty();
  std::optional<KorUnicodeString> ShownMagnitude(int property, const KorUnicodeString& text,
                                                 bool fromStorage) const;
  KorUnicodeString ShownPropertyValue(int property) const;
  void ValidateAndUpdateBufferAndPropEditor(bool keepBuffer);
  void StoreEditedProperty();
  void ValidatePropertyValue(int property, const KorUnicodeString& text);

  // edit mode
  bool IsComputedShown() const;
  void ResetInertiaDisplay();
  void ShowOwnDistribution();
  void OfferUserMassType();
  void OfferComputedMassType();
  void OfferMaterial();
  void OfferPrecision();
  void SetDistributionSensitivity(KorSensitivity sensitivity);
  void FillPasteValues();
  void ForgetPasteSource();
  void OfferCommands();
  void OfferActiveDocument();
  void LeaveEditMode();
  void EndChoiceWhereMaterialApplies();
  void OfferDisplay(const KorUnicodeString& activeType);
  void GiveUpEditMode();
  bool CheckDataModification(bool documentsOnly) const;
  bool IsMassTypeAsStored() const;
  bool IsMaterialAsStored() const;
  bool IsActiveDocumentAsStored() const;

  // save
  void StoreCalculationStatus();
  bool ShowsNoMass(const KorUnicodeString& massType) const;
  void StoreShownMassType();
  void StoreDistribution(const KorUnicodeString& shownType, const KorWBNymNavMassValues& stored);
  void StoreNoDistribution(const KorUnicodeString& shownType);
  void StoreMaterial();
  void StoreDensity();
  bool AcceptMaterial();
  void StorePrecision(const KorUnicodeString& activeType);
  void StoreBounds(const KorUnicodeString& activeType);
  void StoreActiveDocument();
  void StoreChosenDocument();
  void StoreProperties();
  void SendSave(const KorUnicodeString& activeType);
  void TakeSaveReply(const KorUnicodeString& reply);
  void ShowAsSaved(const KorUnicodeString& activeType);

  // results
  ReferenceMode GetReferenceMode() const;
  KorWBNymNavReferenceFrame CustomFrame() const;
  void GetCustomRefModeValues(KorMathPoint& point, KorMath3x3Matrix& axes) const;
  HRESULT GetResultsView(ResultsView& view) const;
  KorWBNymNavMassValues ReadComputed() const;
  static KorWBNymNavMassValues ExpressIn(const ResultsView& view, KorWBNymNavMassValues values);
  HRESULT ShowMasses(double mass);
  HRESULT ShowResults(const KorWBNymNavMassValues& results);
  void ShowNotComputed();
  bool IsComputedDefined() const;
  std::optional<KorWBNymNavMassValues> ShownDistribution() const;
  HRESULT ShowComputed(HRESULT (KorWBNymMainPanel::*show)(const KorWBNymNavMassValues&));
  HRESULT ShowCG(const KorWBNymNavMassValues& results);
  HRESULT ShowInertia(const KorWBNymNavMassValues& results);

  // mass types, material, precision
  void ShowMassType(const KorUnicodeString& shownType);
  void ShowMassTypeCG(const KorWBNymNavMassValues& values);
  void ShowNoDistribution();
  void OfferDelete(const KorUnicodeString& shownType);
  bool IsInEditMode() const;
  void OfferEditing(const KorUnicodeString& shownType);
  void PasteValuesOf(const KorUnicodeString& source);
  void ShowMTInertia(const KorWBNymNavMassValues& values);
  void ShowDensityPriority();
  void ShowWhereMaterialApplies();
  void ShowApplyOn(KorVisibility visibility);
  bool IsDensityEmpty() const;
  void ShowMaterialStatistics();
  void BrowseStatistics(int step);
  void StoreStandardPart();
  void FillPrecisionCombos();
  void ShowPrecisionOf(const KorUnicodeString& active, KorNotify typeSelection);
  void OfferBounds();
  void SetBoundsSensitivity(KorSensitivity sensitivity);
  void ShowBounds(const KorUnicodeString& massType, int precisionType, int valueType);

  // modes
  /// Checks the button as a user would: one that is checked already stays as it is and tells nobody.
  static void Choose(KorDlgRadioButton& button);
  void ShowMovedToReference(const KorUnicodeString& massType, const KorUnicodeString& label);
  void PlaceCustomFrame();
  void LeaveResultsPage();
  void ShowAboutCentreOfGravity();
  void EnterResultsPage(bool showsDefinedUserType);

  // compute
  bool AcceptCustomAxes();
  void PrepareCompute();
  KorUnicodeString ComputeRequest() const;
  HRESULT StoreComputed(const KorUnicodeString& reply);
  void ShowAsComputed();
  void ShowCalculationLamp(Lamp lamp);

  KorWBAllDataBuffer_var _dataBuffer;
  KorWBNymMainPanelWidgets _widgets;

  int _materialStatisticsIndex = 1;  ///< 1-based entry of the material statistics shown
  int _editedPropertyIndex = -1;     ///< 0-based additional property under edit, -1: none
  int _lastPrecisionValueType = -1;  ///< line of "ValueTypeCombo" at its last change, -1: none yet
  KorUnicodeString _selectionText;   ///< part identifier, "|", instance path, "|"
  KorUnicodeString _activeDocId;
  KorUnicodeString _activeDocVersion;
  KorUnicodeString _defaultDocModeText;
  KorUnicodeString _selectedActiveDocLine;
  KorUnicodeString _appliedOnObject;
  KorUnicodeString _materialName;
  KorUnicodeString _partRefMaterialName;
  double _density = 0;         ///< kg/m³, of the part or as typed for its instance
  double _partRefDensity = 0;  ///< kg/m³, of the part reference or as typed for it
  bool _computed = false;      ///< whether the buffer held computed values when it was bound
  bool _rebinding = false;  ///< cleared at the end of construction and of every rebinding; nothing reads it
  KorListValKorUnicodeString _massTypeNames;   ///< working list of the mass-types page
  KorListValKorUnicodeString _precisionNames;  ///< working list of the precision page
};
