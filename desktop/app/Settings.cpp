#include "desktop/app/Settings.h"

#include "desktop/app/QtTranslation.h"
#include "framework/dialog/KorMsgCatalog.h"
#include "framework/knowledge/KorUnitSystems.h"

namespace desktop {
namespace {
constexpr qsizetype kRecentProducts = 10;
constexpr const char* kRecentKey = "recentProducts";
constexpr const char* kThemeKey = "theme";
constexpr const char* kLanguageKey = "language";
constexpr const char* kTracedKey = "tracing/components";
constexpr const char* kTraceFileKey = "tracing/file";
constexpr const char* kDigitsKey = "units/digits";
QString UnitKey(const KorCkeMagnitude& magnitude) {
  return "units/" + QString::fromStdString(magnitude.Name());
}
}  // namespace

Settings::Settings(const QString& file)
    : _settings(file.isEmpty() ? std::make_unique<QSettings>()
                               : std::make_unique<QSettings>(file, QSettings::IniFormat)) {}

QStringList Settings::RecentProducts() const { return _settings->value(kRecentKey).toStringList(); }

void Settings::AddRecentProduct(const QString& file) {
  QStringList files = RecentProducts();
  files.removeAll(file);
  files.prepend(file);
  _settings->setValue(kRecentKey, files.mid(0, kRecentProducts));
}

void Settings::RemoveRecentProduct(const QString& file) {
  QStringList files = RecentProducts();
  files.removeAll(file);
  _settings->setValue(kRecentKey, files);
}

ThemeChoice Settings::Theme() const {
  const int stored = _settings->value(kThemeKey, 0).toInt();
  return static_cast<ThemeChoice>(std::clamp(stored, 0, static_cast<int>(ThemeChoice::Dark)));
}

void Settings::SetTheme(ThemeChoice theme) { _settings->setValue(kThemeKey, static_cast<int>(theme)); }

QString Settings::Language() const { return _settings->value(kLanguageKey, "en").toString(); }

void Settings::SetLanguage(const QString& language) { _settings->setValue(kLanguageKey, language); }

void Settings::ApplyLanguage() const {
  KorMsgCatalog::SetLanguage(Language().toStdString());
  TranslateQt(QString::fromStdString(KorMsgCatalog::GetLanguage()));
}

void Settings::ApplyUnits() const {
  KorApplyUnitSystem("Mixed");
  KorCkeUnit::SetShownDigits(
      std::clamp(_settings->value(kDigitsKey, KorCkeUnit::GetShownDigits()).toInt(), 1, 17));
  for (KorCkeMagnitude_var magnitude : KorCkeGlobalFunctions::GetParmDictionary()->Magnitudes())
    magnitude->SetCurrentUnit(_settings->value(UnitKey(*magnitude)).toString().toStdString());
}

void Settings::KeepUnits() {
  _settings->setValue(kDigitsKey, KorCkeUnit::GetShownDigits());
  for (const KorCkeMagnitude_var& magnitude : KorCkeGlobalFunctions::GetParmDictionary()->Magnitudes())
    _settings->setValue(UnitKey(*magnitude), QString::fromStdString(magnitude->CurrentUnit()->Name()));
}

QStringList Settings::TracedComponents() const { return _settings->value(kTracedKey).toStringList(); }

QString Settings::TraceFile() const { return _settings->value(kTraceFileKey).toString(); }

void Settings::SetTracing(const QStringList& components, const QString& file) {
  _settings->setValue(kTracedKey, components);
  _settings->setValue(kTraceFileKey, file);
}

QByteArray Settings::WindowState(const char* name) const { return _settings->value(name).toByteArray(); }

void Settings::SetWindowState(const char* name, const QByteArray& state) { _settings->setValue(name, state); }

}  // namespace desktop
