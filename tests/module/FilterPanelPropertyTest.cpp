#include <algorithm>
#include <random>
#include <set>

#include "framework/dialog/KorDlgMultiList.h"
#include "tests/module/FilterPanelTest.h"

namespace {

/// A row as the host hands it over: as many path elements as the depth says, no separators in the fields.
struct ChosenInstance {
  std::string id, part, version, path;
  int depth = 0;

  std::string Key() const {
    return id + "|" + part + "|" + version + "|" + std::to_string(depth) + (depth == 0 ? "" : "|" + path);
  }
};

struct FilterPanelProperty : FilterPanelTest, testing::WithParamInterface<unsigned> {
  // Short fields of few letters, so that rows and pieces of rows repeat; now and then empty ones.
  std::string Field() {
    std::string field(dice() % 4, 'a');
    for (char& letter : field) letter = "abI1"[dice() % 4];
    return field;
  }
  ChosenInstance Row() {
    ChosenInstance row{Field(), Field(), Field(), "", static_cast<int>(dice() % 5)};
    for (int element = 0; element < row.depth; ++element) row.path += (element == 0 ? "" : "|") + Field();
    return row;
  }
  std::vector<ChosenInstance> AddRows(int count) {
    std::vector<ChosenInstance> rows;
    for (int i = 0; i < count; ++i) {
      rows.push_back(dice() % 8 == 0 && !rows.empty() ? rows[dice() % rows.size()] : Row());
      Add(rows.back().id, rows.back().part, rows.back().version, rows.back().path, rows.back().depth);
    }
    return rows;
  }
  // What the list must hold after rows were added to an empty one: each instance once, as it was added first.
  static std::vector<std::string> Distinct(const std::vector<ChosenInstance>& added) {
    std::set<std::vector<std::string>> seen;
    std::vector<std::string> keys;
    for (const ChosenInstance& row : added)
      if (seen.insert({row.id, row.part, row.version, row.path}).second) keys.push_back(row.Key());
    return keys;
  }
  std::vector<std::string> Listed() {
    const auto& list = As<KorDlgMultiList>("FilterMultiList");
    std::vector<std::string> keys;
    for (int row = 0; row < list.GetLineCount(); ++row) {
      const auto cell = [&](int column) { return std::string(list.GetColumnItem(column, row)); };
      keys.push_back(ChosenInstance{cell(0), cell(1), cell(2), cell(5), std::stoi(cell(4))}.Key());
    }
    return keys;
  }
  // A key cut from the text, so that it begins and ends anywhere: as many fields as an instance has.
  ChosenInstance CutFrom(const std::string& text) {
    const std::string piece = text.substr(dice() % text.size(), 8 + dice() % 24);
    std::vector<std::string> fields(1);
    for (const char letter : piece)
      if (letter == '|')
        fields.emplace_back();
      else
        fields.back() += letter;
    fields.resize(std::max<std::size_t>(fields.size(), 4));
    ChosenInstance cut{fields[0], fields[1], fields[2], "", std::atoi(fields[3].c_str())};
    for (std::size_t i = 4; i < fields.size(); ++i) cut.path += (i == 4 ? "" : "|") + fields[i];
    return cut;
  }
  static void ExpectPlainSearch(const ChosenInstance& one) {
    EXPECT_EQ(Chosen::IsValid("TURBINE", one.id, one.part, one.version, one.depth, one.path),
              UserFilter().find(one.Key()) != std::string::npos)
        << one.Key();
  }
  void ExpectPlainSearchForManyKeys(const std::vector<ChosenInstance>& rows) {
    for (const ChosenInstance& row : rows) ExpectPlainSearch(row);
    for (int i = 0; i < 300; ++i) {
      ExpectPlainSearch(Row());
      ExpectPlainSearch(CutFrom(UserFilter()));
    }
  }

