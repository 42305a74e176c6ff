#pragma once

#include <SQLiteCpp/SQLiteCpp.h>
#include <SQLiteCpp/VariadicBind.h>
#include <gmock/gmock.h>

#include <cstdint>
#include <string>

#include "SaveContentFixture.h"
#include "lumira/commands/HistoryText.h"
#include "lumira/model/Part.h"

namespace lumira::test {

using protocol::HistoryMoment;

/// A part "cover" with a document "D-3", each test with the data of its own.
class SaveBesideRevisions : public SaveContentFixture {
 protected:
  void ImportCover(const std::string& mass, const std::string& documents) {
    ImportTables tables{TableSource{"s2.csv", "parent,child\nother,cover\n"}, {"m2.csv", mass}};
    tables.documents = TableSource{"d2.csv", documents};
    ImportOptions replace;
    replace.existing = Existing::Replace;
    const auto imported = ImportProduct(*store, tables, replace);
    ASSERT_TRUE(imported.Ok()) << imported.Failure().message;
  }

  protocol::PartData Revision(const std::string& revision) {
    return protocol::ReadPartData(Run("WBGetActiveDocInfo", "D-3|" + revision)).Value();
  }

  protocol::PartData State(int number, HistoryMoment moment) {
    return protocol::ReadPartData(Run(protocol::kCommandHistoryState,
                                      protocol::WriteHistoryStateRequest({"cover", number, moment})))
        .Value();
  }

  protocol::PartData StateBefore(int number) { return State(number, HistoryMoment::Before); }

  MassTypeData Stored(const std::string& massType) {
    const Part part = store->LoadPart("cover").Value().part;
    const MassTypeData* const found = FindMassType(part, massType);
    EXPECT_NE(found, nullptr) << massType;
    return found == nullptr ? MassTypeData{"", {}, {}, {}} : *found;
  }

  /// Revision "A" has the mass type of the part, with standard deviations, "B" another one.
  void ImportCoverWithoutDeviations(const std::string& chosen) {
    ImportCover(
        "part,mass type,active,mass [kg],type lower precision [%],type upper precision [%]\n"
        "cover,Estimated,yes,5,10,10\n",
        "part,document,revision,check in time,chosen,mass type,active,mass [kg],cg x [m],cg y [m],cg z "
        "[m],sd "
        "mass [kg],sd cg x [m],type lower precision [%],type upper precision [%]\n"
        "cover,D-3,A,2020-01-01 00:00:00," +
            chosen +
            ",Estimated,yes,7,0,0,0,2,0.5,10,10\n"
            "cover,D-3,B,2022-01-01 00:00:00,,Calculated,yes,8,,,,,,,\n");
  }

  /// Part and revision "A" tell no deviations; "A" has one of the centre of gravity, and "B" another mass
  /// type.
  void ImportCoverWithDeviationsThatAreNotTold() {
    ImportCover(
        "part,mass type,active,mass [kg],cg x [m],cg y [m],cg z [m],type lower precision [%],type upper "
        "precision [%]\ncover,Estimated,yes,5,0,0,0,10,10\n",
        "part,document,revision,check in time,chosen,mass type,active,mass [kg],cg x [m],cg y [m],cg z "
        "[m],sd "
        "cg x [m],type lower precision [%],type upper precision [%]\n"
        "cover,D-3,A,2020-01-01 00:00:00,yes,Estimated,yes,7,0,0,0,0.5,10,10\n"
        "cover,D-3,B,2022-01-01 00:00:00,,Calculated,yes,8,,,,,,\n");
  }

  /// With limits of 3 kg and a standard deviation of 3 kg.
  void ImportCoverWithLimits() {
    ImportCover(
        "part,mass type,active,mass [kg],sd mass [kg],lower deviation [kg],upper deviation [kg]\n"
        "cover,Weighed,yes,10,3,3,3\n",
        "part,document,revision,check in time,mass type,active,mass [kg]\n"
        "cover,D-3,A,2020-01-01 00:00:00,Weighed,yes,8\n");
  }

  /// What older programs have written, which told part data only.
  void MakeHistoryOlder() {
    const auto older = [](const std::string& text) {
      return protocol::WritePartData(FromHistoryText(text).Value().data);
    };
    const std::int64_t saves = store->LoadHistory("cover", 0, 1).Value().total;
    for (std::int64_t number = 1; number <= saves; ++number) {
      const HistoryTexts texts = store->LoadHistoryTexts("cover", number).Value();
      SQLite::Database database(file, SQLite::OPEN_READWRITE);
      SQLite::Statement update(database, "UPDATE history SET before = ?, after = ? WHERE number = ?");
      SQLite::bind(update, older(texts.before), older(texts.after), number);
      update.exec();
    }
  }

  /// Part and revision "A" tell the same deviations, and have others of the centre of gravity, which no
  /// client sees: 1 m and 2 m.
  void ImportCoverThatDiffersInWhatIsNotTold(const std::string& chosen) {
    ImportCover(
        "part,mass type,active,mass [kg],cg x [m],cg y [m],cg z [m],sd mass [kg],sd cg x [m]\n"
        "cover,Weighed,yes,10,0,0,0,3,1\n",
        "part,document,revision,check in time,chosen,mass type,active,mass [kg],cg x [m],cg y [m],cg z "
        "[m],sd "
        "mass [kg],sd cg x [m]\ncover,D-3,A,2020-01-01 00:00:00," +
            chosen + ",Weighed,yes,8,0,0,0,3,2\n");
  }

  /// Both revisions have one of the two alone, "A" with another deviation, "B" with that of the part.
  void ImportCoverWithTwoMassTypes() {
    ImportCover("part,mass type,active,mass [kg],sd mass [kg]\ncover,Estimated,,9,\ncover,Weighed,yes,10,3\n",
                "part,document,revision,check in time,mass type,active,mass [kg],sd mass [kg]\n"
                "cover,D-3,A,2020-01-01 00:00:00,Weighed,yes,8,1\n"
                "cover,D-3,B,2022-01-01 00:00:00,Weighed,yes,9,3\n");
  }

  /// That the part has the values that it had before there were any deviations.
  void ExpectNoDeviations(double mass) {
    const MassTypeData stored = Stored("Estimated");
    EXPECT_EQ(stored.properties.mass, mass);
    EXPECT_EQ(stored.deviations, Deviations{});
    EXPECT_FALSE(stored.bounds);
  }
};

/// A part whose revisions tell what the part tells, and differ in what is not told: deviations of the centre
/// of gravity of 1 m, and 2 m and 3 m.
class SaveOfWhatIsNotTold : public SaveBesideRevisions {
 protected:
  SaveOfWhatIsNotTold() {
    ImportCover(
        "part,mass type,active,mass [kg],cg x [m],cg y [m],cg z [m],sd cg x "
        "[m]\ncover,Weighed,yes,8,0,0,0,1\n",
        "part,document,revision,check in time,mass type,active,mass [kg],cg x [m],cg y [m],cg z [m],sd cg x "
        "[m]\ncover,D-3,A,2020-01-01 00:00:00,Weighed,yes,8,0,0,0,2\n"
        "cover,D-3,B,2022-01-01 00:00:00,Weighed,yes,8,0,0,0,3\n");
  }
};

}  // namespace lumira::test
