#pragma once

#include <functional>

#include "framework/system/KorExport.h"
#include "framework/system/KorUnicodeString.h"

/// The host's dictionary of classes that can be created by name.
class KOR_FRAMEWORK_API KorClassDictionary {
 public:
  using Factory = void* (*)();

  /// Creates an object of the class, null when the name is unknown or its factory fails. The caller owns it.
  static void* Create(const KorString& className);
  static bool Knows(const KorString& className);

  /// Told when a class becomes known and when it is forgotten. Null: nobody.
  using Observer = std::function<void(const KorString& className, bool known)>;
  static void SetObserver(Observer observer);
};

/// Makes a class known to the dictionary for as long as this object lives.
class KOR_FRAMEWORK_API KorFillDictionary {
 public:
  KorFillDictionary(const char* className, KorClassDictionary::Factory factory);
  ~KorFillDictionary();
  KorFillDictionary(const KorFillDictionary&) = delete;
  KorFillDictionary& operator=(const KorFillDictionary&) = delete;

 private:
  KorString _className;
};
