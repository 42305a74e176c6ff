#pragma once

#include <map>
#include <memory>
#include <vector>

#include "framework/system/KorStatus.h"
#include "framework/system/KorUnicodeString.h"

/// Message catalogues: `<folder>/<language>/<catalogue>.txt`, UTF-8, a `key = "text"` on each line.
///
/// A key that holds blanks or quotes stands in quotes itself. In texts \" \\ and \n are escapes, "{1}" to
/// "{9}" stand for the parameters. Empty lines and lines that open with '#' are passed over. A key that the
/// current language does not have is taken from English, then from the default of the call.
class KOR_FRAMEWORK_API KorMsgCatalog {
 public:
  /// The text of `key` in `catalogue` with its parameters put in; `fallback`, with the same parameters, when
  /// there is no such text.
  static KorUnicodeString BuildMessage(const KorString& catalogue, const KorString& key,
                                       const KorUnicodeString* parameters = nullptr, int parameterCount = 0,
                                       const KorUnicodeString& fallback = {});
  static bool Has(const KorString& catalogue, const KorString& key);

  /// Where the language folders are. At the start: the environment variable KORVO_CATALOGUES, else none.
  static void SetFolder(const KorString& folder);
  static KorString GetFolder();
  /// "en" at the start. E_FAIL when the folder has no such language; the language stays as it was.
  static HRESULT SetLanguage(const KorString& language);
  static KorString GetLanguage();
  /// Languages that the folder has, in alphabetical order.
  static std::vector<KorString> Languages();
  /// What was wrong with the catalogue files read so far: missing files, unreadable lines with file and line.
  static const std::vector<KorUnicodeString>& Problems();

  /// Reads one catalogue file: the texts by key; each unreadable line goes to `problems` with file and line.
  static std::map<KorString, KorUnicodeString, std::less<>> ReadFile(const KorString& file,
                                                                     std::vector<KorUnicodeString>& problems);
};
