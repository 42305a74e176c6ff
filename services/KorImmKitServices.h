#pragma once

#include "framework/system/KorListValKorUnicodeString.h"
#include "framework/system/KorStatus.h"
#include "services/KorServicesExport.h"

/// The current product root and its configuration filters, as the server knows them.
///
/// Each answers E_FAIL without a server, when the server refuses, and when its answer cannot be read; the
/// outputs are empty then.
class KOR_SERVICES_API KorImmKitServices {
 public:
  /// The parallel lists of the current root: root part and product (PRC), and a text for people. E_FAIL also
  /// when there is no current root.
  static HRESULT GetCurrentRootIdentifiers(KorListValKorUnicodeString& rootIds,
                                           KorListValKorUnicodeString& prcIds, KorUnicodeString& rootText);

  /// Configuration filters of the products, given as parallel lists: identifiers and names, parallel too.
  static HRESULT GetPRCConfigFilter(const KorListValKorUnicodeString& rootIds,
                                    const KorListValKorUnicodeString& prcIds,
                                    KorListValKorUnicodeString& filterIds,
                                    KorListValKorUnicodeString& filterNames);

  /// Name of the configuration filter that is set on the product. S_FALSE, with an empty name, when none is.
  static HRESULT GetPRCConfigHandler(const KorUnicodeString& prcId, KorUnicodeString& handler);
};
