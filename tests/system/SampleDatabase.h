#pragma once

#include "tests/system/DesktopRun.h"

namespace system_tests {

/// The sample in a database that the server's program has made in a folder.
class SampleDatabase {
 public:
  explicit SampleDatabase(const fs::path& folder) : _folder(folder) {
    const std::string sample = KORVO_SOURCE_DIR "/samples/iea15/";
    const std::string made = Command("init") + "&& " + Command("import") + "--structure " + sample +
                             "structure.csv --mass " + sample + "mass.csv --filters " + sample +
                             "filters.csv > /dev/null";
    EXPECT_EQ(std::system(made.c_str()), 0);
  }

  /// What `lumira compute` prints for a part and options.
  Values Compute(const std::string& arguments) const {
    const fs::path printed = _folder / "printed";
    const std::string command = Command("compute") + arguments + " > '" + printed.string() + "' 2>&1";
    EXPECT_EQ(std::system(command.c_str()), 0) << FileText(printed);
    return ValuesIn(printed);
  }

 private:
  std::string Command(const std::string& name) const {
    return LUMIRA_PROGRAM " " + name + " '" + (_folder / "same.lumira").string() + "' ";
  }

  fs::path _folder;
};

}  // namespace system_tests
