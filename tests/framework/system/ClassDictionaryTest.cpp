#include <gtest/gtest.h>

#include <new>

#include "framework/system/KorClassDictionary.h"

namespace {

int g_first = 1;
int g_second = 2;

TEST(ClassDictionary, CreatesByTheRegisteredFactory) {
  const KorFillDictionary entry("Panel", []() -> void* { return &g_first; });
  EXPECT_TRUE(KorClassDictionary::Knows("Panel"));
  EXPECT_EQ(KorClassDictionary::Create("Panel"), &g_first);
}

TEST(ClassDictionary, AnswersNullForAnUnknownClass) {
  EXPECT_FALSE(KorClassDictionary::Knows("Nobody"));
  EXPECT_EQ(KorClassDictionary::Create("Nobody"), nullptr);
}

TEST(ClassDictionary, ForgetsAClassWhenItsRegistrationGoes) {
  {
    const KorFillDictionary entry("Panel", []() -> void* { return &g_first; });
  }
  EXPECT_FALSE(KorClassDictionary::Knows("Panel"));
}

TEST(ClassDictionary, PrefersTheLatestRegistrationAndComesBackToTheEarlier) {
  const KorFillDictionary first("Panel", []() -> void* { return &g_first; });
  {
    const KorFillDictionary second("Panel", []() -> void* { return &g_second; });
    EXPECT_EQ(KorClassDictionary::Create("Panel"), &g_second);
  }
  EXPECT_EQ(KorClassDictionary::Create("Panel"), &g_first);
}

TEST(ClassDictionary, AnswersNullWhenTheFactoryFails) {
  const KorFillDictionary null("Null", []() -> void* { return nullptr; });
  const KorFillDictionary throwing("Throwing", []() -> void* { throw std::bad_alloc(); });
  const KorFillDictionary none("None", nullptr);
  EXPECT_EQ(KorClassDictionary::Create("Null"), nullptr);
  EXPECT_EQ(KorClassDictionary::Create("Throwing"), nullptr);
  EXPECT_EQ(KorClassDictionary::Create("None"), nullptr);
}

}  // namespace
