#pragma once

class QWidget;

namespace desktop {

/// Leaves the wheel to whoever scrolls past `input` unless it has the focus, which the wheel alone does not
/// give it. Without this a combo or spin box changes its value while the page around it is scrolled.
void KeepWheelToFocus(QWidget& input);

}  // namespace desktop
