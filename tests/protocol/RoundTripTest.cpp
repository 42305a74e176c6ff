#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <random>

#include "FormTable.h"
#include "protocol/FieldWriter.h"

namespace protocol::test {
namespace {

// Makes part data with lists of random sizes, numbers of random bits and texts of awkward characters.
class RandomPart {
 public:
  explicit RandomPart(unsigned seed) : _random(seed) {}

  PartData Make() {
    PartData part;
    part.partId = Text();
    part.instancePath = Text();
    part.filter = Text();
    part.computed = Flag();
    part.massTypes.resize(_random() % 4);
    for (MassType& type : part.massTypes) Fill(type);
    if (Flag()) part.placement.resize(12);
    for (double& value : part.placement) value = Number();
    if (Flag()) part.material.density = Number();
    part.material.statistics.resize(_random() % 3, {Text(), Number(), 1});
    part.documents.revisions.resize(_random() % 3, {Text(), Text(), Text(), Text(), Text(), Number()});
    part.properties.resize(_random() % 3,
                           {Text(), Text(), static_cast<int>(_random()), Flag(), Flag(), Text()});
    return part;
  }

 private:
  bool Flag() { return _random() % 2 == 0; }

  double Number() {
    const auto value = std::bit_cast<double>(_random());
    return std::isfinite(value) ? value : -0.0;
  }

  std::string Text() {
    static const std::vector<std::string> kPieces = {"|", "%", ":",   "\n", "7C",  "__null__",
                                                     "é", "x", "end", " ",  "\x7F"};
    std::string text;
    for (auto i = _random() % 5; i > 0; --i) text += kPieces[_random() % kPieces.size()];
    return text;
  }

  void Fill(MassType& type) {
    type.name = Text();
    type.status = static_cast<MassTypeStatus>(_random() % 3);
    if (Flag()) type.mass = Number();
    if (Flag()) type.cg = Vector{Number(), Number(), Number()};
    if (Flag()) type.inertia = Tensor{Number(), Number(), Number(), Number(), Number(), Number()};
    type.lowerDeviation = Number();
    type.massTypeUpperPrecision = Number();
  }

  std::mt19937_64 _random;
};

TEST(RoundTrip, KeepsRandomPartsToTheBit) {
  RandomPart random(20240501);
  for (int i = 0; i < 2'000; ++i) {
    const PartData part = random.Make();
    const std::string text = WritePartData(part);
    const auto back = ReadPartData(text);
    ASSERT_TRUE(back.Ok()) << back.Failure().message;
    ASSERT_EQ(WritePartData(back.Value()), text);
    ASSERT_EQ(back.Value().partId, part.partId);
    ASSERT_EQ(back.Value().placement, part.placement);
    ASSERT_EQ(back.Value().massTypes.size(), part.massTypes.size());
    for (std::size_t t = 0; t < part.massTypes.size(); ++t) {
      ASSERT_EQ(back.Value().massTypes[t].mass, part.massTypes[t].mass);
      ASSERT_EQ(back.Value().massTypes[t].inertia, part.massTypes[t].inertia);
    }
  }
}

TEST(RoundTrip, ReadsOrRefusesRandomlyDamagedTexts) {
  std::mt19937_64 random(7);
  for (const Example& example : DocumentExamples())
    for (int i = 0; i < 500; ++i) {
      std::string text = example.text;
      text[random() % text.size()] = static_cast<char>(random());
      for (const FormCase& form : AllForms()) {
        if (form.name != example.form) continue;
        const auto back = form.rewrite(text);
        // What is read is a value like any other: it is written and read back the same.
        if (!back.Ok()) continue;
        EXPECT_EQ(form.rewrite(back.Value()).Value(), back.Value());
      }
    }
}

TEST(Escape, LeavesNoSeparatorAndComesBack) {
  std::string all;
  for (int c = 0; c < 256; ++c) all += static_cast<char>(c);
  const std::string escaped = Escape(all);
  EXPECT_EQ(escaped.find('|'), std::string::npos);
  EXPECT_EQ(escaped.find(':'), std::string::npos);
  EXPECT_EQ(Unescape(escaped), all);
  EXPECT_EQ(Escape("a|b%\n"), "a%7Cb%25%0A");
}

}  // namespace
}  // namespace protocol::test
