#include "framework/knowledge/KorCkeParmDictionary.h"

#include <algorithm>
#include <utility>

#include "framework/knowledge/KorBuiltInMagnitudes.h"

namespace {

KorCkeParmDictionary* BuiltIn() {
  static KorCkeParmDictionary dictionary = [] {
    KorCkeParmDictionary filled;
    for (const KorCkeMagnitude_var& magnitude : KorMakeBuiltInMagnitudes()) filled.AddMagnitude(magnitude);
    return filled;
  }();
  return &dictionary;
}

bool g_replaced = false;
KorCkeParmDictionary* g_replacement = nullptr;

}  // namespace

KorCkeMagnitude_var KorCkeParmDictionary::FindMagnitude(const KorString& name) const {
  const auto found =
      std::find_if(_magnitudes.begin(), _magnitudes.end(),
                   [&](const KorCkeMagnitude_var& magnitude) { return magnitude->Name() == name; });
  return found == _magnitudes.end() ? KorCkeMagnitude_var() : *found;
}

KorCkeMagnitude_var KorCkeParmDictionary::LengthMagnitude() const { return FindMagnitude("LENGTH"); }

KorCkeUnit_var KorCkeParmDictionary::FindUnit(const KorString& name) const {
  for (const KorCkeMagnitude_var& magnitude : _magnitudes)
    if (KorCkeUnit_var unit = magnitude->FindUnit(name)) return unit;
  return {};
}

void KorCkeParmDictionary::AddMagnitude(KorCkeMagnitude_var magnitude) {
  RemoveMagnitude(magnitude->Name());
  _magnitudes.push_back(std::move(magnitude));
}

void KorCkeParmDictionary::RemoveMagnitude(const KorString& name) {
  std::erase_if(_magnitudes, [&](const KorCkeMagnitude_var& magnitude) { return magnitude->Name() == name; });
}

KorCkeParmDictionary* KorCkeGlobalFunctions::GetParmDictionary() {
  return g_replaced ? g_replacement : BuiltIn();
}

void KorCkeGlobalFunctions::SetParmDictionary(KorCkeParmDictionary* dictionary) {
  g_replaced = true;
  g_replacement = dictionary;
}

void KorCkeGlobalFunctions::RestoreParmDictionary() { g_replaced = false; }
