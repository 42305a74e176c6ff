#pragma once

#include <QString>
#include <QStringList>

namespace desktop {

/// A text of the desktop's own catalogue in the current language, with "{1}", "{2}" ... replaced. The key
/// itself when there is none.
QString Text(const char* key, const QStringList& parameters = {});

}  // namespace desktop
