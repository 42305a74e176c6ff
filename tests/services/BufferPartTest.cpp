#include "tests/services/SamplePart.h"

namespace {

using Base = KorWBAllDataBuffer;

TEST(Buffer, IsEmptyAtTheStart) {
  const auto buffer = LumWBAllDataBuffer_var::Adopt(new LumWBAllDataBuffer);
  EXPECT_EQ(TextOf<Base>(*buffer.Get(), &Base::GetPartIdentifier), "");
  EXPECT_EQ(TextOf<Base>(*buffer.Get(), &Base::GetFilter), "0|No Filter");
  EXPECT_EQ(buffer->GetMassTypeList().Size(), 0);
  EXPECT_TRUE(buffer->GetPlacement().empty());
  EXPECT_TRUE(buffer->GetLastRefusal().IsEmpty());
  EXPECT_EQ(TextOf<LumWBAllDataBuffer>(*buffer.Get(), &LumWBAllDataBuffer::GetActiveDocId), "0");
}

TEST(Buffer, IsReferenceCounted) {
  auto* buffer = new LumWBAllDataBuffer;
  Base* base = buffer;
  EXPECT_EQ(base->AddRef(), 2u);
  EXPECT_EQ(base->Release(), 1u);
  EXPECT_EQ(buffer->Release(), 0u);
}

TEST(Buffer, OffersThePdmSideOfItself) {
  const LoadedBuffer buffer;
  Base* base = buffer.Get();
  EXPECT_EQ(LumWBAllDataBuffer::Of(base), buffer.Get());
  EXPECT_EQ(LumWBAllDataBuffer::Of(nullptr), nullptr);
}

TEST(Buffer, TellsWhatWasSelected) {
  const LoadedBuffer buffer;
  EXPECT_EQ(TextOf<Base>(*buffer.Get(), &Base::GetPartIdentifier), "bedplate");
  EXPECT_EQ(TextOf<Base>(*buffer.Get(), &Base::GetConfigurationHandler), "IEA15");
  EXPECT_EQ(TextOf<LumWBAllDataBuffer>(*buffer.Get(), &LumWBAllDataBuffer::GetInstancePath),
            "nacelle.1|bedplate.1");
}

TEST(Buffer, GivesThePlacementWithItsTranslationInMillimetres) {
  EXPECT_EQ(LoadedBuffer()->GetPlacement(),
            (std::vector<double>{0, -1, 0, 1, 0, 0, 0, 0, 1, 500, 1000, -2000}));
}

TEST(Buffer, GivesNoPlacementWhenThereIsNone) {
  protocol::PartData part = SamplePart();
  part.placement.clear();
  EXPECT_TRUE(LoadedBuffer(part)->GetPlacement().empty());
}

TEST(Buffer, KeepsWhetherItsResultIsUpToDate) {
  const LoadedBuffer buffer;
  bool upToDate = false;
  EXPECT_EQ(buffer->GetCalculationUpToDate(upToDate), S_OK);
  EXPECT_TRUE(upToDate);
  EXPECT_EQ(buffer->SetCalculationUpToDate(false), S_OK);
  EXPECT_FALSE(buffer.Sent().computed);
}

TEST(Buffer, TellsWhetherItIsPersisted) {
  protocol::PartData part = SamplePart();
  for (bool expected : {true, false}) {
    part.persisted = expected;
    bool persisted = !expected;
    EXPECT_EQ(LoadedBuffer(part)->IsPersisted(persisted), S_OK);
    EXPECT_EQ(persisted, expected);
  }
}

TEST(Buffer, KeepsTheInertiaMode) {
  const LoadedBuffer buffer;
  EXPECT_FALSE(buffer->GetReferenceInertiaMode());
  buffer->SetReferenceInertiaMode(true);
  EXPECT_TRUE(buffer->GetReferenceInertiaMode());
}

TEST(Buffer, IsComputableWithAUserMassTypeUnlessTheHostSaysOtherwise) {
  const LoadedBuffer buffer;
  EXPECT_TRUE(buffer->IsComputableWithUserMassType());
  buffer->SetComputableWithUserMassType(false);
  EXPECT_FALSE(buffer->IsComputableWithUserMassType());
  buffer->SetAllData(protocol::WritePartData(SamplePart()), true);
  EXPECT_FALSE(buffer->IsComputableWithUserMassType());
}

TEST(Buffer, KeepsThePreComputeSwitchWhenItTakesAnotherPart) {
  const LoadedBuffer buffer;
  buffer->SetPreComputeSwitch(false);
  buffer->SetAllData(protocol::WritePartData(SamplePart()), true);
  EXPECT_EQ(TextOf<Base>(*buffer.Get(), &Base::GetComputedInfo),
            "ComputeOptions/1|0%7CNo Filter|0|0|Cast iron|end");
}

}  // namespace
