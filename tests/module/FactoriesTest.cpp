#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <typeinfo>

#include "framework/dialog/KorApplicationFrame.h"
#include "framework/system/KorClassDictionary.h"
#include "framework/system/KorObjectAllocator.h"
#include "module/filter_panel/KorWBNymNavFilterPanel.h"
#include "module/report_panel/KorWBNymNavReportPanel.h"
#include "module/shared/KorWBNymNavFactories.h"
#include "tests/module/FailingMemory.h"
#include "tests/support/TraceCapture.h"

namespace {

/// While it lives, the host's allocator gives so many blocks and then none; counts those that are out.
class CountedMemory {
 public:
  explicit CountedMemory(int blocks) {
    s_left = blocks;
    s_out = 0;
    KorApplicationFrame::GetMainWindow();  // comes into being at its first use
    _before = KorObjectAllocator::SetSource({&Allocate, &Free});
  }
  ~CountedMemory() { KorObjectAllocator::SetSource(_before); }
  CountedMemory(const CountedMemory&) = delete;
  CountedMemory& operator=(const CountedMemory&) = delete;

  static int BlocksOut() { return s_out; }

 private:
  static void* Allocate(std::size_t size) {
    if (s_left == 0) return nullptr;
    --s_left;
    ++s_out;
    return std::malloc(size);
  }
  static void Free(void* memory) {
    --s_out;
    std::free(memory);
  }
  inline static int s_left = 0;
  inline static int s_out = 0;
  KorObjectAllocator::Source _before{};
};

struct Factory {
  const char* className;
  void* (*create)();
  const std::type_info* type;
};
void PrintTo(const Factory& factory, std::ostream* out) { *out << factory.className; }

struct Factories : testing::TestWithParam<Factory> {
  using Made = std::unique_ptr<KorDlgDialog>;
  static Made FromFactory() { return AsDialog(GetParam().create()); }
  static Made FromDictionary() { return AsDialog(KorClassDictionary::Create(GetParam().className)); }

  static Made AsDialog(void* object) {
    if (*GetParam().type == typeid(KorWBNymNavFilterPanel))
      return Made(static_cast<KorWBNymNavFilterPanel*>(object));
    return Made(static_cast<KorWBNymNavReportPanel*>(object));
  }
};

TEST_P(Factories, MakeThePanelOfTheirClassWithoutLayingItOut) {
  const Made panel = FromFactory();
  ASSERT_TRUE(panel);
  EXPECT_EQ(typeid(*panel), *GetParam().type);
  EXPECT_EQ(panel->Name(), GetParam().className);
  EXPECT_TRUE(panel->Children().empty());
}

TEST_P(Factories, TheDictionaryMakesTheSameByTheClassName) {
  EXPECT_TRUE(KorClassDictionary::Knows(GetParam().className));
  const Made made = FromFactory();
  const Made byName = FromDictionary();
  ASSERT_TRUE(made && byName);
  EXPECT_EQ(typeid(*byName), typeid(*made));
  EXPECT_EQ(byName->Name(), made->Name());
  EXPECT_EQ(byName->Style(), made->Style());
  EXPECT_EQ(byName->Parent(), made->Parent());
  EXPECT_NE(byName, made) << "each call makes a new one";
}

TEST_P(Factories, WithoutMemoryAnswerNullAndConstructNothing) {
  const CountedMemory memory(0);
  const TraceCapture trace("KorWBNymNavReportPanel");  // the report panel's constructor would write to it
  EXPECT_EQ(GetParam().create(), nullptr);
  EXPECT_EQ(KorClassDictionary::Create(GetParam().className), nullptr);
  EXPECT_EQ(trace.Text(), "");
  EXPECT_EQ(CountedMemory::BlocksOut(), 0);
}

TEST_P(Factories, TakeOneBlockOfTheHostsMemoryAndGiveItBackWithThePanel) {
  const CountedMemory memory(1);
  Made panel = FromFactory();
  ASSERT_TRUE(panel);
  EXPECT_EQ(CountedMemory::BlocksOut(), 1);
  EXPECT_EQ(GetParam().create(), nullptr) << "there was one block only";
  panel.reset();
  EXPECT_EQ(CountedMemory::BlocksOut(), 0);
}

TEST_P(Factories, WithoutMemoryForWhatThePanelHoldsAnswerNullAndGiveItsBlockBack) {
  int refusals = 0;
  for (bool refused = true; refused; refusals += refused) {
    const CountedMemory memory(1);
    void* made = nullptr;
    {
      const FailingMemory failing(refusals);  // one block more each time, until they suffice
      made = GetParam().create();
    }
    refused = FailingMemory::HasRefused();
    const Made panel = AsDialog(made);
    EXPECT_EQ(panel == nullptr, refused) << "after " << refusals << " blocks";
    EXPECT_EQ(CountedMemory::BlocksOut(), refused ? 0 : 1) << "after " << refusals << " blocks";
  }
  EXPECT_GT(refusals, 0) << "the panel needs no memory but its own block";
}

TEST_P(Factories, WorkAgainWhenThereIsMemoryAgain) {
  {
    const CountedMemory memory(0);
    EXPECT_EQ(GetParam().create(), nullptr);
  }
  EXPECT_TRUE(FromFactory());
}

INSTANTIATE_TEST_SUITE_P(Panels, Factories,
                         testing::Values(Factory{"KorWBNymNavFilterPanel", &fctCreateKorWBNymNavFilterPanel,
                                                 &typeid(KorWBNymNavFilterPanel)},
                                         Factory{"KorWBNymNavReportPanel", &fctCreateKorWBNymNavReportPanel,
                                                 &typeid(KorWBNymNavReportPanel)}));

TEST(Factory, TheOtherClassesHaveNone) {
  for (const char* name :
       {"KorWBNymMainPanel", "KorWBNymNavGroupPanel", "KorIWBWarning", "KorWBNymNavUnitsConversion"}) {
    EXPECT_FALSE(KorClassDictionary::Knows(name)) << name;
    EXPECT_EQ(KorClassDictionary::Create(name), nullptr) << name;
  }
}

}  // namespace
