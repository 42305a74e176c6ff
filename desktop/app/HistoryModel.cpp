#include "desktop/app/HistoryModel.h"

#include <QDateTime>
#include <algorithm>
#include <array>
#include <limits>
#include <utility>

#include "desktop/app/PdmCommands.h"
#include "desktop/app/Texts.h"
#include "desktop/toolkit/QtText.h"
#include "protocol/Utf8.h"

namespace desktop {
namespace {

using protocol::HistoryEntry;
using protocol::Result;

constexpr int kPage = 100;  ///< saves in one reply

constexpr std::array kColumnKeys{"History.Number", "History.Time", "History.User", "History.Changes"};

/// In the time of this place; as it came when it is no time.
QString LocalTime(const std::string& utc) {
  const QDateTime time = QDateTime::fromString(ToQt(utc), Qt::ISODate);
  return time.isValid() ? time.toLocalTime().toString("yyyy-MM-dd hh:mm:ss") : ToQt(utc);
}

QString CellText(const HistoryEntry& entry, int column) {
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

bool HistoryModel::IsLatestKnown(const HistoryEntry& entry) const {
  if (_entries.empty()) return false;
  const HistoryEntry& latest = _entries.front();
  return entry.number == latest.number && entry.time == latest.time && entry.user == latest.user &&
         entry.changes == latest.changes;
}

/// Of a history of which nothing is known, the latest page.
Result<HistoryModel::Newer> HistoryModel::AskForNewer() const {
  const int latest = _entries.empty() ? std::numeric_limits<int>::max() : _entries.front().number;
  Newer newer;
  for (int before = 0;;) {
    const auto page = GetHistory({_part, before, kPage});
    if (!page) return page.Failure();
    if (before == 0) newer.total = page.Value().total;
    const auto& read = page.Value().entries;
    const auto known =
        std::find_if(read.begin(), read.end(), [this](const auto& entry) { return IsLatestKnown(entry); });
    newer.entries.insert(newer.entries.end(), read.begin(), known);
    newer.leadToKnown = known != read.end();
    if (newer.leadToKnown || read.empty() || read.back().number <= latest) return newer;
    before = read.back().number;
  }
}

bool HistoryModel::Refresh() {
  auto newer = AskForNewer();
  if (!newer) {
    Fail(newer.Failure());
    return false;
  }
  _failed = false;
  TakeIn(std::move(newer).Value());
  return true;
}

void HistoryModel::TakeIn(Newer newer) {
  _total = newer.total;
  if (!newer.leadToKnown) {
    beginResetModel();
    _entries = std::move(newer.entries);
    return endResetModel();
  }
  if (newer.entries.empty()) return;
  beginInsertRows({}, 0, static_cast<int>(newer.entries.size()) - 1);
  _entries.insert(_entries.begin(), newer.entries.begin(), newer.entries.end());
  endInsertRows();
}

void HistoryModel::Fail(const protocol::Error& error) {
  _failed = true;
  if (onError) onError(error);
}

/// A page that leaves a gap is of another history: the product has been replaced.
Result<protocol::History> HistoryModel::AskForOlder() const {
  const int last = _entries.back().number;
  auto page = GetHistory({_part, last, kPage});
  if (!page || (!page.Value().entries.empty() && page.Value().entries.front().number == last - 1))
    return page;
  return protocol::Error{protocol::ErrorKind::NotFound, "the server has no save " + std::to_string(last - 1) +
                                                            " of part " + protocol::Quoted(_part) +
                                                            " any more; open its history again"};
}

bool HistoryModel::canFetchMore(const QModelIndex& parent) const {
  return !parent.isValid() && !_failed && HasMore();
}

void HistoryModel::fetchMore(const QModelIndex& parent) {
  if (!canFetchMore(parent)) return;
  const auto page = AskForOlder();
  if (!page) return Fail(page.Failure());
  const auto& more = page.Value().entries;
  beginInsertRows({}, rowCount(), rowCount() + static_cast<int>(more.size()) - 1);
  _entries.insert(_entries.end(), more.begin(), more.end());
  endInsertRows();
}

void HistoryModel::AskForMore() {
  _failed = false;
  fetchMore();
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
