#pragma once

namespace bench {

/// Memory bandwidth of one thread in bytes per second: the best of several runs of a[i] = b[i] + k·c[i] over
/// arrays far larger than the caches, 24 bytes counted per element (as STREAM does; J. D. McCalpin, 1995).
double TriadBytesPerSecond();

}  // namespace bench
