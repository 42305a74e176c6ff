#include <gmock/gmock.h>

#include "StoreContract.h"

namespace lumira::test {
namespace {

using protocol::ErrorKind;
using testing::ElementsAre;

RevisionData SampleRevision() {
  return {"B",
          {{"Weighed",
            {0.1, Vec3{1e-300, -2, 3}, InertiaTensor{1, 2, 3, -4, -5, -6}},
            {0.5, {1, 2, 3}, {4, 5, 6, 7, 8, 9}},
            MassBounds{0.25, 0.75}},
           {"Estimated", {2.0, {}, {}}, {}, {}}},
          "Weighed",
          "Cast iron",
          7200,
          {{"Weighed", 1, 1, 0.1, 0.2, 0.3, 0.4}}};
}

/// Every kind of property, and a document of two revisions with the data of both.
ProductContent SampleContent() {
  PartContent leaf{"leaf", {}, {SampleRevision(), {"C"}}};
  leaf.details.documentId = "D-1";
  leaf.details.documents = {
      true, "0", "", 1, false, "B", {{"B", "", "", {}, "Weighed", 0.1}, {"C", "", "", {}, "", 0}}};
  leaf.details.properties = {{"length", "1.5"}, {"colour", "red"}};
  return {{{"colour"},
           {"count", PropertyType::Integer},
           {"checked", PropertyType::Date},
           {"factor", PropertyType::Real},
           {"length", PropertyType::Magnitude, "LENGTH"}},
          {leaf}};
}

class StoreContent : public StoreContract {
 protected:
  protocol::Result<void> Add(const ProductContent& content) {
    return store->AddProduct(SampleProduct(), Existing::Refuse, {}, {}, content);
  }

  /// What the content is refused with; nothing has been stored then.
  std::string Refusal(const ProductContent& content, ErrorKind kind) {
    const auto added = Add(content);
    if (added.Ok()) return "stored";
    EXPECT_EQ(added.Failure().kind, kind);
    EXPECT_TRUE(store->Products().Value().empty());
    return added.Failure().message;
  }

