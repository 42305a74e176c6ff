#include "services/KorWBServices.h"

#include "framework/knowledge/KorCkeParmDictionary.h"

HRESULT KorWBServices::RestoreValue(double shown, const KorUnicodeString& magnitude, double& stored) {
  const KorCkeParmDictionary* dictionary = KorCkeGlobalFunctions::GetParmDictionary();
  const KorCkeMagnitude_var found =
      dictionary ? dictionary->FindMagnitude(magnitude.Utf8()) : KorCkeMagnitude_var();
  if (!found || !found->CurrentUnit()) return E_FAIL;
  stored = found->CurrentUnit()->ConvertToReference(shown);
  return S_OK;
}

double KorWBServices::RestoreValue(double shown, const KorUnicodeString& magnitude) {
  double stored = shown;
  RestoreValue(shown, magnitude, stored);
  return stored;
}
