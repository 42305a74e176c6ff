#include <gmock/gmock.h>

#include "SaveFixture.h"
#include "lumira/commands/SavedValues.h"
#include "lumira/store/SizeRules.h"

namespace lumira::test {
namespace {

using testing::HasSubstr;

std::string Padded(int number) {
  const std::string text = std::to_string(number);
  return std::string(3 - text.size(), '0') + text;
}

// A percent sign is told as three bytes.
std::string Percents(std::size_t count) { return std::string(count, '%'); }

class SaveSize : public SaveFixture {
 protected:
  void ImportMore(const ImportTables& tables) {
    const auto imported = ImportProduct(*store, tables, {});
    ASSERT_TRUE(imported.Ok()) << imported.Failure().message;
  }

  /// 172 properties of 195,000 bytes each leave some 10,000 of 33,554,432.
  void ImportCoverWithManyValues(const std::string& mass) {
    ImportTables tables{TableSource{"s2.csv", "parent,child\nother,cover\n"}, {"m2.csv", mass}};
    std::string properties = "property,type,part,value\nlast,text,,\n";
    for (int i = 0; i < 172; ++i) properties += "p" + Padded(i) + ",text,cover," + Percents(65'000) + "\n";
    tables.properties = TableSource{"p2.csv", properties};
    ImportMore(tables);
  }
};

TEST_F(SaveSize, OfAllValuesTogetherIsLimited) {
  ImportCoverWithManyValues("part\ncover\n");
  protocol::PartData data = PartDataOf("cover");
  Property(data, "last").value = Percents(5'000);
  const std::string refusal = Save(data);
  EXPECT_THAT(refusal, HasSubstr("PartData: with what is sent the values of part \"cover\" have 3355"));
  EXPECT_THAT(refusal, HasSubstr(" bytes together, at most 33554432 expected"));
  EXPECT_EQ(HistoryOf("cover").total, 0);
  EXPECT_EQ(Property(data = PartDataOf("cover"), "last").value, "");

  Property(data, "last").value = Percents(1'000);
  SaveWell(data);
  EXPECT_EQ(Property(data = PartDataOf("cover"), "last").value, Percents(1'000));
}

TEST_F(SaveSize, DoesNotCountWhatIsNotTold) {
  ImportCoverWithManyValues(
      "part,mass [kg],sd mass [kg],cg x [m],cg y [m],cg z [m],sd cg x [m]\ncover,1,0.1,0,0,0,0.2\n");
  const StoredPart stored = store->LoadPart("cover").Value();
  const std::size_t told = protocol::WritePartData(SavedDataOf(stored.part, stored.details)).size();
  ASSERT_LT(told, kMaxValueBytes);
  protocol::PartData data = PartDataOf("cover");
  Property(data, "last").value = std::string(kMaxValueBytes - told + 1, 'x');
  EXPECT_THAT(Save(data), HasSubstr("have 33554433 bytes together, at most 33554432 expected"));
  Property(data, "last").value.pop_back();
  SaveWell(data);
  EXPECT_EQ(HistoryOf("cover").total, 1) << "which can be read";
}

// 93 materials of 180,044 bytes each leave 33,124 of 16,777,216.
TEST_F(SaveSize, OfTheMaterialsOfAProductIsLimited) {
  std::string structure = "parent,child\nother,cover\n";
  std::string mass = "part,mass [kg],material,density [kg/m3]\ncover,1,,7850\n";
  for (int i = 0; i < 93; ++i) {
    structure += "other,part" + Padded(i) + "\n";
    mass += "part" + Padded(i) + ",1," + Padded(i) + Percents(60'000) + ",7850\n";
  }
  ImportMore({TableSource{"s2.csv", structure}, {"m2.csv", mass}});

  protocol::PartData data = PartDataOf("cover");
  data.material.name = Percents(20'000);
  EXPECT_THAT(Save(data), AllOf(HasSubstr("part \"cover\": with its material \"%%%"),
                                HasSubstr("the different materials of the product "
                                          "have 16804133 bytes together, at most 16777216 expected")));
  EXPECT_EQ(PartDataOf("cover").material.name, "");
  EXPECT_EQ(HistoryOf("cover").total, 0);

  data.material.name = "000" + Percents(60'000);
  SaveWell(data);
  EXPECT_EQ(PartDataOf("other").material.statistics.size(), 93u) << "one that is there needs no more room";
  data = PartDataOf("cover");
  data.material.name = Percents(10'000);
  SaveWell(data);
  EXPECT_EQ(PartDataOf("other").material.statistics.size(), 94u);
}

}  // namespace
}  // namespace lumira::test
