#include "services/KorLumWBCSCommonDefinitions.h"

#include "protocol/Constants.h"

using Definitions = KorLumWBCSCommonDefinitions;

const KorUnicodeString Definitions::errMsgHeader = protocol::kErrorHeader;
const KorUnicodeString Definitions::ExceptionFlag = protocol::kExceptionFlag;
const KorUnicodeString Definitions::NullValue = protocol::kNull;
const KorUnicodeString Definitions::Computed = protocol::kComputed;
const KorUnicodeString Definitions::partInst = protocol::kPartInstance;
const KorUnicodeString Definitions::partRef = protocol::kPartReference;

const KorUnicodeString Definitions::warningMarkInformation = "__INFORMATION__";
const KorUnicodeString Definitions::warningMarkWarning = "__WARNING__";
const KorUnicodeString Definitions::warningMarkError = "__ERROR__";

const KorUnicodeString Definitions::FormatDouble = "%.17g";
const KorUnicodeString Definitions::dateFieldDelimiter1 = " ";
const KorUnicodeString Definitions::dateYMDFieldDelimiter1 = "-";
const KorUnicodeString Definitions::dateHMSFieldDelimiter1 = ":";

const KorUnicodeString Definitions::criterionIsChildOfText = "Is Child";
const KorUnicodeString Definitions::criterionUpToDateStatusText = "Up To Date Status";
const KorUnicodeString Definitions::criterionActiveMTText = "Active Mass Type";
const KorUnicodeString Definitions::conditionIsEmptyText = "Is Empty";
const KorUnicodeString Definitions::conditionIsNotEmptyText = "Is Not Empty";
const KorUnicodeString Definitions::conditionEqualsText = "Equals";

// Filled here, behind the conditions that they name: objects of one source file come into being in their
// order.
const KorListValKorUnicodeString Definitions::listOfAttributeBasedSearchConditions = {
    conditionEqualsText, "Not Equals", "Contains",           "Starts With",          "Ends With",
    "Greater Than",      "Less Than",  conditionIsEmptyText, conditionIsNotEmptyText};
const KorListValKorUnicodeString Definitions::listOfUTDStatusBasedSearchConditions = {
    "Up To Date", "Out Of Date", "Not Computed"};
