#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "framework/dialog/KorMsgCatalog.h"

/// A folder of message catalogues of a test's own, in use for as long as it lives.
class TemporaryCatalogues {
 public:
  TemporaryCatalogues() : _before(KorMsgCatalog::GetFolder()) {
    const auto* test = testing::UnitTest::GetInstance()->current_test_info();
    _folder = std::filesystem::path(testing::TempDir()) /
              (std::string("catalogues-") + test->test_suite_name() + "-" + test->name());
    std::filesystem::remove_all(_folder);
    std::filesystem::create_directories(_folder);
    KorMsgCatalog::SetFolder(_folder.string());
    KorMsgCatalog::SetLanguage("en");
  }
  ~TemporaryCatalogues() {
    KorMsgCatalog::SetLanguage("en");
    KorMsgCatalog::SetFolder(_before);
    std::filesystem::remove_all(_folder);
  }
  TemporaryCatalogues(const TemporaryCatalogues&) = delete;
  TemporaryCatalogues& operator=(const TemporaryCatalogues&) = delete;

  /// Path of the file that it wrote.
  std::string Write(const std::string& language, const std::string& catalogue, const std::string& text) {
    const auto file = _folder / language / (catalogue + ".txt");
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << text;
    return file.string();
  }
  std::string Folder() const { return _folder.string(); }

 private:
  KorString _before;
  std::filesystem::path _folder;
};
