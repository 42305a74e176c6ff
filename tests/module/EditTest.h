#pragma once

#include <string>

#include "framework/dialog/KorDlgCombo.h"
#include "protocol/Codec.h"
#include "tests/module/PanelTest.h"

/// A test of the part panel in edit mode.
class EditTest : public PanelTest {
 protected:
  /// Opens a part, shows one of its mass types and presses "EditButton".
  void Edit(const protocol::PartData& part, const std::string& shownType = "Estimated") {
    Open(part);
    PickPage("TabPage003");
    Pick("MassTypeCombo", shownType);
    Press("EditButton");
  }
  /// Saves, which the server answers with the next state token, and gives what the server was sent.
  protocol::PartData Save(const std::string& reply = "SaveReply/1|P-100|8|end") {
    Server().Expect("WBSaveNymValues", reply);
    Press("SaveButton");
    return Sent();
  }
  /// The data of the last save.
  protocol::PartData Sent() {
    const auto read = protocol::ReadPartData(Server().Requests().back().text);
    EXPECT_TRUE(read.Ok()) << read.Failure().message;
    return read.Ok() ? read.Value() : protocol::PartData();
  }
  /// Mass type of a name in what was sent.
  static protocol::MassType TypeOf(const protocol::PartData& part, const std::string& name) {
    for (const protocol::MassType& type : part.massTypes)
      if (type.name == name) return type;
    ADD_FAILURE() << name << " is no mass type";
    return {};
  }
  void ExpectEnabled(const std::vector<std::string>& names, bool enabled) {
    for (const std::string& name : names) EXPECT_EQ(IsEnabled(name), enabled) << name;
  }
  std::vector<KorUnicodeString> Lines(const std::string& combo) { return As<KorDlgCombo>(combo).GetLines(); }

  /// The sample part whose computed values count as not modified: no products of inertia.
  static protocol::PartData PartWithoutProducts() {
    protocol::PartData part = SamplePart();
    part.massTypes[0].inertia = {10, 20, 30, 0, 0, 0};
    return part;
  }
};
