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

TEST(ClassDictionary, TellsItsObserverWhatBecomesKnownAndWhatIsForgotten) {
  std::vector<std::string> heard;
  KorClassDictionary::SetObserver([&](const KorString& name, bool known) {
    EXPECT_EQ(KorClassDictionary::Knows(name), known) << "told when it is done";
    heard.push_back((known ? "+" : "-") + name);
  });
  {
    const KorFillDictionary first("First", nullptr);
    const KorFillDictionary second("Second", nullptr);
  }
  KorClassDictionary::SetObserver(nullptr);
  const KorFillDictionary unheard("Third", nullptr);
  EXPECT_EQ(heard, (std::vector<std::string>{"+First", "+Second", "-Second", "-First"}));
}

TEST(ClassDictionary, AClassWithoutANameIsKeptUnderTheEmptyOne) {
  const KorFillDictionary nameless(nullptr, []() -> void* { return &g_first; });
  EXPECT_EQ(KorClassDictionary::Create(""), &g_first);
}

}  // namespace
