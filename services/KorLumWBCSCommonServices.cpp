#include "services/KorLumWBCSCommonServices.h"

HRESULT KorLumWBCSCommonServices::GetDOMFromXMLStringBuffer(const KorUnicodeString& text,
                                                            KorXmlDocument_var& document) {
  document = KorXmlDocument_var::Adopt(new KorXmlDocument);
  const HRESULT status = document->Parse(text);
  if (Failed(status)) document = {};
  return status;
}
