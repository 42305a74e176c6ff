#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/FilterPanelHarness.h"

/// A test of the filter panel: the user's verbs are the test's own.
class FilterPanelTest : public testing::Test, protected FilterPanelHarness {
 protected:
  using Chosen = KorWBNymNavFilterPanel;
  using List = KorListValKorUnicodeString;

  /// How the text that a user filter is kept as reads.
  static std::string UserFilter() { return Chosen::selectedPVSFilter.Utf8(); }

  /// Leaves a user filter behind as an earlier panel of the product did.
  static void LeaveUserFilter(const std::string& text, const std::string& product = "TURBINE") {
    Chosen::selectedFilterOption = 0;
    Chosen::selectedPRCID = product;
    Chosen::PVSFilterPRCID = product;
    Chosen::selectedPVSFilter = text;
    Chosen::selectedFilter = text;
  }
};
