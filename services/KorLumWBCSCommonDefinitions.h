#pragma once

#include "framework/system/KorListValKorUnicodeString.h"
#include "services/KorServicesExport.h"

/// Texts that the client's libraries share with each other and with the server.
class KOR_SERVICES_API KorLumWBCSCommonDefinitions {
 public:
  // ---- server replies ----
  static const KorUnicodeString errMsgHeader;   ///< opens a reply that tells of a failure
  static const KorUnicodeString ExceptionFlag;  ///< document id when the server failed to find documents
  static const KorUnicodeString NullValue;      ///< an absent value
  static const KorUnicodeString Computed;       ///< name of the computed mass type
  static const KorUnicodeString partInst;       ///< a material applies to the part instance
  static const KorUnicodeString partRef;        ///< a material applies to the part reference

  // ---- pending warnings: each text behind the mark of its severity ----
  static const KorUnicodeString warningMarkInformation;
  static const KorUnicodeString warningMarkWarning;
  /// The catalogue text "WBWarnings001.Message" of each panel is this mark in every language.
  static const KorUnicodeString warningMarkError;

  // ---- values as text ----
  static const KorUnicodeString FormatDouble;            ///< 17 digits: reads back to the same number
  static const KorUnicodeString dateFieldDelimiter1;     ///< between date and time
  static const KorUnicodeString dateYMDFieldDelimiter1;  ///< between year, month and day
  static const KorUnicodeString dateHMSFieldDelimiter1;  ///< between hours, minutes and seconds

  // ---- search criteria ----
  static const KorUnicodeString criterionIsChildOfText;
  static const KorUnicodeString criterionUpToDateStatusText;
  static const KorUnicodeString criterionActiveMTText;
  static const KorUnicodeString conditionIsEmptyText;
  static const KorUnicodeString conditionIsNotEmptyText;
  static const KorUnicodeString conditionEqualsText;
  static const KorListValKorUnicodeString listOfAttributeBasedSearchConditions;
  static const KorListValKorUnicodeString listOfUTDStatusBasedSearchConditions;
};
