#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include "desktop/app/EmbeddedTransport.h"
#include "desktop/app/SampleProduct.h"
#include "protocol/ErrorReply.h"

namespace desktop::test {
namespace {

class EmbeddedTransportTest : public ::testing::Test {
 protected:
  std::string Path(const char* name) const { return folder.filePath(name).toStdString(); }
  std::string MakeSample() const {
    const auto made = CreateSampleProduct(KORVO_SOURCE_DIR "/samples", Path("sample.lumira"));
    EXPECT_TRUE(made.Ok());
    return Path("sample.lumira");
  }
  QTemporaryDir folder;
};

TEST_F(EmbeddedTransportTest, NamesTheFileInItsAddress) {
  auto transport = EmbeddedTransport::Open(MakeSample());
  ASSERT_TRUE(transport.Ok());
  EXPECT_EQ(transport.Value()->Address(), "embedded, sample.lumira");
}

TEST_F(EmbeddedTransportTest, AnswersAnUnknownCommandWithAnErrorReply) {
  auto transport = EmbeddedTransport::Open(MakeSample());
  ASSERT_TRUE(transport.Ok());
  EXPECT_TRUE(protocol::IsErrorReply(transport.Value()->Run("NoSuchCommand", "")));
}

TEST_F(EmbeddedTransportTest, AnswersARequestThatCannotBeReadWithAnErrorReply) {
  auto transport = EmbeddedTransport::Open(MakeSample());
  ASSERT_TRUE(transport.Ok());
  EXPECT_TRUE(protocol::IsErrorReply(transport.Value()->Run("WBComputeNymValues", "")));
  EXPECT_TRUE(protocol::IsErrorReply(transport.Value()->Run("LumGetChildren", std::string(100'000, '|'))));
}

TEST_F(EmbeddedTransportTest, DoesNotOpenAFileThatIsNotThere) {
  const auto transport = EmbeddedTransport::Open(Path("none.lumira"));
  ASSERT_FALSE(transport.Ok());
  EXPECT_EQ(transport.Failure().kind, protocol::ErrorKind::NotFound);
  EXPECT_NE(transport.Failure().message.find("none.lumira"), std::string::npos);
}

TEST_F(EmbeddedTransportTest, DoesNotOpenAFileThatIsNoProduct) {
  QFile file(folder.filePath("text.lumira"));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write("This is a letter, not a product.");
  file.close();
  const auto transport = EmbeddedTransport::Open(Path("text.lumira"));
  ASSERT_FALSE(transport.Ok());
  EXPECT_EQ(transport.Failure().kind, protocol::ErrorKind::Storage);
  EXPECT_NE(transport.Failure().message.find("text.lumira"), std::string::npos);
}

TEST_F(EmbeddedTransportTest, ASampleWithoutItsTablesIsNotMadeAndLeavesNothingBehind) {
  const auto made = CreateSampleProduct(Path("no-samples"), Path("sample.lumira"));
  ASSERT_FALSE(made.Ok());
  EXPECT_NE(made.Failure().message.find("structure.csv"), std::string::npos);
  EXPECT_TRUE(QDir(folder.path()).isEmpty());
}

}  // namespace
}  // namespace desktop::test
