#pragma once

#include <memory>

#include "desktop/toolkit/QtView.h"

namespace desktop {

/// Makes the view of a widget by its kind, its Qt widget below `parent` (null: a window of its own).
std::unique_ptr<QtView> MakeView(QtBackend& backend, KorDlgObject& widget, QWidget* parent);

}  // namespace desktop
