#include "tests/module/entry/ModuleOrder.h"

#include <cstring>

#include "framework/knowledge/KorCkeParmDictionary.h"
#include "framework/system/KorClassDictionary.h"
#include "framework/system/TqTrace.h"

namespace {

// KorWBNymNavFilterPanel::selectedFilter and KorWBNymNavUnitsConversion::_sManager, as compilers name them.
constexpr const char* kFilterState = "_ZN22KorWBNymNavFilterPanel14selectedFilterE";
constexpr const char* kUnitsManager = "_ZN26KorWBNymNavUnitsConversion9_sManagerE";

}  // namespace

ModuleOrder::ModuleOrder(const SystemLoader& module) : _module(module) {
  TqTrace::SetComponentObserver(
      [this](const KorString& name, bool alive) { Event((alive ? "+trace " : "-trace ") + name); });
  KorClassDictionary::SetObserver(
      [this](const KorString& name, bool known) { Event((known ? "+class " : "-class ") + name); });
}

ModuleOrder::~ModuleOrder() {
  TqTrace::SetComponentObserver(nullptr);
  KorClassDictionary::SetObserver(nullptr);
}

void ModuleOrder::Event(const std::string& text) {
  Look();
  _events.push_back(text);
}

void ModuleOrder::Look() {
  if (!_filterStateSeen && IsConstructed(kFilterState)) {
    _filterStateSeen = true;
    _events.push_back("+filter state");
  }
  if (_unitsManager == Seen::Never && IsConstructed(kUnitsManager)) {
    _unitsManager = Seen::Alive;
    _events.push_back("+units manager");
  }
  // Its memory keeps its last words: that it has gone shows at the magnitudes.
  if (_unitsManager == Seen::Alive && ListenersToUnits() == 0) {
    _unitsManager = Seen::Gone;
    _events.push_back("-units manager");
  }
}

// The first word of both is an address from their construction on.
bool ModuleOrder::IsConstructed(const char* symbol) const {
  const void* memory = _module.Symbol(symbol);
  if (!memory) return false;
  void* first = nullptr;
  std::memcpy(&first, memory, sizeof first);
  return first != nullptr;
}

int ModuleOrder::ListenersToUnits() {
  int listeners = 0;
  for (const KorCkeMagnitude_var& magnitude : KorCkeGlobalFunctions::GetParmDictionary()->Magnitudes())
    listeners += magnitude->CallbackCount();
  return listeners;
}
