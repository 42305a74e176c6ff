#include "desktop/app/Quantities.h"

#include "desktop/toolkit/QtText.h"
#include "framework/knowledge/KorCkeParmDictionary.h"

QString desktop::ShowQuantity(const char* magnitude, double reference) {
  const KorCkeParmDictionary* dictionary = KorCkeGlobalFunctions::GetParmDictionary();
  const KorCkeMagnitude_var found = dictionary ? dictionary->FindMagnitude(magnitude) : KorCkeMagnitude_var();
  if (!found || !found->CurrentUnit()) return QString::number(reference, 'g', 10);
  return ToQt(found->CurrentUnit()->ShowValue(reference));
}
