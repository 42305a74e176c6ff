#pragma once

#include <chrono>
#include <string>
#include <vector>

namespace bench {

/// Wall time of one call, s.
template <class Work>
double SecondsOf(Work work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

/// Keeps the compiler from leaving out what computes the value.
template <class Value>
void KeepAlive(const Value& value) {
  asm volatile("" : : "g"(&value) : "memory");
}

/// Runs `work` `runs` times after one run that does not count; the wall time of each, s.
template <class Work>
std::vector<double> Times(int runs, Work work) {
  work();
  std::vector<double> times;
  for (int run = 0; run < runs; ++run) times.push_back(SecondsOf(work));
  return times;
}

/// One line of a table.
struct Row {
  std::string name;
  double median = 0.0;  ///< s
  double best = 0.0;    ///< s
  double worst = 0.0;   ///< s
  double base = 0.0;    ///< s, what `median` is compared with; 0: nothing
  double target = 0.0;  ///< s; 0: none
};

Row RowOf(std::string name, std::vector<double> times, double base = 0.0, double target = 0.0);

/// A table and what its column "ratio" compares with.
struct Report {
  std::string ratioMeaning;
  std::vector<Row> rows;
};

void PrintTable(const Report& report);
/// False when the file cannot be written.
bool WriteJson(const std::string& path, const Report& report);

/// Ends a benchmark program: prints the table and, when `jsonPath` is not empty, writes it. The exit code.
int Finish(const Report& report, const std::string& jsonPath);

}  // namespace bench
