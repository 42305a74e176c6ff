#include "framework/dialog/KorDlgTabContainer.h"
#include "module/shared/KorWBNymNavUnitsConversion.h"
#include "tests/module/PanelTest.h"
#include "tests/module/ProbeBuffer.h"
#include "tests/module/ProbePanel.h"
#include "tests/support/TraceCapture.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

namespace {

constexpr const char* kUnitEvents[] = {"WBDensityChangedEvent", "WBLengthChangedEvent", "WBMassChangedEvent",
                                       "WBMomentOfInertiaChangedEvent"};

class Construction : public PanelTest {
 protected:
  static int Subscriptions(const char* event) {
    return KorWBNymNavUnitsConversion::Instance()->CallbackCount(event);
  }
};

TEST_F(Construction, HoldsOneReferenceToTheBufferUntilItsEnd) {
  auto buffer = BufferOf(SamplePart());
  const KorBaseUnknown& counted = *buffer;
  EXPECT_EQ(counted.ReferenceCount(), 1u);
  {
    KorWBNymMainPanel panel(buffer.Get());
    EXPECT_EQ(counted.ReferenceCount(), 2u);
  }
  EXPECT_EQ(counted.ReferenceCount(), 1u);
}

TEST_F(Construction, KeepsABufferAliveThatNobodyElseHolds) {
  auto* raw = new LumWBAllDataBuffer;
  raw->SetAllData(protocol::WritePartData(SamplePart()), true);
  auto panel = std::make_unique<KorWBNymMainPanel>(raw);
  raw->Release();
  EXPECT_EQ(panel->RefreshPanelWithInfo(), S_OK);
}

TEST_F(Construction, ReadsComputedFlagMaterialAndDensityInThisOrder) {
  auto buffer = ProbeBuffer::Of(SamplePart());
  KorWBNymMainPanel panel(buffer.Get());
  ASSERT_GE(buffer->calls.size(), 3u);
  buffer->calls.resize(3);
  EXPECT_THAT(buffer->calls, ElementsAre("GetCalculationUpToDate", "GetMaterialName", "GetDensity"));
}

TEST_F(Construction, SubscribesOnceToEachChangeOfUnitsAndUnsubscribesAtItsEnd) {
  std::vector<int> before;
  for (const char* event : kUnitEvents) before.push_back(Subscriptions(event));
  Open(SamplePart());
  for (std::size_t i = 0; i < before.size(); ++i) EXPECT_EQ(Subscriptions(kUnitEvents[i]), before[i] + 1);
  Close();
  for (std::size_t i = 0; i < before.size(); ++i) EXPECT_EQ(Subscriptions(kUnitEvents[i]), before[i]);
}

TEST_F(Construction, TheSubscriptionsCanBeRemovedAndAddedAgain) {
  Open(SamplePart());
  const int subscribed = Subscriptions("WBMassChangedEvent");
  Panel().UnsubscribeToCallbacks();
  EXPECT_EQ(Subscriptions("WBMassChangedEvent"), subscribed - 1);
  Panel().SubscribeToCallbacks();
  EXPECT_EQ(Subscriptions("WBMassChangedEvent"), subscribed);
}

TEST_F(Construction, EachChangeOfUnitsArrivesWithItsUnitsType) {
  UseMaker([](KorWBAllDataBuffer* buffer) { return std::make_unique<ProbePanel>(buffer); });
  Open(SamplePart());
  auto& probe = dynamic_cast<ProbePanel&>(Panel());
  probe.calls.clear();
  for (const char* event : kUnitEvents) KorWBNymNavUnitsConversion::Instance()->Publish(event);
  ASSERT_EQ(probe.calls.size(), 4u);
  for (int i = 0; i < 4; ++i) {
    EXPECT_EQ(probe.calls[i].handler, "OnModifyUnit");
    EXPECT_EQ(KorClientNumber(probe.calls[i].data), i + 1);
  }
}

TEST_F(Construction, AChangeOfUnitsShowsNothingUntilTheNextRefresh) {
  Open(SamplePart());
  EXPECT_EQ(Text("MassEditor"), "2 kg");
  SetUnit("MASS", "GRAM");
  KorWBNymNavUnitsConversion::Instance()->Publish("WBMassChangedEvent");
  EXPECT_EQ(Text("MassEditor"), "2 kg");
  Panel().RefreshPanelWithInfo();
  EXPECT_EQ(Text("MassEditor"), "2000 g");
}

TEST_F(Construction, NamesItsCatalogueAndThenThoseOfItsBase) {
  Open(SamplePart());
  EXPECT_EQ(Panel().GetResourceFilename(0), "KorWBNymMainPanel");
  EXPECT_EQ(Panel().GetResourceFilename(1), "");
  EXPECT_EQ(Panel().GetResourceFilename(2), "");
}

TEST_F(Construction, ItsEndWritesDoneToTheStandardOutput) {
  Open(SamplePart());
  ClearOutput();
  Close();
  EXPECT_EQ(Output(), "done!\n");
}

TEST_F(Construction, WithoutABufferThePanelIsEmptyAndEverythingDoesNothing) {
  OpenWithoutBuffer();
  TraceCapture trace("KorWBCompPart");
  EXPECT_EQ(Panel().RefreshPanelWithInfo(), S_OK);
  EXPECT_THAT(trace.Text(), HasSubstr("RefreshPanelWithInfo()"));
  EXPECT_THAT(trace.Text(), Not(HasSubstr("All pages have been refreshed")));
  EXPECT_EQ(Panel().RefreshMassUnits(), E_FAIL);
  EXPECT_EQ(Panel().RefreshLengthUnits(), E_FAIL);
  EXPECT_EQ(Panel().RefreshDensityUnits(), E_FAIL);
  EXPECT_EQ(Panel().RefreshMomentOfInertiaUnits(), E_FAIL);
  EXPECT_EQ(Panel().RefreshMomentOfInertiaUnits(KorMath3x3Matrix(), "Active"), E_FAIL);
  EXPECT_EQ(Panel().RefreshResultsTab(), E_FAIL);
  EXPECT_EQ(Panel().RefreshMassTypeTab(), E_FAIL);
  EXPECT_EQ(Panel().RefreshMaterialTab(), E_FAIL);
  EXPECT_EQ(Panel().RefreshPrecisionTab(), E_FAIL);
  EXPECT_TRUE(Panel().Children().empty());
  Close();
  EXPECT_THAT(Output(), HasSubstr("done!"));
}

TEST_F(Construction, SubscribesToChangesOfUnitsWithoutABufferToo) {
  const int before = Subscriptions("WBMassChangedEvent");
  OpenWithoutBuffer();
  EXPECT_EQ(Subscriptions("WBMassChangedEvent"), before + 1);
}

TEST_F(Construction, IsTracedForThePartPanelsComponent) {
  TraceCapture trace("KorWBCompPart");
  Open(SamplePart());
  EXPECT_THAT(trace.Text(), HasSubstr("KorWBNymMainPanel()"));
  EXPECT_THAT(trace.Text(), HasSubstr("KorWBNymMainPanel::KorWBNymMainPanel"));
  EXPECT_THAT(trace.Text(), HasSubstr("RefreshPanelWithInfo()"));
  EXPECT_THAT(trace.Text(), HasSubstr("KorWBNymMainPanel::RefreshPanelWithInfo"));
}

TEST_F(Construction, WithTracingOffNoTraceIsWrittenAndNothingIsFlushed) {
  std::ostringstream traces;
  TqTrace::SetOutput(&traces);
  const int flushes = TqTrace::FlushCount();
  Open(SamplePartWithDocuments());
  Panel().SetModel(&Buffer());
  Close();
  TqTrace::SetOutput(nullptr);
  EXPECT_EQ(traces.str(), "");
  EXPECT_EQ(TqTrace::FlushCount(), flushes);
}

}  // namespace
