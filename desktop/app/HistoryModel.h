#pragma once

#include <QAbstractTableModel>
#include <functional>
#include <string>
#include <vector>

#include "protocol/Codec.h"

namespace desktop {

/// The saves of a part, the latest first. Asks the server for the next page when a view comes to the end of
/// what is known.
class HistoryModel : public QAbstractTableModel {
 public:
  enum Column { Number, Time, User, Changes, ColumnCount };

  explicit HistoryModel(std::string part, QObject* parent = nullptr);

  /// Saves could not be read. A view asks for none again before Refresh() or AskForMore() did.
  std::function<void(const protocol::Error&)> onError;

  /// Asks for the latest saves. Rows that are known stay, with the new ones before them, unless the server
  /// has another history of the part by now. False, with all as it was, when it could not be read.
  bool Refresh();
  /// Asks for the next page, also after one that could not be read.
  void AskForMore();
  /// Shows titles anew, after a change of language.
  void RefreshTexts();

  const std::string& Part() const { return _part; }
  /// Saves of the part, known here or not.
  int Total() const { return _total; }
  /// The known ones, the latest first.
  const std::vector<protocol::HistoryEntry>& Entries() const { return _entries; }
  /// Whether nothing is known because the server could not be asked.
  bool IsUnread() const { return _failed && _entries.empty(); }
  bool HasMore() const { return !_entries.empty() && _entries.back().number > 1; }

  bool canFetchMore(const QModelIndex& parent = {}) const override;
  void fetchMore(const QModelIndex& parent = {}) override;
  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  /// Saves that the server has beyond the known ones, or all that it told when they do not lead to those.
  struct Newer {
    int total = 0;
    std::vector<protocol::HistoryEntry> entries;
    bool leadToKnown = false;
  };

  protocol::Result<Newer> AskForNewer() const;
  protocol::Result<protocol::History> AskForOlder() const;
  bool IsLatestKnown(const protocol::HistoryEntry& entry) const;
  void TakeIn(Newer newer);
  void Fail(const protocol::Error& error);

  std::string _part;
  std::vector<protocol::HistoryEntry> _entries;
  int _total = 0;
  bool _failed = false;  ///< the last time that the server was asked
};

}  // namespace desktop
