#include <gtest/gtest.h>

#include "protocol/ErrorReply.h"
#include "services/KorLumWBCSCommonDefinitions.h"

namespace {

using Definitions = KorLumWBCSCommonDefinitions;

TEST(CommonDefinitions, AreTheTextsOfTheWire) {
  EXPECT_EQ(Definitions::errMsgHeader, "LumiraError: ");
  EXPECT_EQ(Definitions::ExceptionFlag, "__EXCEPTION__");
  EXPECT_EQ(Definitions::NullValue, "__null__");
  EXPECT_EQ(Definitions::Computed, "Computed");
  EXPECT_EQ(Definitions::partInst, "Part Instance");
  EXPECT_EQ(Definitions::partRef, "Part Reference");
}

TEST(CommonDefinitions, HaveTheHeaderThatOpensAnErrorReply) {
  EXPECT_EQ(KorUnicodeString(protocol::ErrorReply("no such part")).SearchSubString(Definitions::errMsgHeader),
            0);
}

TEST(CommonDefinitions, PrintADoubleSoThatItReadsBackToTheSameBits) {
  for (double number : {0.1, 1 / 3.0, 6.02214076e23, -5e-324}) {
    KorUnicodeString text;
    text.BuildFromNum(number, Definitions::FormatDouble.ConvertToChar());
    double back = 0;
    EXPECT_EQ(text.ConvertToNum(&back, "%le"), 1);
    EXPECT_EQ(back, number);
  }
}

TEST(CommonDefinitions, OfferTheConditionsThatTheyName) {
  for (const KorUnicodeString* condition :
       {&Definitions::conditionEqualsText, &Definitions::conditionIsEmptyText,
        &Definitions::conditionIsNotEmptyText}) {
    EXPECT_FALSE(condition->IsEmpty());
    EXPECT_NE(Definitions::listOfAttributeBasedSearchConditions.Locate(*condition), 0);
  }
  EXPECT_EQ(Definitions::listOfUTDStatusBasedSearchConditions.Size(), 3);
}

TEST(CommonDefinitions, KeepTheSpecialCriteriaApart) {
  EXPECT_NE(Definitions::criterionIsChildOfText, Definitions::criterionUpToDateStatusText);
  EXPECT_NE(Definitions::criterionUpToDateStatusText, Definitions::criterionActiveMTText);
  EXPECT_NE(Definitions::criterionActiveMTText, Definitions::criterionIsChildOfText);
}

}  // namespace
