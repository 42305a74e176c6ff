#include <gtest/gtest.h>

#include "lumira/import/CsvTable.h"

namespace lumira {
namespace {

struct Reading {
  ImportLog log;
  CsvTable table;
};

Reading Read(const std::string& text, const TableLimits& limits = {}) {
  Reading reading;
  reading.table = CsvTable::Read({"t.csv", text}, limits, reading.log);
  return reading;
}

std::string Refusal(const std::string& text, const TableLimits& limits = {}) {
  const Reading reading = Read(text, limits);
  return reading.log.HasErrors() ? reading.log.Failure().message : "read";
}

TEST(CsvTable, ReadsHeaderAndCellsWithoutBlanksAround) {
  const auto [log, table] = Read("a, b \n 1 ,\"x, \"\"y\"\"\"\n");
  EXPECT_EQ(table.ColumnCount(), 2u);
  EXPECT_EQ(table.RowCount(), 1u);
  EXPECT_EQ(table.Title(1), "b");
  EXPECT_EQ(table.Cell(0, 0), "1");
  EXPECT_EQ(table.Cell(0, 1), "x, \"y\"");
}

TEST(CsvTable, TakesSemicolonsAndTabsWhenTheHeaderHasThem) {
  EXPECT_EQ(Read("a;b\n1,5;2\n").table.Cell(0, 0), "1,5");
  EXPECT_EQ(Read("a\tb\n1\t2\n").table.Cell(0, 1), "2");
}

TEST(CsvTable, TakesEveryKindOfLineEnd) {
  for (const char* text : {"a,b\n1,2\n3,4", "a,b\r\n1,2\r\n3,4\r\n", "a,b\r1,2\r3,4\r"}) {
    const auto [log, table] = Read(text);
    ASSERT_EQ(table.RowCount(), 2u);
    EXPECT_EQ(table.Line(0), 2u);
    EXPECT_EQ(table.Line(1), 3u);
    EXPECT_EQ(table.Cell(1, 1), "4");
  }
}

TEST(CsvTable, SkipsTheMarkOfUtf8) { EXPECT_EQ(Read("\xEF\xBB\xBFpart\nx\n").table.Title(0), "part"); }

TEST(CsvTable, CountsLinesThroughBlankOnesAndLineEndsInsideQuotes) {
  const auto [log, table] = Read("\n\na,b\n\n\"1\n2\",3\n4,5\n");
  ASSERT_EQ(table.RowCount(), 2u);
  EXPECT_EQ(table.HeaderLine(), 3u);
  EXPECT_EQ(table.Line(0), 5u);
  EXPECT_EQ(table.Line(1), 7u);
  EXPECT_EQ(table.Cell(0, 0), "1\n2");
}

TEST(CsvTable, CountsRowsWithoutContent) {
  const auto [log, table] = Read("a,b\n,\n1,2\n,\n");
  EXPECT_EQ(table.RowCount(), 1u);
  EXPECT_EQ(table.BlankRows(), 2u);
  EXPECT_EQ(table.Cell(0, 0), "1");
}

TEST(CsvTable, RefusesNothing) {
  EXPECT_EQ(Refusal(""), "t.csv: is empty; a header row and at least one row expected");
  EXPECT_EQ(Refusal("\n\n  \n"), "t.csv: is empty; a header row and at least one row expected");
  EXPECT_EQ(Refusal("a,b\n"), "t.csv, line 1: no row follows the header");
}

TEST(CsvTable, RefusesRowsOfAnotherLengthEach) {
  EXPECT_EQ(Refusal("a,b\n1\n1,2\n1,2,3\n"),
            "t.csv, line 2, column 2 (b): the row has 1 cell, the header has 2\n"
            "t.csv, line 4, column 3: the row has 3 cells, the header has 2");
}

TEST(CsvTable, CutsARowThatIsTooLongAndFillsOneThatIsTooShortSoThatTheNextIsRight) {
  const auto [log, table] = Read("a,b\n1,2,surplus,more\n4,5\n6\n7,8\n");
  ASSERT_EQ(table.RowCount(), 4u);
  EXPECT_EQ(table.Cell(0, 1), "2");
  EXPECT_EQ(table.Cell(1, 0), "4");
  EXPECT_EQ(table.Cell(1, 1), "5");
  EXPECT_EQ(table.Cell(2, 1), "");
  EXPECT_EQ(table.Cell(3, 0), "7");
  EXPECT_EQ(table.Cell(3, 1), "8");
}

TEST(CsvTable, RefusesAQuoteThatIsNotClosedWhereItOpens) {
  EXPECT_EQ(Refusal("a\n1\n\"2\n3\n"),
            "t.csv, line 3, column 1 (a): a quoted cell that begins in this row is not closed before the "
            "file ends");
}

TEST(CsvTable, RefusesAQuoteInsideACell) {
  EXPECT_EQ(Refusal("a\n1\n5\"\n"),
            "t.csv, line 3, column 1 (a): a quote stands inside a cell that does not begin with one, or text "
            "follows a closing quote");
}

TEST(CsvTable, RefusesWhatIsNotUtf8WithTheLine) {
  EXPECT_EQ(Refusal("part\nok\ncaf\xE9\n"),
            "t.csv, line 3: holds a byte that is not UTF-8; save the file as UTF-8");
  for (const char* text : {"part\rok\rcaf\xE9\r", "part\r\nok\r\ncaf\xE9\r\n", "part\r\rcaf\xE9"})
    EXPECT_EQ(Refusal(text), "t.csv, line 3: holds a byte that is not UTF-8; save the file as UTF-8");
  EXPECT_EQ(Refusal("\xFF\xFEp"), "t.csv: is encoded as UTF-16; save it as UTF-8");
  EXPECT_EQ(Refusal(std::string("a\nb\0c\n", 6)), "t.csv, line 2: holds a zero byte");
}

TEST(CsvTable, RefusesWhatIsAboveTheLimits) {
  const TableLimits limits{.bytes = 30, .rows = 2, .columns = 3, .cellBytes = 5};
  EXPECT_EQ(Refusal(std::string(31, 'x'), limits), "t.csv: has 31 bytes, the limit is 30");
  EXPECT_EQ(Refusal("a\n1\n2\n3\n", limits), "t.csv, line 4: more than 2 rows");
  EXPECT_EQ(Refusal("a,b,c,d\n", limits), "t.csv, line 1, column 4: more than 3 columns");
  EXPECT_EQ(Refusal("a\nabcdef\n", limits),
            "t.csv, line 2, column 1 (a): the cell has 6 bytes, the limit is 5");
  EXPECT_EQ(Refusal("a,b,c\n1,2,3\n4,5,abcde\n", limits), "read");
}

TEST(CsvTable, TellsHowManyBytesAreRead) {
  constexpr std::size_t kMebibyte = 1'048'576;
  const std::string text = "a\n" + std::string(kMebibyte, '\n') + "1\n";
  std::vector<std::pair<std::size_t, std::size_t>> told;
  ImportLog log;
  CsvTable::Read({"t.csv", text}, {}, log,
                 {"Reading", [&](std::string_view what, std::size_t done, std::size_t total) {
                    EXPECT_EQ(what, "Reading");
                    told.emplace_back(done, total);
                  }});
  EXPECT_EQ(told, (std::vector<std::pair<std::size_t, std::size_t>>{{0, kMebibyte + 4},
                                                                    {kMebibyte, kMebibyte + 4}}));
}

TEST(CsvTable, SurvivesEveryTruncation) {
  const std::string text = "a,\"b c\"\n1,\"x \"\"y\"\"\"\n\"\n\",é\n";
  for (std::size_t size = 0; size <= text.size(); ++size) {
    const auto [log, table] = Read(text.substr(0, size));
    for (std::size_t row = 0; row < table.RowCount(); ++row)
      for (std::size_t column = 0; column < table.ColumnCount(); ++column)
        EXPECT_LT(table.Cell(row, column).size(), 9u);
  }
}

}  // namespace
}  // namespace lumira
