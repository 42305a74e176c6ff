#include <gmock/gmock.h>

#include "ImportFixture.h"

namespace lumira::test {
namespace {

using testing::ElementsAre;

constexpr auto kKeep = ConditionSense::Keep;
constexpr auto kLeaveOut = ConditionSense::LeaveOut;

constexpr char kStructure[] =
    "parent,child,instance,attribute system,Attribute_Zone,effective from,effective until\n"
    "top,a,a.1,drive train,front,2020-02-29,2021-12-31\n"
    "top,a,a.2,,rear,,\n"
    "top,b,b.1,structure,,2022-01-01,\n";
constexpr char kMass[] = "part,revision,mass [kg]\na,A,1\nb,,2\n";

protocol::Result<ImportedProduct> ReadFilters(const std::string& filters,
                                              const std::string& structure = kStructure) {
  return ReadProductTables(
      {TableSource{"s.csv", structure}, TableSource{"m.csv", kMass}, TableSource{"f.csv", filters}}, {});
}

std::string Refusal(const std::string& filters, const std::string& structure = kStructure) {
  const auto imported = ReadFilters(filters, structure);
  return imported ? "imported" : imported.Failure().message;
}

TEST(StructureTable, GivesInstancesAttributesAndDates) {
  const auto imported = ReadTables(kStructure, kMass);
  ASSERT_TRUE(imported.Ok()) << imported.Failure().message;
  EXPECT_THAT(imported.Value().report.leftOut, ElementsAre());
  const Instance& a1 = InstanceOf(imported.Value(), "a.1");
  EXPECT_THAT(a1.attributes,
              ElementsAre(InstanceAttribute{"system", "drive train"}, InstanceAttribute{"Zone", "front"}));
  EXPECT_EQ(a1.effectivity, (Effectivity{ParseDate("2020-02-29"), ParseDate("2021-12-31")}));
  const Instance& a2 = InstanceOf(imported.Value(), "a.2");
  EXPECT_THAT(a2.attributes, ElementsAre(InstanceAttribute{"Zone", "rear"}))
      << "an empty cell is no attribute";
  EXPECT_FALSE(a2.effectivity.HasDates());
  EXPECT_EQ(InstanceOf(imported.Value(), "b.1").effectivity, (Effectivity{ParseDate("2022-01-01"), {}}));
}

TEST(StructureTable, MayStandInTheMassTableWithAttributesAndDates) {
  const auto imported = ReadProductTables(
      {std::nullopt, TableSource{"m.csv",
                                 "part,parent,mass [kg],attribute system,effective until\ntop,,,,\n"
                                 "a,top,1,structure,2020-01-01\n"}},
      {});
  ASSERT_TRUE(imported.Ok()) << imported.Failure().message;
  EXPECT_THAT(imported.Value().report.leftOut, ElementsAre());
  const Instance& a = InstanceOf(imported.Value(), "a.1");
  EXPECT_THAT(a.attributes, ElementsAre(InstanceAttribute{"system", "structure"}));
  EXPECT_EQ(a.effectivity, (Effectivity{{}, ParseDate("2020-01-01")}));
}

TEST(StructureTable, IsRefusedForDatesThatAreNone) {
  EXPECT_EQ(StructureErrors("parent,child,effective from,effective until\ntop,a,2021-02-29,1.1.2022\n"),
            "s.csv, line 2, column 3 (effective from): \"2021-02-29\" is no date; a day of the calendar as "
            "YYYY-MM-DD expected\n"
            "s.csv, line 2, column 4 (effective until): \"1.1.2022\" is no date; a day of the calendar as "
            "YYYY-MM-DD expected");
  EXPECT_EQ(StructureErrors("parent,child,effective from,effective until\ntop,a,0000-12-31,\n"),
            "s.csv, line 2, column 3 (effective from): \"0000-12-31\" is no date; a day of the calendar as "
            "YYYY-MM-DD expected");
  EXPECT_EQ(StructureErrors("parent,child,effective from,effective until\ntop,a,2021-02-02,2021-02-01\n"),
            "s.csv, line 2, column 4 (effective until): 2021-02-01 is before 2021-02-02, where it begins");
  EXPECT_EQ(StructureErrors("parent,child,effective from,effective until\ntop,a,2021-02-02,2021-02-02\n"),
            "imported");
}

TEST(StructureTable, IsRefusedForAttributesThatHaveNoNameOrTheSame) {
  EXPECT_EQ(StructureErrors("parent,child,attribute a|b\ntop,a,x\n"),
            "s.csv, line 1, column 3 (attribute a|b): name of an attribute: \"a|b\" holds \"|\", which an "
            "identifier may not");
  EXPECT_EQ(StructureErrors("parent,child,attribute zone,attribute zone\ntop,a,x,y\n"),
            "s.csv, line 1, column 4 (attribute zone): there is a column of this attribute already");
  EXPECT_EQ(StructureErrors("parent,child,attribute zone\ntop,a,x|y\n"),
            "s.csv, line 2, column 3 (attribute zone): \"x|y\" holds \"|\", which an identifier may not");
}

TEST(FilterTable, HasAConditionOnEachRow) {
  const auto imported = ReadFilters(
      "filter,description,condition,name,values,sense,set\n"
      "Kit,For service,attribute,system,drive train ; structure,,\n"
      "Old,,effectivity,,2020-12-31,keep,yes\n"
      "Kit,,Revision,,A,leave out,\n"
      "Kit,For service,revision,a,A,keep,no\n"
      "Kit,,instances,,a.2;b.1,Leave_Out,\n"
      "All,,,,,,\n");
  ASSERT_TRUE(imported.Ok()) << imported.Failure().message;
  EXPECT_EQ(imported.Value().report.filters, 3u);
  EXPECT_THAT(imported.Value().report.warnings, ElementsAre());
  EXPECT_THAT(imported.Value().report.leftOut, ElementsAre());
  const ConfigurationFilter kit{"Kit",
                                "For service",
                                {{ConditionKind::Attribute, kKeep, "system", {"drive train", "structure"}},
                                 {ConditionKind::Revision, kLeaveOut, "", {"A"}},
                                 {ConditionKind::Revision, kKeep, "a", {"A"}},
                                 {ConditionKind::Instances, kLeaveOut, "", {"a.2", "b.1"}}}};
  const ConfigurationFilter old{"Old", "", {{ConditionKind::Effectivity, kKeep, "", {"2020-12-31"}}}};
  EXPECT_THAT(imported.Value().filters.filters, ElementsAre(kit, old, ConfigurationFilter{"All"}));
  EXPECT_EQ(imported.Value().filters.handler, "Old");
}

TEST(FilterTable, TakesASemicolonAndABackslashInsideAValueBehindABackslash) {
  const auto imported = ReadFilters(
      "filter,condition,name,values\n"
      "Kit,attribute,system,mast\\; lower half ; C:\\\\crane;\\\\\\;\n"
      "One,instances,,a\\;1\n",
      "parent,child,instance,attribute system\ntop,a,a;1,mast; lower half\ntop,a,,C:\\crane\ntop,b,,\\;\n");
  ASSERT_TRUE(imported.Ok()) << imported.Failure().message;
  EXPECT_THAT(imported.Value().report.warnings, ElementsAre());
  const auto& filters = imported.Value().filters.filters;
  ASSERT_EQ(filters.size(), 2u);
  EXPECT_THAT(filters[0].conditions.at(0).values, ElementsAre("mast; lower half", "C:\\crane", "\\;"));
  EXPECT_THAT(filters[1].conditions.at(0).values, ElementsAre("a;1"));
}

TEST(FilterTable, IsRefusedForABackslashThatEscapesNothing) {
  EXPECT_EQ(
      Refusal("filter,condition,name,values\nKit,attribute,system,structure;C:\\crane\n"),
      "f.csv, line 2, column 4 (values): value 2 of \"structure;C:\\crane\" has a \"\\\" before neither "
      "\";\" nor \"\\\"; \"\\;\" is a \";\" inside a value and \"\\\\\" a \"\\\"");
  EXPECT_NE(Refusal("filter,condition,name,values\nKit,attribute,system,structure\\\n").find("value 1 of"),
            std::string::npos)
      << "at the end";
}

TEST(FilterTable, MayBeAbsent) {
  const auto imported = ReadTables(kStructure, kMass);
  EXPECT_EQ(imported.Value().filters, ProductFilters{});
  EXPECT_EQ(imported.Value().report.filters, 0u);
}

TEST(FilterTable, NamesColumnsThatItDoesNotKnow) {
  const auto imported = ReadFilters("filter,colour\nKit,red\n");
  EXPECT_THAT(imported.Value().report.leftOut,
              ElementsAre("f.csv, line 1, column 2 (colour): the column is not known"));
}

TEST(FilterTable, NeedsANameThatCanBeAskedFor) {
  EXPECT_EQ(Refusal("name\nKit\n"), "f.csv, line 1: there is no column \"filter\"");
  EXPECT_EQ(Refusal("filter,set\n,yes\n"),
            "f.csv, line 2, column 1 (filter): is empty, an identifier expected");
  EXPECT_EQ(Refusal("filter\na|b\n"),
            "f.csv, line 2, column 1 (filter): \"a|b\" holds \"|\", which an identifier may not");
  EXPECT_EQ(
      Refusal("filter\nNo Filter\n"),
      "f.csv, line 2, column 1 (filter): configuration filter \"No Filter\": the name stands for no filter "
      "at all");
}

TEST(FilterTable, IsRefusedForInstancesAttributesAndPartsThatAreNotThere) {
  EXPECT_EQ(Refusal("filter,condition,name,values\n"
                    "Kit,instances,,a.1;a.3;a.4\n"
                    "Kit,attribute,colour,red\n"
                    "Kit,revision,c,A\n"),
            "f.csv, line 2, column 4 (values): there is no instance \"a.3\"\n"
            "f.csv, line 2, column 4 (values): there is no instance \"a.4\"\n"
            "f.csv, line 3, column 3 (name): there is no attribute \"colour\"; those known are \"Zone\", "
            "\"system\"\n"
            "f.csv, line 4, column 3 (name): there is no part \"c\"");
  EXPECT_EQ(Refusal("filter,condition,name,values\nKit,attribute,system,x\n", "parent,child\ntop,a\ntop,b\n"),
            "f.csv, line 2, column 3 (name): there is no attribute \"system\"; no instance has any");
}

TEST(FilterTable, WarnsOfValuesThatNothingHas) {
  const auto imported = ReadFilters(
      "filter,condition,name,values\nKit,attribute,system,structure;strukture\nKit,revision,,A;C\n"
      "Kit,revision,b,A\n");
  ASSERT_TRUE(imported.Ok()) << imported.Failure().message;
  EXPECT_THAT(
      imported.Value().report.warnings,
      ElementsAre(
          "f.csv, line 2, column 4 (values): no instance has the value \"strukture\" of attribute \"system\"",
          "f.csv, line 3, column 4 (values): no part has the revision \"C\"",
          "f.csv, line 4, column 4 (values): part \"b\" has not the revision \"A\""));
}

TEST(FilterTable, IsRefusedForConditionsThatAreNotWhole) {
  EXPECT_EQ(Refusal("filter,condition,name,values,sense\n"
                    "Kit,weight,,3,\n"
                    "Kit,attribute,,x,\n"
                    "Kit,attribute,system,,\n"
                    "Kit,instances,,a.1;;a.2,\n"
                    "Kit,instances,x,a.1,\n"
                    "Kit,instances,,a.1,drop\n"
                    "Kit,,system,structure,keep\n"),
            "f.csv, line 2, column 2 (condition): \"weight\" is none of \"attribute\", \"revision\", "
            "\"effectivity\", \"instances\"\n"
            "f.csv, line 3, column 3 (name): the name of the attribute is missing\n"
            "f.csv, line 4, column 4 (values): value 1 is empty; values are separated by \";\"\n"
            "f.csv, line 5, column 4 (values): value 2 is empty; values are separated by \";\"\n"
            "f.csv, line 6, column 3 (name): a condition of this kind has no name, \"x\" found\n"
            "f.csv, line 7, column 5 (sense): \"drop\" is none of \"keep\", \"leave out\"\n"
            "f.csv, line 8, column 3 (name): there is no condition that this could belong to\n"
            "f.csv, line 8, column 4 (values): there is no condition that this could belong to\n"
            "f.csv, line 8, column 5 (sense): there is no condition that this could belong to");
}

TEST(FilterTable, IsRefusedForDatesThatAreNoneOrSeveral) {
  EXPECT_EQ(
      Refusal("filter,condition,values\nKit,effectivity,2020-1-1\nKit,effectivity,2020-01-01;2021-01-01\n"),
      "f.csv, line 2, column 3 (values): \"2020-1-1\" is no date; a day of the calendar as YYYY-MM-DD "
      "expected\n"
      "f.csv, line 3, column 3 (values): one date expected, there are 2");
}

TEST(FilterTable, IsRefusedForTwoDescriptionsOfAFilterAndForTwoThatAreSet) {
  EXPECT_EQ(Refusal("filter,description,set\nKit,one,yes\nKit,two,yes\nOther,,yes\nThird,,maybe\n"),
            "f.csv, line 3, column 2 (description): \"two\" differs from \"one\" on another row of the same "
            "filter\n"
            "f.csv, line 4, column 3 (set): the filter \"Kit\" is set already; one can be\n"
            "f.csv, line 5, column 3 (set): \"maybe\" is none of \"no\", \"yes\"");
}

}  // namespace
}  // namespace lumira::test
