#pragma once

/// How many characters the part panel's editors show.
namespace KorWBNymMainPanelWidth {
inline constexpr int kValueWidth = 20;      ///< "10536262.58 kg·m²", and ten digits with sign and unit
inline constexpr int kNumberWidth = 10;     ///< a number without a unit
inline constexpr int kSelectionWidth = 60;  ///< a part with its place in the product
inline constexpr int kDocumentWidth = 30;   ///< a document revision, a filter
}  // namespace KorWBNymMainPanelWidth
