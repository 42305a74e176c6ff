#include <gtest/gtest.h>
#include <stdlib.h>

#include "framework/system/KorEnvironment.h"

namespace {

TEST(Environment, GivesTheValueOfAVariableThatIsSet) {
  setenv("KORVO_TEST_VARIABLE", "größer", 1);
  KorUnicodeString value;
  EXPECT_STREQ(KorGetEnv("KORVO_TEST_VARIABLE"), "größer");
  EXPECT_EQ(KorGetEnvValue("KORVO_TEST_VARIABLE", value), S_OK);
  EXPECT_EQ(value, "größer");
  unsetenv("KORVO_TEST_VARIABLE");
}

TEST(Environment, TellsAnEmptyVariableFromNone) {
  setenv("KORVO_TEST_VARIABLE", "", 1);
  KorUnicodeString value = "before";
  EXPECT_EQ(KorGetEnvValue("KORVO_TEST_VARIABLE", value), S_OK);
  EXPECT_EQ(value, "");
  unsetenv("KORVO_TEST_VARIABLE");
}

TEST(Environment, LeavesTheValueAloneWhenTheVariableIsNotSet) {
  KorUnicodeString value = "before";
  EXPECT_EQ(KorGetEnv("KORVO_TEST_VARIABLE"), nullptr);
  EXPECT_EQ(KorGetEnvValue("KORVO_TEST_VARIABLE", value), E_FAIL);
  EXPECT_EQ(KorGetEnvValue(nullptr, value), E_FAIL);
  EXPECT_EQ(value, "before");
}

}  // namespace
