#pragma once

#include <QStringList>
#include <set>
#include <string>

namespace desktop {

/// Message catalogues that are missing or have lines that cannot be read. A catalogue is read when its first
/// text is asked for, so that problems come up while the program runs; each is told once.
class CatalogueProblems {
 public:
  /// Those that came up since the last call; `wantedLanguage` without its folder is one of them as long as
  /// another language is current.
  QStringList TakeNew(const QString& wantedLanguage);

 private:
  std::set<std::string> _told;
};

}  // namespace desktop
