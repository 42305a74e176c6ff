#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <set>

#include "lumira/engine/FilteredProduct.h"
#include "tests/lumira/engine/Products.h"

namespace lumira::test {
namespace {

using protocol::FilterRow;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

const InertiaTensor kUnit = {1, 1, 1, 0, 0, 0};

Instance Use(std::string id, std::string parent, std::string child, double x = 0, std::int64_t quantity = 1) {
  return {std::move(id), std::move(parent), std::move(child), quantity, {{}, {x, 0, 0}}};
}

/// top > left and right, both a box; a box has four bolts of 2 kg (one instance) and a plate of 10 kg.
Product Boxes() {
  return {"boxes",
          {Plain("top"), Plain("box"), Weighed("bolt", {2.0, Vec3{}, kUnit}),
           Weighed("plate", {10.0, Vec3{}, kUnit})},
          {Use("left", "top", "box", -1), Use("right", "top", "box", 1), Use("bolts", "box", "bolt", 0, 4),
           Use("plate.1", "box", "plate")},
          {"top"}};
}

const FilterRow kLeft = {"left", "box", "", {}};
const FilterRow kLeftBolts = {"bolts", "bolt", "", {"left"}};
const FilterRow kRightBolts = {"bolts", "bolt", "", {"right"}};
const FilterRow kRightPlate = {"plate.1", "plate", "", {"right"}};

/// A product with one filter applied.
class Filtered {
 public:
  template <class Filter>
  Filtered(Product product, const Filter& filter)
      : _product(std::move(product)), _structure(_product), _filtered(ApplyFilter(_structure, filter)) {}

  std::string Refusal() const { return _filtered ? "taken" : _filtered.Failure().message; }

  protocol::Result<FilteredResult> Try(const std::string& part) const {
    return _filtered.Value()->ResultOf(*_structure.FindPart(part));
  }
  FilteredResult Of(const std::string& part) const { return Try(part).Value(); }
  double Mass(const std::string& part) const { return Of(part).result.mass.value(); }
  std::vector<Warning> Warnings(const std::string& part) const { return Of(part).warnings; }

