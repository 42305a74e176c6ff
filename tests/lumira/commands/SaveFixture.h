#pragma once

#include <string>

#include "ServerFixture.h"

namespace lumira::test {

/// A server for "eva" on top > arm > (a, b), top > c. Part "a" weighs 6 kg (Weighed, active); it has two more
/// mass types, three revisions of document "D1" of which "B" was chosen by hand, and four properties.
class SaveFixture : public ServerFixture {
 protected:
  SaveFixture() {
    server = ServerFor("eva");
    const auto imported = ImportProduct(*store, Tables(), {});
    EXPECT_TRUE(imported.Ok()) << imported.Failure().message;
    EXPECT_TRUE(store->SaveDetails("a", DetailsOfA()).Ok());
  }

  std::unique_ptr<Server> ServerFor(const std::string& user) {
    return std::make_unique<Server>(*store, Progress{}, user);
  }

  static ImportTables Tables() {
    ImportTables tables{
        TableSource{"s.csv", "parent,child\ntop,arm\narm,a\narm,b\ntop,c\n"},
        TableSource{"m.csv",
                    "part,mass type,mass [kg],lower deviation [kg],upper deviation [kg],active,material,"
                    "density [kg/m3]\n"
                    "a,Estimated,5,1,2,,Steel,7850\na,Weighed,6,,,yes,,\na,Planned,,,,,,\n"
                    "b,Weighed,10,,,yes,,\nc,Weighed,20,,,yes,,\n"}};
    tables.properties = TableSource{"p.csv",
                                    "property,type,magnitude\ncount,integer,\nchecked,date,\n"
                                    "length,magnitude,LENGTH\ncolour,text,\n"};
    return tables;
  }

  static PartDetails DetailsOfA() {
    PartDetails details;
    details.precisions = {{"Estimated", 0, 0, 0, 0, 0.03, 0.04}};
    details.documentId = "D1";
    details.documents = {
        .used = true,
        .activeId = "D1",
        .activeVersion = "B",
        .autoMode = 0,
        .usedSpecificRevisionBefore = true,
        .attachedVersion = "A",
        .revisions = {{"C", "", "", {}, "", 0}, {"B", "", "", {}, "", 0}, {"A", "", "", {}, "", 0}}};
    details.properties = {{"count", "3"}, {"checked", "2024-02-29"}, {"length", "0.5"}, {"colour", "red"}};
    return details;
  }

  static protocol::MassType& Type(protocol::PartData& data, const std::string& name) {
    for (protocol::MassType& type : data.massTypes)
      if (type.name == name) return type;
    ADD_FAILURE() << "no mass type " << name;
    return data.massTypes.front();
  }

  static protocol::ExtraProperty& Property(protocol::PartData& data, const std::string& name) {
    for (protocol::ExtraProperty& property : data.properties)
      if (property.name == name) return property;
    ADD_FAILURE() << "no property " << name;
    return data.properties.front();
  }

  /// The reply of a save as it goes to the client.
  std::string Save(const protocol::PartData& data) {
    return Run(protocol::kCommandSavePart, protocol::WritePartData(data));
  }

  /// The token of a save that succeeds.
  std::string SaveWell(const protocol::PartData& data) {
    const auto reply = protocol::ReadSaveReply(Save(data));
    EXPECT_TRUE(reply.Ok()) << Save(data);
    if (!reply.Ok()) return {};
    EXPECT_EQ(reply.Value().partId, data.partId);
    return reply.Value().stateToken;
  }

  /// Saves "a" with another mass as this user.
  void SaveMassAs(const std::string& user, double mass) {
    const auto other = ServerFor(user);
    protocol::PartData data = PartDataOf("a");
    Type(data, "Weighed").mass = mass;
    const auto reply = other->Execute(protocol::kCommandSavePart, protocol::WritePartData(data));
    ASSERT_TRUE(reply.Ok()) << reply.Failure().message;
  }

  protocol::History HistoryOf(const std::string& part, int before = 0, int limit = 100) {
    const auto history = protocol::ReadHistory(
        Run(protocol::kCommandHistory, protocol::WriteHistoryRequest({part, before, limit})));
    EXPECT_TRUE(history.Ok()) << history.Failure().message;
    return history.Ok() ? history.Value() : protocol::History{};
  }

  /// Everything that is stored of "a", as a text.
  std::string StoredText() { return protocol::WritePartData(PartDataOf("a")); }
};

}  // namespace lumira::test
