#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "benchmarks/rollup/Structures.h"
#include "benchmarks/rollup/Triad.h"
#include "benchmarks/support/Report.h"
#include "lumira/engine/Compile.h"
#include "lumira/engine/NodeRollup.h"
#include "lumira/engine/Rollup.h"

namespace {

using namespace bench;
using lumira::NodeRollup;
using lumira::ProductGraph;
using lumira::Spread;

/// The measurements so far, and the bandwidth that they are compared with.
struct Session {
  double triadBytesPerSecond = 0.0;
  std::vector<Row> rows;

  /// `bytes`: what one run reads and writes, each once; 0: not told.
  void Add(const std::string& name, std::vector<double> times, double bytes = 0.0, double target = 0.0) {
    rows.push_back(RowOf(name, std::move(times), bytes / triadBytesPerSecond, target));
    std::fprintf(stderr, "measured: %s\n", name.c_str());
  }
};

struct Targets {
  double plain = 0.0, withCovariance = 0.0;  ///< s
};

lumira::FlatStructure Flatten(const ProductGraph& graph) {
  const auto byParent = lumira::GroupByParent(graph);
  return {graph, byParent, lumira::OrderBottomUp(graph, byParent).order};
}

/// What one pass reads and writes, each byte once.
double BytesOf(const lumira::FlatStructure& flat, Spread spread) {
  const double nodes = flat.NodeCount();
  const double blocks = flat.LeafBegin()[flat.NodeCount()];
  const double edges = flat.EdgeBegin()[flat.NodeCount()];
  const double perNode = sizeof(lumira::NodeState) + 2 * sizeof(lumira::Coverage) + 8;
  double bytes = nodes * perNode + blocks * sizeof(lumira::LeafBlock) + edges * sizeof(lumira::NodeEdge) +
                 72.0 * flat.RotationCount();
  if (spread == Spread::Carry)
    bytes += blocks * sizeof(lumira::DeviationBlock) + nodes * sizeof(lumira::NodeCovariance);
  return bytes;
}

void MeasureRollup(Session& session, const std::string& name, const ProductGraph& graph, int runs,
                   unsigned threads = 1, Targets targets = {}) {
  for (const auto spread : {Spread::Ignore, Spread::Carry}) {
    NodeRollup rollup(Flatten(graph), spread, threads);
    const bool carry = spread == Spread::Carry;
    session.Add(name + (threads > 1 ? ", two threads" : "") + (carry ? ", with covariance" : ""),
                Times(runs, [&] { rollup.Compute(); }), BytesOf(rollup.Structure(), spread),
                carry ? targets.withCovariance : targets.plain);
  }
}

/// Through the front door, with names: one part gets other data, and the root's result is read.
void MeasureChange(Session& session, const std::string& name, const ProductGraph& graph,
                   std::uint32_t items) {
  auto product = AsProduct(graph);
  const std::string root = product.roots.front();
  double compileSeconds = 0.0;
  lumira::Rollup rollup = [&] {
    auto compiled = lumira::Compile(product);
    compileSeconds = SecondsOf([&] { compiled = lumira::Compile(product); });
    if (!compiled) {
      std::fprintf(stderr, "%s\n", compiled.Failure().message.c_str());
      std::exit(1);
    }
    return lumira::Rollup(std::move(compiled).Value());
  }();
  std::mt19937 random(7);
  std::vector<double> times;
  for (int i = 0; i < 2001; ++i) {
    auto& part = product.parts[random() % items];
    *part.massTypes[0].properties.mass += 1.0;
    times.push_back(SecondsOf([&] {
      if (!rollup.ChangePart(part)) std::abort();
      KeepAlive(rollup.ResultOf(root).Value().mass);
    }));
  }
  session.Add(name, times, 0.0, 1e-3);
  session.Add("compile 1 M items from the stored product", {compileSeconds});
}

std::vector<Row> MeasureAll(double triad, bool small) {
  constexpr std::uint32_t kMillion = 1'000'000;
  constexpr Targets targets{15e-3, 60e-3};
  Session session{triad, {}};
  const auto fewRotations = EightEach(kMillion, Rotations::OfSixtyFour);
  {
    const auto allDifferent = EightEach(kMillion, Rotations::AllDifferent);
    for (const unsigned threads : {1u, 2u}) {
      MeasureRollup(session, "1 M items, eight each, 64 rotations", fewRotations, 41, threads, targets);
      MeasureRollup(session, "1 M items, eight each, 1.1 M rotations", allDifferent, 41, threads, targets);
    }
  }
  MeasureRollup(session, "0.5 M links in a chain (1 M occurrences)",
                Chain(kMillion / 2, Rotations::AllDifferent), 11);
  MeasureRollup(session, "1 M occurrences of 16 shared items, 7 levels", Shared(7, 16, 4), 21);
  if (!small) {
    MeasureRollup(session, "10 M items, eight each, 11 M rotations",
                  EightEach(10 * kMillion, Rotations::AllDifferent), 5);
    MeasureRollup(session, "10 M items, eight each, 64 rotations",
                  EightEach(10 * kMillion, Rotations::OfSixtyFour), 5);
    MeasureRollup(session, "5 M links in a chain (10 M occurrences)",
                  Chain(5 * kMillion, Rotations::OfSixtyFour), 5);
    MeasureRollup(session, "10 M occurrences of 16 shared items, 8 levels", Shared(8, 16, 5), 21);
  }
  MeasureChange(session, "one changed item of 1 M to the root's result", fewRotations, kMillion);
  return std::move(session.rows);
}

}  // namespace

/// bench_rollup [--small] [--json FILE]
int main(int count, char** arguments) {
  bool small = false;
  std::string json;
  for (int i = 1; i < count; ++i) {
    if (std::strcmp(arguments[i], "--small") == 0) {
      small = true;
    } else if (std::strcmp(arguments[i], "--json") == 0 && i + 1 < count) {
      json = arguments[++i];
    } else {
      std::fprintf(stderr, "usage: bench_rollup [--small] [--json FILE]\n");
      return 2;
    }
  }
  const double triad = TriadBytesPerSecond();
  char meaning[96];
  std::snprintf(meaning, sizeof meaning,
                "time in multiples of the memory triad for the same bytes (%.1f GB/s, one thread)",
                triad * 1e-9);
  return Finish({meaning, MeasureAll(triad, small)}, json);
}
