#include <SQLiteCpp/SQLiteCpp.h>
#include <gmock/gmock.h>

#include "ServerFixture.h"

namespace lumira::test {
namespace {

using protocol::Severity;
using testing::HasSubstr;

class Findings : public ServerFixture {
 protected:
  std::vector<protocol::Warning> Found() {
    return protocol::ReadPendingWarnings(Run("LumGetFindings")).Value().warnings;
  }

  void Change(const char* sql) { SQLite::Database(file, SQLite::OPEN_READWRITE).exec(sql); }
};

TEST_F(Findings, AreNoneWhereAllIsWell) {
  ImportBoxes();
  Compute("top");
  Restart();
  EXPECT_TRUE(Found().empty());
}

TEST_F(Findings, TellOfProductsWithoutMassData) {
  Import("parent,child\ntop,a\n", "part,name\na,A\n");
  Restart();
  ASSERT_EQ(Found().size(), 1u);
  EXPECT_EQ(Found()[0].text, "Product \"top\" has no mass data at all.");
  EXPECT_EQ(Found()[0].severity, Severity::Warning);
}

TEST_F(Findings, TellOfResultsThatAreOlderThanTheProduct) {
  ImportBoxes();
  Compute("top");
  ChangeMass("bolt", 3);
  Restart();
  ASSERT_EQ(Found().size(), 1u);
  EXPECT_EQ(Found()[0].text,
            "Product \"top\" has changed after a result was computed; it may be out of date.");
  Compute("top");
  Compute("box");
  ChangeMass("bolt", 4);
  Restart();
  ASSERT_EQ(Found().size(), 1u);
  EXPECT_EQ(Found()[0].text,
            "Product \"top\" has changed after 2 results were computed; they may be out of date.");
  Compute("top");
  Compute("box");
  Restart();
  EXPECT_TRUE(Found().empty());
}

TEST_F(Findings, TellOfProductsThatCannotBeReadAndWhy) {
  ImportBoxes();
  Import("parent,child\nother,thing\n", "part,mass [kg]\nthing,1\n");
  const std::pair<const char*, const char*> damages[] = {
      {"UPDATE parts SET name = CAST(x'ff' AS TEXT) WHERE part = 'top'", "Product \"top\" cannot be read: "},
      {"UPDATE parts SET name = ''; DELETE FROM roots WHERE part = 'top'",
       "product \"top\" has no root part"},
      {"UPDATE products SET product = CAST(x'ff' AS TEXT) WHERE product = 'top'",
       "A product cannot be read: "}};
  for (const auto& [damage, text] : damages) {
    Change(damage);
    Restart();
    ASSERT_EQ(Found().size(), 1u) << damage;
    EXPECT_THAT(Found()[0].text, HasSubstr(text));
    EXPECT_THAT(Found()[0].text, HasSubstr("the file is damaged"));
    EXPECT_EQ(Found()[0].severity, Severity::Error);
  }
}

TEST_F(Findings, TellOfASetFilterThatIsNotThere) {
  ImportBoxes();
  Change("UPDATE products SET handler = 'Gone'");
  Restart();
  ASSERT_EQ(Found().size(), 1u);
  EXPECT_EQ(Found()[0].text,
            "Product \"top\" has the configuration filter \"Gone\" set, but there is none of that name.");
}

TEST_F(Findings, TellWhatCouldNotBeTakenOverFromOlderTables) {
  ImportBoxes();
  Change("INSERT INTO product_notes(product, position, text) SELECT key, 0, 'a b' FROM products");
  Restart();
  ASSERT_EQ(Found().size(), 1u);
  EXPECT_EQ(Found()[0].text, "Product \"top\": a b.");
  EXPECT_EQ(Found()[0].severity, Severity::Warning);
}

TEST_F(Findings, AreThoseOfTheStartAndCanBeAskedForAgain) {
  Import("parent,child\ntop,a\n", "part,name\na,A\n");
  EXPECT_TRUE(Found().empty()) << "the server was there before the product";
  Restart();
  EXPECT_EQ(Found().size(), 1u);
  EXPECT_EQ(Found().size(), 1u);
  EXPECT_TRUE(Warnings().empty()) << "they are no warnings of a compute";
}

TEST_F(Findings, LoadNoProduct) {
  ImportBoxes();
  Change("UPDATE instances SET r_11 = 2");  // only loading shows it
  std::vector<std::string> steps;
  Server watched(*store, [&](std::string_view what, std::size_t, std::size_t) { steps.emplace_back(what); });
  EXPECT_EQ(watched.Run("LumGetFindings", ""), "PendingWarnings/1|0|end");
  EXPECT_TRUE(steps.empty());
}

}  // namespace
}  // namespace lumira::test
