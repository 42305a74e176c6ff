#include <gtest/gtest.h>

#include <string>

#include "lumira/import/ImportProduct.h"

namespace lumira::test {
namespace {

// A percent sign is told as three bytes.
std::string Percents(std::size_t count) { return std::string(count, '%'); }

std::string Padded(int number, std::size_t digits) {
  const std::string text = std::to_string(number);
  return std::string(digits - text.size(), '0') + text;
}

constexpr char kMass[] = "part,mass [kg]\na,1\n";

ImportTables Tables(const std::string& mass = kMass) {
  return {TableSource{"s.csv", "parent,child\ntop,a\ntop,b\n"}, {"m.csv", mass}};
}

std::string Refusal(const ImportTables& tables) {
  const auto refused = ReadProductTables(tables, {});
  return refused.Ok() ? "read" : refused.Failure().message;
}

// Of each mass type 5 digits, 195 to 250 percent signs and 17 numbers of 25 bytes: 61,460 bytes in 56 rows.
TEST(SizeLimits, NameTheRowWithWhichTheMassTypesOfAPartAreTooMany) {
  std::string table = "part,mass type,mass [kg]\n";
  for (int i = 0; i < 30'600; ++i)
    table += "a," + Padded(i, 5) + Percents(195 + static_cast<std::size_t>(i) % 56) + ",1\n";
  EXPECT_EQ(
      Refusal(Tables(table)),
      "m.csv, line 30575, column 2 (mass type): with this one the mass types of part \"a\" have 33554803 "
      "bytes together, at most 33554432 expected");
}

// Of each property 4 bytes of its name and 16 more, and 65,000 percent signs; the 180 properties are told of
// every part.
TEST(SizeLimits, NameTheRowWithWhichTheExtraPropertiesOfAPartAreTooMany) {
  std::string table = "property,type,part,value\n";
  for (int i = 0; i < 180; ++i) table += "p" + Padded(i, 3) + ",text,a," + Percents(65'000) + "\n";
  ImportTables tables = Tables("part\na\n");
  tables.properties = TableSource{"p.csv", table};
  EXPECT_EQ(
      Refusal(tables),
      "p.csv, line 174, column 4 (value): with this one the mass types and extra properties of part \"a\" "
      "have 33738600 bytes together, at most 33554432 expected");
}

// As above, with one mass type more: 8 bytes of its name and 17 numbers of 25.
TEST(SizeLimits, CountTheMassTypesBesideTheExtraProperties) {
  std::string table = "property,type,part,value\n";
  for (int i = 0; i < 172; ++i) table += "p" + Padded(i, 3) + ",text,a," + Percents(65'000) + "\n";
  ImportTables tables = Tables("part,mass type,mass [kg]\na,Weighed!,1\n");
  tables.properties = TableSource{"p.csv", table + "p172,text,a," + Percents(3'513) + "\n"};
  EXPECT_EQ(Refusal(tables), "read");
  tables.properties = TableSource{"p.csv", table + "p172,text,a," + Percents(3'514) + "\n"};
  EXPECT_EQ(
      Refusal(tables),
      "p.csv, line 174, column 4 (value): with this one the mass types and extra properties of part \"a\" "
      "have 33554435 bytes together, at most 33554432 expected");
}

// Of each revision 3 bytes of its name, 180,000 of the user and 41 more.
TEST(SizeLimits, NameTheDocumentWhoseRevisionsAreTooMany) {
  const auto tableOf = [](int rows) {
    std::string table = "part,document,revision,check in user\n";
    for (int i = 0; i < rows; ++i) table += "a,D-1," + Padded(i, 3) + "," + Percents(60'000) + "\n";
    return table;
  };
  ImportTables tables = Tables();
  tables.documents = TableSource{"d.csv", tableOf(46)};
  EXPECT_EQ(Refusal(tables), "read");
  tables.documents = TableSource{"d.csv", tableOf(47)};
  EXPECT_EQ(
      Refusal(tables),
      "d.csv, line 2, column 2 (document): part \"a\": its revisions have 8462068 bytes together, at most "
      "8388608 expected");
}

// Of each mass type 740 bytes of its name and two between it and the next.
TEST(SizeLimits, NameTheRevisionWhoseMassTypesCannotBeListed) {
  const auto tableOf = [](int rows) {
    std::string table = "part,document,revision,mass type,mass [kg]\n";
    for (int i = 0; i < rows; ++i) table += "a,D-1,A," + Padded(i, 5) + Percents(245) + ",1\n";
    return table;
  };
  ImportTables tables = Tables();
  tables.documents = TableSource{"d.csv", tableOf(1'413)};
  EXPECT_EQ(Refusal(tables), "read");
  tables.documents = TableSource{"d.csv", tableOf(1'414)};
  EXPECT_EQ(
      Refusal(tables),
      "d.csv, line 2, column 2 (document): part \"a\": the names of the mass types of revision \"A\" have "
      "1049186 bytes together, at most 1048576 expected");
}

// Of each material 3 digits, 60,000 percent signs and 41 bytes more.
TEST(SizeLimits, NameThePartWithWhichTheMaterialsOfAProductAreTooMany) {
  std::string structure = "parent,child\n", mass = "part,mass [kg],material,density [kg/m3]\n";
  for (int i = 0; i < 94; ++i) {
    structure += "top,part" + std::to_string(i) + "\n";
    mass += "part" + std::to_string(i) + ",1," + Padded(i, 3) + Percents(60'000) + ",7850\n";
  }
  EXPECT_THAT(Refusal({TableSource{"s.csv", structure}, {"m.csv", mass}}),
              testing::MatchesRegex("m.csv, line 95, column 1 \\(part\\): part \"part93\": with its material "
                                    "\"093%.*\" the different materials of the "
                                    "product have 16924136 bytes together, at most 16777216 expected"));
}

TEST(SizeLimits, CountAMaterialOfManyPartsOnce) {
  std::string structure = "parent,child\n", mass = "part,mass [kg],material,density [kg/m3]\n";
  for (int i = 0; i < 94; ++i) {
    structure += "top,part" + std::to_string(i) + "\n";
    mass += "part" + std::to_string(i) + ",1," + Percents(60'000) + ",7850\n";
  }
  EXPECT_EQ(Refusal({TableSource{"s.csv", structure}, {"m.csv", mass}}), "read");
}

}  // namespace
}  // namespace lumira::test
