#pragma once

#include <cassert>
#include <initializer_list>
#include <vector>

#include "framework/system/KorUnicodeString.h"

/// List of strings, indexed from 1.
class KorListValKorUnicodeString {
 public:
  KorListValKorUnicodeString() = default;
  KorListValKorUnicodeString(std::initializer_list<KorUnicodeString> texts) : _texts(texts) {}

  int Size() const { return static_cast<int>(_texts.size()); }
  void Append(const KorUnicodeString& text) { _texts.push_back(text); }
  void Append(const KorListValKorUnicodeString& list) {
    _texts.insert(_texts.end(), list._texts.begin(), list._texts.end());
  }
  void RemoveAll() { _texts.clear(); }

  /// `index` from 1 to Size().
  const KorUnicodeString& operator[](int index) const { return _texts[Checked(index)]; }
  KorUnicodeString& operator[](int index) { return _texts[Checked(index)]; }

  /// Index of the first equal text, 0 when there is none.
  int Locate(const KorUnicodeString& text) const {
    for (int index = 1; index <= Size(); ++index)
      if (_texts[index - 1] == text) return index;
    return 0;
  }

  auto begin() const { return _texts.begin(); }
  auto end() const { return _texts.end(); }
  friend bool operator==(const KorListValKorUnicodeString&, const KorListValKorUnicodeString&) = default;

 private:
  std::size_t Checked(int index) const {
    assert(index >= 1 && index <= Size());
    return static_cast<std::size_t>(index - 1);
  }

  std::vector<KorUnicodeString> _texts;
};
