#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>

#include "FormTable.h"

namespace protocol::test {

std::vector<Example> DocumentExamples() {
  constexpr std::string_view kFence = "```form ";
  std::ifstream file(KORVO_SOURCE_DIR "/docs/protocol.md");
  std::vector<Example> examples;
  for (std::string line; std::getline(file, line);) {
    if (!line.starts_with(kFence)) continue;
    examples.push_back({line.substr(kFence.size()), {}});
    std::getline(file, examples.back().text);
  }
  return examples;
}

namespace {

TEST(ProtocolDocument, GivesAnExampleOfEveryForm) {
  std::vector<std::string> named;
  for (const Example& example : DocumentExamples()) named.push_back(example.form);
  for (const FormCase& form : AllForms()) EXPECT_THAT(named, testing::Contains(form.name));
}

TEST(ProtocolDocument, ShowsOnlyTextsThatAreReadAndWrittenBack) {
  const auto forms = AllForms();
  for (const Example& example : DocumentExamples()) {
    const auto form =
        std::find_if(forms.begin(), forms.end(), [&](auto& f) { return f.name == example.form; });
    ASSERT_NE(form, forms.end()) << example.form;
    const Result<std::string> back = form->rewrite(example.text);
    ASSERT_TRUE(back.Ok()) << back.Failure().message;
    // A request without options is written with the options that it stands for.
    if (example.text == "0|bedplate|")
      EXPECT_EQ(back.Value(), "0|bedplate|ComputeOptions/1|0%7CNo Filter|0|1||end");
    else
      EXPECT_EQ(back.Value(), example.text);
  }
}

}  // namespace
}  // namespace protocol::test
