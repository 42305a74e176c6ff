#include "services/KorLumWBCSCommonDefinitions.h"
#include "tests/services/SamplePart.h"

namespace {

using Lum = LumWBAllDataBuffer;

KorUnicodeString Info(const LoadedBuffer& buffer, int index, int kind) {
  KorUnicodeString text = "before";
  EXPECT_EQ(buffer->GetDocRevsInfo(index, kind, text), S_OK);
  return text;
}

TEST(Documents, TellTheActiveDocumentAndTheMode) {
  const LoadedBuffer buffer;
  EXPECT_TRUE(buffer->AreOldDocumentsUsed());
  EXPECT_EQ(TextOf<Lum>(*buffer.Get(), &Lum::GetActiveDocId), "D-100");
  EXPECT_EQ(TextOf<Lum>(*buffer.Get(), &Lum::GetActiveDocVersion), "B");
  EXPECT_EQ(buffer->GetDocAutoMode(), 1);
  EXPECT_TRUE(buffer->HasUsedSpecificRevBefore());
  EXPECT_EQ(buffer->GetCurrentlyAttachedVersion(), "A");
  EXPECT_EQ(buffer->GetVersionCount(), 2u);
}

TEST(Documents, StoreTheActiveDocument) {
  const LoadedBuffer buffer;
  EXPECT_EQ(buffer->SetActiveDocId("__null__"), S_OK);
  EXPECT_EQ(buffer->SetActiveDocVersion("A"), S_OK);
  EXPECT_EQ(buffer.Sent().documents.activeId, "__null__");
  EXPECT_EQ(buffer.Sent().documents.activeVersion, "A");
}

TEST(Documents, TellTheAutomaticRevisionFromTheSameOneSetByHand) {
  protocol::PartData part = SamplePart();
  part.documents.usedSpecificRevisionBefore = false;
  const LoadedBuffer buffer(part);
  EXPECT_FALSE(buffer.Sent().documents.usedSpecificRevisionBefore);
  buffer->SetActiveDocVersion("B");
  EXPECT_TRUE(buffer.Sent().documents.usedSpecificRevisionBefore);
  buffer->SetActiveDocVersion("__null__");
  EXPECT_FALSE(buffer.Sent().documents.usedSpecificRevisionBefore);
}

TEST(Documents, CountRevisionsFromOne) {
  const LoadedBuffer buffer;
  EXPECT_EQ(Info(buffer, 1, Lum::kRevision), "B");
  EXPECT_EQ(Info(buffer, 2, Lum::kRevision), "A");
}

TEST(Documents, GiveSixTextsOfARevision) {
  const LoadedBuffer buffer;
  EXPECT_EQ(Info(buffer, 1, 1), "2024-05-01");
  EXPECT_EQ(Info(buffer, 1, 2), "eva");
  EXPECT_EQ(Info(buffer, 1, 3), "jan");
  EXPECT_EQ(Info(buffer, 1, 4), "Estimated");
  EXPECT_EQ(Info(buffer, 1, 5), "42.5");
}

TEST(Documents, NameNobodyAsNullAndNoMassAsZero) {
  const LoadedBuffer buffer;
  EXPECT_EQ(Info(buffer, 2, Lum::kCheckOutUser), "__null__");
  EXPECT_EQ(Info(buffer, 2, Lum::kDocMass), "0");
}

TEST(Documents, FailForARevisionOrKindThatDoesNotExist) {
  const LoadedBuffer buffer;
  KorUnicodeString text = "before";
  for (int index : {0, 3, -1}) EXPECT_EQ(buffer->GetDocRevsInfo(index, 0, text), E_FAIL);
  for (int kind : {-1, 6}) EXPECT_EQ(buffer->GetDocRevsInfo(1, kind, text), E_FAIL);
  EXPECT_EQ(text, "before");
}

TEST(Documents, TellThatTheServerFailedToFindThem) {
  protocol::PartData part = SamplePart();
  part.documents.activeId = "__EXCEPTION__";
  EXPECT_EQ(TextOf<Lum>(*LoadedBuffer(part).Get(), &Lum::GetActiveDocId),
            KorLumWBCSCommonDefinitions::ExceptionFlag);
}

}  // namespace
