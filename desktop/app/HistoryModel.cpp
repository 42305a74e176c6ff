#include "desktop/app/HistoryModel.h"

#include <QDateTime>
#include <array>

#include "desktop/app/PdmCommands.h"
#include "desktop/app/Texts.h"
#include "desktop/toolkit/QtText.h"

namespace desktop {
namespace {

constexpr int kPage = 100;  ///< saves in one reply

constexpr std::array kColumnKeys{"History.Number", "History.Time", "History.User", "History.Changes"};

/// In the time of this place; as it came when it is no time.
QString LocalTime(const std::string& utc) {
  const QDateTime time = QDateTime::fromString(ToQt(utc), Qt::ISODate);
  return time.isValid() ? time.toLocalTime().toString("yyyy-MM-dd hh:mm:ss") : ToQt(utc);
}

QString CellText(const protocol::HistoryEntry& entry, int column) {
  switch (column) {
    case HistoryModel::Number:
      return QString::number(entry.number);
    case HistoryModel::Time:
      return LocalTime(entry.time);
    case HistoryModel::User:
      return ToQt(entry.user);
    case HistoryModel::Changes:
      return QString::number(entry.changeCount);
    default:
      return {};
  }
}

int Alignment(int column) {
  const bool number = column == HistoryModel::Number || column == HistoryModel::Changes;
  return int((number ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
}

}  // namespace

HistoryModel::HistoryModel(std::string part, QObject* parent)
    : QAbstractTableModel(parent), _part(std::move(part)) {}

protocol::Result<protocol::History> HistoryModel::Ask() const {
  return GetHistory({_part, _entries.empty() ? 0 : _entries.back().number, kPage});
}

void HistoryModel::Reload() {
  beginResetModel();
  _entries.clear();
  const auto page = Ask();
  _failed = !page;
  _total = page ? page.Value().total : 0;
  if (page) _entries = page.Value().entries;
  endResetModel();
  if (!page && onError) onError(page.Failure());
}

bool HistoryModel::canFetchMore(const QModelIndex& parent) const {
  return !parent.isValid() && !_failed && !_entries.empty() && _entries.back().number > 1;
}

void HistoryModel::fetchMore(const QModelIndex& parent) {
  if (!canFetchMore(parent)) return;
  const auto page = Ask();
  _failed = !page || page.Value().entries.empty();
  if (!page && onError) onError(page.Failure());
  if (_failed) return;
  const auto& more = page.Value().entries;
  beginInsertRows({}, rowCount(), rowCount() + static_cast<int>(more.size()) - 1);
  _entries.insert(_entries.end(), more.begin(), more.end());
  endInsertRows();
}

void HistoryModel::RefreshTexts() { Q_EMIT headerDataChanged(Qt::Horizontal, 0, ColumnCount - 1); }

int HistoryModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(_entries.size());
}

int HistoryModel::columnCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : ColumnCount; }

QVariant HistoryModel::data(const QModelIndex& index, int role) const {
  if (role == Qt::TextAlignmentRole) return Alignment(index.column());
  if (role != Qt::DisplayRole && role != Qt::ToolTipRole) return {};
  return CellText(_entries[static_cast<std::size_t>(index.row())], index.column());
}

QVariant HistoryModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section < 0 || section >= ColumnCount) return {};
  if (role == Qt::TextAlignmentRole) return Alignment(section);
  return role == Qt::DisplayRole ? Text(kColumnKeys[static_cast<std::size_t>(section)]) : QVariant();
}

}  // namespace desktop
