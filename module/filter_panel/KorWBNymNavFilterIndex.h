#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// Answers whether a key occurs anywhere in a long text of fields separated by "|", as a plain search would,
/// in logarithmic time for keys that hold a "|".
///
/// A key matches where its first field ends a field of the text and the rest of the key begins at the next
/// one. Both are looked up in sorted lists of the places behind a "|": by what follows, and by what stands
/// before, read backwards. Takes 8 bytes per field beside the text.
class KorWBNymNavFilterIndex {
 public:
  explicit KorWBNymNavFilterIndex(std::string text);

  bool Contains(std::string_view key) const;

 private:
  using Place = std::uint32_t;  ///< offset behind a "|"
  using Places = std::vector<Place>;

  std::string_view After(Place place) const;
  std::string_view Before(Place place) const;
  template <class Compare>
  static std::pair<Places::const_iterator, Places::const_iterator> Range(const Places& places,
                                                                         Compare compare);

  std::string _text;
  Places _byNext;      ///< by the text that follows, as far as it is compared
  Places _byPrevious;  ///< by the field before, read backwards
};
