#include <gtest/gtest.h>

#include <set>
#include <string>

#include "lumira/commands/WarningTexts.h"

namespace lumira {
namespace {

TEST(WarningTexts, CountAndNameExamples) {
  EXPECT_EQ(ToWarning({WarningKind::WithoutMass, 1, 0, {"a"}}).text,
            "1 part has no mass data and is left out (a)");
  EXPECT_EQ(ToWarning({WarningKind::WithoutMass, 7, 0, {"a", "b"}}).text,
            "7 parts have no mass data and are left out (a, b, ...)");
  EXPECT_EQ(ToWarning({WarningKind::NegativeMass, 2, 0, {"a", "b"}}).text,
            "2 parts have a negative mass (a, b)");
}

TEST(WarningTexts, CountInWholeNumbers) {
  EXPECT_EQ(ToWarning({WarningKind::NegativeMass, 1e9, 0, {}}).text, "1000000000 parts have a negative mass");
  EXPECT_EQ(ToWarning({WarningKind::NegativeMass, 100000, 0, {}}).text, "100000 parts have a negative mass");
  EXPECT_EQ(ToWarning({WarningKind::NegativeMass, 1e30, 0, {}}).text, "1e+30 parts have a negative mass");
}

TEST(WarningTexts, SayHowMuchMassIsConcerned) {
  EXPECT_EQ(ToWarning({WarningKind::WithoutInertia, 2, 12.5, {}}).text,
            "2 parts have no inertia of their own and count as point masses, 12.5 kg in all");
}

TEST(WarningTexts, GradeWhatTheySay) {
  EXPECT_EQ(ToWarning({WarningKind::ReplacesChildren, 1, 0, {}}).severity, protocol::Severity::Information);
  EXPECT_EQ(ToWarning({WarningKind::WithoutCg, 1, 0, {}}).severity, protocol::Severity::Warning);
  EXPECT_EQ(ToWarning({WarningKind::NotFinite, 1, 0, {}}).severity, protocol::Severity::Error);
}

TEST(WarningTexts, AreThereForEveryKind) {
  std::set<std::string> texts;
  for (int kind = 0; kind <= static_cast<int>(WarningKind::NotFinite); ++kind)
    texts.insert(ToWarning({static_cast<WarningKind>(kind), 2, 0, {}}).text);
  EXPECT_EQ(texts.size(), static_cast<std::size_t>(WarningKind::NotFinite) + 1);
}

}  // namespace
}  // namespace lumira
