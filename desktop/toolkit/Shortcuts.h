#pragma once

#include <QKeySequence>

#include "framework/dialog/KorDlgObject.h"

namespace desktop {

/// The keys that press a button, by its name; empty when it has none.
QKeySequence ShortcutOf(const KorDlgObject& button);

}  // namespace desktop
