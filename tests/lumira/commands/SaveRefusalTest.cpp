#include <gmock/gmock.h>

#include <cmath>
#include <limits>

#include "SaveFixture.h"

namespace lumira::test {
namespace {

using protocol::Tensor;
using testing::HasSubstr;
using testing::StartsWith;

struct Refused {
  const char* name;
  void (*spoil)(protocol::PartData& data);
  const char* message;
};

void SetWeighed(protocol::PartData& data, double protocol::MassType::*field, double value) {
  data.massTypes.at(2).*field = value;
}

const Refused kRefused[] = {
    {"AnUnknownPart", [](protocol::PartData& d) { d.partId = "nobody"; },
     "PartData: partId: there is no part \"nobody\""},
    {"AnEmptyPart", [](protocol::PartData& d) { d.partId = ""; }, "PartData: partId: there is no part \"\""},
    {"APartWithTheSeparatorInItsName", [](protocol::PartData& d) { d.partId = "a|b"; },
     "PartData: partId: there is no part \"a|b\""},
    {"AMassTypeThatThePartHasNot", [](protocol::PartData& d) { d.massTypes.at(2).name = "Guessed"; },
     "PartData: massTypes[3].name: \"Guessed\" is no mass type of part \"a\", one of \"Computed\", "
     "\"Estimated\", \"Weighed\", \"Planned\" expected"},
    {"AMassTypeWithTheSeparatorInItsName", [](protocol::PartData& d) { d.massTypes.at(2).name = "Wei|ghed"; },
     "PartData: massTypes[3].name: \"Wei|ghed\" is no mass type of part \"a\""},
    {"AMassTypeTwice", [](protocol::PartData& d) { d.massTypes.at(2).name = "Estimated"; },
     "PartData: massTypes[3].name: \"Estimated\" is listed twice, once expected"},
    {"AMassTypeThatIsMissing", [](protocol::PartData& d) { d.massTypes.pop_back(); },
     "PartData: massTypes: \"Planned\" is missing, all mass types of part \"a\" expected"},
    {"AnActiveMassTypeThatThePartHasNot", [](protocol::PartData& d) { d.activeMassType = "Guessed"; },
     "PartData: activeMassType: \"Guessed\" is no mass type of part \"a\", one of"},
    {"ANegativeDeviation",
     [](protocol::PartData& d) { SetWeighed(d, &protocol::MassType::lowerDeviation, -1); },
     "PartData: massTypes[3].lowerDeviation: -1 is negative, a number of 0 or above expected"},
    {"ANegativePrecision",
     [](protocol::PartData& d) { SetWeighed(d, &protocol::MassType::upperPrecision, -0.5); },
     "PartData: massTypes[3].upperPrecision: -0.5 is negative, a number of 0 or above expected"},
    {"ANegativeDensity", [](protocol::PartData& d) { d.material.density = -7850; },
     "PartData: material.density: -7850 is negative, a number of 0 or above expected"},
    {"AnUnknownPlaceOfAMaterial", [](protocol::PartData& d) { d.material.appliedOn = "Everywhere"; },
     "PartData: material.appliedOn: \"Everywhere\" is no place to apply a material to, one of \"\", "
     "\"Part Instance\", \"Part Reference\" expected"},
    {"ADocumentOfAnotherPart", [](protocol::PartData& d) { d.documents.activeId = "D2"; },
     "PartData: documents.activeId: \"D2\" is not the document of part \"a\", \"D1\" expected"},
    {"ARevisionThatVanished", [](protocol::PartData& d) { d.documents.activeVersion = "Q"; },
     "PartData: documents.activeVersion: \"Q\" is no revision of document \"D1\", one of its revisions "
     "expected"},
    {"ADocumentChoiceThatWentWrong",
     [](protocol::PartData& d) { d.documents.activeId = d.documents.activeVersion = "ERROR!"; },
     "PartData: documents.activeId: \"ERROR!\" is not the document of part \"a\""},
    {"APropertyThatThePartHasNot", [](protocol::PartData& d) { d.properties.at(1).name = "weight"; },
     "PartData: properties[2].name: \"weight\" is no property of part \"a\", one of its properties expected"},
    {"APropertyTwice", [](protocol::PartData& d) { d.properties.at(1) = d.properties.at(0); },
     "PartData: properties[2].name: \"count\" is listed twice, once expected"},
    {"AnIntegerThatIsNone", [](protocol::PartData& d) { d.properties.at(0).value = "3.5"; },
     "PartData: properties[1].value: \"3.5\" is not a whole number from -2147483648 to 2147483647 (property "
     "\"count\")"},
    {"ADateThatDoesNotExist", [](protocol::PartData& d) { d.properties.at(1).value = "2023-02-29"; },
     "PartData: properties[2].value: \"2023-02-29\" is no date; a day of the calendar as YYYY-MM-DD expected "
     "(property \"checked\")"},
    {"ADateOfTheYearZero", [](protocol::PartData& d) { d.properties.at(1).value = "0000-01-01"; },
     "PartData: properties[2].value: \"0000-01-01\" is no date; a day of the calendar as YYYY-MM-DD expected "
     "(property \"checked\")"},
    {"ARealThatIsNone", [](protocol::PartData& d) { d.properties.at(2).value = "abc"; },
     "PartData: properties[3].value: \"abc\" is not a finite number (property \"length\")"},
    {"AnInfiniteReal", [](protocol::PartData& d) { d.properties.at(2).value = "inf"; },
     "PartData: properties[3].value: \"inf\" is not a finite number"},
    {"AnEmptyToken", [](protocol::PartData& d) { d.stateToken = ""; },
     "PartData: stateToken: \"\" is no state token, the one that the part was read with expected; read the "
     "part again"},
    {"ATokenThatIsNoNumber", [](protocol::PartData& d) { d.stateToken = "7x"; },
     "PartData: stateToken: \"7x\" is no state token"},
    {"ANegativeToken", [](protocol::PartData& d) { d.stateToken = "-1"; },
     "PartData: stateToken: \"-1\" is no state token"},
    {"ATokenThatWasNeverGiven", [](protocol::PartData& d) { d.stateToken = "999999"; },
     "PartData: stateToken: \"999999\" is no state of part \"a\"; read the part again"},
    {"ATextOfFiveMegabytes", [](protocol::PartData& d) { d.material.name.assign(5'000'000, 'x'); },
     "longer than 1048576 bytes"},
    {"AnInfiniteMass",
     [](protocol::PartData& d) { d.massTypes.at(2).mass = std::numeric_limits<double>::infinity(); },
     "(massTypes[3].mass): \"inf\" is not a finite number"},
    {"AnInertiaThatIsNotANumber",
     [](protocol::PartData& d) { d.massTypes.at(2).inertia = Tensor{1, 1, std::nan(""), 0, 0, 0}; },
     "massTypes[3].inertia"},
};

class RefusedSave : public SaveFixture {};

class SaveRefusal : public SaveFixture, public testing::WithParamInterface<Refused> {};

TEST_P(SaveRefusal, NamesThePlaceAndStoresNothing) {
  const std::string before = StoredText();
  protocol::PartData data = PartDataOf("a");
  Type(data, "Weighed").mass = 7;  // what would be half of a save
  data.material.name = "Brass";
  GetParam().spoil(data);
  const std::string reply = Save(data);
  EXPECT_THAT(reply, StartsWith("LumiraError: "));
  EXPECT_THAT(reply, HasSubstr(GetParam().message));
  Restart();
  EXPECT_EQ(StoredText(), before);
  EXPECT_EQ(HistoryOf("a").total, 0);
}

INSTANTIATE_TEST_SUITE_P(Of, SaveRefusal, testing::ValuesIn(kRefused),
                         [](const auto& refused) { return std::string(refused.param.name); });

TEST_F(RefusedSave, OfAPartThatVanished) {
  const protocol::PartData data = PartDataOf("a");
  ImportOptions replace;
  replace.existing = Existing::Replace;
  Import("parent,child\ntop,z\n", "part,mass [kg]\nz,1\n", replace);
  EXPECT_EQ(Save(data), "LumiraError: PartData: partId: there is no part \"a\"");
}

TEST_F(RefusedSave, WhoseDensityMakesTheMassTooLarge) {
  Part part = store->LoadPart("a").Value().part;
  part.activeMassType = "Computed";
  part.massTypes.clear();
  part.geometry = Geometry{1e10, {}, {}};
  ASSERT_TRUE(store->UpdatePart(part).Ok());
  protocol::PartData data = PartDataOf("a");
  data.material.density = 1e300;
  EXPECT_EQ(Save(data),
            "LumiraError: PartData: material.density: 1e+300: part 'a', volume times density: mass is inf, "
            "expected a finite number");
  EXPECT_EQ(PartDataOf("a").material.density, 7850);
}

TEST_F(RefusedSave, WhoseCadDensityMakesTheMassTooLargeDoesNotBlameTheTypedOne) {
  Part part = store->LoadPart("a").Value().part;
  part.geometry = Geometry{1e10, {}, {}};
  part.cadMaterial = "Neutronium";
  part.cadDensity = 1e300;
  ASSERT_TRUE(store->UpdatePart(part).Ok());
  protocol::PartData data = PartDataOf("a");
  ASSERT_TRUE(data.material.density);
  data.material.densityPriority = 1;
  data.activeMassType = "Computed";
  EXPECT_EQ(Save(data), "LumiraError: part 'a', volume times density: mass is inf, expected a finite number");
}

// A reader takes a colon as it is, a writer makes three bytes of it.
TEST_F(RefusedSave, OfTextsThatCouldNotBeToldAgain) {
  const std::string colons(400'000, ':');
  for (const auto& [field, name] : {std::pair("properties[4].value", "red"), {"material.name", "Steel"}}) {
    std::string text = StoredText();
    text.replace(text.find("|" + std::string(name) + "|") + 1, std::string(name).size(), colons);
    EXPECT_THAT(
        Run(protocol::kCommandSavePart, text),
        testing::AllOf(HasSubstr(field), HasSubstr("has 1200000 bytes when it is told, at most 1048576 ")));
  }
  EXPECT_EQ(HistoryOf("a").total, 0);
}

}  // namespace
}  // namespace lumira::test