 private:
  Product _product;
  StructureIndex _structure;
  protocol::Result<std::unique_ptr<FilteredProduct>> _filtered;
};

Filtered Chosen(std::vector<FilterRow> rows, Product product = Boxes()) { return {std::move(product), rows}; }

Filtered WithoutInstances(std::vector<std::string> ids, Product product = Boxes()) {
  return {std::move(product),
          ConfigurationFilter{"filter", "", {{ConditionKind::Instances, ConditionSense::LeaveOut, "", ids}}}};
}

TEST(ChosenInstances, CountWithEverythingBelowThemWhereTheyStand) {
  const auto top = Chosen({kLeftBolts, kRightPlate}).Of("top");
  EXPECT_EQ(top.result.mass, 18);                                              // 4·2 + 10
  EXPECT_EQ(top.result.firstMoment, (Vec3{2, 0, 0}));                          // 8·(-1) + 10·1
  EXPECT_EQ(top.result.inertiaAtOrigin, (InertiaTensor{5, 23, 23, 0, 0, 0}));  // 4·1 + 1, and 18·1² across x
  EXPECT_THAT(top.warnings, IsEmpty());
  EXPECT_EQ(Chosen({kLeft}).Mass("top"), 18);
  EXPECT_EQ(Chosen({kLeft}).Of("top").result.cg, (Vec3{-1, 0, 0}));
}

TEST(ChosenInstances, CountOnceHoweverOftenTheyAreListed) {
  EXPECT_EQ(Chosen({kLeft, kLeftBolts, kLeft}).Mass("top"), 18);
  EXPECT_EQ(Chosen({kLeftBolts, kLeft}).Mass("top"), 18);
}

TEST(ChosenInstances, LeaveTheSameInAPartWhereverTheSameIsChosen) {
  EXPECT_EQ(Chosen({kLeftBolts, kRightBolts}).Mass("box"), 8);
  EXPECT_EQ(Chosen({kLeftBolts, kRightBolts}).Mass("bolt"), 2) << "the part itself, without its quantity";
  EXPECT_EQ(Chosen({kLeft, {"right", "box", "", {}}}).Mass("box"), 18);
}

TEST(ChosenInstances, RefuseAPartInWhichTheyLeaveDifferentThings) {
  const std::string text =
      "part \"box\" stands in several places, and the filter leaves different things in them; compute what "
      "it "
      "stands in, or choose the same everywhere";
  EXPECT_EQ(Chosen({kLeftBolts, kRightPlate}).Try("box").Failure().message, text);
  EXPECT_EQ(Chosen({kLeft}).Try("box").Failure().message, text) << "everything, and nothing";
  EXPECT_EQ(Chosen({kLeft, kRightBolts}).Try("box").Failure().kind, protocol::ErrorKind::BadValue);
  EXPECT_EQ(Chosen({kLeft, kRightBolts}).Mass("bolt"), 2) << "bolts are whole in both";
}

TEST(ChosenInstances, LeaveAMassOfZeroInAPartThatNoneOfThemLiesIn) {
  const auto plate = Chosen({kLeftBolts}).Of("plate");
  EXPECT_EQ(plate.result.mass, 0);
  EXPECT_FALSE(plate.result.cg.has_value());
  EXPECT_THAT(plate.warnings, ElementsAre(Warning{WarningKind::NothingLeft, 1, 0, {"plate"}}));
}

Product WithWeighedBox() {
  Product boxes = Boxes();
  boxes.parts[1] = Weighed("box", {17.0, Vec3{}, kUnit});
  return boxes;
}

TEST(ChosenInstances, MakeAnAssemblyTheSumOfWhatIsChosenOfItAndSaySo) {
  const auto filtered = Chosen({kLeftBolts, kRightBolts}, WithWeighedBox());
  EXPECT_EQ(filtered.Mass("top"), 16);
  EXPECT_THAT(filtered.Warnings("top"), ElementsAre(Warning{WarningKind::PartlyKept, 1, 0, {"box"}}));
  EXPECT_EQ(filtered.Mass("box"), 8);
  EXPECT_THAT(filtered.Warnings("box"), IsEmpty()) << "asked for itself, an assembly is its sum in any case";
}

TEST(ChosenInstances, LetAnAssemblyThatIsChosenItselfCountWithItsOwnData) {
  EXPECT_EQ(Chosen({kLeft}, WithWeighedBox()).Mass("top"), 17);
  EXPECT_EQ(Chosen({kLeft, kRightBolts}, WithWeighedBox()).Mass("top"), 17 + 8);
}

TEST(ChosenInstances, NameThePartsOfTheProductInWarnings) {
  Product boxes = Boxes();
  boxes.parts[2] = Weighed("bolt", {2.0, {}, {}});
  EXPECT_THAT(Chosen({kLeftBolts}, boxes).Warnings("top"),
              ElementsAre(Warning{WarningKind::WithoutCg, 4, 8, {"bolt"}}));
}

TEST(ChosenInstances, ThatAreNotThereAreRefusedWithRowFieldAndValue) {
  const auto refusal = [](FilterRow row) { return Chosen({kLeft, std::move(row)}).Refusal(); };
  EXPECT_EQ(refusal({"middle", "box", "", {}}),
            "Filter: row 2, instance id: there is no instance \"middle\" in part \"top\"");
  EXPECT_EQ(refusal({"", "top", "", {}}),
            "Filter: row 2, instance id: there is no instance \"\" in part \"top\"");
  EXPECT_EQ(refusal({"bolts", "bolt", "", {}}),
            "Filter: row 2, instance id: there is no instance \"bolts\" in part \"top\"");
  EXPECT_EQ(refusal({"bolts", "bolt", "", {"left", "plate.1"}}),
            "Filter: row 2, instance id: there is no instance \"bolts\" in part \"plate\"");
  EXPECT_EQ(refusal({"bolts", "bolt", "", {"left", "right"}}),
            "Filter: row 2, path element 2: there is no instance \"right\" in part \"box\"");
  EXPECT_EQ(refusal({"bolts", "plate", "", {"left"}}),
            "Filter: row 2, part id: instance \"bolts\" places part \"bolt\", not \"plate\"");
  EXPECT_EQ(
      refusal({"bolts", "bolt", "B", {"left"}}),
      "Filter: row 2, part version: instance \"bolts\" places part \"bolt\" of version \"\", not \"B\"");
}

TEST(ConfiguredProduct, IsTheSumOfWhatIsLeft) {
  const auto filtered = WithoutInstances({"bolts"});
  EXPECT_EQ(filtered.Mass("top"), 20);
  EXPECT_EQ(filtered.Mass("box"), 10);
  EXPECT_THAT(filtered.Warnings("top"), IsEmpty());
}

TEST(ConfiguredProduct, HasAMassOfZeroForAPartThatIsLeftOutEverywhere) {
  const auto filtered = WithoutInstances({"left", "right"});
  for (const char* part : {"top", "box", "bolt"}) {
    EXPECT_EQ(filtered.Mass(part), 0) << part;
    EXPECT_THAT(filtered.Warnings(part), ElementsAre(Warning{WarningKind::NothingLeft, 1, 0, {part}}));
  }
}

TEST(ConfiguredProduct, AnswersForThePlacesThatAreLeftAndSaysThatThereAreOthers) {
  const auto filtered = WithoutInstances({"left"});
  EXPECT_EQ(filtered.Mass("box"), 18);
  EXPECT_THAT(filtered.Warnings("box"), ElementsAre(Warning{WarningKind::AlsoLeftOut, 1, 0, {"box"}}));
  EXPECT_THAT(filtered.Warnings("plate"), ElementsAre(Warning{WarningKind::AlsoLeftOut, 1, 0, {"plate"}}));
  EXPECT_THAT(filtered.Warnings("top"), IsEmpty());
}

TEST(ConfiguredProduct, SumsAnAssemblyOfWhichSomethingIsLeftOutAndSaysSo) {
  const auto filtered = WithoutInstances({"bolts"}, WithWeighedBox());
  EXPECT_EQ(filtered.Mass("top"), 20) << "not twice the 17 kg of the whole box";
  EXPECT_THAT(filtered.Warnings("top"), ElementsAre(Warning{WarningKind::PartlyKept, 1, 0, {"box"}}));
  EXPECT_EQ(WithoutInstances({"left"}, WithWeighedBox()).Mass("top"), 17) << "the other box is whole";
  EXPECT_EQ(WithoutInstances({"bolts", "plate.1"}, WithWeighedBox()).Mass("top"), 0);
}

TEST(ConfiguredProduct, SumsWhatContainsAnAssemblyThatIsNotWhole) {
  Product boxes = Boxes();
  boxes.parts.push_back(Plain("world"));
  boxes.parts[0] = Weighed("top", {40.0, Vec3{}, kUnit});
  boxes.instances.push_back(Use("top.1", "world", "top"));
  boxes.roots = {"world"};
  EXPECT_EQ(WithoutInstances({"bolts"}, boxes).Mass("world"), 20);
  EXPECT_EQ(Filtered(boxes, ConfigurationFilter{"all"}).Mass("world"), 40);
}

TEST(ConfiguredProduct, CannotBeMadeByAFilterThatCannotBeApplied) {
  EXPECT_EQ(WithoutInstances({"nobody"}).Refusal(),
            "configuration filter \"filter\", condition 1: there is no instance \"nobody\"");
}

/// Ten sums about the origin, by plain addition, occurrence by occurrence.
struct Sums {
  double mass = 0;
  Vec3 moment;
  InertiaTensor inertia;
};

/// The way from the computed part down, as indices of instances.
using Way = std::vector<std::uint32_t>;

/// Adds up what counts below a part by walking to every occurrence, without the engine.
class PlainSum {
 public:
  /// Whether an occurrence counts whole, with its own data if it has any.
  using IsWhole = std::function<bool(const Way&)>;
  /// Whether something at or below an occurrence may count.
  using MayCount = std::function<bool(const Way&)>;

