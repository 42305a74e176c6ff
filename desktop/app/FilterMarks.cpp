#include "desktop/app/FilterMarks.h"

namespace desktop {

FilterMarks::FilterMarks(const protocol::Filter& filter) {
  for (const protocol::FilterRow& row : filter.rows) {
    Path path = row.path;
    path.push_back(row.instanceId);
    _chosen.insert(path);
    while (!path.empty()) {
      path.pop_back();
      if (!_above.insert(path).second) break;  // then all above it are there, too
    }
  }
}

FilterMarks::Mark FilterMarks::Of(const std::vector<std::string>& instancePath) const {
  if (_chosen.empty()) return Mark::TakesPart;
  for (Path path = instancePath; !path.empty(); path.pop_back())
    if (_chosen.contains(path)) return Mark::TakesPart;
  return _above.contains(instancePath) ? Mark::Partly : Mark::LeftOut;
}

}  // namespace desktop
