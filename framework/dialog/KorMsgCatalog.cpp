#include "framework/dialog/KorMsgCatalog.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <optional>

#include "framework/system/KorEnvironment.h"

namespace {

namespace fs = std::filesystem;
using Texts = std::map<KorString, KorUnicodeString, std::less<>>;
constexpr const char* kEnglish = "en";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

struct State {
  KorString folder;
  KorString language = kEnglish;
  std::map<KorString, Texts> read;  ///< by "<language>/<catalogue>"
  std::vector<KorUnicodeString> problems;
};

State& Catalogues() {
  static State state = [] {
    const char* folder = KorGetEnv("KORVO_CATALOGUES");
    return State{folder ? folder : "", kEnglish, {}, {}};
  }();
  return state;
}

KorString FileOf(const KorString& language, const KorString& catalogue) {
  return (fs::path(Catalogues().folder) / language / (catalogue + ".txt")).string();
}

const Texts& TextsOf(const KorString& language, const KorString& catalogue) {
  State& state = Catalogues();
  const KorString key = language + "/" + catalogue;
  const auto found = state.read.find(key);
  if (found != state.read.end()) return found->second;
  Texts texts;
  if (!state.folder.empty()) texts = KorMsgCatalog::ReadFile(FileOf(language, catalogue), state.problems);
  return state.read[key] = std::move(texts);
}

const KorUnicodeString* Lookup(const KorString& catalogue, const KorString& key) {
  for (const KorString& language : {Catalogues().language, KorString(kEnglish)}) {
    const Texts& texts = TextsOf(language, catalogue);
    if (const auto found = texts.find(key); found != texts.end()) return &found->second;
  }
  return nullptr;
}

/// Takes a quoted text from the front of `line`; nothing when it does not open or does not end.
std::optional<KorString> TakeQuoted(std::string_view& line) {
  if (line.empty() || line.front() != '"') return std::nullopt;
  KorString text;
  for (std::size_t i = 1; i < line.size(); ++i) {
    if (line[i] == '"') {
      line.remove_prefix(i + 1);
      return text;
    }
    if (line[i] == '\\' && i + 1 < line.size())
      text += line[++i] == 'n' ? '\n' : line[i];
    else
      text += line[i];
  }
  return std::nullopt;
}

void SkipBlanks(std::string_view& line) {
  while (!line.empty() && (line.front() == ' ' || line.front() == '\t')) line.remove_prefix(1);
}

std::optional<KorString> TakeKey(std::string_view& line) {
  if (!line.empty() && line.front() == '"') return TakeQuoted(line);
  const std::size_t end = line.find_first_of(" \t=");
  if (end == 0 || end == std::string_view::npos) return std::nullopt;
  KorString key(line.substr(0, end));
  line.remove_prefix(end);
  return key;
}

/// Reads `key = "text"`; nothing when the line has another form.
std::optional<std::pair<KorString, KorString>> ParseLine(std::string_view line) {
  const std::optional<KorString> key = TakeKey(line);
  SkipBlanks(line);
  if (!key || line.empty() || line.front() != '=') return std::nullopt;
  line.remove_prefix(1);
  SkipBlanks(line);
  const std::optional<KorString> text = TakeQuoted(line);
  SkipBlanks(line);
  if (!text || !line.empty()) return std::nullopt;
  return std::pair(*key, *text);
}

KorUnicodeString PutIn(const KorUnicodeString& text, const KorUnicodeString* parameters, int count) {
  if (count == 0) return text;
  const std::string& from = text.Utf8();
  std::string result;
  for (std::size_t i = 0; i < from.size(); ++i) {
    const int number = i + 2 < from.size() && from[i] == '{' && from[i + 2] == '}' ? from[i + 1] - '0' : 0;
    if (number < 1 || number > std::min(count, 9)) {
      result += from[i];
      continue;
    }
    result += parameters[number - 1].Utf8();
    i += 2;
  }
  return result;
}

}  // namespace

KorUnicodeString KorMsgCatalog::BuildMessage(const KorString& catalogue, const KorString& key,
                                             const KorUnicodeString* parameters, int parameterCount,
                                             const KorUnicodeString& fallback) {
  const KorUnicodeString* text = Lookup(catalogue, key);
  return PutIn(text ? *text : fallback, parameters, parameterCount);
}

bool KorMsgCatalog::Has(const KorString& catalogue, const KorString& key) {
  return Lookup(catalogue, key) != nullptr;
}

void KorMsgCatalog::SetFolder(const KorString& folder) {
  Catalogues().folder = folder;
  Catalogues().read.clear();
  Catalogues().problems.clear();
}

KorString KorMsgCatalog::GetFolder() { return Catalogues().folder; }

HRESULT KorMsgCatalog::SetLanguage(const KorString& language) {
  std::error_code ignored;
  if (language.empty()) return E_FAIL;
  if (language != kEnglish && !fs::is_directory(fs::path(Catalogues().folder) / language, ignored))
    return E_FAIL;
  Catalogues().language = language;
  return S_OK;
}

KorString KorMsgCatalog::GetLanguage() { return Catalogues().language; }

std::vector<KorString> KorMsgCatalog::Languages() {
  std::vector<KorString> languages;
  std::error_code ignored;
  for (const auto& entry : fs::directory_iterator(Catalogues().folder, ignored))
    if (entry.is_directory(ignored)) languages.push_back(entry.path().filename().string());
  std::sort(languages.begin(), languages.end());
  return languages;
}

const std::vector<KorUnicodeString>& KorMsgCatalog::Problems() { return Catalogues().problems; }

Texts KorMsgCatalog::ReadFile(const KorString& file, std::vector<KorUnicodeString>& problems) {
  Texts texts;
  std::ifstream in(file, std::ios::binary);
  if (!in) {
    problems.push_back("The message catalogue \"" + file + "\" cannot be read.");
    return texts;
  }
  int number = 0;
  for (std::string line; std::getline(in, line);) {
    if (++number == 1 && line.starts_with(kByteOrderMark)) line.erase(0, kByteOrderMark.size());
    if (!line.empty() && line.back() == '\r') line.pop_back();
    std::string_view rest = line;
    SkipBlanks(rest);
    if (rest.empty() || rest.front() == '#') continue;
    const KorString place = file + ":" + std::to_string(number) + ": ";
    const auto entry = ParseLine(rest);
    if (!entry)
      problems.push_back(place + "expected key = \"text\", found: " + line);
    else if (!texts.emplace(entry->first, entry->second).second)
      problems.push_back(place + "the key " + entry->first + " stands here again; its first text counts");
  }
  return texts;
}