  PlainSum(const StructureIndex& structure, IsWhole isWhole, MayCount mayCount)
      : _structure(structure), _isWhole(std::move(isWhole)), _mayCount(std::move(mayCount)) {}

  Sums Below(std::uint32_t part) {
    Walk(part, {}, 1, {});
    return _sums;
  }

 private:
  void Walk(std::uint32_t part, const Placement& placement, double copies, const Way& way) {
    const auto instances = _structure.InstancesIn(part);
    const Part& data = _structure.PartAt(part);
    const bool replaces = !way.empty() && !data.massTypes.empty();
    if ((instances.empty() || replaces) && _isWhole(way)) return Add(data, placement, copies);
    for (const std::uint32_t index : instances) {
      Way below = way;
      below.push_back(index);
      const Instance& instance = _structure.InstanceAt(index);
      if (_mayCount(below))
        Walk(_structure.ChildOf(index), placement * instance.placement,
             copies * static_cast<double>(instance.quantity), below);
    }
  }

  void Add(const Part& part, const Placement& placement, double copies) {
    const MassProperties& own = part.massTypes.at(0).properties;
    const Vec3 cg = placement * *own.cg;
    _sums.mass += copies * *own.mass;
    _sums.moment = _sums.moment + copies * *own.mass * cg;
    _sums.inertia =
        _sums.inertia + copies * ShiftedFromCg(Rotated(*own.inertia, placement.rotation), *own.mass, cg);
  }

