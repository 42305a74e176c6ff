#pragma once

#include <QString>
#include <QStringList>

namespace desktop {

/// Where the program finds what comes with it, and where it keeps what it makes.
class Folders {
 public:
  /// The message catalogues: the environment variable KORVO_CATALOGUES, else beside the program or above it.
  /// Empty when there are none.
  static QString Catalogues();
  /// Why there are none, with the folder that was looked in. In English: there are no texts then.
  static QString WhyNoCatalogues();
  /// The tables of the sample product, found the same way (KORVO_SAMPLES).
  static QString Samples();
  /// Why there are none, with the folder that was looked in.
  static QString WhyNoSamples();
  /// Where the libraries are that the program loads while it runs: the environment variable KORVO_LIBRARIES,
  /// else beside the program and in the folder "lib" next to its own.
  static QStringList Libraries();
  /// The user's own products.
  static QString UserData();
};

}  // namespace desktop