  std::mt19937 dice{GetParam()};
};

TEST_P(FilterPanelProperty, WhatOkWritesAFreshPanelReadsBackUnchanged) {
  for (int round = 0; round < 40; ++round) {
    Open();
    Press("ClearAllCriteriaButton");
    const auto added = AddRows(static_cast<int>(dice() % 60));
    ASSERT_EQ(Listed(), Distinct(added)) << "round " << round;
    const std::vector<std::string> rows = Rows();
    PressOK();
    const std::string text = UserFilter();
    Close();
    Open();
    ASSERT_EQ(Rows(), rows) << text;
    PressOK();
    ASSERT_EQ(UserFilter(), text);
  }
}

TEST_P(FilterPanelProperty, RemovedRowsAreNotReadBack) {
  for (int round = 0; round < 20; ++round) {
    Open();
    AddRows(30);
    const int count = static_cast<int>(Rows().size());
    SelectRows({0, static_cast<int>(dice() % static_cast<unsigned>(count)), count - 1});
    Press("RemoveCriterionButton");
    const std::vector<std::string> rows = Rows();
    PressOK();
    Open();
    ASSERT_EQ(Rows(), rows) << UserFilter();
    PressOK();
  }
}

TEST_P(FilterPanelProperty, IsValidAnswersAsAPlainSearchForShortFilters) {
  for (int round = 0; round < 20; ++round) {
    Open();
    Press("ClearAllCriteriaButton");
    const auto rows = AddRows(1 + static_cast<int>(dice() % 20));
    PressOK();
    ASSERT_LE(UserFilter().size(), 4096u);
    ExpectPlainSearchForManyKeys(rows);
    if (HasFailure()) return;
  }
}

TEST_P(FilterPanelProperty, IsValidAnswersAsAPlainSearchForLongFilters) {
  for (int round = 0; round < 5; ++round) {
    Open();
    Press("ClearAllCriteriaButton");
    const auto rows = AddRows(600 + static_cast<int>(dice() % 300));
    PressOK();
    ASSERT_GT(UserFilter().size(), 4096u);
    ExpectPlainSearchForManyKeys(rows);
    if (HasFailure()) return;
  }
}
INSTANTIATE_TEST_SUITE_P(Seeds, FilterPanelProperty, testing::Values(11u, 12u, 13u));

struct FilterPanelLongFilter : FilterPanelTest {
  /// Chooses 300 instances whose names all open with `prefix`.
  void Choose(const std::string& prefix) {
    Open();
    Press("ClearAllCriteriaButton");
    for (int number = 100; number < 400; ++number)
      Add(prefix + std::to_string(number), "PART-OF-THE-TOWER", "A.1", "", 0);
    PressOK();
  }
};

TEST_F(FilterPanelLongFilter, TheNextOkCountsEvenWhenItsTextIsAsLongAsTheOneBefore) {
  Choose("X");
  ASSERT_GT(UserFilter().size(), 4096u);
  EXPECT_TRUE(Chosen::IsValid("TURBINE", "X123", "PART-OF-THE-TOWER", "A.1", 0, ""));
  Choose("Y");
  EXPECT_FALSE(Chosen::IsValid("TURBINE", "X123", "PART-OF-THE-TOWER", "A.1", 0, ""));
  EXPECT_TRUE(Chosen::IsValid("TURBINE", "Y123", "PART-OF-THE-TOWER", "A.1", 0, ""));
}

TEST_F(FilterPanelLongFilter, EachOkCountsAlsoWhenNobodyAskedAboutTheOneBefore) {
  const std::string prefixes = "ABCDEFGHIJKL";
  for (std::size_t i = 0; i + 1 < prefixes.size(); ++i) {
    const std::string asked = prefixes.substr(i, 1);
    Choose(asked);
    if (i % 3 == 1) continue;
    for (const char letter : prefixes)
      EXPECT_EQ(Chosen::IsValid("TURBINE", std::string(1, letter) + "123", "PART-OF-THE-TOWER", "A.1", 0, ""),
                asked[0] == letter)
          << letter << " in the filter of " << asked;
  }
}

TEST_F(FilterPanelLongFilter, ALongTextThatTheHostShortensInItsPlaceIsReadAnew) {
  Choose("X");
  EXPECT_TRUE(Chosen::IsValid("TURBINE", "X399", "PART-OF-THE-TOWER", "A.1", 0, ""));
  const std::string shorter = UserFilter().substr(0, UserFilter().size() - 40);
  ASSERT_GT(shorter.size(), 4096u);
  Chosen::selectedPVSFilter = KorUnicodeString(shorter.c_str());
  EXPECT_FALSE(Chosen::IsValid("TURBINE", "X399", "PART-OF-THE-TOWER", "A.1", 0, ""));
}

TEST_F(FilterPanelLongFilter, ALongTextThatTheHostReplacesByOneOfTheSameLengthIsReadAnew) {
  Choose("X");
  EXPECT_TRUE(Chosen::IsValid("TURBINE", "X123", "PART-OF-THE-TOWER", "A.1", 0, ""));
  const std::string before = UserFilter();
  std::string after = before;
  std::replace(after.begin(), after.end(), 'X', 'Y');
  const KorUnicodeString replacement(after);
  Chosen::selectedPVSFilter = replacement;
  EXPECT_FALSE(Chosen::IsValid("TURBINE", "X123", "PART-OF-THE-TOWER", "A.1", 0, ""));
  EXPECT_TRUE(Chosen::IsValid("TURBINE", "Y123", "PART-OF-THE-TOWER", "A.1", 0, ""));
  Chosen::selectedPVSFilter = "1|0";
  Chosen::selectedPVSFilter = KorUnicodeString(before);
  EXPECT_TRUE(Chosen::IsValid("TURBINE", "X123", "PART-OF-THE-TOWER", "A.1", 0, ""));
}

TEST_F(FilterPanelLongFilter, AKeyInsideALongerRowIsValidOnPurpose) {
  Choose("X");
  EXPECT_TRUE(Chosen::IsValid("TURBINE", "23", "PART-OF-THE-TOWER", "A.1", 0, ""));
  EXPECT_FALSE(Chosen::IsValid("TURBINE", "23", "OF-THE-TOWER", "A.1", 0, ""));
}

}  // namespace
