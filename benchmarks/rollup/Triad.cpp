#include "benchmarks/rollup/Triad.h"

#include <algorithm>
#include <cstddef>

#include "benchmarks/support/Report.h"
#include "lumira/engine/LargeMemory.h"

namespace bench {

double TriadBytesPerSecond() {
  constexpr std::size_t kCount = std::size_t{32} << 20;  // 256 MiB per array
  lumira::LargeVector<double> a(kCount, 0.0), b(kCount, 1.0), c(kCount, 2.0);
  double best = 1e9;
  for (int run = 0; run < 7; ++run) {
    const double k = run;
    best = std::min(best, SecondsOf([&] {
                      for (std::size_t i = 0; i < kCount; ++i) a[i] = b[i] + k * c[i];
                    }));
    KeepAlive(a[static_cast<std::size_t>(run)]);
  }
  return 24.0 * static_cast<double>(kCount) / best;
}

}  // namespace bench
