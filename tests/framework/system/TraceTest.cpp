#include <gtest/gtest.h>

#include <iostream>
#include <sstream>

#include "tests/support/StreamCapture.h"
#include "tests/support/TraceCapture.h"

namespace {

void TracedFunction(int statusAtTheEnd) {
  int status = 0;
  const TqTrace trace("CompA", "Work()", "Jan  2 2025", "03:04:05", "Class::Work", status);
  if (trace.TraceOn()) trace.GetCout() << "a line" << std::endl;
  status = statusAtTheEnd;
}

TEST(Trace, IsOffAtTheStart) {
  const TqTrace trace("CompA");
  EXPECT_FALSE(trace.TraceOn());
}

TEST(Trace, WritesEntryLinesAndEndOfAFunction) {
  const TraceCapture capture("CompA");
  TracedFunction(7);
  EXPECT_EQ(capture.Text(),
            "-> Class::Work [CompA, Work(), built Jan  2 2025 03:04:05]\n"
            "a line\n"
            "<- Class::Work, status 7\n");
}

TEST(Trace, WritesNothingAndFlushesNothingWhileItIsOff) {
  const TraceCapture capture("CompB");
  const int flushes = TqTrace::FlushCount();
  TracedFunction(0);
  EXPECT_EQ(capture.Text(), "");
  EXPECT_EQ(TqTrace::FlushCount(), flushes);
}

TEST(Trace, SwallowsLinesOfAComponentThatIsOff) {
  const TraceCapture capture("CompB");
  TqTrace("CompA").GetCout() << "text " << 1 << std::endl;
  EXPECT_EQ(capture.Text(), "");
  TqTrace("CompB").GetCout() << "text";
  EXPECT_EQ(capture.Text(), "text");
}

/// Counts how often it is told to bring what it holds to where it goes.
class CountingBuffer : public std::stringbuf {
 public:
  int flushes = 0;

 protected:
  int sync() override {
    ++flushes;
    return 0;
  }
};

TEST(Trace, AFlushReachesTheStreamThatTracesGoTo) {
  CountingBuffer buffer;
  std::ostream stream(&buffer);
  TqTrace::SetOutput(&stream);
  TqTrace::TqTraceFlush();
  TqTrace::SetOutput(nullptr);
  EXPECT_EQ(buffer.flushes, 1);
}

TEST(Trace, CountsItsFlushes) {
  const TraceCapture capture("CompA");
  const int flushes = TqTrace::FlushCount();
  TqTrace::TqTraceFlush();
  EXPECT_EQ(TqTrace::FlushCount(), flushes + 1);
}

TEST(Trace, WritesNoEndWithoutAnEntry) {
  const TraceCapture capture("CompB");
  {
    int status = 0;
    const TqTrace trace("CompA", "Work()", "", "", "Class::Work", status);
    TqTrace::SwitchComponent("CompA", true);
  }
  TqTrace::SwitchComponent("CompA", false);
  EXPECT_EQ(capture.Text(), "");
}

TEST(Trace, SwitchesAllComponentsAtOnceAndSingleOnesAfterwards) {
  TqTrace::SwitchComponent("", true);
  EXPECT_TRUE(TqTrace("CompA").TraceOn());
  EXPECT_TRUE(TqTrace("CompB").TraceOn());
  TqTrace::SwitchComponent("CompA", false);
  EXPECT_FALSE(TqTrace("CompA").TraceOn());
  TqTrace::SwitchComponent("", false);
  EXPECT_FALSE(TqTrace("CompB").TraceOn());
}

TEST(Trace, ListsTheComponentsInTheOrderInWhichTheirObjectsCameIntoBeing) {
  const TqTrace a("CompA");
  {
    const TqTrace b("CompB");
    const TqTrace again("CompA");
    EXPECT_EQ(TqTrace::GetComponents(), (std::vector<KorString>{"CompA", "CompB", "CompA"}));
  }
  EXPECT_EQ(TqTrace::GetComponents(), (std::vector<KorString>{"CompA"}));
}

TEST(Trace, TellsItsObserverOfComponentsAndNotOfFunctions) {
  std::vector<std::string> heard;
  TqTrace::SetComponentObserver(
      [&](const KorString& component, bool alive) { heard.push_back((alive ? "+" : "-") + component); });
  {
    const TqTrace a("CompA");
    const TqTrace b("CompB");
    TracedFunction(0);
  }
  TqTrace::SetComponentObserver(nullptr);
  const TqTrace unheard("CompC");
  EXPECT_EQ(heard, (std::vector<std::string>{"+CompA", "+CompB", "-CompB", "-CompA"}));
}

TEST(Trace, GoesToStandardOutputUntilTheHostSaysWhere) {
  const StreamCapture output(std::cout);
  TqTrace::SwitchComponent("CompA", true);
  TqTrace("CompA").GetCout() << "a line\n";
  TqTrace::SwitchComponent("CompA", false);
  EXPECT_EQ(output.Text(), "a line\n");
}

TEST(Trace, OneComponentSwitchedOnDoesNotSwitchAnotherOn) {
  const TraceCapture capture("CompB");
  EXPECT_TRUE(TqTrace("CompB").TraceOn());
  EXPECT_FALSE(TqTrace("CompA").TraceOn());
}

}  // namespace
