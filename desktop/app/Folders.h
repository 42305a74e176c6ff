#pragma once

#include <QString>

namespace desktop {

/// Where the program finds what comes with it, and where it keeps what it makes.
class Folders {
 public:
  /// The message catalogues: the environment variable KORVO_CATALOGUES, else beside the program or above it.
  /// Empty when there are none.
  static QString Catalogues();
  /// The tables of the sample product, found the same way (KORVO_SAMPLES).
  static QString Samples();
  /// The user's own products.
  static QString UserData();

 private:
  static QString Find(const char* variable, const char* folder, const char* content);
};

}  // namespace desktop
