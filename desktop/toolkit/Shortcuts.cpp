#include "desktop/toolkit/Shortcuts.h"

#include <algorithm>
#include <iterator>

namespace desktop {
namespace {

struct Shortcut {
  const char* button;
  const char* keys;
};

constexpr Shortcut kShortcuts[] = {
    {"ComputeButton", "F5"},          {"EditButton", "F2"},
    {"SaveButton", "Ctrl+S"},         {"CloseButton", "Ctrl+W"},
    {"RemoveCriterionButton", "Del"}, {"ClearAllCriteriaButton", "Ctrl+Del"},
};

}  // namespace

QKeySequence ShortcutOf(const KorDlgObject& button) {
  const auto shortcut = std::find_if(std::begin(kShortcuts), std::end(kShortcuts),
                                     [&](const Shortcut& one) { return button.Name() == one.button; });
  return shortcut == std::end(kShortcuts) ? QKeySequence() : QKeySequence(shortcut->keys);
}

}  // namespace desktop
