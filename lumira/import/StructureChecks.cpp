#include "lumira/import/StructureChecks.h"

#include <algorithm>
#include <string>
#include <unordered_map>
#include <unordered_set>

#include "protocol/Utf8.h"

namespace lumira {
namespace {

// Walks down from every part, without recursion since a structure may be deep.
class CycleSearch {
 public:
  CycleSearch(const StructureRows& structure, ImportLog& log)
      : _structure(structure), _rows(structure.rows), _log(log) {
    for (std::size_t i = 0; i < _rows.size(); ++i) _below[_rows[i].instance.parent].push_back(i);
  }

  void Run() {
    for (const InstanceRow& row : _rows)
      if (!_states.contains(row.instance.parent)) WalkFrom(row.instance.parent);
  }

 private:
  enum class State { OnTheWay, Done };
  struct Step {
    std::string part;
    std::size_t next = 0;
  };

  void WalkFrom(const std::string& start) {
    Enter(start);
    while (!_way.empty()) {
      Step& step = _way.back();
      const auto below = _below.find(step.part);
      if (below == _below.end() || step.next == below->second.size()) {
        _states[step.part] = State::Done;
        _way.pop_back();
        continue;
      }
      Visit(_rows[below->second[step.next++]]);
    }
  }

  void Visit(const InstanceRow& row) {
    const auto state = _states.find(row.instance.child);
    if (state == _states.end())
      Enter(row.instance.child);
    else if (state->second == State::OnTheWay)
      ReportCycle(row);
  }

  void Enter(const std::string& part) {
    _states[part] = State::OnTheWay;
    _way.push_back({part, 0});
  }

  void ReportCycle(const InstanceRow& row) {
    const auto first =
        std::find_if(_way.begin(), _way.end(), [&](auto& s) { return s.part == row.instance.child; });
    std::string chain;
    for (auto step = first; step != _way.end(); ++step) chain += step->part + " > ";
    _log.Error(_structure.ChildOf(row),
               "part " + protocol::Quoted(row.instance.child) + " would contain itself: " + chain +
                   row.instance.child,
               protocol::ErrorKind::Conflict);
  }

  const StructureRows& _structure;
  const std::vector<InstanceRow>& _rows;
  ImportLog& _log;
  std::unordered_map<std::string, std::vector<std::size_t>> _below;  ///< rows by parent
  std::unordered_map<std::string, State> _states;
  std::vector<Step> _way;
};

}  // namespace

void CheckCycles(const StructureRows& structure, ImportLog& log) { CycleSearch(structure, log).Run(); }

std::vector<const InstanceRow*> FindRoots(const std::vector<InstanceRow>& rows) {
  std::unordered_set<std::string> taken;
  for (const InstanceRow& row : rows) taken.insert(row.instance.child);
  std::vector<const InstanceRow*> roots;
  for (const InstanceRow& row : rows)
    if (taken.insert(row.instance.parent).second) roots.push_back(&row);
  return roots;
}

}  // namespace lumira
