#pragma once

#include <cstdint>
#include <vector>

#include "framework/system/KorBaseUnknown.h"
#include "framework/system/KorEventSubscriber.h"
#include "module/shared/KorWBNymNavExport.h"

/// The physical quantities of weight-and-balance data.
enum WBUnitsType : std::int32_t {
  WBUnitsDensity = 1,
  WBUnitsLength = 2,
  WBUnitsMass = 3,
  WBUnitsMomentOfInertia = 4,
};

/// The module's single units manager: the quantities, the storage unit of each (SI) and the unit that was
/// current when the module was loaded. Panels subscribe to its change events by name.
///
/// Its conversions leave values as they are and it never publishes its events: values are stored in SI units,
/// and the panels show them in the current unit by themselves. The events and operations stay because panels
/// are written against them.
class ExportedByKorWBNymNavGUI KorWBNymNavUnitsConversion : public KorEventSubscriber {
 public:
  using Handles = std::vector<KorBaseUnknown_var>;

  // Not inline: the module exports them.
  KorWBNymNavUnitsConversion(const KorWBNymNavUnitsConversion&);
  KorWBNymNavUnitsConversion& operator=(const KorWBNymNavUnitsConversion&);
  ~KorWBNymNavUnitsConversion() override;

  static KorWBNymNavUnitsConversion* Instance() { return &_sManager; }

  /// Name of the event for a change of the quantity's unit; null for a number that is no units type.
  static const char* GetChangedEvent(int type);
  /// Empty for every type.
  KorUnicodeString Symbol(int type) const;
  /// The value itself.
  double ConvertLengthValue(double value) const;
  /// Leaves `value` as it is.
  void ConvertFromMksToCurrentUnit(int type, double& value) const;
  /// A magnitude's unit changed: nothing to do.
  void OnChangeUnit(KorEventSubscriber* magnitude, const char* event, KorCommandClientData type);

  /// The magnitudes that the dictionary knows, in the order of the types.
  const Handles& Magnitudes() const { return _magnitudes; }
  /// Their units that were current at construction, in the same order.
  const Handles& CurrentUnits() const { return _currentUnits; }
  /// The storage units in the order of the types; null for one that the dictionary does not know.
  const Handles& StorageUnits() const { return _storageUnits; }

 protected:
  /// Reads the host's parameter dictionary; throws KorNullHandleError when there is none.
  KorWBNymNavUnitsConversion();

 private:
  static KorWBNymNavUnitsConversion _sManager;

  Handles _magnitudes;
  Handles _currentUnits;
  Handles _storageUnits;
};
