#pragma once

#include <QSettings>
#include <QStringList>

#include "desktop/toolkit/Theme.h"

namespace desktop {

/// What the program remembers from one start to the next.
class Settings {
 public:
  /// The user's own settings; with a file, those in the file.
  explicit Settings(const QString& file = {});

  QStringList RecentProducts() const;
  /// Puts a product in front of the recent ones, of which the last ten are kept.
  void AddRecentProduct(const QString& file);
  void RemoveRecentProduct(const QString& file);

  ThemeChoice Theme() const;
  void SetTheme(ThemeChoice theme);
  QString Language() const;
  void SetLanguage(const QString& language);
  /// Makes the remembered language current, Qt's own texts included. Where there is no such language all
  /// texts stay in the one that is current; the remembered one is not forgotten.
  void ApplyLanguage() const;

  /// Makes the remembered units and shown digits current; at the first start the mixed unit system.
  void ApplyUnits() const;
  /// Remembers the units and shown digits that are current.
  void KeepUnits();

  QStringList TracedComponents() const;
  /// Empty: traces go to standard output.
  QString TraceFile() const;
  void SetTracing(const QStringList& components, const QString& file);

  QByteArray WindowState(const char* name) const;
  void SetWindowState(const char* name, const QByteArray& state);

 private:
  std::unique_ptr<QSettings> _settings;
};

}  // namespace desktop
