#include "benchmarks/support/Report.h"

#include <algorithm>
#include <cstdio>
#include <fstream>

namespace bench {
namespace {

double Ratio(const Row& row) { return row.base > 0.0 ? row.median / row.base : 0.0; }

}  // namespace

Row RowOf(std::string name, std::vector<double> times, double base, double target) {
  std::ranges::sort(times);
  return {std::move(name), times[times.size() / 2], times.front(), times.back(), base, target};
}

void PrintTable(const Report& report) {
  std::printf("ratio: %s\n\n", report.ratioMeaning.c_str());
  std::printf("%-58s %10s %10s %10s %8s %10s\n", "", "median ms", "best ms", "worst ms", "ratio",
              "target ms");
  for (const Row& row : report.rows) {
    std::printf("%-58s %10.3f %10.3f %10.3f", row.name.c_str(), row.median * 1e3, row.best * 1e3,
                row.worst * 1e3);
    row.base > 0.0 ? std::printf(" %8.2f", Ratio(row)) : std::printf(" %8s", "");
    if (row.target > 0.0)
      std::printf(" %10.3f %s", row.target * 1e3, row.median <= row.target ? "met" : "MISSED");
    std::printf("\n");
  }
}

bool WriteJson(const std::string& path, const Report& report) {
  std::ofstream out(path);
  out.precision(6);
  out << "{\n  \"ratio\": \"" << report.ratioMeaning << "\",\n  \"rows\": [";
  const char* separator = "\n";
  for (const Row& row : report.rows) {
    out << separator << "    {\"name\": \"" << row.name << "\", \"median_s\": " << row.median
        << ", \"best_s\": " << row.best << ", \"worst_s\": " << row.worst << ", \"ratio\": " << Ratio(row)
        << ", \"target_s\": " << row.target << "}";
    separator = ",\n";
  }
  out << "\n  ]\n}\n";
  return static_cast<bool>(out.flush());
}

int Finish(const Report& report, const std::string& jsonPath) {
  PrintTable(report);
  if (jsonPath.empty() || WriteJson(jsonPath, report)) return 0;
  std::fprintf(stderr, "cannot write %s\n", jsonPath.c_str());
  return 1;
}

}  // namespace bench
