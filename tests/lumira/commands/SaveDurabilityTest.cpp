#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <csignal>
#include <random>
#include <thread>

#include "SaveFixture.h"

namespace lumira::test {
namespace {

constexpr int kRounds = 40;

/// A save as number `count`: each value of it tells the number, so that half of one shows.
protocol::PartData Numbered(protocol::PartData data, int count) {
  for (protocol::MassType& type : data.massTypes)
    if (type.name != "Computed") {
      type.status = protocol::MassTypeStatus::Defined;
      type.mass = count;
      type.cg = protocol::Vector{1.0 * count, 2.0 * count, 3.0 * count};
      type.upperPrecision = count;
    }
  data.material.name = "Material " + std::to_string(count);
  data.material.density = count;
  for (protocol::ExtraProperty& property : data.properties)
    if (!property.isDate) property.value = std::to_string(count);
  return data;
}

/// A process that saves without end and tells the number of each save that was acknowledged.
class SavingProcess {
 public:
  SavingProcess(const std::string& file, int first) {
    if (pipe(_ends.data()) != 0) throw std::runtime_error("no pipe");
    _process = fork();
    if (_process == 0) SaveForever(file, first);
    close(_ends[1]);
  }
  ~SavingProcess() { close(_ends[0]); }
  SavingProcess(const SavingProcess&) = delete;
  SavingProcess& operator=(const SavingProcess&) = delete;

  /// The number of the next acknowledged save; 0 when the process is gone.
  int Next() {
    int count = 0;
    return read(_ends[0], &count, sizeof count) == sizeof count ? count : 0;
  }

  /// Whether it was the signal that ended it.
  bool Kill() {
    kill(_process, SIGKILL);
    int status = 0;
    waitpid(_process, &status, 0);
    return WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL;
  }

 private:
  [[noreturn]] void SaveForever(const std::string& file, int first) {
    const auto store = OpenSqliteStore(file);
    if (!store) _exit(1);
    Server server(*store.Value(), {}, "eva");
    const std::string request = protocol::WritePartDataRequest({.partId = "a"});
    protocol::PartData data = protocol::ReadPartData(server.Run(protocol::kCommandPartData, request)).Value();
    for (int count = first;; ++count) {
      const auto reply = protocol::ReadSaveReply(
          server.Run(protocol::kCommandSavePart, protocol::WritePartData(Numbered(data, count))));
      if (!reply) _exit(2);
      data.stateToken = reply.Value().stateToken;
      if (write(_ends[1], &count, sizeof count) != sizeof count) _exit(3);
    }
  }

  std::array<int, 2> _ends{};
  pid_t _process = -1;
};

class SaveDurability : public SaveFixture {
 protected:
  // Nobody may hold the file while the other process is made.
  void Close() {
    server.reset();
    store.reset();
  }

  void Reopen() {
    store = OpenSqliteStore(file).Value();
    server = ServerFor("eva");
  }

  // The number of the save that is stored, all of it.
  int StoredCount() {
    const protocol::PartData data = PartDataOf("a");
    const int count = static_cast<int>(data.massTypes.at(1).mass.value_or(-1));
    EXPECT_EQ(protocol::WritePartData(data), protocol::WritePartData(Numbered(data, count))) << "half a save";
    return count;
  }
};

TEST_F(SaveDurability, OfAcknowledgedSavesHoldsWhenTheServerIsKilledInTheMiddleOfOthers) {
  std::mt19937 random(7);
  int count = 0, saved = 0;
  for (int round = 0; round < kRounds; ++round) {
    Close();
    SavingProcess process(file, count + 1);
    int acknowledged = process.Next();
    ASSERT_EQ(acknowledged, count + 1) << "the process does not save";
    std::this_thread::sleep_for(std::chrono::microseconds(random() % 15'000));
    ASSERT_TRUE(process.Kill());
    while (const int next = process.Next()) acknowledged = next;
    Reopen();
    const int stored = StoredCount();
    // The last one may have been stored without anybody having been told.
    EXPECT_GE(stored, acknowledged);
    EXPECT_LE(stored, acknowledged + 1);
    const protocol::History history = HistoryOf("a", 0, 1);
    EXPECT_EQ(history.total, stored) << "one record for each save";
    EXPECT_EQ(history.entries.at(0).changes.at(0).after, std::to_string(stored));
    saved += acknowledged - count;
    count = stored;
  }
  EXPECT_GT(saved, kRounds) << "more than the first of each round, so that the kill met others";
}

}  // namespace
}  // namespace lumira::test
