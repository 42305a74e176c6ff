#include <gmock/gmock.h>

#include <algorithm>
#include <limits>

#include "Filters.h"
#include "StoreContract.h"
#include "lumira/store/OpenSqliteStore.h"
#include "protocol/Codec.h"

namespace lumira::test {

Product SampleProduct() {
  Part leaf{.id = "leaf",
            .revision = "B",
            .name = "Leaf, \"quoted\" é",
            .massTypes = {},
            .activeMassType = "Weighed",
            .material = "Steel",
            .density = 7850,
            .cadMaterial = "Brass",
            .cadDensity = 8500,
            .densityPriority = DensityPriority::WbFirst,
            .geometry = Geometry{0.1, Vec3{1, 2, 3}, InertiaTensor{4, 5, 6, 7, 8, 9}},
            .standardPart = true};
  leaf.massTypes.push_back({"Weighed",
                            {0.1, Vec3{1e-300, -2, 3}, InertiaTensor{1, 2, 3, -4, -5, -6}},
                            {0.5, {1, 2, 3}, {4, 5, 6, 7, 8, 9}},
                            MassBounds{0.25, 0.75}});
  leaf.massTypes.push_back({"Estimated", {-7.0, std::nullopt, std::nullopt}, {}, std::nullopt});
  Part bare;
  bare.id = "bare";
  Part root;
  root.id = "root";
  const Placement turned{RotationAboutY(0.3), {1, 2, 3}};
  return {"PRC",
          {root, leaf, bare},
          {{"i1",
            "root",
            "leaf",
            3,
            turned,
            {ParseDate("2020-02-29"), ParseDate("2022-12-31")},
            {{"zone", "rear"}, {"system", "drive train"}}},
           {"i2", "root", "bare", 1, {}, {{}, ParseDate("2021-01-01")}, {{"zone", "front"}}}},
          {"root"}};
}

std::vector<StoreKind> StoreKinds() {
  return {{"Sqlite", [](const std::string& place) { return CreateSqliteStore(place).Value(); },
           [](const std::string& place) { return OpenSqliteStore(place).Value(); }}};
}

namespace {

using protocol::ErrorKind;

// The order of the vectors carries no meaning.
Product Sorted(Product product) {
  std::sort(product.parts.begin(), product.parts.end(), [](auto& a, auto& b) { return a.id < b.id; });
  std::sort(product.instances.begin(), product.instances.end(), [](auto& a, auto& b) { return a.id < b.id; });
  return product;
}

TEST_P(StoreContract, HoldsNothingWhenItIsNew) { EXPECT_TRUE(store->Products().Value().empty()); }

TEST_P(StoreContract, GivesBackAProductAsItWas) {
  ASSERT_TRUE(store->AddProduct(SampleProduct(), Existing::Refuse).Ok());
  const auto loaded = Reopened().LoadProduct("PRC");
  ASSERT_TRUE(loaded.Ok()) << loaded.Failure().message;
  EXPECT_EQ(Sorted(loaded.Value()), Sorted(SampleProduct()));
}

TEST_P(StoreContract, GivesBackAShapeWithoutCentroidOrInertia) {
  Product product = SampleProduct();
  product.parts[1].geometry = Geometry{0.1, {}, InertiaTensor{4, 5, 6, 7, 8, 9}};
  product.parts[2].geometry = Geometry{0.2, Vec3{0, 0, 0}, {}};
  ASSERT_TRUE(store->AddProduct(product, Existing::Refuse).Ok());
  EXPECT_EQ(Sorted(Reopened().LoadProduct("PRC").Value()), Sorted(product));
}

TEST_P(StoreContract, ListsItsProductsByName) {
  ASSERT_TRUE(store->AddProduct(SampleProduct(), Existing::Refuse).Ok());
  Part other;
  other.id = "other root";
  ASSERT_TRUE(store->AddProduct({"Another", {other}, {}, {"other root"}}, Existing::Refuse).Ok());
  const auto products = Reopened().Products();
  ASSERT_EQ(products.Value().size(), 2u);
  EXPECT_EQ(products.Value()[0].id, "Another");
  EXPECT_EQ(products.Value()[1].id, "PRC");
  EXPECT_THAT(products.Value()[1].roots, testing::ElementsAre("root"));
  EXPECT_EQ(products.Value()[1].partCount, 3);
  EXPECT_EQ(products.Value()[1].instanceCount, 2);
}

TEST_P(StoreContract, KnowsTheProductOfAPart) {
  ASSERT_TRUE(store->AddProduct(SampleProduct(), Existing::Refuse).Ok());
  EXPECT_EQ(store->ProductOfPart("leaf").Value(), "PRC");
  const auto unknown = store->ProductOfPart("nobody");
  ASSERT_FALSE(unknown.Ok());
  EXPECT_EQ(unknown.Failure().kind, ErrorKind::NotFound);
  EXPECT_EQ(unknown.Failure().message, "there is no part \"nobody\"");
}

TEST_P(StoreContract, RefusesIdentifiersThatNoCommandCouldTellOf) {
  for (const char* bad : {"", "a|b", "a\tb", "\x7f", "\xff"}) {
    Product product = SampleProduct();
    product.id = bad;
    Product withPart = SampleProduct();
    withPart.parts.emplace_back().id = bad;
    Product withInstance = SampleProduct();
    withInstance.instances.front().id = bad;
    for (const Product& refused : {product, withPart, withInstance}) {
      const auto added = store->AddProduct(refused, Existing::Refuse);
      ASSERT_FALSE(added.Ok()) << bad;
      EXPECT_EQ(added.Failure().kind, ErrorKind::BadValue);
    }
  }
  EXPECT_TRUE(store->Products().Value().empty());
}

TEST_P(StoreContract, SaysWhichIdentifierItRefuses) {
  Product product = SampleProduct();
  product.id = "a\tb";
  EXPECT_EQ(store->AddProduct(product, Existing::Refuse).Failure().message,
            "identifier of the product: \"a\\x09b\" holds a control character, which an identifier may not");
}

Product Chain(int levels) {
  Product product{"chain", std::vector<Part>(static_cast<std::size_t>(levels) + 1), {}, {"p0"}};
  for (int i = 0; i <= levels; ++i) product.parts[static_cast<std::size_t>(i)].id = "p" + std::to_string(i);
  for (int i = levels; i > 0; --i)
    product.instances.push_back(
        {"i" + std::to_string(i), "p" + std::to_string(i - 1), "p" + std::to_string(i), 1, {}});
  return product;
}

TEST_P(StoreContract, TakesAsManyLevelsAsAPathHasElementsAndNoMore) {
  const auto tooDeep = store->AddProduct(Chain(1001), Existing::Refuse);
  ASSERT_FALSE(tooDeep.Ok());
  EXPECT_EQ(tooDeep.Failure().message, "part \"p1001\" stands 1001 levels below the top, the limit is 1000");
  EXPECT_TRUE(store->AddProduct(Chain(1000), Existing::Refuse).Ok());
}

TEST_P(StoreContract, GivesTheRootOfAProductWithoutTheRest) {
  ASSERT_TRUE(store->AddProduct(Chain(3), Existing::Refuse).Ok());
  ASSERT_TRUE(store->AddProduct(SampleProduct(), Existing::Refuse).Ok());
  const ProductRoot root = Reopened().LoadRoot("PRC").Value();
  EXPECT_EQ(root.part, SampleProduct().parts[0]);
  EXPECT_TRUE(root.hasChildren);
  EXPECT_FALSE(root.result.has_value());
  const StoredResult result{"root", "f", {"Computed", {2.0, {}, {}}, {}, {}}, 7};
  ASSERT_TRUE(store->SaveResults({result}).Ok());
  EXPECT_EQ(store->LoadRoot("PRC").Value().result, result);
  EXPECT_EQ(store->LoadRoot("none").Failure().kind, ErrorKind::NotFound);
}

TEST_P(StoreContract, TellsHowManyRowsOfAProductAreRead) {
  ASSERT_TRUE(store->AddProduct(SampleProduct(), Existing::Refuse).Ok());
  std::vector<std::pair<std::size_t, std::size_t>> told;
  const auto listen = [&](std::string_view, std::size_t done, std::size_t total) {
    told.emplace_back(done, total);
  };
  ASSERT_TRUE(store->LoadProduct("PRC", listen).Ok());
  EXPECT_THAT(told, testing::ElementsAre(std::pair{5u, 5u}));  // three parts and two instances
}

TEST_P(StoreContract, TellsHowManyRowsOfAProductAreWritten) {
  std::vector<std::pair<std::size_t, std::size_t>> told;
  const auto listen = [&](std::string_view what, std::size_t done, std::size_t total) {
    EXPECT_EQ(what, "Writing the product");
    told.emplace_back(done, total);
  };
  ASSERT_TRUE(store->AddProduct(SampleProduct(), Existing::Refuse, listen).Ok());
  EXPECT_THAT(told, testing::ElementsAre(std::pair{5u, 5u}));  // three parts and two instances
}

TEST_P(StoreContract, RefusesProductsThatCouldNotBeComputed) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  Product shape = SampleProduct();
  shape.parts[1].activeMassType = "Computed";
  shape.parts[1].geometry->volume = shape.parts[1].density.emplace(1e200);
  Product idle = SampleProduct();
  idle.parts[1].massTypes[1].properties.mass = kInfinity;
  Product loose = SampleProduct();
  loose.parts[1].massTypes[1].properties = {{}, Vec3{0, -kInfinity, 0}, {}};
  Product mirrored = SampleProduct();
  mirrored.instances[0].placement.rotation.m[0] *= -1;
  Product rootless = SampleProduct();
  rootless.roots.clear();
  Product unknown = SampleProduct();
  unknown.instances[0].child = "nobody";
  Product nameless = SampleProduct();
  nameless.parts[1].massTypes[1].name.clear();
  Product twoTops = SampleProduct();
  twoTops.parts.emplace_back().id = "second top";
  Product wrongRoot = SampleProduct();
  wrongRoot.roots = {"bare"};
  for (const Product& refused :
       {shape, idle, loose, mirrored, rootless, unknown, nameless, twoTops, wrongRoot}) {
    const auto added = store->AddProduct(refused, Existing::Refuse);
    ASSERT_FALSE(added.Ok());
    EXPECT_NE(added.Failure().kind, ErrorKind::Storage) << added.Failure().message;
  }
  Product cycle = SampleProduct();
  cycle.instances.push_back({"i3", "leaf", "root", 1, {}});
  EXPECT_EQ(store->AddProduct(cycle, Existing::Refuse).Failure().kind, ErrorKind::Conflict);
  EXPECT_TRUE(store->Products().Value().empty());
}

TEST_P(StoreContract, RefusesNumbersThatItCouldNotGiveBack) {
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();
  ASSERT_TRUE(store->AddProduct(SampleProduct(), Existing::Refuse).Ok());
  Part part = SampleProduct().parts[1];
  part.cadDensity = kInfinity;
  EXPECT_EQ(store->UpdatePart(part).Failure().kind, ErrorKind::BadValue);
  for (const double bad : {kInfinity, kNoNumber}) {
    StoredResult result{"leaf", "f", {}};
    result.computed.deviations.cg.x = bad;
    EXPECT_EQ(store->SaveResults({result}).Failure().kind, ErrorKind::BadValue);
  }
  PartDetails details;
  details.precisions = {{"Weighed", 2, 0, 0, 0, 0, 0}};
  EXPECT_EQ(store->SaveDetails("leaf", details).Failure().message,
            "column precision_type: 2 is neither 0 nor 1");
  EXPECT_EQ(Sorted(Reopened().LoadProduct("PRC").Value()), Sorted(SampleProduct()));
  EXPECT_TRUE(store->LoadResults("PRC").Value().empty());
  EXPECT_TRUE(store->LoadDetails("leaf").Value().precisions.empty());
}

TEST_P(StoreContract, NamesEveryPartThatAnotherProductHas) {
  ASSERT_TRUE(store->AddProduct(SampleProduct(), Existing::Refuse).Ok());
  Product second = SampleProduct();
  second.id = "Second";
  second.parts[0].id = "own";
  const auto owners = store->OtherOwners(second).Value();
  ASSERT_EQ(owners.size(), 2u);
  EXPECT_EQ(owners[0].part + " " + owners[0].product, "leaf PRC");
  EXPECT_EQ(owners[1].part + " " + owners[1].product, "bare PRC");
  EXPECT_TRUE(store->OtherOwners(SampleProduct()).Value().empty()) << "its own are not in the way";
}

TEST_P(StoreContract, CountsHowOftenResultsAreSavedInTheProductsConcerned) {
  ASSERT_TRUE(store->AddProduct(SampleProduct(), Existing::Refuse).Ok());
  Part other;
  other.id = "other root";
  ASSERT_TRUE(store->AddProduct({"Another", {other}, {}, {"other root"}}, Existing::Refuse).Ok());
  const auto states = [&] {
    const auto products = store->Products().Value();
    return std::pair(products[0].resultState, products[1].resultState);
  };
  EXPECT_EQ(states(), std::pair(0l, 0l));
  ASSERT_TRUE(store->SaveResults({{"leaf", "f", {}}, {"bare", "f", {}}}).Ok());
  EXPECT_EQ(states(), std::pair(0l, 1l));
  ASSERT_TRUE(store->SaveResults({{"leaf", "f", {}}, {"other root", "f", {}}}).Ok());
  EXPECT_EQ(states(), std::pair(1l, 2l));
}

TEST_P(StoreContract, ShortensAndEscapesWhatItCannotFind) {
  EXPECT_EQ(store->ProductOfPart("a\nb").Failure().message, "there is no part \"a\\x0Ab\"");
  EXPECT_LT(store->ProductOfPart(std::string(100'000, 'x')).Failure().message.size(), 100u);
}

TEST_P(StoreContract, RefusesAProductThatExists) {
  ASSERT_TRUE(store->AddProduct(SampleProduct(), Existing::Refuse).Ok());
  const auto again = store->AddProduct(SampleProduct(), Existing::Refuse);
  ASSERT_FALSE(again.Ok());
  EXPECT_EQ(again.Failure().kind, ErrorKind::Conflict);
  EXPECT_EQ(again.Failure().message, "product \"PRC\" exists already");
}

TEST_P(StoreContract, RefusesAPartOfAnotherProductAndKeepsNothing) {
  ASSERT_TRUE(store->AddProduct(SampleProduct(), Existing::Refuse).Ok());
  Product second = SampleProduct();
  second.id = "Second";
  second.parts[0].id = second.roots[0] = "own";
  for (Instance& instance : second.instances) instance.parent = "own";
  const auto added = store->AddProduct(second, Existing::Refuse);
  ASSERT_FALSE(added.Ok());
  EXPECT_EQ(added.Failure().kind, ErrorKind::Conflict);
  EXPECT_EQ(added.Failure().message, "part \"leaf\" belongs to product \"PRC\" already");
  EXPECT_EQ(Reopened().Products().Value().size(), 1u);
  EXPECT_FALSE(store->ProductOfPart("own").Ok());
}

TEST_P(StoreContract, ReplacesAProductWithItsResultsAndFilters) {
  ASSERT_TRUE(store->AddProduct(SampleProduct(), Existing::Refuse).Ok());
  ASSERT_TRUE(store->SaveResults({{"leaf", "f", {}}}).Ok());
  ASSERT_TRUE(store->SaveFilter("PRC", LeavingOut("Kit", {"i1"})).Ok());
  Product smaller = SampleProduct();
  smaller.parts.pop_back();
  smaller.instances.pop_back();
  ASSERT_TRUE(store->AddProduct(smaller, Existing::Replace).Ok());
  EXPECT_EQ(Sorted(Reopened().LoadProduct("PRC").Value()), Sorted(smaller));
  EXPECT_TRUE(store->LoadResults("PRC").Value().empty());
  EXPECT_TRUE(store->LoadFilters("PRC").Value().empty());
}

TEST_P(StoreContract, KeepsAReplacedProductWhenTheNewOneIsRefused) {
  ASSERT_TRUE(store->AddProduct(SampleProduct(), Existing::Refuse).Ok());
  Part other;
  other.id = "taken";
  ASSERT_TRUE(store->AddProduct({"Another", {other}, {}, {"taken"}}, Existing::Refuse).Ok());
  Product clash = SampleProduct();
  clash.parts[2].id = clash.instances[1].child = "taken";
  EXPECT_EQ(store->AddProduct(clash, Existing::Replace).Failure().kind, ErrorKind::Conflict);
  EXPECT_EQ(Sorted(Reopened().LoadProduct("PRC").Value()), Sorted(SampleProduct()));
}

TEST_P(StoreContract, CountsTheStateUpWithEveryChange) {
  ASSERT_TRUE(store->AddProduct(SampleProduct(), Existing::Refuse).Ok());
  const auto state = [&] { return store->Products().Value()[0].state; };
  const auto first = state();
  ASSERT_TRUE(store->UpdatePart(SampleProduct().parts[1]).Ok());
  const auto second = state();
  ASSERT_TRUE(store->AddProduct(SampleProduct(), Existing::Replace).Ok());
  EXPECT_LT(first, second);
  EXPECT_LT(second, state());
}

TEST_P(StoreContract, KeepsTheStateWhenOnlyResultsAreSaved) {
  ASSERT_TRUE(store->AddProduct(SampleProduct(), Existing::Refuse).Ok());
  const auto before = store->Products().Value()[0].state;
  ASSERT_TRUE(store->SaveResults({{"leaf", "f", {}}}).Ok());
  EXPECT_EQ(store->Products().Value()[0].state, before);
}

TEST_P(StoreContract, UpdatesOnePartAndLeavesItsResult) {
  ASSERT_TRUE(store->AddProduct(SampleProduct(), Existing::Refuse).Ok());
  ASSERT_TRUE(store->SaveResults({{"leaf", "f", {}}}).Ok());
  Product changed = SampleProduct();
  changed.parts[1].massTypes = {{"Calculated", {42.0, {}, {}}, {}, {}}};
  changed.parts[1].activeMassType = "Calculated";
  changed.parts[1].density.reset();
  changed.parts[1].geometry.reset();
  ASSERT_TRUE(store->UpdatePart(changed.parts[1]).Ok());
  EXPECT_EQ(Sorted(Reopened().LoadProduct("PRC").Value()), Sorted(changed));
  EXPECT_EQ(store->LoadResults("PRC").Value().size(), 1u);
}

TEST_P(StoreContract, SaysWhichProductOrPartIsUnknown) {
  EXPECT_EQ(store->LoadProduct("X").Failure().message, "there is no product \"X\"");
  EXPECT_EQ(store->LoadResults("X").Failure().kind, ErrorKind::NotFound);
  EXPECT_EQ(store->LoadFilters("X").Failure().kind, ErrorKind::NotFound);
  EXPECT_EQ(store->SaveFilter("X", {"Kit"}).Failure().kind, ErrorKind::NotFound);
  EXPECT_EQ(store->LoadDetails("x").Failure().message, "there is no part \"x\"");
  EXPECT_EQ(store->SaveDetails("x", {}).Failure().kind, ErrorKind::NotFound);
  EXPECT_EQ(store->SaveResults({{"x", "f", {}}}).Failure().kind, ErrorKind::NotFound);
  Part part;
  part.id = "x";
  EXPECT_EQ(store->UpdatePart(part).Failure().kind, ErrorKind::NotFound);
}

TEST_P(StoreContract, SavesAllResultsOrNone) {
  ASSERT_TRUE(store->AddProduct(SampleProduct(), Existing::Refuse).Ok());
  EXPECT_FALSE(store->SaveResults({{"leaf", "f", {}}, {"nobody", "f", {}}}).Ok());
  EXPECT_TRUE(Reopened().LoadResults("PRC").Value().empty());
}

TEST_P(StoreContract, KeepsTheLastResultOfEachPart) {
  ASSERT_TRUE(store->AddProduct(SampleProduct(), Existing::Refuse).Ok());
  MassTypeData computed = SampleProduct().parts[1].massTypes[0];
  computed.name = "Computed";
  ASSERT_TRUE(store->SaveResults({{"leaf", "old", {}}, {"root", "kept", computed}}).Ok());
  ASSERT_TRUE(store->SaveResults({{"leaf", "new", computed}}).Ok());
  auto results = Reopened().LoadResults("PRC").Value();
  EXPECT_THAT(results, testing::UnorderedElementsAre(StoredResult{"leaf", "new", computed},
                                                     StoredResult{"root", "kept", computed}));
}

TEST_P(StoreContract, GivesEmptyDetailsForAPartThatHasNone) {
  ASSERT_TRUE(store->AddProduct(SampleProduct(), Existing::Refuse).Ok());
  const auto details = store->LoadDetails("leaf");
  ASSERT_TRUE(details.Ok());
  EXPECT_TRUE(details.Value().properties.empty());
  EXPECT_EQ(details.Value().documents.activeId, "0");
}

TEST_P(StoreContract, GivesBackDetailsAsTheyWere) {
  const ProductContent content{{{"colour"}, {"second", PropertyType::Magnitude, "MASS"}}};
  ASSERT_TRUE(store->AddProduct(SampleProduct(), Existing::Refuse, {}, {}, content).Ok());
  PartDetails details{
      .precisions = {{"Weighed", 1, 1, 0.1, 0.2, 0.3, 0.4}},
      .appliedOn = "Part Instance",
      .referenceMaterial = "Lead",
      .referenceDensity = 11340,
      .documentId = "D1",
      .documents = {true, "D1", "V2", 1, true, "V1", {{"R1", "t", "ann", "bob", "Estimated", 9}}},
      .properties = {{"colour", "red", 3, false, false, ""}, {"second", "", 2, false, true, "MASS"}}};
  ASSERT_TRUE(store->SaveDetails("leaf", {}).Ok());
  ASSERT_TRUE(store->SaveDetails("leaf", details).Ok());
  const auto loaded = Reopened().LoadDetails("leaf");
  ASSERT_TRUE(loaded.Ok()) << loaded.Failure().message;
  const PartDetails& back = loaded.Value();
  ASSERT_EQ(back.precisions.size(), 1u);
  EXPECT_EQ(back.precisions[0].massType, "Weighed");
  EXPECT_EQ(back.precisions[0].precisionType + 10 * back.precisions[0].precisionValueType, 11);
  EXPECT_EQ(back.precisions[0].lowerPrecision, 0.1);
  EXPECT_EQ(back.precisions[0].upperPrecision, 0.2);
  EXPECT_EQ(back.precisions[0].massTypeLowerPrecision, 0.3);
  EXPECT_EQ(back.precisions[0].massTypeUpperPrecision, 0.4);
  EXPECT_EQ(back.appliedOn + back.referenceMaterial + back.documentId, "Part InstanceLeadD1");
  EXPECT_EQ(back.referenceDensity, 11340);
  // The wire form shows every member of documents and properties.
  const auto text = [](const PartDetails& d) {
    protocol::PartData data;
    data.documents = d.documents;
    data.properties = d.properties;
    return protocol::WritePartData(data);
  };
  EXPECT_EQ(text(back), text(details));
}

TEST_P(StoreContract, GivesBackFiltersByNameWithTheirInstancesInOrder) {
  ASSERT_TRUE(store->AddProduct(SampleProduct(), Existing::Refuse).Ok());
  ASSERT_TRUE(store->SaveFilter("PRC", LeavingOut("Service kit", {"i1"})).Ok());
  ASSERT_TRUE(store->SaveFilter("PRC", LeavingOut("Service kit", {"i2", "i1"})).Ok());
  ASSERT_TRUE(store->SaveFilter("PRC", FilterOfAllKinds()).Ok());
  ASSERT_TRUE(store->SaveFilter("PRC", {"All"}).Ok());
  EXPECT_THAT(Reopened().LoadFilters("PRC").Value(),
              testing::ElementsAre(ConfigurationFilter{"All"}, FilterOfAllKinds(),
                                   LeavingOut("Service kit", {"i2", "i1"})));
}

TEST_P(StoreContract, GivesBackAttributesOfEachOfSeveralProducts) {
  Product second = SampleProduct();
  second.id = "Second";
  for (Part& part : second.parts) part.id += "2";
  for (Instance& instance : second.instances) {
    instance.parent += "2";
    instance.child += "2";
    instance.attributes.pop_back();
  }
  second.roots = {"root2"};
  Product bare = SampleProduct();
  for (Instance& instance : bare.instances) instance.attributes.clear();
  ASSERT_TRUE(store->AddProduct(SampleProduct(), Existing::Refuse).Ok());
  ASSERT_TRUE(store->AddProduct(second, Existing::Refuse).Ok());
  EXPECT_EQ(Sorted(Reopened().LoadProduct("PRC").Value()), Sorted(SampleProduct()));
  ASSERT_TRUE(store->AddProduct(bare, Existing::Replace).Ok());
  EXPECT_EQ(Sorted(Reopened().LoadProduct("PRC").Value()), Sorted(bare));
  EXPECT_EQ(Sorted(store->LoadProduct("Second").Value()), Sorted(second));
}

TEST_P(StoreContract, AddsAProductTogetherWithItsFilters) {
  const ProductFilters filters{{FilterOfAllKinds(), LeavingOut("Kit", {"i1"})}, "Kit"};
  ASSERT_TRUE(store->AddProduct(SampleProduct(), Existing::Refuse, {}, filters).Ok());
  EXPECT_EQ(Reopened().LoadFilters("PRC").Value(), filters.filters);
  EXPECT_EQ(store->LoadHandler("PRC").Value(), "Kit");
  ASSERT_TRUE(store->AddProduct(SampleProduct(), Existing::Replace).Ok());
  EXPECT_TRUE(store->LoadFilters("PRC").Value().empty());
  EXPECT_FALSE(store->LoadHandler("PRC").Value().has_value());
}

TEST_P(StoreContract, AddsNothingWhenAFilterOfTheProductIsRefused) {
  const auto refusal = [&](ProductFilters filters) {
    const auto added = store->AddProduct(SampleProduct(), Existing::Refuse, {}, filters);
    return added.Ok() ? "added" : added.Failure().message;
  };
  EXPECT_EQ(refusal({{LeavingOut("Kit", {"i3"})}, {}}),
            "configuration filter \"Kit\", condition 1: there is no instance \"i3\"");
  EXPECT_EQ(refusal({{{"Kit"}, {"Kit"}}, {}}), "configuration filter \"Kit\": there are two of this name");
  EXPECT_EQ(refusal({{{"No Filter"}}, {}}),
            "configuration filter \"No Filter\": the name stands for no filter at all");
  EXPECT_EQ(refusal({{{"Kit"}}, "Other"}), "there is no configuration filter \"Other\" in product \"PRC\"");
  EXPECT_TRUE(Reopened().Products().Value().empty());
}

TEST_P(StoreContract, RefusesFiltersThatNoCommandCouldAskFor) {
  ASSERT_TRUE(store->AddProduct(SampleProduct(), Existing::Refuse).Ok());
  for (const char* name : {"", "a|b", "a\nb", "\xff", "No Filter"})
    EXPECT_EQ(store->SaveFilter("PRC", {name}).Failure().kind, ErrorKind::BadValue) << name;
  EXPECT_EQ(store->SaveFilter("PRC", {"Kit", "\xff"}).Failure().message,
            "configuration filter \"Kit\": the description is not UTF-8");
  EXPECT_EQ(store->SaveFilter("PRC", LeavingOut("Kit", {"i1", "i3"})).Failure().message,
            "configuration filter \"Kit\": there is no instance \"i3\"");
  EXPECT_TRUE(Reopened().LoadFilters("PRC").Value().empty());
}

TEST_P(StoreContract, RefusesAttributesAndDatesThatCannotBeTold) {
  const auto refusal = [&](auto change) {
    Product product = SampleProduct();
    change(product.instances[0]);
    const auto added = store->AddProduct(product, Existing::Refuse);
    return added.Ok() ? "added" : added.Failure().message;
  };
  EXPECT_EQ(refusal([](Instance& i) { i.attributes[0].name = ""; }),
            "instance \"i1\": name of an attribute: is empty, an identifier expected");
  EXPECT_EQ(refusal([](Instance& i) { i.attributes[0].value = "a|b"; }),
            "instance \"i1\": attribute \"zone\": \"a|b\" holds \"|\", which an identifier may not");
  EXPECT_EQ(refusal([](Instance& i) { i.attributes[1].name = "zone"; }),
            "instance \"i1\": attribute \"zone\" is there twice");
  EXPECT_EQ(refusal([](Instance& i) { i.effectivity.until = ParseDate("2019-01-01"); }),
            "instance \"i1\": effective until 2019-01-01, which is before it is from, 2020-02-29");
  EXPECT_EQ(refusal([](Instance& i) { i.effectivity.from = Date(); }),
            "instance \"i1\": a date of the effectivity is no day of the calendar from year 1 to 9999");
}

TEST_P(StoreContract, SetsOneOfTheFiltersOnTheProductAndTakesItAway) {
  ASSERT_TRUE(store->AddProduct(SampleProduct(), Existing::Refuse).Ok());
  ASSERT_TRUE(store->SaveFilter("PRC", {"Kit"}).Ok());
  EXPECT_FALSE(store->LoadHandler("PRC").Value().has_value());
  const auto state = store->Products().Value()[0].state;
  ASSERT_TRUE(store->SaveHandler("PRC", "Kit").Ok());
  EXPECT_EQ(Reopened().LoadHandler("PRC").Value(), "Kit");
  const auto refused = store->SaveHandler("PRC", "Other");
  EXPECT_EQ(refused.Failure().kind, ErrorKind::NotFound);
  EXPECT_EQ(refused.Failure().message, "there is no configuration filter \"Other\" in product \"PRC\"");
  EXPECT_EQ(store->LoadHandler("PRC").Value(), "Kit");
  ASSERT_TRUE(store->SaveHandler("PRC", std::nullopt).Ok());
  EXPECT_FALSE(Reopened().LoadHandler("PRC").Value().has_value());
  EXPECT_EQ(store->Products().Value()[0].state, state);
  EXPECT_EQ(store->SaveHandler("X", std::nullopt).Failure().kind, ErrorKind::NotFound);
  EXPECT_EQ(store->LoadHandler("X").Failure().kind, ErrorKind::NotFound);
}

TEST_P(StoreContract, SurveysAProductWithoutLoadingIt) {
  ASSERT_TRUE(store->AddProduct(SampleProduct(), Existing::Refuse).Ok());
  Part shape;
  shape.id = "shape";
  shape.geometry = Geometry{0.5, {}, {}};
  ASSERT_TRUE(store->AddProduct({"Shape", {shape}, {}, {"shape"}}, Existing::Refuse).Ok());
  EXPECT_TRUE(store->Survey("PRC").Value().hasMassData);
  EXPECT_FALSE(store->Survey("Shape").Value().hasMassData) << "a shape without a density";
  shape.density = 7850;
  ASSERT_TRUE(store->UpdatePart(shape).Ok());
  EXPECT_TRUE(store->Survey("Shape").Value().hasMassData);
  StoredResult result{"leaf", "f", {}};
  result.state = store->Products().Value()[0].state;
  ASSERT_TRUE(store->SaveResults({result}).Ok());
  EXPECT_EQ(store->Survey("PRC").Value().olderResults, 0);
  ASSERT_TRUE(store->UpdatePart(SampleProduct().parts[1]).Ok());
  EXPECT_EQ(store->Survey("PRC").Value().olderResults, 1);
  EXPECT_EQ(store->Survey("X").Failure().kind, ErrorKind::NotFound);
}

INSTANTIATE_TEST_SUITE_P(All, StoreContract, testing::ValuesIn(StoreKinds()),
                         [](const auto& kind) { return kind.param.name; });

}  // namespace
}  // namespace lumira::test