  std::string SavingValueFails(const std::string& property, const std::string& value) {
    PartDetails details = store->LoadDetails("leaf").Value();
    details.properties = {{property, value}};
    const auto saved = store->SaveDetails("leaf", details);
    return saved.Ok() ? "saved" : saved.Failure().message;
  }
};

TEST_P(StoreContent, GivesBackPropertiesInTheOrderInWhichTheyWereDefined) {
  ASSERT_TRUE(Add(SampleContent()).Ok());
  EXPECT_EQ(Reopened().LoadProperties("PRC").Value(), SampleContent().properties);
  EXPECT_EQ(store->LoadProperties("none").Failure().kind, ErrorKind::NotFound);
}

TEST_P(StoreContent, GivesEveryPartEveryPropertyOfTheProduct) {
  ASSERT_TRUE(Add(SampleContent()).Ok());
  const auto names = [](const PartDetails& details) {
    std::vector<std::string> texts;
    for (const auto& property : details.properties) texts.push_back(property.name + "=" + property.value);
    return texts;
  };
  EXPECT_THAT(names(Reopened().LoadDetails("leaf").Value()),
              ElementsAre("colour=red", "count=", "checked=", "factor=", "length=1.5"));
  EXPECT_THAT(names(store->LoadDetails("bare").Value()),
              ElementsAre("colour=", "count=", "checked=", "factor=", "length="));
}

TEST_P(StoreContent, TellsTypesOfPropertiesAsClientsKnowThem) {
  ASSERT_TRUE(Add(SampleContent()).Ok());
  const auto details = store->LoadDetails("bare");
  std::vector<std::string> types;
  for (const auto& p : details.Value().properties)
    types.push_back(std::to_string(p.type) + (p.isDate ? " date" : "") + (p.isMagnitude ? " of " : "") +
                    p.magnitude);
  EXPECT_THAT(types, ElementsAre("3", "1", "1 date", "2", "2 of LENGTH"));
}

TEST_P(StoreContent, KeepsTheValuesThatAreSavedAndNoOthers) {
  ASSERT_TRUE(Add(SampleContent()).Ok());
  EXPECT_EQ(SavingValueFails("count", "-7"), "saved");
  const auto properties = Reopened().LoadDetails("leaf").Value().properties;
  EXPECT_EQ(properties[0].value, "") << "it was not named";
  EXPECT_EQ(properties[1].value, "-7");
}

TEST_P(StoreContent, RefusesToSaveValuesThatDoNotFitTheirProperty) {
  ASSERT_TRUE(Add(SampleContent()).Ok());
  EXPECT_EQ(SavingValueFails("checked", "2021-02-29"),
            "extra property \"checked\": \"2021-02-29\" is no date; a day of the calendar as YYYY-MM-DD "
            "expected");
  EXPECT_EQ(SavingValueFails("checked", "0000-01-01"),
            "extra property \"checked\": \"0000-01-01\" is no date; a day of the calendar as YYYY-MM-DD "
            "expected");
  EXPECT_EQ(SavingValueFails("count", "1.5"),
            "extra property \"count\": \"1.5\" is not a whole number from -2147483648 to 2147483647");
  EXPECT_EQ(SavingValueFails("count", "2147483648"),
            "extra property \"count\": \"2147483648\" is not a whole number from -2147483648 to 2147483647");
  EXPECT_EQ(SavingValueFails("length", "inf"), "extra property \"length\": \"inf\" is not a finite number");
  EXPECT_EQ(SavingValueFails("smell", "none"), "there is no extra property \"smell\"");
  EXPECT_EQ(store->LoadDetails("leaf").Value().properties[4].value, "1.5") << "nothing has changed";
}

// Of each mass type 5 digits and 17 numbers of 25 bytes: 430 bytes.
TEST_P(StoreContent, RefusesMassTypesThatCouldNotBeTold) {
  Part part = SampleProduct().parts[1];
  part.massTypes.clear();
  for (int i = 0; i < 78'034; ++i)
    part.massTypes.push_back({std::to_string(10'000 + i), {1.0, {}, {}}, {}, {}});
  part.activeMassType = kComputedMassType;
  ASSERT_TRUE(Add(SampleContent()).Ok());
  const auto refused = store->UpdatePart(part);
  ASSERT_FALSE(refused.Ok());
  EXPECT_EQ(refused.Failure().kind, ErrorKind::BadValue);
  EXPECT_EQ(refused.Failure().message,
            "part \"leaf\": its mass types have 33554620 bytes together, at most 33554432 expected");
}

// Of the property 4 bytes of its name, 16 more and 33,554,000 of its value.
TEST_P(StoreContent, RefusesMassTypesAndPropertiesThatCouldNotBeToldTogether) {
  PartContent leaf{"leaf", {}, {}};
  leaf.details.properties = {{"size", std::string(33'554'000, 'x')}};
  const auto refused = store->AddProduct(SampleProduct(), Existing::Refuse, {}, {}, {{{"size"}}, {leaf}});
  ASSERT_FALSE(refused.Ok());
  EXPECT_EQ(refused.Failure().kind, ErrorKind::BadValue);
  EXPECT_EQ(
      refused.Failure().message,
      "part \"leaf\": its mass types and extra properties have 33554886 bytes together, at most 33554432 "
      "expected");
}

// Of each revision 3 bytes of its name, 1,000,000 of a user and 41 more.
TEST_P(StoreContent, RefusesRevisionsThatCouldNotBeToldButKeepsThoseThatAreThere) {
  PartContent leaf{"leaf", {}, {}};
  leaf.details.documentId = "D-9";
  for (int i = 100; i < 109; ++i)
    leaf.details.documents.revisions.push_back(
        {std::to_string(i), "", std::string(1'000'000, 'u'), {}, "", 0});
  const auto refused = store->AddProduct(SampleProduct(), Existing::Refuse, {}, {}, {{}, {leaf}});
  ASSERT_FALSE(refused.Ok());
  EXPECT_EQ(refused.Failure().message,
            "part \"leaf\": document \"D-9\": its revisions have 9000396 bytes together, at most 8388608 "
            "expected");
  ASSERT_TRUE(store->AddProduct(SampleProduct(), Existing::Refuse).Ok());
  EXPECT_TRUE(store->SaveDetails("leaf", leaf.details).Ok());
}

TEST_P(StoreContent, KnowsThePartOfADocument) {
  ASSERT_TRUE(Add(SampleContent()).Ok());
  const auto owners = Reopened().PartsOfDocument("D-1");
  ASSERT_TRUE(owners.Ok());
  ASSERT_EQ(owners.Value().size(), 1u);
  EXPECT_EQ(owners.Value()[0].part, "leaf");
  EXPECT_EQ(owners.Value()[0].product, "PRC");
  EXPECT_TRUE(store->PartsOfDocument("D-2").Value().empty());
  EXPECT_TRUE(store->PartsOfDocument("").Value().empty()) << "parts without a document";
}

TEST_P(StoreContent, RefusesADocumentOfAnotherPart) {
  ASSERT_TRUE(Add(SampleContent()).Ok());
  PartDetails details;
  details.documentId = "D-1";
  const auto saved = store->SaveDetails("bare", details);
  ASSERT_FALSE(saved.Ok());
  EXPECT_EQ(saved.Failure().kind, ErrorKind::Conflict);
  EXPECT_EQ(saved.Failure().message, "document \"D-1\" belongs to part \"leaf\" of product \"PRC\" already");
  EXPECT_TRUE(store->SaveDetails("leaf", details).Ok()) << "its own";
}

TEST_P(StoreContent, RefusesADocumentOfAnotherProduct) {
  ASSERT_TRUE(Add(SampleContent()).Ok());
  Part other;
  other.id = "other";
  PartContent content{"other", {}, {}};
  content.details.documentId = "D-1";
  const auto added =
      store->AddProduct({"Second", {other}, {}, {"other"}}, Existing::Refuse, {}, {}, {{}, {content}});
  ASSERT_FALSE(added.Ok());
  EXPECT_EQ(added.Failure().kind, ErrorKind::Conflict);
  EXPECT_EQ(added.Failure().message, "document \"D-1\" belongs to part \"leaf\" of product \"PRC\" already");
  EXPECT_EQ(store->Products().Value().size(), 1u);
}

TEST_P(StoreContent, GivesBackTheDataOfARevisionAsItWas) {
  ASSERT_TRUE(Add(SampleContent()).Ok());
  EXPECT_EQ(Reopened().LoadRevision("leaf", "B").Value(), SampleRevision());
  EXPECT_EQ(store->LoadRevision("leaf", "C").Value(), RevisionData{"C"});
}

TEST_P(StoreContent, NamesARevisionWithoutData) {
  ASSERT_TRUE(Add(SampleContent()).Ok());
  const auto none = store->LoadRevision("leaf", "Z");
  ASSERT_FALSE(none.Ok());
  EXPECT_EQ(none.Failure().kind, ErrorKind::NotFound);
  EXPECT_EQ(none.Failure().message, "part \"leaf\" has no data of revision \"Z\"");
  EXPECT_EQ(store->LoadRevision("nobody", "B").Failure().message, "there is no part \"nobody\"");
}

TEST_P(StoreContent, KeepsTheDataOfRevisionsWhenDetailsAreSaved) {
  ASSERT_TRUE(Add(SampleContent()).Ok());
  ASSERT_TRUE(store->SaveDetails("leaf", store->LoadDetails("leaf").Value()).Ok());
  EXPECT_EQ(store->LoadRevision("leaf", "B").Value(), SampleRevision());
}

TEST_P(StoreContent, ReplacesTheContentWithTheProduct) {
  ASSERT_TRUE(Add(SampleContent()).Ok());
  ASSERT_TRUE(store->AddProduct(SampleProduct(), Existing::Replace, {}, {}, SampleContent()).Ok())
      << "its own document does not stand in its way";
  ASSERT_TRUE(store->AddProduct(SampleProduct(), Existing::Replace).Ok());
  EXPECT_TRUE(store->LoadProperties("PRC").Value().empty());
  EXPECT_TRUE(store->PartsOfDocument("D-1").Value().empty());
  EXPECT_FALSE(store->LoadRevision("leaf", "B").Ok());
  EXPECT_TRUE(store->LoadDetails("leaf").Value().properties.empty());
}

TEST_P(StoreContent, RefusesPropertiesThatAreNone) {
  const auto refusal = [&](PropertyDefinition property) {
    return Refusal({{std::move(property)}, {}}, ErrorKind::BadValue);
  };
  EXPECT_EQ(refusal({""}), "extra property \"\": is empty, an identifier expected");
  EXPECT_EQ(refusal({"a|b"}), "extra property \"a|b\": \"a|b\" holds \"|\", which an identifier may not");
  EXPECT_EQ(refusal({"x", PropertyType::Magnitude, "SMELL"}),
            "extra property \"x\": \"SMELL\" is no magnitude known here");
  EXPECT_EQ(refusal({"x", PropertyType::Real, "MASS"}),
            "extra property \"x\": has the magnitude \"MASS\", but is not of the type that has one");
  EXPECT_EQ(Refusal({{{"x"}, {"x"}}, {}}, ErrorKind::BadValue), "extra property \"x\" is there twice");
}

TEST_P(StoreContent, RefusesContentOfAPartThatIsNotThere) {
  EXPECT_EQ(Refusal({{}, {{"nobody"}}}, ErrorKind::NotFound),
            "part \"nobody\" is not in the product, or its content is there twice");
  EXPECT_EQ(Refusal({{}, {{"leaf"}, {"leaf"}}}, ErrorKind::NotFound),
            "part \"leaf\" is not in the product, or its content is there twice");
}

TEST_P(StoreContent, RefusesOneDocumentForTwoParts) {
  ProductContent content = SampleContent();
  content.parts.push_back({"bare"});
  content.parts[1].details.documentId = "D-1";
  EXPECT_EQ(Refusal(content, ErrorKind::BadValue),
            "document \"D-1\" belongs to two parts, one of them is \"bare\"");
}

TEST_P(StoreContent, RefusesRevisionsThatNoRequestCouldName) {
  ProductContent content = SampleContent();
  content.parts[0].details.documents.revisions[1].revision = "B";
  EXPECT_EQ(Refusal(content, ErrorKind::BadValue),
            "part \"leaf\": document \"D-1\": revision \"B\" is there twice");
  content.parts[0].details.documents.revisions[1].revision = "";
  EXPECT_EQ(Refusal(content, ErrorKind::BadValue),
            "part \"leaf\": document \"D-1\": revision: is empty, an identifier expected");
  content = SampleContent();
  content.parts[0].details.documentId = "D|1";
  EXPECT_EQ(Refusal(content, ErrorKind::BadValue),
            "part \"leaf\": identifier of a document: \"D|1\" holds \"|\", which an identifier may not");
}

TEST_P(StoreContent, RefusesDataOfARevisionThatCannotBeComputedWith) {
  ProductContent content = SampleContent();
  content.parts[0].revisions[0].massTypes[0].deviations.mass = -1;
  EXPECT_EQ(Refusal(content, ErrorKind::BadValue),
            "document \"D-1\", revision \"B\": part 'leaf', mass type 'Weighed': deviation of mass is -1, "
            "expected a finite number, 0 or above");
  content = SampleContent();
  content.parts[0].revisions[1].revision = "Z";
  EXPECT_EQ(Refusal(content, ErrorKind::NotFound),
            "document \"D-1\", revision \"Z\": the document does not list it");
  content.parts[0].revisions[1].revision = "B";
  EXPECT_EQ(Refusal(content, ErrorKind::BadValue), "document \"D-1\": revision \"B\" has its data twice");
}

TEST_P(StoreContent, GivesBackTheSurfaceMassOfSheetMaterial) {
  Product product = SampleProduct();
  product.parts[1].surfaceMass = 12.5;
  ASSERT_TRUE(store->AddProduct(product, Existing::Refuse).Ok());
  EXPECT_EQ(Reopened().LoadProduct("PRC").Value().parts[1].surfaceMass, 12.5);
}

INSTANTIATE_TEST_SUITE_P(All, StoreContent, testing::ValuesIn(StoreKinds()),
                         [](const auto& kind) { return kind.param.name; });

}  // namespace
}  // namespace lumira::test
