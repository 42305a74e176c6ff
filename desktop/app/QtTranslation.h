#pragma once

class QString;

namespace desktop {

/// Shows the texts of Qt's own buttons and dialogs ("Cancel") in a language, by the translations that Qt
/// comes with; in English where it has none. Takes effect on what is on the screen, too.
void TranslateQt(const QString& language);

}  // namespace desktop
