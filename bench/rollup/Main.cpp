#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "bench/rollup/Report.h"
#include "bench/rollup/Structures.h"
#include "bench/rollup/Triad.h"
#include "lumira/engine/Compile.h"
#include "lumira/engine/NodeRollup.h"
#include "lumira/engine/Rollup.h"

namespace {

using namespace bench;
using lumira::NodeRollup;
using lumira::ProductGraph;
using lumira::Spread;

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

void MeasureRollup(std::vector<Row>& rows, const std::string& name, const ProductGraph& graph, int runs,
                   unsigned threads = 1, Targets targets = {}) {
  for (const auto spread : {Spread::Ignore, Spread::Carry}) {
    NodeRollup rollup(Flatten(graph), spread, threads);
    const bool carry = spread == Spread::Carry;
    rows.push_back(RowOf(name + (threads > 1 ? ", two threads" : "") + (carry ? ", with covariance" : ""),
                         Times(runs, [&] { rollup.Compute(); }), BytesOf(rollup.Structure(), spread),
                         carry ? targets.withCovariance : targets.plain));
    std::fprintf(stderr, "measured: %s\n", rows.back().name.c_str());
  }
}

/// Through the front door, with names: one part gets other data, and the root's result is read.
void MeasureChange(std::vector<Row>& rows, const std::string& name, const ProductGraph& graph,
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
  rows.push_back(RowOf(name, times, 0.0, 1e-3));
  rows.push_back(RowOf("compile 1 M items from the stored product", {compileSeconds}));
  std::fprintf(stderr, "measured: %s\n", name.c_str());
}

std::vector<Row> MeasureAll(bool small) {
  constexpr std::uint32_t kMillion = 1'000'000;
  std::vector<Row> rows;
  const auto fewRotations = EightEach(kMillion, Rotations::OfSixtyFour);
  {
    const auto allDifferent = EightEach(kMillion, Rotations::AllDifferent);
    for (const unsigned threads : {1u, 2u}) {
      const Targets targets = threads == 2 ? Targets{15e-3, 60e-3} : Targets{};
      MeasureRollup(rows, "1 M items, eight each, 64 rotations", fewRotations, 41, threads, targets);
      MeasureRollup(rows, "1 M items, eight each, 1.1 M rotations", allDifferent, 41, threads, targets);
    }
  }
  MeasureRollup(rows, "0.5 M links in a chain (1 M occurrences)",
                Chain(kMillion / 2, Rotations::AllDifferent), 11);
  MeasureRollup(rows, "1 M occurrences of 16 shared items, 7 levels", Shared(7, 16, 4), 21);
  if (!small) {
    MeasureRollup(rows, "10 M items, eight each, 11 M rotations",
                  EightEach(10 * kMillion, Rotations::AllDifferent), 5);
    MeasureRollup(rows, "10 M items, eight each, 64 rotations",
                  EightEach(10 * kMillion, Rotations::OfSixtyFour), 5);
    MeasureRollup(rows, "5 M links in a chain (10 M occurrences)",
                  Chain(5 * kMillion, Rotations::OfSixtyFour), 5);
    MeasureRollup(rows, "10 M occurrences of 16 shared items, 8 levels", Shared(8, 16, 5), 21);
  }
  MeasureChange(rows, "one changed item of 1 M to the root's result", fewRotations, kMillion);
  return rows;
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
  const auto rows = MeasureAll(small);
  PrintTable(rows, triad);
  if (!json.empty() && !WriteJson(json, rows, triad)) {
    std::fprintf(stderr, "cannot write %s\n", json.c_str());
    return 1;
  }
  return 0;
}