  const StructureIndex& _structure;
  IsWhole _isWhole;
  MayCount _mayCount;
  Sums _sums;
};

void ExpectSums(const MassResult& result, const Sums& sums, const std::string& where) {
  SCOPED_TRACE(where);
  ASSERT_TRUE(result.mass.has_value());
  EXPECT_NEAR(*result.mass, sums.mass, 1e-12 * sums.mass);
  ExpectNear(result.firstMoment, sums.moment, 1e-11 * (1 + sums.mass * 30));
  ExpectNear(result.inertiaAtOrigin, sums.inertia, 1e-11 * (1 + sums.mass * 1000));
}

/// Shared assemblies, quantities, rotations, some assemblies with data of their own, and an attribute that
/// one instance in five has not.
Product RandomMachine(Dice& dice) {
  Product product = RandomProduct(dice, 3, 4, 3);
  for (Part& part : product.parts) {
    part.revision = dice.Below(2) == 0 ? "A" : "B";
    const bool isAssembly = part.massTypes.empty();
    if (isAssembly && dice.Below(4) == 0) {
      const Part data = dice.Item(part.id);
      part.massTypes = data.massTypes;
      part.activeMassType = data.activeMassType;
    }
  }
  for (Instance& instance : product.instances)
    if (dice.Below(5) > 0) instance.attributes = {{"group", std::to_string(dice.Below(6))}};
  return product;
}

bool LeavesOut(const Instance& instance) {
  return !instance.attributes.empty() && instance.attributes[0].value == "3";
}

TEST(ConfiguredProduct, IsThePlainSumOverEveryOccurrenceThatIsLeft) {
  Dice dice(301);
  int compared = 0, empty = 0;
  for (int round = 0; round < 40; ++round) {
    const Product product = RandomMachine(dice);
    const StructureIndex structure(product);
    const auto excluded = [&](std::uint32_t i) { return LeavesOut(structure.InstanceAt(i)); };
    // What is whole, by walking: nothing in it is left out.
    std::function<bool(std::uint32_t)> isIntact = [&](std::uint32_t part) {
      return std::ranges::all_of(structure.InstancesIn(part), [&](std::uint32_t i) {
        return !excluded(i) && isIntact(structure.ChildOf(i));
      });
    };
    const auto filtered = ApplyFilter(
        structure,
        ConfigurationFilter{"f", "", {{ConditionKind::Attribute, ConditionSense::LeaveOut, "group", {"3"}}}});
    std::set<std::uint32_t> standing;
    std::function<void(std::uint32_t)> visit = [&](std::uint32_t part) {
      standing.insert(part);
      for (const std::uint32_t i : structure.InstancesIn(part))
        if (!excluded(i)) visit(structure.ChildOf(i));
    };
    visit(structure.Root());
    for (std::uint32_t part = 0; part < product.parts.size(); ++part) {
      if (structure.AtOrBelow({structure.Root()})[part] == false) continue;
      const auto result = filtered.Value()->ResultOf(part);
      ASSERT_TRUE(result.Ok()) << result.Failure().message;
      PlainSum sum(
          structure,
          [&](const Way& way) { return isIntact(way.empty() ? part : structure.ChildOf(way.back())); },
          [&](const Way& way) { return !excluded(way.back()); });
      const Sums expected = standing.contains(part) ? sum.Below(part) : Sums{};
      ExpectSums(result.Value().result, expected, product.parts[part].id);
      ++(expected.mass > 0 ? compared : empty);
    }
  }
  EXPECT_GT(compared, 200);
  EXPECT_GT(empty, 5);
}

/// A way down from the root that stops anywhere below it.
Way RandomWay(Dice& dice, const StructureIndex& structure) {
  Way way;
  for (std::uint32_t part = structure.Root(); !structure.InstancesIn(part).empty();) {
    const auto instances = structure.InstancesIn(part);
    way.push_back(instances[dice.Below(instances.size())]);
    part = structure.ChildOf(way.back());
    if (dice.Below(3) == 0) break;
  }
  return way;
}

FilterRow RowOf(const StructureIndex& structure, const Way& way) {
  const Instance& instance = structure.InstanceAt(way.back());
  FilterRow row{instance.id, instance.child, structure.PartAt(structure.ChildOf(way.back())).revision, {}};
  for (std::size_t i = 0; i + 1 < way.size(); ++i) row.path.push_back(structure.InstanceAt(way[i]).id);
  return row;
}

bool BeginsWith(const Way& way, const Way& start) {
  return way.size() >= start.size() && std::equal(start.begin(), start.end(), way.begin());
}

/// What rows leave of one occurrence: everything, or the chosen ways from it down that no other covers.
std::set<Way> LeftOf(const Way& occurrence, const std::vector<Way>& chosen) {
  std::set<Way> left;
  for (const Way& way : chosen) {
    if (BeginsWith(occurrence, way)) return {Way{}};
    const bool isCovered = std::ranges::any_of(
        chosen, [&](const Way& other) { return other.size() < way.size() && BeginsWith(way, other); });
    if (!isCovered && BeginsWith(way, occurrence))
      left.insert(Way(way.begin() + std::ssize(occurrence), way.end()));
  }
  return left;
}

std::vector<Way> OccurrencesIn(const StructureIndex& structure, std::uint32_t wanted) {
  std::vector<Way> found;
  std::function<void(std::uint32_t, const Way&)> visit = [&](std::uint32_t part, const Way& way) {
    if (part == wanted) found.push_back(way);
    for (const std::uint32_t i : structure.InstancesIn(part)) {
      Way below = way;
      below.push_back(i);
      visit(structure.ChildOf(i), below);
    }
  };
  visit(structure.Root(), {});
  return found;
}

TEST(ChosenInstances, AreThePlainSumOverEveryOccurrenceThatIsChosen) {
  Dice dice(302);
  int compared = 0, empty = 0, refused = 0;
  for (int round = 0; round < 60; ++round) {
    const Product product = RandomMachine(dice);
    const StructureIndex structure(product);
    std::vector<Way> chosen;
    std::vector<FilterRow> rows;
    for (std::size_t n = 1 + dice.Below(8); n > 0; --n) {
      chosen.push_back(RandomWay(dice, structure));
      rows.push_back(RowOf(structure, chosen.back()));
    }
    const auto filtered = ApplyFilter(structure, rows);
    ASSERT_TRUE(filtered.Ok()) << filtered.Failure().message;
    for (std::uint32_t part = 0; part < product.parts.size(); ++part) {
      const auto places = OccurrencesIn(structure, part);
      if (places.empty()) continue;
      const std::set<Way> left = LeftOf(places.front(), chosen);
      const bool agree =
          std::ranges::all_of(places, [&](const Way& way) { return LeftOf(way, chosen) == left; });
      const auto result = filtered.Value()->ResultOf(part);
      ASSERT_EQ(result.Ok(), agree) << product.parts[part].id;
      if (!agree) {
        ++refused;
        continue;
      }
      const auto isWhole = [&](const Way& way) {
        return std::ranges::any_of(left, [&](const Way& start) { return BeginsWith(way, start); });
      };
      const auto mayCount = [&](const Way& way) {
        return isWhole(way) ||
               std::ranges::any_of(left, [&](const Way& start) { return BeginsWith(start, way); });
      };
      const Sums expected = left.empty() ? Sums{} : PlainSum(structure, isWhole, mayCount).Below(part);
      ExpectSums(result.Value().result, expected, product.parts[part].id);
      ++(left.empty() ? empty : compared);
    }
  }
  EXPECT_GT(compared, 100);
  EXPECT_GT(empty, 100);
  EXPECT_GT(refused, 100);
}

TEST(ChosenInstances, TakeNoTimeForOccurrencesThatNobodyCouldCount) {
  Product product;
  product.parts = {Weighed("level0", {1.0, Vec3{}, kUnit})};
  for (int i = 1; i <= 100; ++i) {
    const auto id = "level" + std::to_string(i), below = "level" + std::to_string(i - 1);
    product.parts.push_back(Plain(id));
    for (int k = 0; k < 8; ++k) Place(product, id, below);
  }
  product.roots = {"level100"};
  // The first instance of each of the upper ninety levels, from the top down, and then one more.
  FilterRow row{"", "level9", "", {}};
  for (int level = 100; level > 10; --level) row.path.push_back("i" + std::to_string(8 * (level - 1)));
  row.instanceId = "i72";
  const auto filtered = Chosen({row}, product);
  EXPECT_EQ(filtered.Mass("level100"), 134217728) << "8^9 leaves";
  EXPECT_FALSE(filtered.Try("level9").Ok());
  EXPECT_FALSE(filtered.Try("level50").Ok());
}

}  // namespace
}  // namespace lumira::test
