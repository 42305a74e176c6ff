#include <regex>

#include "module/report_panel/KorWBNymNavReportPanel.h"
#include "module/shared/KorWBNymNavTrace.h"
#include "tests/module/FilterPanelTest.h"
#include "tests/module/PanelTest.h"
#include "tests/support/TraceCapture.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// While it lives, traces of whatever component go here; none is switched on.
class SilentTrace {
 public:
  SilentTrace() : _flushes(TqTrace::FlushCount()) { TqTrace::SetOutput(&_text); }
  ~SilentTrace() { TqTrace::SetOutput(nullptr); }
  SilentTrace(const SilentTrace&) = delete;
  SilentTrace& operator=(const SilentTrace&) = delete;

  void ExpectNothing() const {
    EXPECT_EQ(_text.str(), "");
    EXPECT_EQ(TqTrace::FlushCount(), _flushes);
  }

 private:
  std::ostringstream _text;
  int _flushes;
};

std::vector<std::string> Lines(const std::string& text) {
  std::istringstream in(text);
  std::vector<std::string> lines;
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

// Compile date and time as compilers write them: "Feb  3 2025 07:08:09".
const std::string kBuilt =
    "(Jan|Feb|Mar|Apr|May|Jun|Jul|Aug|Sep|Oct|Nov|Dec) [ 123][0-9] [0-9]{4} "
    "[0-9]{2}:[0-9]{2}:[0-9]{2}";

/// Tracing of the part panel.
using Tracing = PanelTest;
/// Tracing of the filter panel, which has none.
using FilterPanelTracing = FilterPanelTest;

TEST(ReportPanelTracing, ItsConstructorWritesEntryAndEndWithComponentLabelDateTimeAndName) {
  const TraceCapture trace("KorWBNymNavReportPanel");
  { const KorWBNymNavReportPanel panel; }
  const auto lines = Lines(trace.Text());
  ASSERT_EQ(lines.size(), 2u) << trace.Text();
  EXPECT_TRUE(std::regex_match(lines[0],
                               std::regex("-> KorWBNymNavReportPanel::KorWBNymNavReportPanel "
                                          "\\[KorWBNymNavReportPanel, KorWBNymNavReportPanel\\(\\), built " +
                                          kBuilt + "\\]")))
      << lines[0];
  EXPECT_EQ(lines[1], "<- KorWBNymNavReportPanel::KorWBNymNavReportPanel, status 0");
}

TEST(ReportPanelTracing, IsOffAtTheStart) {
  const SilentTrace trace;
  { const KorWBNymNavReportPanel panel; }
  trace.ExpectNothing();
}

TEST(ReportPanelTracing, StaysSilentWhileOnlyTheOtherComponentsAreOn) {
  const TraceCapture part("KorWBCompPart");
  TqTrace::SwitchComponent("KorWBCompGroup", true);
  { const KorWBNymNavReportPanel panel; }
  TqTrace::SwitchComponent("KorWBCompGroup", false);
  EXPECT_EQ(part.Text(), "");
}

TEST_F(Tracing, OfThePartPanelNamesItsComponentOnEveryEntry) {
  TraceCapture trace("KorWBCompPart");
  Open(SamplePart());
  const std::regex entry("-> KorWBNymMainPanel::(\\w+) \\[KorWBCompPart, (\\w+)\\(\\), built " + kBuilt +
                         "\\]");
  int entries = 0;
  for (const std::string& line : Lines(trace.Text())) {
    if (!line.starts_with("-> ")) continue;
    std::smatch parts;
    ASSERT_TRUE(std::regex_match(line, parts, entry)) << line;
    EXPECT_EQ(parts[1], parts[2]) << "the label is the function's name";
    ++entries;
  }
  EXPECT_GT(entries, 3);
}

TEST_F(Tracing, OfThePartPanelEndsWhatItBegins) {
  TraceCapture trace("KorWBCompPart");
  Open(SamplePart());
  Close();
  std::vector<std::string> open;
  for (const std::string& line : Lines(trace.Text())) {
    if (line.starts_with("-> ")) open.push_back(line.substr(3, line.find(' ', 3) - 3));
    if (!line.starts_with("<- ")) continue;
    ASSERT_FALSE(open.empty()) << line;
    EXPECT_EQ(line, "<- " + open.back() + ", status 0");
    open.pop_back();
  }
  EXPECT_THAT(open, IsEmpty());
}

TEST_F(Tracing, ALineIsWrittenEndedAndFlushedOnce) {
  const TraceCapture trace("KorWBCompPart");
  const TqTrace component("KorWBCompPart");
  const int flushes = TqTrace::FlushCount();
  KorWBNymNavTraceLine(component, "The mass is ", 5, " kg");
  EXPECT_EQ(trace.Text(), "The mass is 5 kg\n");
  EXPECT_EQ(TqTrace::FlushCount(), flushes + 1);
}

TEST_F(Tracing, WhileItIsOffNoLineIsWrittenOrFlushed) {
  const SilentTrace trace;
  const TqTrace component("KorWBCompPart");
  KorWBNymNavTraceLine(component, "The mass is ", 5, " kg");
  Open(SamplePart());
  trace.ExpectNothing();
}

TEST_F(Tracing, OfAnotherComponentLeavesThePartPanelSilent) {
  const TraceCapture trace("KorWBNymNavReportPanel");
  const int flushes = TqTrace::FlushCount();
  Open(SamplePart());
  EXPECT_EQ(trace.Text(), "");
  EXPECT_EQ(TqTrace::FlushCount(), flushes);
}

TEST_F(FilterPanelTracing, TheFilterPanelDoesNotTraceWhateverIsOn) {
  const TraceCapture trace("");
  const int flushes = TqTrace::FlushCount();
  Open();
  Add("I1", "P1", "A", "", 0);
  PressOK();
  Close();
  EXPECT_EQ(trace.Text(), "");
  EXPECT_EQ(TqTrace::FlushCount(), flushes);
}

TEST(TraceComponents, OfTheModuleAreThreeInTheirOrder) {
  EXPECT_THAT(TqTrace::GetComponents(),
              ElementsAre("KorWBCompPart", "KorWBCompGroup", "KorWBNymNavReportPanel"));
}

}  // namespace
