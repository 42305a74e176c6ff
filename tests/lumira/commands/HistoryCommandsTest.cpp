#include <SQLiteCpp/SQLiteCpp.h>
#include <gmock/gmock.h>

#include "SaveFixture.h"
#include "lumira/commands/HistoryText.h"
#include "lumira/commands/UserName.h"
#include "lumira/commands/UtcTime.h"

namespace lumira::test {
namespace {

using protocol::FieldChange;
using protocol::HistoryMoment;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;

class HistoryCommands : public SaveFixture {
 protected:
  protocol::PartData StateOf(const std::string& part, int number, HistoryMoment moment) {
    const auto data = protocol::ReadPartData(
        Run(protocol::kCommandHistoryState, protocol::WriteHistoryStateRequest({part, number, moment})));
    EXPECT_TRUE(data.Ok()) << data.Failure().message;
    return data.Ok() ? data.Value() : protocol::PartData{};
  }
};

TEST_F(HistoryCommands, TellWhoSavedWhenAndWhatBecameOfEachField) {
  protocol::PartData data = PartDataOf("a");
  Type(data, "Weighed").mass = 7;
  Type(data, "Weighed").cg = protocol::Vector{1, 2.5, -3};
  data.material.density.reset();
  const std::string before = UtcTime();
  SaveWell(data);
  const std::string after = UtcTime();
  const protocol::History history = HistoryOf("a");
  EXPECT_EQ(history.partId, "a");
  EXPECT_EQ(history.total, 1);
  ASSERT_THAT(history.entries, SizeIs(1));
  const protocol::HistoryEntry& entry = history.entries[0];
  EXPECT_EQ(entry.number, 1);
  EXPECT_EQ(entry.user, "eva");
  EXPECT_GE(entry.time, before);
  EXPECT_LE(entry.time, after);
  EXPECT_EQ(entry.changeCount, 3);
  EXPECT_THAT(entry.changes, ElementsAre(FieldChange{"massTypes[Weighed].mass", "6", "7"},
                                         FieldChange{"massTypes[Weighed].cg", std::nullopt, "1 2.5 -3"},
                                         FieldChange{"material.density", "7850", std::nullopt}));
}

TEST_F(HistoryCommands, ListTheLatestFirstPageByPageAndAfterARestart) {
  for (const auto& [user, mass] : {std::pair("bob", 7.0), {"joe", 8.0}, {"eva", 9.0}}) SaveMassAs(user, mass);
  Restart();
  const protocol::History first = HistoryOf("a", 0, 2);
  EXPECT_EQ(first.total, 3);
  ASSERT_THAT(first.entries, SizeIs(2));
  EXPECT_EQ(first.entries[0].user + first.entries[1].user, "evajoe");
  const protocol::History rest = HistoryOf("a", first.entries.back().number, 2);
  ASSERT_THAT(rest.entries, SizeIs(1));
  EXPECT_EQ(rest.entries[0].user, "bob");
  EXPECT_TRUE(HistoryOf("b").entries.empty());
}

TEST_F(HistoryCommands, GiveTheStateBeforeAndAfterASave) {
  SaveMassAs("bob", 7);
  SaveMassAs("joe", 8);
  protocol::PartData before = StateOf("a", 1, HistoryMoment::Before);
  EXPECT_EQ(Type(before, "Weighed").mass, 6);
  protocol::PartData after = StateOf("a", 1, HistoryMoment::After);
  EXPECT_EQ(Type(after, "Weighed").mass, 7);
  protocol::PartData latest = StateOf("a", 2, HistoryMoment::After);
  EXPECT_EQ(latest.massTypesOrigin, (protocol::Origin{protocol::OriginKind::AfterSave, "2"}));
  latest.massTypesOrigin = {};
  EXPECT_EQ(protocol::WritePartData(latest), StoredText());
}

TEST_F(HistoryCommands, SayWhetherThereWereMassTypesOfUsersThen) {
  Part part = store->LoadPart("c").Value().part;
  const std::vector<MassTypeData> types = std::exchange(part.massTypes, {});
  part.activeMassType = "Computed";
  ASSERT_TRUE(store->UpdatePart(part).Ok());
  protocol::PartData data = PartDataOf("c");
  data.material.name = "Brass";
  SaveWell(data);
  part.massTypes = types;
  ASSERT_TRUE(store->UpdatePart(part).Ok());
  EXPECT_TRUE(PartDataOf("c").persisted);
  EXPECT_FALSE(StateOf("c", 1, HistoryMoment::After).persisted);
  data = PartDataOf("c");
  data.material.name = "Bronze";
  SaveWell(data);
  part.massTypes.clear();
  ASSERT_TRUE(store->UpdatePart(part).Ok());
  EXPECT_FALSE(PartDataOf("c").persisted);
  EXPECT_TRUE(StateOf("c", 2, HistoryMoment::After).persisted);
}

TEST_F(HistoryCommands, GiveAStateThatCanBeSavedAgain) {
  const std::string original = StoredText();
  protocol::PartData data = PartDataOf("a");
  Type(data, "Estimated").status = protocol::MassTypeStatus::Undefined;
  Type(data, "Estimated").mass.reset();
  Type(data, "Estimated").upperPrecision = 0.5;
  data.activeMassType = "Computed";
  data.standardPart = true;
  data.material.name = "Brass";
  data.documents.activeVersion = "C";
  Property(data, "colour").value = "blue";
  SaveWell(data);
  protocol::PartData old = StateOf("a", 1, HistoryMoment::Before);
  EXPECT_EQ(old.stateToken, PartDataOf("a").stateToken) << "it can be saved over what is there now";
  SaveWell(old);
  protocol::PartData back = PartDataOf("a");
  back.stateToken = protocol::ReadPartData(original).Value().stateToken;
  EXPECT_EQ(protocol::WritePartData(back), original);
  EXPECT_EQ(HistoryOf("a").total, 2) << "bringing a state back is a save as well";
}

TEST_F(HistoryCommands, BringBackAnAutomaticChoiceOfTheDocument) {
  protocol::PartData data = PartDataOf("a");
  data.documents.activeId = data.documents.activeVersion = "__null__";
  SaveWell(data);
  data = PartDataOf("a");
  data.documents.activeVersion = "C";
  SaveWell(data);
  SaveWell(StateOf("a", 1, HistoryMoment::After));
  EXPECT_FALSE(PartDataOf("a").documents.usedSpecificRevisionBefore);
}

TEST_F(HistoryCommands, LeavePropertiesThatTheStateDidNotKnowAsTheyAre) {
  SaveMassAs("bob", 7);
  StoredPart now = store->LoadPart("a").Value();
  now.details.properties.at(3).value = "matt";
  ASSERT_TRUE(store->SaveDetails("a", now.details).Ok());
  SQLite::Database(file, SQLite::OPEN_READWRITE)
      .exec("UPDATE property_definitions SET name = 'finish' WHERE position = 3");  // it was colour then
  SaveWell(StateOf("a", 1, HistoryMoment::Before));
  protocol::PartData back = PartDataOf("a");
  EXPECT_EQ(Type(back, "Weighed").mass, 6);
  EXPECT_EQ(Property(back, "finish").value, "matt");
}

TEST_F(HistoryCommands, BringBackTheMassTypesOfThenAndNoOthers) {
  SaveMassAs("bob", 7);
  Part now = store->LoadPart("a").Value().part;
  now.massTypes.at(0).name = "Calculated";  // it was Estimated then
  now.massTypes.at(0).properties.mass = 50;
  ASSERT_TRUE(store->UpdatePart(now).Ok());
  SaveWell(StateOf("a", 1, HistoryMoment::Before));
  protocol::PartData back = PartDataOf("a");
  ASSERT_THAT(back.massTypes, SizeIs(4));
  EXPECT_EQ(Type(back, "Estimated").mass, 5);
  EXPECT_EQ(Type(back, "Estimated").upperDeviation, 2);
  EXPECT_EQ(Type(back, "Estimated").massTypeUpperPrecision, 0.04);
  EXPECT_EQ(Type(back, "Weighed").mass, 6);
  protocol::PartData lost = StateOf("a", 2, HistoryMoment::Before);
  EXPECT_EQ(Type(lost, "Calculated").mass, 50) << "what it took the place of can be had again";
}

TEST_F(HistoryCommands, KeepTheComputedValuesAndPlaceOfNow) {
  SaveMassAs("bob", 7);
  Compute("a");
  const protocol::PartData old = StateOf("a", 1, HistoryMoment::Before);
  EXPECT_EQ(old.massTypes.at(0).mass, 7) << "what is computed is of now";
  EXPECT_EQ(old.massTypes.at(2).mass, 6);
  EXPECT_THAT(old.placement, SizeIs(12));
}

TEST_F(HistoryCommands, RefuseUnknownPartsAndEntriesAndRequestsThatCannotBeRead) {
  EXPECT_EQ(Run("LumGetHistory", "HistoryRequest/1|nobody|0|10|end"),
            "LumiraError: there is no part \"nobody\"");
  EXPECT_EQ(Run("LumGetHistoryState", "HistoryStateRequest/1|a|1|0|end"),
            "LumiraError: part \"a\" has no entry 1 in its history, which has 0");
  EXPECT_EQ(Run("LumGetHistory", "HistoryRequest/1|a|0|0|end"),
            "LumiraError: HistoryRequest: field 4 (limit): \"0\" is not an integer from 1 to 1000");
  EXPECT_EQ(Run("LumGetHistoryState", "HistoryStateRequest/1|a|1|2|end"),
            "LumiraError: HistoryStateRequest: field 4 (moment): \"2\" is not an integer from 0 to 1");
}

TEST_F(HistoryCommands, CutLongValuesWithoutCuttingACharacter) {
  protocol::PartData data = PartDataOf("a");
  data.material.name = "x";
  for (int i = 0; i < 500; ++i) data.material.name += "é";
  SaveWell(data);
  const std::string shown = HistoryOf("a").entries.at(0).changes.at(0).after.value();
  EXPECT_EQ(shown.size(), 254u);  // 1 + 125 characters of two bytes + "..."; one more would be 256
  EXPECT_TRUE(shown.ends_with("é..."));
  EXPECT_EQ(StateOf("a", 1, HistoryMoment::After).material.name, data.material.name) << "the state is whole";
}

TEST_F(HistoryCommands, AnswerPagesOfBoundedSizeWhateverIsStored) {
  protocol::PartData data = PartDataOf("a");
  for (int i = 0; i < 12; ++i) {
    data.material.name = std::string(1'000'000, static_cast<char>('a' + i));
    data.stateToken = SaveWell(data);
  }
  protocol::History page = HistoryOf("a", 0, 1'000);
  EXPECT_EQ(page.total, 12);
  EXPECT_LT(page.entries.size(), 12u);
  std::size_t found = page.entries.size();
  while (page.entries.back().number > 1) {
    page = HistoryOf("a", page.entries.back().number, 1'000);
    found += page.entries.size();
  }
  EXPECT_EQ(found, 12u);
}

TEST_F(HistoryCommands, NameAThousandFieldsAndCountTheOthers) {
  Part part = store->LoadPart("a").Value().part;
  for (int i = 0; i < 1'200; ++i) part.massTypes.push_back({"T" + std::to_string(i), {1.0, {}, {}}, {}, {}});
  ASSERT_TRUE(store->UpdatePart(part).Ok());
  protocol::PartData data = PartDataOf("a");
  for (protocol::MassType& type : data.massTypes)
    if (type.name.starts_with("T")) type.mass = 2;
  SaveWell(data);
  const protocol::HistoryEntry entry = HistoryOf("a").entries.at(0);
  EXPECT_EQ(entry.changeCount, 1'200);
  EXPECT_THAT(entry.changes, SizeIs(1'000));
}

TEST_F(HistoryCommands, CallATextThatWasNeverWrittenDamage) {
  SaveMassAs("bob", 7);
  const std::string written = store->LoadHistoryTexts("a", 1).Value().before;
  SavedValues withoutDeviations = FromHistoryText(written).Value();
  withoutDeviations.deviations.pop_back();
  const std::pair<std::string, std::string> cases[] = {
      {"rubbish", "SavedValues: field 1 (form): \"rubbish\""},
      {written + "|x", "SavedValues: there is more text after field"},
      {ToHistoryText(withoutDeviations), "SavedValues: deviations: 2, not one for each user mass type"},
      {protocol::WritePartData({}), "PartData: massTypes: the computed one is missing"}};
  for (const auto& [text, reason] : cases) {
    SQLite::Database database(file, SQLite::OPEN_READWRITE);
    SQLite::Statement update(database, "UPDATE history SET before = ?");
    update.bind(1, text);
    update.exec();
    EXPECT_THAT(Run("LumGetHistory", "HistoryRequest/1|a|0|10|end"),
                HasSubstr("the file is damaged (the history of part \"a\": " + reason));
  }
  EXPECT_EQ(PartDataOf("a").massTypes.at(2).mass, 7) << "the part itself can be used";
}

TEST_F(HistoryCommands, TakeANameThatIsNoneForUnknown) {
  for (const char* bad : {"", "e|va", "e\nva", "\xFF"}) {
    server = ServerFor(bad);
    protocol::PartData data = PartDataOf("a");
    Type(data, "Weighed").mass = *Type(data, "Weighed").mass + 1;
    SaveWell(data);
    EXPECT_EQ(HistoryOf("a").entries.at(0).user, "unknown");
  }
}

class EnvironmentUser : public testing::Test {
 protected:
  ~EnvironmentUser() override {
    Set("USER", _user);
    Set("LOGNAME", _login);
  }

  static void Set(const char* name, const std::optional<std::string>& value) {
    value ? setenv(name, value->c_str(), 1) : unsetenv(name);
  }

 private:
  static std::optional<std::string> Value(const char* name) {
    const char* value = std::getenv(name);
    return value == nullptr ? std::nullopt : std::optional<std::string>(value);
  }

  std::optional<std::string> _user = Value("USER"), _login = Value("LOGNAME");
};

TEST_F(EnvironmentUser, IsTheFirstVariableThatHoldsAName) {
  Set("USER", "eva");
  Set("LOGNAME", "bob");
  EXPECT_EQ(UserOfEnvironment(), "eva");
  Set("USER", "");
  EXPECT_EQ(UserOfEnvironment(), "bob");
  Set("LOGNAME", "b|b");
  EXPECT_EQ(UserOfEnvironment(), "unknown");
  Set("USER", std::nullopt);
  Set("LOGNAME", std::nullopt);
  EXPECT_EQ(UserOfEnvironment(), "unknown");
}

TEST(UtcTime, IsWrittenToTheSecond) {
  using namespace std::chrono_literals;
  EXPECT_EQ(UtcTime(std::chrono::system_clock::time_point{}), "1970-01-01T00:00:00Z");
  EXPECT_EQ(UtcTime(std::chrono::system_clock::time_point{} + 951'827'696s + 999ms), "2000-02-29T12:34:56Z");
}

// Older programs have written both.
TEST_F(HistoryCommands, TakesANegativeZeroForAZero) {
  PartSaving saving{store->LoadPart("a").Value(), {"bob", "2026-01-02T03:04:05Z"}, {}, {}};
  const auto text = [](double zero) {
    protocol::PartData values;
    values.massTypes.resize(2);
    protocol::MassType& type = values.massTypes.at(1);
    type = {.name = "Weighed",
            .mass = zero,
            .cg = protocol::Vector{zero, 0, 0},
            .inertia = protocol::Tensor{zero}};
    type.lowerDeviation = type.upperDeviation = type.lowerPrecision = type.upperPrecision = zero;
    values.material.density = zero;
    return protocol::WritePartData(values);
  };
  saving.before = text(0.0);  // in the form of an older program
  saving.after = text(-0.0);
  ASSERT_NE(saving.before, saving.after);
  ASSERT_TRUE(store->SavePart(saving).Ok());
  EXPECT_EQ(HistoryOf("a").entries.at(0).changeCount, 0);
}

}  // namespace
}  // namespace lumira::test
