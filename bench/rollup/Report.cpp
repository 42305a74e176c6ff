#include "bench/rollup/Report.h"

#include <algorithm>
#include <cstdio>
#include <fstream>

namespace bench {
namespace {

double Ratio(const Row& row, double triad) { return row.bytes > 0.0 ? row.median * triad / row.bytes : 0.0; }

}  // namespace

Row RowOf(std::string name, std::vector<double> times, double bytes, double target) {
  std::ranges::sort(times);
  return {std::move(name), times[times.size() / 2], times.front(), times.back(), bytes, target};
}

void PrintTable(const std::vector<Row>& rows, double triad) {
  std::printf("memory triad, one thread: %.1f GB/s\n\n", triad * 1e-9);
  std::printf("%-66s %10s %10s %10s %9s %7s %10s\n", "", "median ms", "best ms", "worst ms", "MB", "ratio",
              "target ms");
  for (const auto& row : rows) {
    std::printf("%-66s %10.3f %10.3f %10.3f", row.name.c_str(), row.median * 1e3, row.best * 1e3,
                row.worst * 1e3);
    row.bytes > 0.0 ? std::printf(" %9.1f %7.2f", row.bytes * 1e-6, Ratio(row, triad))
                    : std::printf(" %9s %7s", "", "");
    if (row.target > 0.0)
      std::printf(" %10.3f %s", row.target * 1e3, row.median <= row.target ? "met" : "MISSED");
    std::printf("\n");
  }
}

bool WriteJson(const std::string& path, const std::vector<Row>& rows, double triad) {
  std::ofstream out(path);
  out.precision(6);
  out << "{\n  \"triad_bytes_per_second\": " << triad << ",\n  \"rows\": [";
  const char* separator = "\n";
  for (const auto& row : rows) {
    out << separator << "    {\"name\": \"" << row.name << "\", \"median_s\": " << row.median
        << ", \"best_s\": " << row.best << ", \"worst_s\": " << row.worst << ", \"bytes\": " << row.bytes
        << ", \"ratio_to_triad\": " << Ratio(row, triad) << ", \"target_s\": " << row.target << "}";
    separator = ",\n";
  }
  out << "\n  ]\n}\n";
  return static_cast<bool>(out.flush());
}

}  // namespace bench
