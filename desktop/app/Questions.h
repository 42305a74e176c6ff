#pragma once

#include <QString>

#include "framework/dialog/KorDlgDialog.h"

namespace desktop {

/// The catalogue keys of a question's title, of the answer that does what is asked for, and of the one that
/// leaves everything as it is.
struct QuestionKeys {
  const char* title;
  const char* go;
  const char* leave;
};

/// Whether the user chose to do what is asked for; closing the box, and Enter from habit, leave everything as
/// it is. `parent` null: the main window.
bool UserAgrees(KorDlgDialog* parent, const QuestionKeys& keys, const QString& text);

}  // namespace desktop
