#include <gtest/gtest.h>

#include "framework/system/KorBaseUnknown.h"

namespace {

class Counted : public KorBaseUnknown {
 public:
  explicit Counted(int& alive) : _alive(alive) { ++_alive; }

 private:
  ~Counted() override { --_alive; }
  int& _alive;
};

using Counted_var = KorVar<Counted>;

TEST(ReferenceCount, IsOneForANewObject) {
  int alive = 0;
  auto* object = new Counted(alive);
  EXPECT_EQ(object->ReferenceCount(), 1u);
  EXPECT_EQ(object->AddRef(), 2u);
  EXPECT_EQ(object->Release(), 1u);
  EXPECT_EQ(alive, 1);
  EXPECT_EQ(object->Release(), 0u);
  EXPECT_EQ(alive, 0);
}

TEST(Handle, HoldsAReferenceOfItsOwn) {
  int alive = 0;
  auto* object = new Counted(alive);
  {
    const Counted_var handle(object);
    EXPECT_EQ(object->ReferenceCount(), 2u);
  }
  EXPECT_EQ(object->ReferenceCount(), 1u);
  object->Release();
  EXPECT_EQ(alive, 0);
}

TEST(Handle, TakesOverTheReferenceOfANewObject) {
  int alive = 0;
  {
    const auto handle = Counted_var::Adopt(new Counted(alive));
    EXPECT_EQ(handle->ReferenceCount(), 1u);
  }
  EXPECT_EQ(alive, 0);
}

TEST(Handle, SharesWhenCopiedAndNotWhenMoved) {
  int alive = 0;
  auto first = Counted_var::Adopt(new Counted(alive));
  const Counted_var copy = first;
  EXPECT_EQ(copy->ReferenceCount(), 2u);
  const Counted_var moved = std::move(first);
  EXPECT_EQ(moved->ReferenceCount(), 2u);
  EXPECT_TRUE(copy == moved);
}

TEST(Handle, SurvivesAssignmentToItself) {
  int alive = 0;
  auto handle = Counted_var::Adopt(new Counted(alive));
  const Counted_var& same = handle;
  handle = same;
  EXPECT_EQ(handle->ReferenceCount(), 1u);
  EXPECT_EQ(alive, 1);
}

TEST(Handle, LetsTheOldObjectGoWhenItTakesANewOne) {
  int alive = 0;
  auto handle = Counted_var::Adopt(new Counted(alive));
  handle = Counted_var::Adopt(new Counted(alive));
  EXPECT_EQ(alive, 1);
  handle = nullptr;
  EXPECT_EQ(alive, 0);
  EXPECT_FALSE(handle);
}

TEST(Handle, ConvertsToAHandleOfTheBase) {
  int alive = 0;
  const auto handle = Counted_var::Adopt(new Counted(alive));
  const KorBaseUnknown_var base = handle;
  EXPECT_EQ(base->ReferenceCount(), 2u);
}

}  // namespace
