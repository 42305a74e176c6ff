#include <utility>

#include "lumira/commands/Commands.h"
#include "lumira/commands/ComputedMassType.h"
#include "lumira/commands/EmptyRequest.h"
#include "lumira/commands/WarningTexts.h"
#include "protocol/Codec.h"
#include "protocol/Utf8.h"

namespace lumira {
namespace {

using protocol::Error;
using protocol::ErrorKind;
using protocol::Result;

// What a computation of one part gives.
struct Computation {
  MassResult result;
  std::string fingerprint;  ///< none under a filter
  std::vector<Warning> warnings;
};

Result<Computation> Evaluate(const Rollup& rollup, const std::string& partId) {
  const auto result = rollup.ResultOf(partId);
  if (!result) return result.Failure();
  const auto fingerprint = rollup.FingerprintOf(partId);
  if (!fingerprint) return fingerprint.Failure();
  auto warnings = rollup.WarningsOf(partId);
  if (!warnings) return warnings.Failure();
  return Computation{result.Value(), ToText(fingerprint.Value()), std::move(warnings).Value()};
}

// Sums, deviations or bounds that overflow are no result; the numbers could not even be sent.
Result<void> CheckIsFinite(const Computation& computation, const std::string& partId) {
  for (const Warning& warning : computation.warnings)
    if (warning.kind == WarningKind::NotFinite)
      return Error{ErrorKind::BadValue, "part " + protocol::Quoted(partId) + ": " + ToWarning(warning).text};
  return {};
}

Result<Computation> EvaluateFiltered(OpenProduct& product, const protocol::Filter& filter,
                                     const std::string& partId) {
  const auto part = product.PartIndex(partId);
  if (!part) return part.Failure();
  const auto filtered = product.Under(filter);
  if (!filtered) return filtered.Failure();
  auto result = filtered.Value()->ResultOf(part.Value());
  if (!result) return result.Failure();
  return Computation{std::move(result.Value().result), {}, std::move(result.Value().warnings)};
}

void LeaveWarnings(Session& session, const Computation& computation) {
  for (const Warning& warning : computation.warnings) session.pending.warnings.push_back(ToWarning(warning));
}

// Results under a filter are not kept: up to date is a question about the whole product.
Result<void> KeepResult(Session& session, OpenProduct& product, const std::string& partId,
                        const Computation& computation) {
  StoredResult result{partId, computation.fingerprint, ToMassType(computation.result), product.State().data};
  const StoredResult* stored = product.ResultOf(partId);
  if (stored != nullptr && *stored == result) return {};
  const auto saved = session.store.SaveResults({result});
  if (saved) product.KeepSaved(std::move(result));
  return saved;
}

protocol::ComputeReply MakeReply(const std::string& partId, const MassResult& result) {
  protocol::ComputeReply reply{partId, ToWire(ToMassType(result), protocol::MassTypeStatus::Defined), {}, {}};
  // Masses that cancel have no centre to refer to, but what they bring into a larger sum is known. Masses of
  // which no single centre is known bring nothing that could be told.
  const Coverage& coverage = result.coverage;
  const bool someCentreIsKnown = coverage.withoutMass + coverage.withoutCg < coverage.items;
  if (!result.cg && someCentreIsKnown) {
    const auto& [s, j] = std::pair(result.firstMoment, result.inertiaAtOrigin);
    reply.firstMoment = ToWire(s);
    reply.inertiaAtOrigin = ToWire(j);
  }
  return reply;
}

Result<OpenProduct*> OpenFor(Session& session, const protocol::ComputeRequest& request) {
  auto product = session.products.OpenForPart(request.partId);
  if (!product || request.options.reuseStoredResults) return product;
  session.products.Forget(product.Value()->Data().id);
  return session.products.OpenForPart(request.partId);
}

}  // namespace

Result<std::string> ComputePart(Session& session, std::string_view text) {
  session.pending.warnings.clear();  // those of an earlier compute say nothing of this one, should it fail
  const auto request = protocol::ReadComputeRequest(text);
  if (!request) return request.Failure();
  const auto filter = protocol::ReadFilter(request.Value().options.filter);
  if (!filter) return filter.Failure();
  const auto product = OpenFor(session, request.Value());
  if (!product) return product.Failure();

  const std::string& partId = request.Value().partId;
  const bool isWhole = filter.Value().LetsAllPass();
  const auto computation = isWhole ? Evaluate(product.Value()->Computation().Value(), partId)
                                   : EvaluateFiltered(*product.Value(), filter.Value(), partId);
  if (!computation) return computation.Failure();
  if (const auto finite = CheckIsFinite(computation.Value(), partId); !finite) return finite.Failure();
  if (isWhole)
    if (const auto kept = KeepResult(session, *product.Value(), partId, computation.Value()); !kept)
      return kept.Failure();
  LeaveWarnings(session, computation.Value());
  return protocol::WriteComputeReply(MakeReply(partId, computation.Value().result));
}

Result<std::string> GetPendingWarnings(Session& session, std::string_view request) {
  if (const auto empty = CheckIsEmpty(request); !empty) return empty.Failure();
  return protocol::WritePendingWarnings(std::exchange(session.pending, {}));
}

}  // namespace lumira
