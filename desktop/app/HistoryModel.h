#pragma once

#include <QAbstractTableModel>
#include <functional>

#include "protocol/Codec.h"

namespace desktop {

/// The saves of a part, the latest first. Asks the server for the next page when a view comes to the end of
/// what is known.
class HistoryModel : public QAbstractTableModel {
 public:
  enum Column { Number, Time, User, Changes, ColumnCount };

  explicit HistoryModel(std::string part, QObject* parent = nullptr);

  /// A page could not be read; none is asked for again until Reload().
  std::function<void(const protocol::Error&)> onError;

  /// Forgets what is known and asks for the first page.
  void Reload();
  /// Shows titles anew, after a change of language.
  void RefreshTexts();

  const std::string& Part() const { return _part; }
  /// Saves of the part, known here or not.
  int Total() const { return _total; }
  /// The known ones, the latest first.
  const std::vector<protocol::HistoryEntry>& Entries() const { return _entries; }

  bool canFetchMore(const QModelIndex& parent = {}) const override;
  void fetchMore(const QModelIndex& parent = {}) override;
  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  protocol::Result<protocol::History> Ask() const;

  std::string _part;
  std::vector<protocol::HistoryEntry> _entries;
  int _total = 0;
  bool _failed = false;
};

}  // namespace desktop
