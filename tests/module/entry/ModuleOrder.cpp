#include "tests/module/entry/ModuleOrder.h"

#include <cstring>

#include "framework/knowledge/KorCkeParmDictionary.h"
#include "framework/system/KorClassDictionary.h"
#include "framework/system/KorUnicodeString.h"
#include "framework/system/TqTrace.h"
#include "tests/module/entry/FreedBlock.h"

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
  FreedBlock::Watch(nullptr);
  TqTrace::SetComponentObserver(nullptr);
  KorClassDictionary::SetObserver(nullptr);
}

void ModuleOrder::Event(const std::string& text) {
  Look();
  _events.push_back(text);
}

void ModuleOrder::Look() {
  if (_filterState == Seen::Never && IsConstructed(kFilterState)) {
    _filterState = Seen::Alive;
    _events.push_back("+filter state");
  }
  if (_filterState == Seen::Alive && FreedBlock::WasFreed()) {
    _filterState = Seen::Gone;
    _events.push_back("-filter state");
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

void ModuleOrder::AwaitEnd() {
  _events.clear();
  auto& state = *static_cast<KorUnicodeString*>(_module.Symbol(kFilterState));
  state = KorUnicodeString(std::string(5000, 'x'));  // too long to stand in the object itself
  FreedBlock::Watch(state.Utf8().data());
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
