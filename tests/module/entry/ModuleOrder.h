#pragma once

#include <string>
#include <vector>

#include "tests/module/entry/SystemLoader.h"

/// What there must be to see of the order: reverse at the end.
inline const std::vector<std::string> kModuleComes{
    "+trace KorWBCompPart",  "+class KorWBNymNavFilterPanel", "+filter state",
    "+trace KorWBCompGroup", "+class KorWBNymNavReportPanel", "+trace KorWBNymNavReportPanel",
    "+units manager"};
inline const std::vector<std::string> kModuleGoes{"-units manager",
                                                  "-trace KorWBNymNavReportPanel",
                                                  "-class KorWBNymNavReportPanel",
                                                  "-trace KorWBCompGroup",
                                                  "-filter state",
                                                  "-class KorWBNymNavFilterPanel",
                                                  "-trace KorWBCompPart"};

/// Writes down in which order the module's static objects come and go.
///
/// Trace objects and entries of the class dictionary tell of themselves. Of the others it looks, at each of
/// these events, whether they are there by now: the memory of the filter state and of the units manager is
/// zero until they are constructed, the filter state holds a text on the heap while it lives, and the units
/// manager listens to the magnitudes.
///
/// "+trace KorWBCompPart", "+class KorWBNymNavFilterPanel", "+filter state", "+units manager" and the same
/// with "-".
class ModuleOrder {
 public:
  explicit ModuleOrder(const SystemLoader& module);
  ~ModuleOrder();
  ModuleOrder(const ModuleOrder&) = delete;
  ModuleOrder& operator=(const ModuleOrder&) = delete;

  /// Looks once more; for the object that comes into being last.
  void Look();
  /// Forgets the events so far and makes the end of the filter state visible; while the module is loaded.
  void AwaitEnd();
  const std::vector<std::string>& Events() const { return _events; }

  /// How many callbacks wait on the magnitudes that the units manager listens to.
  static int ListenersToUnits();

 private:
  enum class Seen { Never, Alive, Gone };
  void Event(const std::string& text);
  bool IsConstructed(const char* symbol) const;

  const SystemLoader& _module;
  std::vector<std::string> _events;
  Seen _filterState = Seen::Never;
  Seen _unitsManager = Seen::Never;
};
