#include "desktop/app/ProductTreeModel.h"

#include <QApplication>
#include <QFont>
#include <QMimeData>
#include <QPalette>
#include <algorithm>
#include <array>

#include "desktop/app/Icons.h"
#include "desktop/app/OccurrenceMime.h"
#include "desktop/app/PdmCommands.h"
#include "desktop/app/Quantities.h"
#include "desktop/app/StatusTexts.h"
#include "desktop/app/Texts.h"
#include "desktop/toolkit/QtText.h"

namespace desktop {
namespace {

constexpr int kPage = 10'000;  ///< lines in one reply

constexpr std::array kColumnKeys{"Tree.Name", "Tree.Instance", "Tree.Quantity", "Tree.Mass", "Tree.Status"};

/// Whether two lines stand for the same occurrence; what is known of it may differ.
bool IsSamePlace(const protocol::TreeNode& a, const protocol::TreeNode& b) {
  return a.instanceId == b.instanceId && a.partId == b.partId && a.hasChildren == b.hasChildren;
}

QString NameOf(const protocol::TreeNode& line) { return ToQt(line.name.empty() ? line.partId : line.name); }

QString CellText(const protocol::TreeNode& line, int column) {
  switch (column) {
    case ProductTreeModel::Name:
      return NameOf(line);
    case ProductTreeModel::Instance:
      return ToQt(line.instanceId);
    case ProductTreeModel::Quantity:
      return QString::number(line.quantity);
    case ProductTreeModel::Mass:
      return line.mass ? ShowMass(*line.mass) : QString();
    case ProductTreeModel::Status:
      return StatusText(line.computedStatus);
    default:
      return {};
  }
}

QVariant CellIcon(const protocol::TreeNode& line, int column) {
  if (column == ProductTreeModel::Name) return line.hasChildren ? icons::Assembly() : icons::Part();
  if (column == ProductTreeModel::Status) return icons::Lamp(StatusColour(line.computedStatus));
  return {};
}

/// How a line that does not take part in full is told from the others.
QVariant MarkedColour(FilterMarks::Mark mark) {
  if (mark != FilterMarks::Mark::LeftOut) return {};
  return QApplication::palette().brush(QPalette::Disabled, QPalette::Text);
}

QVariant MarkedFont(FilterMarks::Mark mark) {
  if (mark != FilterMarks::Mark::Partly) return {};
  QFont font;
  font.setItalic(true);
  return font;
}

QString TextOf(FilterMarks::Mark mark) {
  switch (mark) {
    case FilterMarks::Mark::Partly:
      return Text("Tree.Partly");
    case FilterMarks::Mark::LeftOut:
      return Text("Tree.LeftOut");
    case FilterMarks::Mark::TakesPart:
      break;
  }
  return {};
}

bool IsNumber(int column) { return column == ProductTreeModel::Quantity || column == ProductTreeModel::Mass; }

}  // namespace

struct ProductTreeModel::Node {
  Node* parent = nullptr;
  int row = 0;
  std::string product;  ///< of a top line
  protocol::TreeNode line;
  bool asked = false;  ///< the children are known, or could not be asked for
  std::vector<std::unique_ptr<Node>> children;
};

ProductTreeModel::ProductTreeModel(QObject* parent)
    : QAbstractItemModel(parent), _root(std::make_unique<Node>()) {
  _root->asked = true;
}

ProductTreeModel::~ProductTreeModel() = default;

protocol::Result<void> ProductTreeModel::Reload() {
  const auto products = GetProducts();
  beginResetModel();
  _root->children.clear();
  if (products)
    for (const protocol::ProductEntry& product : products.Value().products) {
      auto node = std::make_unique<Node>();
      node->parent = _root.get();
      node->row = static_cast<int>(_root->children.size());
      node->product = product.product;
      node->line = product.root;
      _root->children.push_back(std::move(node));
    }
  endResetModel();
  if (!products) return products.Failure();
  return {};
}

protocol::Result<void> ProductTreeModel::RefreshValues() {
  const auto products = GetProducts();
  if (!products) return products.Failure();
  for (const auto& top : _root->children)
    for (const protocol::ProductEntry& product : products.Value().products)
      if (product.product == top->product) top->line = product.root;
  protocol::Result<void> refreshed;
  for (const auto& top : _root->children)
    if (refreshed) refreshed = RefreshBelow(*top);
  RefreshTexts();
  return refreshed;
}

void ProductTreeModel::RefreshTexts() {
  // Views repaint what is visible, whatever the range.
  if (!_root->children.empty()) Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, ColumnCount - 1));
  Q_EMIT headerDataChanged(Qt::Horizontal, 0, ColumnCount - 1);
}

