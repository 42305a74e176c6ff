#pragma once

#include <gtest/gtest.h>

#include <QPushButton>
#include <QTableView>
#include <QTableWidget>

#include "desktop/app/HistoryDialog.h"
#include "framework/knowledge/KorUnitSystems.h"
#include "tests/desktop/app/ScriptedTransport.h"
#include "tests/desktop/support/QtApplication.h"

namespace desktop::test {

inline std::string Cell(const QAbstractItemModel& model, int row, int column) {
  return model.index(row, column).data().toString().toStdString();
}

/// A row of the list of fields, cells joined by " | ".
inline std::string FieldRow(HistoryDialog& dialog, int row) {
  std::string cells;
  for (int column = 0; column < 3; ++column)
    cells += (column ? " | " : "") + Cell(*dialog.FieldList().model(), row, column);
  return cells;
}

/// The history of a part "p" as a scripted server tells it.
class HistoryDialogTest : public testing::Test {
 protected:
  HistoryDialogTest() {
    KorApplyUnitSystem("Mixed");
    dialog.onError = [this](const protocol::Error& error) { told.push_back(error.message); };
  }
  ~HistoryDialogTest() override { KorApplyUnitSystem("Mixed"); }

  /// A server with this history, and with part data for units of properties and kinds of bounds.
  void Serve(protocol::History history, protocol::PartData data = {}) {
    server.answer = [history, data](const std::string& command, const std::string& request) {
      if (command == "WBGetPartData") return protocol::WritePartData(data);
      const auto asked = protocol::ReadHistoryRequest(request).Value();
      protocol::History page{history.partId, history.total, {}};
      for (const protocol::HistoryEntry& entry : history.entries)
        if ((asked.before == 0 || entry.number < asked.before) &&
            static_cast<int>(page.entries.size()) < asked.limit)
          page.entries.push_back(entry);
      return protocol::WriteHistory(page);
    };
  }
  static protocol::History OneSave(std::vector<protocol::FieldChange> changes) {
    const int count = static_cast<int>(changes.size());
    return {"p", 1, {{1, "2024-05-01T12:30:00Z", "eva", count, std::move(changes)}}};
  }
  static protocol::History Saves(int count, const std::string& user = "eva") {
    protocol::History history{"p", count, {}};
    for (int number = count; number > 0; --number)
      history.entries.push_back({number, "2024-05-01T12:30:00Z", user, 0, {}});
    return history;
  }

  void Refuse(const std::string& why) {
    server.answer = [why](auto&...) { return protocol::ErrorReply(why); };
  }
  /// Lists all of so many saves, page by page.
  void ListAllOf(int count) {
    Serve(Saves(count));
    dialog.Reload();
    while (!dialog.MoreButton().isHidden()) dialog.MoreButton().click();
    ASSERT_EQ(dialog.Saves().rowCount(), count);
  }
  void Choose(int save) {
    const int row = dialog.Saves().Entries().front().number - save;
    dialog.SaveList().setCurrentIndex(dialog.Saves().index(row, 0));
  }
  std::string ChosenNumber() {
    return Cell(dialog.Saves(), dialog.SaveList().currentIndex().row(), HistoryModel::Number);
  }

  std::vector<std::string> told;  ///< messages of onError
  ScriptedTransport server;
  HistoryDialog dialog{"p", nullptr};
};

}  // namespace desktop::test
