#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>

#include "benchmarks/filter/Instances.h"
#include "benchmarks/support/Report.h"
#include "module/filter_panel/KorWBNymNavFilterPanel.h"

namespace {

using namespace bench;
using Panel = KorWBNymNavFilterPanel;

constexpr int kInstances = 1'000'000;
constexpr int kFilterRows = 10'000;
constexpr int kSampled = 2'000;
constexpr double kTarget = 2.0;  // s, for all instances and what is prepared for them

bool Passes(const Instance& one) {
  return Panel::IsValid("TURBINE", one.id, one.part, one.version, one.depth, one.path);
}

// What IsValid is defined as.
bool OccursIn(const std::string& filter, const Instance& one) {
  return filter.find(one.id.Utf8() + "|" + one.part.Utf8() + "|" + one.version.Utf8() + "|" +
                     std::to_string(one.depth) + "|" + one.path.Utf8()) != filter.npos;
}

// Instances of the filter: half of them the bolts of few assemblies, half spread over the product.
std::vector<Instance> FilterRows(const std::vector<Instance>& instances) {
  std::vector<Instance> rows;
  for (std::size_t i = 0; rows.size() < kFilterRows / 2; i += 200) rows.push_back(instances[i]);
  for (std::size_t i = 1; rows.size() < kFilterRows; i += 199) rows.push_back(instances[i]);
  return rows;
}

void UseAsFilter(const std::vector<Instance>& rows) {
  Panel::selectedFilterOption = 0;
  Panel::selectedPRCID = "TURBINE";
  Panel::selectedPVSFilter = UserFilterOf(rows);
}

// Every so many instances, and as many of the filter's own.
std::vector<Instance> Sample(const std::vector<Instance>& instances, const std::vector<Instance>& rows) {
  std::vector<Instance> sample;
  for (int i = 0; i < kSampled / 2; ++i) {
    sample.push_back(instances[static_cast<std::size_t>(i) * (instances.size() / (kSampled / 2))]);
    sample.push_back(rows[static_cast<std::size_t>(i) * (rows.size() / (kSampled / 2))]);
  }
  return sample;
}

void RequireEqualAnswers(const std::vector<Instance>& sample) {
  const std::string& filter = Panel::selectedPVSFilter.Utf8();
  for (const Instance& one : sample) {
    if (Passes(one) == OccursIn(filter, one)) continue;
    std::fprintf(stderr, "IsValid and the plain search differ for %s of %s\n", one.id.ConvertToChar(),
                 one.part.ConvertToChar());
    std::exit(1);
  }
}

/// All instances against a user filter that is new to IsValid each time, so that its index is built each
/// time, beside what the plain search would take for them.
void MeasureIsValid(std::vector<Row>& rows, const std::string& name, Naming naming) {
  const std::vector<Instance> instances = MakeInstances(kInstances, naming);
  const std::vector<Instance> filter = FilterRows(instances);
  const std::vector<Instance> sample = Sample(instances, filter);
  UseAsFilter(filter);
  const std::string text = Panel::selectedPVSFilter.Utf8();
  RequireEqualAnswers(sample);

  rows.push_back(RowOf(name + ": a new filter and its first answer", Times(3, [&] {
                         UseAsFilter(filter);
                         KeepAlive(Passes(instances.back()));
                       })));
  rows.push_back(RowOf(name + ": a new filter and all answers",
                       Times(3,
                             [&] {
                               UseAsFilter(filter);
                               KeepAlive(std::ranges::count_if(instances, Passes));
                             }),
                       0.0, kTarget));
  const double all = rows.back().median;
  const double plain = SecondsOf([&] {
    KeepAlive(std::ranges::count_if(sample, [&](const Instance& one) { return OccursIn(text, one); }));
  });
  rows.push_back(RowOf(name + ": plain search, from a sample of 2000", {plain * kInstances / kSampled}, all));
}

/// The time that each ten thousand of a hundred thousand added rows take.
std::vector<double> FillingTimes(Panel& panel, const std::vector<Instance>& instances) {
  std::vector<double> times;
  for (auto part = instances.begin(); part != instances.end(); part += 10'000)
    times.push_back(SecondsOf([&] {
      std::for_each(part, part + 10'000, [&](const Instance& one) {
        panel.AddValuesInMultiList(one.id, one.part, one.version, one.path, one.depth);
      });
    }));
  return times;
}

void MeasureFilling(std::vector<Row>& rows) {
  const std::vector<Instance> instances = MakeInstances(100'000, Naming::ByPart);
  std::vector<double> firsts, lasts;
  for (int run = 0; run < 5; ++run) {
    Panel panel;
    panel.Build();
    const std::vector<double> times = FillingTimes(panel, instances);
    firsts.push_back(times.front());
    lasts.push_back(times.back());
  }
  rows.push_back(RowOf("filter list: the first 10000 of 100000 rows", firsts));
  const double first = rows.back().median;
  rows.push_back(RowOf("filter list: the last 10000", lasts, first));
}

}  // namespace

/// bench_filter [--json FILE]
int main(int count, char** arguments) {
  if (count != 1 && !(count == 3 && std::string_view(arguments[1]) == "--json")) {
    std::fprintf(stderr, "usage: bench_filter [--json FILE]\n");
    return 2;
  }
  std::vector<Row> rows;
  MeasureFilling(rows);
  MeasureIsValid(rows, "named by part", Naming::ByPart);
  MeasureIsValid(rows, "named by number", Naming::ByNumber);
  return Finish({"plain search: in multiples of all answers; last rows: of the first rows", rows},
                count == 3 ? arguments[2] : "");
}
