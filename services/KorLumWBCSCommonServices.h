#pragma once

#include "framework/xml/KorXmlDocument.h"
#include "services/KorServicesExport.h"

/// Services that the client's libraries share.
class KOR_SERVICES_API KorLumWBCSCommonServices {
 public:
  /// Parses an XML reply. E_FAIL, with `document` null, when the text is no XML document.
  static HRESULT GetDOMFromXMLStringBuffer(const KorUnicodeString& text, KorXmlDocument_var& document);
};
