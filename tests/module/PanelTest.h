#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "tests/support/PanelHarness.h"
#include "tests/support/SamplePart.h"

/// The editors of the custom frame: the point, then the X, Y and Z axis.
inline constexpr std::array kCustomFrameEditors{
    "CPxEditor",    "CPyEditor",    "CPzEditor",    "XAxisxEditor", "XAxisYEditor", "XAxisZEditor",
    "YAxisXEditor", "YAxisYEditor", "YAxisZEditor", "ZAxisXEditor", "ZAxisYEditor", "ZAxisZEditor"};

/// The centre-of-gravity and inertia editors of the mass-types page.
inline const std::vector<std::string> kDistribution = {"MTCGxEditor", "MTCGyEditor", "MTCGzEditor",
                                                       "MTIxxEditor", "MTIyyEditor", "MTIzzEditor",
                                                       "MTIyzEditor", "MTIxzEditor", "MTIxyEditor"};

/// A test of the part panel: the user's verbs are the test's own.
class PanelTest : public testing::Test, protected PanelHarness {
 protected:
  /// Types a reference frame of one's own: the point in the current length unit, then the X, Y and Z axis.
  void TypeCustomFrame(const std::array<const char*, 12>& texts) {
    for (std::size_t i = 0; i < texts.size(); ++i) Type(kCustomFrameEditors[i], texts[i]);
  }
  /// Chooses the custom reference and types its frame. The results follow at the next choice of a mode.
  void ChooseCustomFrame(const std::array<const char*, 12>& texts) {
    Check("CustomReferenceButton");
    TypeCustomFrame(texts);
    Check("RootProductButton");
    Check("CustomReferenceButton");
  }
};
