#include "desktop/app/FilterInForce.h"

#include <algorithm>
#include <utility>

#include "desktop/app/PdmCommands.h"
#include "desktop/app/Texts.h"
#include "desktop/commands/KorWBCommands.h"
#include "desktop/toolkit/QtText.h"
#include "protocol/Codec.h"
#include "protocol/Constants.h"

namespace desktop {
namespace {

constexpr std::size_t kMostNamed = 10;  ///< instances that a tooltip names

void ForgetValues(protocol::MassType& type) {
  type.status = protocol::MassTypeStatus::Undefined;
  type.mass.reset();
  type.cg.reset();
  type.inertia.reset();
  type.lowerDeviation = type.upperDeviation = 0;
}

}  // namespace

FilterInForce::FilterInForce(const KorWBCommands* commands, const std::string& product) : _product(product) {
  if (!commands) return;
  _name = ToQt(commands->GetDisplayFilter(product));
  _text = commands->GetFilter(product);
  auto read = protocol::ReadFilter(_text.Utf8());
  if (read) {
    _filter = std::move(read).Value();
  } else {
    _filter.name = FromQt(_name).Utf8();  // the text may be of any length
    _unreadable = ToQt(read.Failure().message);
  }
}

bool FilterInForce::Follow(const KorWBCommands* commands, const std::string& product) {
  if (IsInForce(commands, product)) return false;
  const FilterInForce before = std::exchange(*this, FilterInForce(commands, product));
  return *this != before;
}

bool FilterInForce::IsInForce(const KorWBCommands* commands, const std::string& product) const {
  return commands && product == _product && _name == ToQt(commands->GetDisplayFilter(product)) &&
         _text == commands->GetFilter(product);
}

QString FilterInForce::Meaning(const protocol::TreeNode& root) const {
  if (!_unreadable.isEmpty()) return Text("Filter.Unreadable", {_name, _unreadable});
  if (LetsAllPass()) return Text("Filter.All");
  return _filter.kind == protocol::Filter::Kind::User ? MeaningOfInstances() : MeaningOfConfiguration(root);
}

QString FilterInForce::MeaningOfConfiguration(const protocol::TreeNode& root) const {
  const auto filters = GetConfigFilters({{root.partId}, {_product}});
  if (!filters) return Text("Filter.Unknown", {ToQt(_filter.name), ToQt(filters.Failure().message)});
  const auto& known = filters.Value().filters;
  const auto found = std::find_if(known.begin(), known.end(),
                                  [this](const auto& filter) { return filter.name == _filter.name; });
  return found == known.end() ? Text("Filter.Gone", {ToQt(_filter.name)})
                              : Text("Filter.Configuration", {ToQt(found->name), ToQt(found->summary)});
}

QString FilterInForce::MeaningOfInstances() const {
  QStringList lines{Text("Filter.Instances")};
  const std::size_t named = std::min(_filter.rows.size(), kMostNamed);
  for (std::size_t i = 0; i < named; ++i)
    lines << Text("Filter.Instance", {ToQt(_filter.rows[i].instanceId), ToQt(_filter.rows[i].partId)});
  if (named < _filter.rows.size())
    lines << Text("Filter.More", {QString::number(_filter.rows.size() - named)});
  return lines.join('\n');
}

std::string FilterInForce::PartDataFor(const std::string& partDataText) const {
  auto data = protocol::ReadPartData(partDataText);
  if (LetsAllPass() || !data) return partDataText;
  data.Value().computed = false;
  data.Value().persisted = data.Value().massTypes.size() > 1;  // what users have stored stays
  for (protocol::MassType& type : data.Value().massTypes)
    if (type.name == protocol::kComputed) ForgetValues(type);
  return protocol::WritePartData(data.Value());
}

}  // namespace desktop
