#include "module/filter_panel/KorWBNymNavFilterIndex.h"

#include <algorithm>

namespace {

// Enough to tell rows apart; a limit keeps the sorting of repetitive texts short.
constexpr std::size_t kMostCompared = 256;

// So few places are looked at sooner than narrowed down by what follows them.
constexpr std::ptrdiff_t kFewPlaces = 8;

// -1, 0 or 1 as the field at the end of `upToBar`, read backwards, comes before those that end with `suffix`,
// is one, or comes behind. The bar before the field need not be looked for: it ends the field when it is met.
int CompareEnd(std::string_view upToBar, std::string_view suffix) {
  const auto [f, s] = std::mismatch(upToBar.rbegin(), upToBar.rend(), suffix.rbegin(), suffix.rend());
  if (s == suffix.rend()) return 0;
  if (f == upToBar.rend() || *f == '|') return -1;
  return static_cast<unsigned char>(*f) < static_cast<unsigned char>(*s) ? -1 : 1;
}

bool ComesBeforeBackwards(std::string_view a, std::string_view b) {
  return std::lexicographical_compare(a.rbegin(), a.rend(), b.rbegin(), b.rend(),
                                      [](unsigned char x, unsigned char y) { return x < y; });
}

}  // namespace

KorWBNymNavFilterIndex::KorWBNymNavFilterIndex(std::string text) : _text(std::move(text)) {
  for (std::size_t bar = _text.find('|'); bar != _text.npos; bar = _text.find('|', bar + 1))
    _byNext.push_back(static_cast<Place>(bar + 1));
  _byPrevious = _byNext;
  std::sort(_byNext.begin(), _byNext.end(), [this](Place a, Place b) { return After(a) < After(b); });
  std::sort(_byPrevious.begin(), _byPrevious.end(),
            [this](Place a, Place b) { return ComesBeforeBackwards(Before(a), Before(b)); });
}

std::string_view KorWBNymNavFilterIndex::After(Place place) const {
  return std::string_view(_text).substr(place, kMostCompared);
}

std::string_view KorWBNymNavFilterIndex::Before(Place place) const {
  const std::string_view upToBar = std::string_view(_text).substr(0, place - 1);
  const std::size_t bar = upToBar.rfind('|');
  return bar == upToBar.npos ? upToBar : upToBar.substr(bar + 1);
}

template <class Compare>
auto KorWBNymNavFilterIndex::Range(const Places& places, Compare compare)
    -> std::pair<Places::const_iterator, Places::const_iterator> {
  const auto first =
      std::partition_point(places.begin(), places.end(), [&](Place place) { return compare(place) < 0; });
  return {first, std::partition_point(first, places.end(), [&](Place place) { return compare(place) == 0; })};
}

bool KorWBNymNavFilterIndex::Contains(std::string_view key) const {
  const std::size_t bar = key.find('|');
  if (bar == key.npos) return _text.find(key) != _text.npos;
  const std::string_view head = key.substr(0, bar);
  const std::string_view tail = key.substr(bar + 1);
  const std::string_view text = _text;
  const auto matches = [&](Place place) {
    return text.substr(place).starts_with(tail) && text.substr(0, place - 1).ends_with(head);
  };

  const auto previous =
      Range(_byPrevious, [&](Place place) { return CompareEnd(text.substr(0, place - 1), head); });
  if (previous.second - previous.first <= kFewPlaces)
    return std::any_of(previous.first, previous.second, matches);

  const std::string_view compared = tail.substr(0, kMostCompared);
  const auto next =
      Range(_byNext, [&](Place place) { return After(place).substr(0, compared.size()).compare(compared); });
  const bool fewerNext = next.second - next.first < previous.second - previous.first;
  const auto& [begin, end] = fewerNext ? next : previous;
  return std::any_of(begin, end, matches);
}
