#include <gtest/gtest.h>

#include "desktop/app/FilterMarks.h"

namespace desktop::test {
namespace {

using enum FilterMarks::Mark;

FilterMarks Chosen(std::vector<protocol::FilterRow> rows) {
  protocol::Filter filter;
  filter.kind = protocol::Filter::Kind::User;
  filter.rows = std::move(rows);
  return FilterMarks(filter);
}

TEST(FilterMarks, WithoutAFilterEverythingTakesPart) {
  EXPECT_EQ(FilterMarks().Of({}), TakesPart);
  EXPECT_EQ(FilterMarks().Of({"a", "b"}), TakesPart);
}

TEST(FilterMarks, AnEmptyListLetsEverythingTakePart) { EXPECT_EQ(Chosen({}).Of({"a"}), TakesPart); }

TEST(FilterMarks, AConfigurationFilterLeavesNothingOutHere) {
  protocol::Filter filter;
  filter.name = "Structure only";
  EXPECT_EQ(FilterMarks(filter).Of({"a"}), TakesPart);
}

TEST(FilterMarks, AChosenInstanceTakesPartWithEverythingBelowIt) {
  const FilterMarks marks = Chosen({{"b", "B", "", {"a"}}});
  EXPECT_EQ(marks.Of({"a", "b"}), TakesPart);
  EXPECT_EQ(marks.Of({"a", "b", "c", "d"}), TakesPart);
}

TEST(FilterMarks, WhatHoldsAChosenInstanceTakesPartInPart) {
  const FilterMarks marks = Chosen({{"c", "C", "", {"a", "b"}}});
  EXPECT_EQ(marks.Of({}), Partly);
  EXPECT_EQ(marks.Of({"a"}), Partly);
  EXPECT_EQ(marks.Of({"a", "b"}), Partly);
}

TEST(FilterMarks, EverythingElseIsLeftOut) {
  const FilterMarks marks = Chosen({{"b", "B", "", {"a"}}});
  EXPECT_EQ(marks.Of({"b"}), LeftOut);
  EXPECT_EQ(marks.Of({"a", "c"}), LeftOut);
  EXPECT_EQ(marks.Of({"x", "b"}), LeftOut);
}

TEST(FilterMarks, ASecondRowBelowTheSameAssemblyCountsToo) {
  const FilterMarks marks = Chosen({{"b", "B", "", {"a"}}, {"c", "C", "", {"a"}}, {"d", "D", "", {}}});
  EXPECT_EQ(marks.Of({"a", "c"}), TakesPart);
  EXPECT_EQ(marks.Of({"d", "e"}), TakesPart);
  EXPECT_EQ(marks.Of({"a"}), Partly);
}

TEST(FilterMarks, AnAssemblyThatIsChosenItselfIsNotPartly) {
  const FilterMarks marks = Chosen({{"b", "B", "", {"a"}}, {"a", "A", "", {}}});
  EXPECT_EQ(marks.Of({"a"}), TakesPart);
}

}  // namespace
}  // namespace desktop::test
