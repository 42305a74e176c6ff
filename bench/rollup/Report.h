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

/// One line of the table.
struct Row {
  std::string name;
  double median = 0.0;  ///< s
  double best = 0.0;    ///< s
  double worst = 0.0;   ///< s
  double bytes = 0.0;   ///< read and written once; 0: not told
  double target = 0.0;  ///< s; 0: none
};

/// Runs `work` `runs` times after one run that does not count.
template <class Work>
std::vector<double> Times(int runs, Work work) {
  work();
  std::vector<double> times;
  for (int run = 0; run < runs; ++run) times.push_back(SecondsOf(work));
  return times;
}

Row RowOf(std::string name, std::vector<double> times, double bytes = 0.0, double target = 0.0);

/// "ratio": time in multiples of what the triad takes to move the same bytes.
void PrintTable(const std::vector<Row>& rows, double triadBytesPerSecond);
/// False when the file cannot be written.
bool WriteJson(const std::string& path, const std::vector<Row>& rows, double triadBytesPerSecond);

}  // namespace bench