protocol::Result<void> ProductTreeModel::RefreshBelow(Node& node) {
  if (!node.asked || node.children.empty()) return {};
  const auto asked = AskForChildren(node);
  if (!asked) return asked.Failure();
  const auto& lines = asked.Value();
  const bool same =
      std::equal(lines.begin(), lines.end(), node.children.begin(), node.children.end(),
                 [](const auto& line, const auto& child) { return IsSamePlace(line, child->line); });
  if (!same) {
    Forget(node);
    return {};
  }
  for (std::size_t i = 0; i < lines.size(); ++i) node.children[i]->line = lines[i];
  Q_EMIT dataChanged(IndexOf(*node.children.front()), IndexOf(*node.children.back()).siblingAtColumn(Status));
  for (const auto& child : node.children)
    if (auto below = RefreshBelow(*child); !below) return below;
  return {};
}

void ProductTreeModel::Forget(Node& parent) {
  beginRemoveRows(IndexOf(parent), 0, static_cast<int>(parent.children.size()) - 1);
  parent.children.clear();
  parent.asked = false;
  endRemoveRows();
}

protocol::Result<std::vector<protocol::TreeNode>> ProductTreeModel::AskForChildren(const Node& node) const {
  std::vector<protocol::TreeNode> lines;
  for (;;) {
    const auto reply = GetChildren({node.line.partId, static_cast<int>(lines.size()), kPage});
    if (!reply) return reply.Failure();
    const auto& page = reply.Value().nodes;
    lines.insert(lines.end(), page.begin(), page.end());
    if (page.empty() || static_cast<int>(lines.size()) >= reply.Value().total) return lines;
  }
}

void ProductTreeModel::Insert(Node& parent, std::vector<protocol::TreeNode> lines) {
  if (lines.empty()) return;
  beginInsertRows(IndexOf(parent), 0, static_cast<int>(lines.size()) - 1);
  parent.children.reserve(lines.size());
  for (protocol::TreeNode& line : lines) {
    auto node = std::make_unique<Node>();
    node->parent = &parent;
    node->row = static_cast<int>(parent.children.size());
    node->line = std::move(line);
    parent.children.push_back(std::move(node));
  }
  endInsertRows();
}

void ProductTreeModel::MarkFilter(const std::string& product, FilterMarks marks) {
  _markedProduct = product;
  _marks = std::move(marks);
  RefreshTexts();
}

OccurrenceKey ProductTreeModel::KeyOf(const Node& node) const {
  OccurrenceKey key;
  const Node* one = &node;
  for (; one->parent && one->parent->parent; one = one->parent)
    key.instancePath.push_back(one->line.instanceId);
  std::reverse(key.instancePath.begin(), key.instancePath.end());
  key.product = one->product;
  return key;
}

OccurrencePlace ProductTreeModel::PlaceAt(const QModelIndex& index) const {
  OccurrenceKey key = KeyOf(NodeAt(index));
  OccurrencePlace place{std::move(key.product), std::move(key.instancePath), {}, NodeAt(index).line};
  for (const Node* node = &NodeAt(index); node->parent; node = node->parent)
    place.names.push_back(NameOf(node->line).toStdString());
  std::reverse(place.names.begin(), place.names.end());
  return place;
}

FilterMarks::Mark ProductTreeModel::MarkOf(const Node& node) const {
  const OccurrenceKey key = KeyOf(node);
  return key.product == _markedProduct ? _marks.Of(key.instancePath) : FilterMarks::Mark::TakesPart;
}

QString ProductTreeModel::FilterNoteAt(const QModelIndex& index) const {
  return TextOf(MarkOf(NodeAt(index)));
}

QString ProductTreeModel::TipOf(const Node& node) const {
  const protocol::TreeNode& line = node.line;
  const QString tip =
      Text("Tree.Tip", {ToQt(line.partId), ToQt(line.revision), StatusText(line.computedStatus)});
  const QString mark = TextOf(MarkOf(node));
  return mark.isEmpty() ? tip : tip + "\n" + mark;
}

