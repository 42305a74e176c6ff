#include "lumira/commands/Findings.h"

#include <algorithm>

#include "lumira/commands/Commands.h"
#include "lumira/commands/EmptyRequest.h"
#include "protocol/Codec.h"
#include "protocol/Utf8.h"

namespace lumira {
namespace {

using protocol::Quoted;
using protocol::Result;
using protocol::Severity;

class Findings {
 public:
  explicit Findings(Store& store) : _store(store) {}

  protocol::PendingWarnings Collect() {
    const auto products = _store.Products();
    if (!products)
      Add(Severity::Error, products.Failure().message);
    else
      for (const ProductInfo& info : products.Value()) Look(info);
    return std::move(_findings);
  }

 private:
  void Look(const ProductInfo& info) {
    _whose = info.id.empty() ? "A product" : "Product " + Quoted(info.id);
    if (info.damage) return CannotBeRead(*info.damage);
    if (const auto root = _store.LoadRoot(info.id); !root) return CannotBeRead(root.Failure());
    LookAtFilters(info.id);
    const auto survey = _store.Survey(info.id);
    if (!survey) return CannotBeRead(survey.Failure());
    for (const std::string& note : survey.Value().notes) Add(Severity::Warning, _whose + ": " + note + ".");
    if (!survey.Value().hasMassData) Add(Severity::Warning, _whose + " has no mass data at all.");
    if (const auto older = survey.Value().olderResults; older > 0)
      Add(Severity::Warning,
          _whose + " has changed after " +
              (older == 1 ? "a result was computed; it may be out of date."
                          : std::to_string(older) + " results were computed; they may be out of date."));
  }

  void LookAtFilters(const std::string& product) {
    const auto filters = _store.LoadFilters(product);
    if (!filters) return CannotBeRead(filters.Failure());
    const auto handler = _store.LoadHandler(product);
    if (!handler) return CannotBeRead(handler.Failure());
    const auto& all = filters.Value();
    const bool isThere = !handler.Value() || std::any_of(all.begin(), all.end(), [&](const auto& filter) {
      return filter.name == *handler.Value();
    });
    if (!isThere)
      Add(Severity::Warning, _whose + " has the configuration filter " + Quoted(*handler.Value()) +
                                 " set, but there is none of that name.");
  }

  void CannotBeRead(const protocol::Error& error) {
    Add(Severity::Error, _whose + " cannot be read: " + error.message);
  }

  void Add(Severity severity, std::string text) { _findings.warnings.push_back({severity, std::move(text)}); }

  Store& _store;
  std::string _whose;
  protocol::PendingWarnings _findings;
};

}  // namespace

protocol::PendingWarnings CollectFindings(Store& store) { return Findings(store).Collect(); }

Result<std::string> GetFindings(Session& session, std::string_view request) {
  if (const auto empty = CheckIsEmpty(request); !empty) return empty.Failure();
  return protocol::WritePendingWarnings(session.findings);
}

}  // namespace lumira
