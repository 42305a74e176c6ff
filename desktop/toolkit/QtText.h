#pragma once

#include <QString>
#include <QStringList>

#include "framework/system/KorUnicodeString.h"

/// The framework's strings in Qt and back.
namespace desktop {

inline QString ToQt(const KorUnicodeString& text) { return QString::fromStdString(text.Utf8()); }
inline QString ToQt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}
inline QString ToQt(const std::string& text) { return QString::fromStdString(text); }
inline KorUnicodeString FromQt(const QString& text) { return text.toStdString(); }

/// A title for widgets that read "&" as the mark of a mnemonic: titles mean it literally.
inline QString Literal(const KorUnicodeString& title) { return ToQt(title).replace('&', "&&"); }

/// A tooltip of these lines. As rich text it is wrapped; plain, a long line would be as wide as the screen.
QString AsWrappedTip(const QStringList& lines);

/// The text with places at which a line may break within words that are long, such as paths of files.
QString BreakableAnywhere(const QString& text);

/// Position in UTF-16 units of the character (code point) that the framework counts as `characters`.
int Utf16Position(const QString& text, int characters);

}  // namespace desktop
