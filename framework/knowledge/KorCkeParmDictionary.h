#pragma once

#include <vector>

#include "framework/knowledge/KorCkeMagnitude.h"

/// The host's knowledge parameter dictionary: all magnitudes and their units, by name.
class KOR_FRAMEWORK_API KorCkeParmDictionary {
 public:
  /// Null handle when the name is unknown.
  KorCkeMagnitude_var FindMagnitude(const KorString& name) const;
  /// The length magnitude ("LENGTH"), asked for without its name.
  KorCkeMagnitude_var LengthMagnitude() const;
  /// A unit of any magnitude; null handle when the name is unknown.
  KorCkeUnit_var FindUnit(const KorString& name) const;
  const std::vector<KorCkeMagnitude_var>& Magnitudes() const { return _magnitudes; }

  void AddMagnitude(KorCkeMagnitude_var magnitude);
  void RemoveMagnitude(const KorString& name);

 private:
  std::vector<KorCkeMagnitude_var> _magnitudes;
};

/// Raised by whoever needs a dictionary where there is none.
struct KOR_FRAMEWORK_API KorNullHandleError {};

/// Where the host keeps the dictionary.
class KOR_FRAMEWORK_API KorCkeGlobalFunctions {
 public:
  /// The process's dictionary, filled with the built-in magnitudes at first use; null only after
  /// SetParmDictionary(null).
  static KorCkeParmDictionary* GetParmDictionary();
  /// Replaces the dictionary (tests); null takes it away.
  static void SetParmDictionary(KorCkeParmDictionary* dictionary);
  /// Gives back the built-in dictionary.
  static void RestoreParmDictionary();
};
