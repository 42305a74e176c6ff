#pragma once

#include <string>
#include <vector>

#include "SaveFixture.h"

namespace lumira::test {

/// A product whose part "plate" has a document of three revisions, the automatic one being "B", and extra
/// properties of every type. Revision "A" has the mass type "Planned" alone, revision "C" no data.
class SaveContentFixture : public ServerFixture {
 protected:
  SaveContentFixture() {
    ImportTables tables{TableSource{"s.csv", "parent,child\ntop,plate\n"},
                        {"m.csv",
                         "part,material,density [kg/m3],mass type,active,mass [kg]\n"
                         "plate,Steel,7850,Estimated,,9\nplate,,,Weighed,yes,10\n"}};
    tables.documents =
        TableSource{"d.csv",
                    "part,document,revision,check in time,attached,material,density [kg/m3],mass "
                    "type,active,mass [kg],lower deviation [kg],upper deviation [kg]\n"
                    "plate,D-1,A,2020-01-01 00:00:00,yes,Iron,7200,Planned,yes,7,0.5,0.75\n"
                    "plate,D-1,B,2022-01-01 00:00:00,,Steel,7850,Estimated,,9,,\n"
                    "plate,D-1,B,,,,,Weighed,yes,10,,\n"
                    "plate,D-1,C,2021-01-01 00:00:00,,,,,,,,\n"};
    tables.properties = TableSource{
        "p.csv",
        "property,type,magnitude,part,value\nfinish,text,,plate,painted\ncount,integer,,plate,-7\n"
        "checked,date,,plate,2020-02-29\nfactor,real,,plate,0.5\n"
        "reach,magnitude,LENGTH,plate,1.25\nload,magnitude,FORCE,,\n"};
    const auto imported = ImportProduct(*store, tables, {});
    EXPECT_TRUE(imported.Ok()) << imported.Failure().message;
  }

  std::string Save(const protocol::PartData& data) {
    return Run(protocol::kCommandSavePart, protocol::WritePartData(data));
  }

  void SaveWell(const protocol::PartData& data) {
    const std::string reply = Save(data);
    EXPECT_TRUE(protocol::ReadSaveReply(reply).Ok()) << reply;
  }

  protocol::PartData Plate() { return PartDataOf("plate"); }

  protocol::PartData Revision(const std::string& revision) {
    const auto data = protocol::ReadPartData(Run("WBGetActiveDocInfo", "D-1|" + revision));
    EXPECT_TRUE(data.Ok()) << data.Failure().message;
    return data.Ok() ? data.Value() : protocol::PartData{};
  }

  // As the panel of a client sends it.
  static protocol::PartData Choosing(protocol::PartData data, const std::string& revision) {
    data.documents.activeVersion = revision;
    data.documents.usedSpecificRevisionBefore = true;
    return data;
  }

  static protocol::PartData ChoosingNone(protocol::PartData data) {
    data.documents.activeId = data.documents.activeVersion = "__null__";
    data.documents.usedSpecificRevisionBefore = false;
    return data;
  }

  static std::string Choice(const protocol::PartData& data) {
    const protocol::Documents& documents = data.documents;
    return documents.activeId + " " + documents.activeVersion +
           (documents.usedSpecificRevisionBefore ? " by hand" : " automatic");
  }

  static std::vector<std::string> Values(const protocol::PartData& data) {
    std::vector<std::string> values;
    for (const auto& property : data.properties) values.push_back(property.name + "=" + property.value);
    return values;
  }

  std::vector<protocol::FieldChange> LatestChanges() {
    const auto history =
        protocol::ReadHistory(Run(protocol::kCommandHistory, protocol::WriteHistoryRequest({"plate", 0, 1})));
    EXPECT_TRUE(history.Ok() && history.Value().entries.size() == 1);
    return history.Value().entries.at(0).changes;
  }

  protocol::PartData StateOf(int number, protocol::HistoryMoment moment) {
    return protocol::ReadPartData(Run(protocol::kCommandHistoryState,
                                      protocol::WriteHistoryStateRequest({"plate", number, moment})))
        .Value();
  }
};

}  // namespace lumira::test
