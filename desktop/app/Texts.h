#pragma once

#include <QString>
#include <QStringList>
#include <string_view>

namespace desktop {

/// A text of the desktop's own catalogue in the current language, with "{1}", "{2}" ... replaced. The key
/// itself when there is none.
QString Text(const char* key, const QStringList& parameters = {});
/// The same with a text of the program's own instead of the key; for what must be readable without
/// catalogues.
QString TextOr(const char* key, const char* fallback, const QStringList& parameters = {});
/// A text with a number as "{1}": that of `one` for 1, that of `many` for any other number.
QString CountedText(qulonglong number, const char* one, const char* many);
/// What a long operation is at, as the server names it ("Computing"), in the current language.
QString ProgressText(std::string_view what);

}  // namespace desktop