QModelIndex ProductTreeModel::IndexOf(const std::string& product,
                                      const std::vector<std::string>& instancePath) {
  const auto child = [](Node& parent, auto fits) -> Node* {
    const auto found = std::find_if(parent.children.begin(), parent.children.end(),
                                    [&](const auto& one) { return fits(*one); });
    return found == parent.children.end() ? nullptr : found->get();
  };
  Node* node = child(*_root, [&](const Node& top) { return top.product == product; });
  for (const std::string& instance : instancePath) {
    if (!node) return {};
    if (const QModelIndex place = IndexOf(*node); canFetchMore(place)) fetchMore(place);
    node = child(*node, [&](const Node& one) { return one.line.instanceId == instance; });
  }
  return node ? IndexOf(*node) : QModelIndex();
}

std::string ProductTreeModel::ProductAt(const QModelIndex& index) const {
  const Node* node = index.isValid()           ? &NodeAt(index)
                     : _root->children.empty() ? nullptr
                                               : _root->children.front().get();
  while (node && node->parent && node->parent->parent) node = node->parent;
  return node ? node->product : std::string();
}

ProductTreeModel::Node& ProductTreeModel::NodeAt(const QModelIndex& index) const {
  return index.isValid() ? *static_cast<Node*>(index.internalPointer()) : *_root;
}

QModelIndex ProductTreeModel::IndexOf(const Node& node) const {
  return node.parent ? createIndex(node.row, 0, &node) : QModelIndex();
}

QModelIndex ProductTreeModel::index(int row, int column, const QModelIndex& parent) const {
  const Node& node = NodeAt(parent);
  if (row < 0 || row >= static_cast<int>(node.children.size()) || column < 0 || column >= ColumnCount)
    return {};
  if (parent.isValid() && parent.column() != 0) return {};
  return createIndex(row, column, node.children[static_cast<std::size_t>(row)].get());
}

QModelIndex ProductTreeModel::parent(const QModelIndex& child) const {
  return child.isValid() ? IndexOf(*NodeAt(child).parent) : QModelIndex();
}

int ProductTreeModel::rowCount(const QModelIndex& parent) const {
  return parent.column() > 0 ? 0 : static_cast<int>(NodeAt(parent).children.size());
}

bool ProductTreeModel::hasChildren(const QModelIndex& parent) const {
  if (parent.column() > 0) return false;
  const Node& node = NodeAt(parent);
  return node.asked ? !node.children.empty() : node.line.hasChildren;
}

bool ProductTreeModel::canFetchMore(const QModelIndex& parent) const {
  const Node& node = NodeAt(parent);
  return parent.column() <= 0 && !node.asked && node.line.hasChildren;
}

void ProductTreeModel::fetchMore(const QModelIndex& parent) {
  Node& node = NodeAt(parent);
  node.asked = true;
  if (auto lines = AskForChildren(node))
    Insert(node, std::move(lines).Value());
  else if (onError)
    onError(lines.Failure());
}

QVariant ProductTreeModel::data(const QModelIndex& index, int role) const {
  const Node& node = NodeAt(index);
  const protocol::TreeNode& line = node.line;
  switch (role) {
    case Qt::DisplayRole:
      return CellText(line, index.column());
    case Qt::DecorationRole:
      return CellIcon(line, index.column());
    case Qt::ToolTipRole:
      return TipOf(node);
    case Qt::AccessibleDescriptionRole:
      return TextOf(MarkOf(node));
    case Qt::ForegroundRole:
      return MarkedColour(MarkOf(node));
    case Qt::FontRole:
      return MarkedFont(MarkOf(node));
    case Qt::TextAlignmentRole:
      return IsNumber(index.column()) ? int(Qt::AlignRight | Qt::AlignVCenter)
                                      : int(Qt::AlignLeft | Qt::AlignVCenter);
    default:
      return {};
  }
}

Qt::ItemFlags ProductTreeModel::flags(const QModelIndex& index) const {
  const Qt::ItemFlags flags = QAbstractItemModel::flags(index);
  return index.isValid() ? flags | Qt::ItemIsDragEnabled : flags;
}

QStringList ProductTreeModel::mimeTypes() const { return OccurrenceMimeTypes(); }

QMimeData* ProductTreeModel::mimeData(const QModelIndexList& indexes) const {
  std::vector<OccurrenceKey> occurrences;
  for (const QModelIndex& index : indexes)
    if (index.isValid() && index.column() == 0) occurrences.push_back(KeyOf(NodeAt(index)));
  return DragOccurrences(occurrences).release();
}

QVariant ProductTreeModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section < 0 || section >= ColumnCount) return {};
  if (role == Qt::DisplayRole) return Text(kColumnKeys[static_cast<std::size_t>(section)]);
  if (role == Qt::TextAlignmentRole && IsNumber(section)) return int(Qt::AlignRight | Qt::AlignVCenter);
  return {};
}

}  // namespace desktop
