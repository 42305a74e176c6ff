#include <gtest/gtest.h>

#include <array>
#include <new>

#include "framework/system/KorCommand.h"
#include "framework/system/KorNotification.h"
#include "framework/system/KorObjectAllocator.h"

namespace {

/// One place that is handed out once.
struct OnePlace {
  alignas(std::max_align_t) inline static std::array<unsigned char, 4096> place;
  inline static bool taken = false;
  inline static std::size_t asked = 0;

  static void* Allocate(std::size_t size) {
    asked = size;
    if (taken || size > place.size()) return nullptr;
    taken = true;
    return place.data();
  }
  static void Free(void* memory) {
    EXPECT_EQ(memory, place.data());
    taken = false;
  }
};

struct ObjectAllocator : testing::Test {
  ObjectAllocator() : before(KorObjectAllocator::SetSource({&OnePlace::Allocate, &OnePlace::Free})) {}
  ~ObjectAllocator() override { KorObjectAllocator::SetSource(before); }
  KorObjectAllocator::Source before;
};

TEST_F(ObjectAllocator, TakesMemoryFromItsSourceAndGivesItBack) {
  void* memory = KorObjectAllocator::Allocate(100);
  EXPECT_EQ(memory, OnePlace::place.data());
  EXPECT_EQ(OnePlace::asked, 100u);
  KorObjectAllocator::Free(memory);
  EXPECT_FALSE(OnePlace::taken);
}

TEST_F(ObjectAllocator, ThrowsWhenTheSourceHasNothingLeft) {
  void* memory = KorObjectAllocator::Allocate(8);
  EXPECT_THROW(KorObjectAllocator::Allocate(8), std::bad_alloc);
  KorObjectAllocator::Free(memory);
}

TEST_F(ObjectAllocator, GivesNothingBackForNull) {
  OnePlace::taken = true;
  KorObjectAllocator::Free(nullptr);
  EXPECT_TRUE(OnePlace::taken);
  OnePlace::taken = false;
}

TEST_F(ObjectAllocator, AnswersTheSourceThatWasSetBefore) {
  const auto mine = KorObjectAllocator::SetSource(before);
  EXPECT_EQ(mine.allocate, &OnePlace::Allocate);
  EXPECT_EQ(KorObjectAllocator::SetSource(mine).allocate, before.allocate);
}

TEST_F(ObjectAllocator, CommandsStandInIt) {
  auto* command = new KorCommand;
  EXPECT_EQ(static_cast<void*>(command), OnePlace::place.data());
  EXPECT_THROW(new KorCommand, std::bad_alloc);
  delete command;
  EXPECT_FALSE(OnePlace::taken);
}

/// A command that writes down what is sent on to it.
struct Listener : KorCommand {
  KorCommand* from = nullptr;
  KorNotification* heard = nullptr;
  void AnalyseNotification(KorCommand* sender, KorNotification* notification) override {
    from = sender;
    heard = notification;
  }
};

struct Sender : KorCommand {
  using KorCommand::KorCommand;
  using KorCommand::SendNotification;
};

TEST(Command, SendsNotificationsOnToItsParentOnly) {
  Listener first, second;
  Sender sender(&first);
  KorNotification notification{KorEvent::DialogOK};
  sender.SendNotification(&notification);
  EXPECT_EQ(first.from, &sender);
  EXPECT_EQ(first.heard, &notification);
  sender.SetParentCommand(&second);
  EXPECT_EQ(sender.GetParentCommand(), &second);
  first.heard = nullptr;
  sender.SendNotification(&notification);
  EXPECT_EQ(second.heard, &notification);
  EXPECT_EQ(first.heard, nullptr);
}

TEST(Command, WithoutAParentTellsNobody) {
  Sender sender;
  KorNotification notification{KorEvent::DialogOK};
  sender.SendNotification(&notification);
  EXPECT_EQ(sender.GetParentCommand(), nullptr);
}

TEST(Command, GivesUpWithZero) {
  KorCommand command;
  EXPECT_EQ(command.Cancel(nullptr, nullptr), 0);
}

}  // namespace
