#include <gmock/gmock.h>

#include <map>

#include "ServerFixture.h"
#include "lumira/commands/OpenProduct.h"

namespace lumira::test {
namespace {

using testing::ElementsAre;

std::vector<std::string> Texts(const std::vector<protocol::Warning>& warnings) {
  std::vector<std::string> texts;
  for (const protocol::Warning& warning : warnings) texts.push_back(warning.text);
  return texts;
}

class ComputeUnderFilter : public ServerFixture {};

TEST_F(ComputeUnderFilter, OfChosenInstancesAddsThemUpWhereTheyStand) {
  ImportBoxes();
  const auto reply = ComputeUnder("top", "1|2|bolts|bolt||1|left|plate|plate||1|right");
  ASSERT_TRUE(reply.Ok()) << reply.Failure().message;
  const protocol::MassType computed = protocol::ReadComputeReply(reply.Value()).Value().computed;
  EXPECT_EQ(computed.mass, 18);                   // 4·2 + 10
  EXPECT_DOUBLE_EQ((*computed.cg)[0], 2.0 / 18);  // (8·(-1) + 10·1) / 18
  EXPECT_EQ((*computed.inertia)[0], 5);           // 4·1 + 1
  EXPECT_DOUBLE_EQ((*computed.inertia)[1],
                   5 + 18 - 18 * 4.0 / 18 / 18);  // and 18·1² less the shift to the centre
  EXPECT_TRUE(Warnings().empty());
  EXPECT_EQ(PartDataOf("top").massTypes[0].status, protocol::MassTypeStatus::Undefined)
      << "nothing is stored";
}

TEST_F(ComputeUnderFilter, LeavesTheStoredResultOfTheWholePartAlone) {
  ImportBoxes();
  EXPECT_EQ(Compute("top").mass, 36);
  EXPECT_EQ(MassUnder("top", "1|1|left|box||0"), 18);
  EXPECT_EQ(PartDataOf("top").massTypes[0].mass, 36);
  EXPECT_EQ(PartDataOf("top").massTypes[0].status, protocol::MassTypeStatus::Defined);
  EXPECT_EQ(Compute("top").mass, 36);
}

TEST_F(ComputeUnderFilter, SaysWhenNothingIsLeftOfAPart) {
  ImportBoxes();
  EXPECT_EQ(MassUnder("plate", "1|1|bolts|bolt||1|left"), 0);
  EXPECT_THAT(Texts(Warnings()),
              ElementsAre("1 part has nothing in it that the filter lets pass, so that its "
                          "mass is 0 (plate)"));
  ASSERT_TRUE(store->SaveFilter("top", LeavingOut("Without bolts", {"bolts"})).Ok());
  EXPECT_EQ(MassUnder("bolt", "0|Without bolts"), 0);
  EXPECT_EQ(Texts(Warnings()).size(), 1u);
  const auto reply = protocol::ReadComputeReply(ComputeUnder("bolt", "0|Without bolts").Value()).Value();
  EXPECT_FALSE(reply.computed.cg.has_value());
  EXPECT_FALSE(reply.firstMoment.has_value());
}

TEST_F(ComputeUnderFilter, SaysWhenAPartIsLeftOutInSomeOfItsPlaces) {
  ImportBoxes();
  ASSERT_TRUE(store->SaveFilter("top", LeavingOut("Right only", {"left"})).Ok());
  EXPECT_EQ(MassUnder("box", "0|Right only"), 18);
  const auto warnings = Warnings();
  ASSERT_EQ(warnings.size(), 1u);
  EXPECT_EQ(warnings[0].severity, protocol::Severity::Information);
  EXPECT_EQ(
      warnings[0].text,
      "1 part is left out by the filter in some of the places where it stands; the result is that of the "
      "others (box)");
}

TEST_F(ComputeUnderFilter, RefusesAPartInWhichDifferentThingsAreChosen) {
  ImportBoxes();
  EXPECT_EQ(
      Refusal("box", "1|2|bolts|bolt||1|left|plate|plate||1|right"),
      "part \"box\" stands in several places, and the filter leaves different things in them; compute what "
      "it stands in, or choose the same everywhere");
}

TEST_F(ComputeUnderFilter, SumsAnAssemblyThatIsNotWholeAndSaysSo) {
  Import("parent,child,instance\ntop,box,\nbox,bolt,\nbox,plate,\n",
         "part,mass type,mass [kg],active\nbox,Weighed,100,yes\nbolt,Weighed,2,\nplate,Weighed,10,\n");
  EXPECT_EQ(Compute("top").mass, 100);
  EXPECT_EQ(MassUnder("top", "1|1|plate.1|plate||1|box.1"), 10);
  EXPECT_EQ(
      Warnings().back().text,
      "1 assembly is only partly kept by the filter and counts as the sum of what is kept of it, not with "
      "mass data of its own (box)");
  EXPECT_EQ(MassUnder("top", "1|1|box.1|box||0"), 100);
}

/// A filter that cannot be applied, and why.
struct Refused {
  const char* filter;
  const char* reason;
};

void PrintTo(const Refused& refused, std::ostream* out) { *out << refused.filter; }

struct RefusedFilter : ServerFixture, testing::WithParamInterface<Refused> {};

TEST_P(RefusedFilter, IsToldWithItsReasonAndNothingIsStored) {
  ImportBoxes();
  EXPECT_EQ(Refusal("top", GetParam().filter), GetParam().reason);
  EXPECT_TRUE(store->LoadResults("top").Value().empty());
}

constexpr Refused kNotThere[] = {
    {"0|Nobody", "there is no configuration filter \"Nobody\" in product \"top\""},
    {"1|2|left|box||0|bolts|bolt||2|left|nuts",
     "Filter: row 2, path element 2: there is no instance \"nuts\" in part \"box\""},
    {"1|1|bolts|bolt||0", "Filter: row 1, instance id: there is no instance \"bolts\" in part \"top\""},
    {"1|1|left|plate||0", "Filter: row 1, part id: instance \"left\" places part \"box\", not \"plate\""},
    {"1|1|left|box|B|0",
     "Filter: row 1, part version: instance \"left\" places part \"box\" of version \"\", not \"B\""},
};

constexpr Refused kNoFilters[] = {
    {"", "Filter: field 1 (kind): \"\" is neither 0 nor 1"},
    {"2|0", "Filter: field 1 (kind): \"2\" is neither 0 nor 1"},
    {"1", "Filter: field 2 is missing"},
    {"1|", "Filter: field 2 (row count): \"\" is not a number from 0 to 100000"},
    {"1|-1", "Filter: field 2 (row count): \"-1\" is not a number from 0 to 100000"},
    {"1|100001", "Filter: field 2 (row count): \"100001\" is not a number from 0 to 100000"},
    {"1|2|left|box||0", "Filter: field 7 (row 2, instance id) is missing"},
    {"1|1|left|box||0|right", "Filter: there is more text after field 6, the last of the rows"},
    {"1|1|left|box", "Filter: field 5 (row 1, part version) is missing"},
    {"1|1|left|box||", "Filter: field 6 (row 1, depth): \"\" is not a number from 0 to 1000"},
    {"1|1|left|box||-1", "Filter: field 6 (row 1, depth): \"-1\" is not a number from 0 to 1000"},
    {"1|1|left|box||1000000000000",
     "Filter: field 6 (row 1, depth): \"1000000000000\" is not a number from 0 to 1000"},
    {"1|1|bolts|bolt||2|left", "Filter: field 8 (row 1, path element 2) is missing"},
    // A separator inside an identifier moves all that follows by one field.
    {"1|1|le|ft|box||0", "Filter: field 6 (row 1, depth): \"\" is not a number from 0 to 1000"}};

INSTANTIATE_TEST_SUITE_P(NamesWhatIsNotThere, RefusedFilter, testing::ValuesIn(kNotThere));
INSTANTIATE_TEST_SUITE_P(IsNoFilterInTheFieldThatIsNamed, RefusedFilter, testing::ValuesIn(kNoFilters));

TEST_F(ComputeUnderFilter, TakesAFilterOfManyRowsAndLongPaths) {
  std::string structure = "parent,child,instance\n", path;
  for (int i = 0; i < 999; ++i) {
    const std::string n = std::to_string(i);
    structure += "p" + n + ",p" + std::to_string(i + 1) + ",i" + n + "\n";
    if (i < 998) path += "|i" + n;
  }
  Import(structure, "part,mass [kg]\np999,7\n");
  const std::string row = "|i998|p999||998" + path;
  std::string filter = "1|50";
  for (int i = 0; i < 50; ++i) filter += row;
  EXPECT_EQ(MassUnder("p0", filter), 7);
  EXPECT_EQ(MassUnder("p500", filter), 7);
}

TEST_F(ComputeUnderFilter, TakesAFilterOfAHundredThousandRows) {
  std::string structure = "parent,child,instance\n", filter = "1|100000";
  for (int i = 0; i < 100'000; ++i) {
    const std::string n = std::to_string(i);
    structure += "an assembly with a name of usual length,bolt,instance of the bolt number " + n + "\n";
    filter += "|instance of the bolt number " + n + "|bolt||0";
  }
  Import(structure, "part,mass [kg]\nbolt,2\n");
  EXPECT_EQ(MassUnder("an assembly with a name of usual length", filter), 200'000);
}

TEST_F(ComputeUnderFilter, SeesAChangeOfTheProductUnderTheSameFilter) {
  ImportBoxes();
  ASSERT_TRUE(store->SaveFilter("top", LeavingOut("Without bolts", {"bolts"})).Ok());
  EXPECT_EQ(MassUnder("top", "0|Without bolts"), 20);
  ChangeMass("plate", 11);
  EXPECT_EQ(MassUnder("top", "0|Without bolts"), 22);
  ASSERT_TRUE(store->SaveFilter("top", LeavingOut("Without bolts", {"plate"})).Ok());
  EXPECT_EQ(MassUnder("top", "0|Without bolts"), 16) << "the filter itself has changed";
}

TEST_F(ComputeUnderFilter, TellsFiltersApartThatFollowEachOther) {
  ImportBoxes();
  ASSERT_TRUE(store->SaveFilter("top", LeavingOut("Without bolts", {"bolts"})).Ok());
  EXPECT_EQ(MassUnder("top", "0|Without bolts"), 20);
  EXPECT_EQ(MassUnder("top", "1|1|bolts|bolt||1|left"), 8);
  EXPECT_EQ(MassUnder("top", "1|1|bolts|bolt||1|right"), 8);
  EXPECT_EQ(Refusal("top", "1|1|bolts|bolt||1|middle").substr(0, 7), "Filter:");
  EXPECT_EQ(MassUnder("top", "1|1|bolts|bolt||1|right"), 8);
  EXPECT_EQ(MassUnder("top", "0|Without bolts"), 20);
  EXPECT_EQ(MassUnder("top", "0|No Filter"), 36);
}

TEST_F(ComputeUnderFilter, LaysTheProductOutOnceForAllPartsUnderTheSameFilter) {
  ImportBoxes();
  OpenProduct product(store->LoadProduct("top").Value(), {}, {}, {LeavingOut("Without bolts", {"bolts"})});
  const protocol::Filter named = protocol::ReadFilter("0|Without bolts").Value();
  const protocol::Filter chosen = protocol::ReadFilter("1|1|left|box||0").Value();
  const FilteredProduct* first = product.Under(named).Value();
  EXPECT_EQ(product.Under(named).Value(), first);
  EXPECT_NE(product.Under(chosen).Value(), first);
  EXPECT_FALSE(product.Under(protocol::ReadFilter("0|Nobody").Value()).Ok());
}

/// The sample, with what its mass table says of the leaves (kg), copied from there.
class SampleUnderFilter : public ServerFixture {
 protected:
  SampleUnderFilter() {
    const std::string folder = KORVO_SOURCE_DIR "/samples/iea15/";
    ImportTables tables{ReadTableFile(folder + "structure.csv").Value(),
                        ReadTableFile(folder + "mass.csv").Value(),
                        ReadTableFile(folder + "filters.csv").Value()};
    ImportOptions options;
    options.product = "IEA15";
    const auto report = ImportProduct(*store, tables, options);
    EXPECT_TRUE(report.Ok()) << report.Failure().message;
  }

  static constexpr double kMb1 = 48092.0017865373, kMb2 = 13479.28387693245, kLss = 15734.03848697378,
                          kBrake = 24335.38243707418, kRotor = 130349.2496292837, kStator = 238490.157522527,
                          kHvac = 9381.281226009996, kNose = 10875.72252782984, kBedplate = 42274.27441488182,
                          kPlatform = 48672.0, kCover = 20554.30618041099, kTransformer = 30635.0,
                          kConverter = 11983.85, kYaw = 28248.90136716282, kBlades = 203677.6964063249,
                          kHub = 69131.0;
};

TEST_F(SampleUnderFilter, EachConfigurationFilterLeavesTheSumOfItsLeaves) {
  const std::map<std::string, double> sums = {
      {"Without generator", kMb1 + kMb2 + kLss + kBrake + kHvac + kNose + kBedplate + kPlatform + kCover +
                                kTransformer + kConverter + kYaw + kBlades + kHub},
      {"Structure only", kNose + kBedplate + kPlatform + kCover},
      {"Rotating parts", kLss + kRotor + kBlades + kHub},
      {"As built 2020", kMb1 + kMb2 + kLss + kBrake + kRotor + kStator + kNose + kBedplate + kCover +
                            kTransformer + kConverter + kYaw + kBlades + kHub}};
  for (const auto& [filter, sum] : sums) EXPECT_NEAR(MassUnder("RNA", "0|" + filter), sum, 1e-9) << filter;
  EXPECT_EQ(store->LoadFilters("IEA15").Value().size(), sums.size());
}

TEST_F(SampleUnderFilter, TheCentreOfStructureOnlyIsThatOfItsLeaves) {
  const auto reply = protocol::ReadComputeReply(ComputeUnder("RNA", "0|Structure only").Value()).Value();
  // x of each centre in the frame of the tower top; the platform's is 0.
  const double moment =
      kNose * -6.044278189882994 + kBedplate * -1.280786058419792 + kCover * -0.2500015099873156;
  EXPECT_NEAR((*reply.computed.cg)[0], moment / (kNose + kBedplate + kPlatform + kCover), 1e-12);
}

TEST_F(SampleUnderFilter, TwoChosenInstancesWeighWhatTheyWeigh) {
  const std::string filter =
      "1|2|generator_rotor.1|generator_rotor||3|nacelle.1|Above_yaw.1|generator.1|Blades.1|Blades||0";
  const auto reply = protocol::ReadComputeReply(ComputeUnder("RNA", filter).Value()).Value();
  EXPECT_NEAR(*reply.computed.mass, kRotor + kBlades, 1e-9);
  EXPECT_NEAR((*reply.computed.cg)[0],
              (kRotor * -6.516676090182924 + kBlades * -11.42114001400044) / (kRotor + kBlades), 1e-11);
  EXPECT_NEAR(MassUnder("nacelle", filter), kRotor, 1e-9);
  EXPECT_EQ(MassUnder("Hub_System", filter), 0);
}

TEST_F(SampleUnderFilter, WithoutAFilterAttributesAndDatesDoNotMatter) {
  EXPECT_NEAR(*Compute("RNA").mass, 945914.1458619487, 1e-9);
}

}  // namespace
}  // namespace lumira::test
