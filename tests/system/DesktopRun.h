#pragma once

#include <unistd.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <stdexcept>
#include <string>

#include "gtest/gtest.h"

namespace system_tests {

namespace fs = std::filesystem;

using Values = std::map<std::string, std::string>;

/// The lines "name = value" of a file.
inline Values ValuesIn(const fs::path& file) {
  Values values;
  std::ifstream in(file);
  for (std::string line; std::getline(in, line);) {
    const std::size_t equals = line.find(" = ");
    if (equals != std::string::npos) values[line.substr(0, equals)] = line.substr(equals + 3);
  }
  return values;
}

inline std::string FileText(const fs::path& file) {
  std::ifstream in(file);
  std::ostringstream text;
  text << in.rdbuf();
  return text.str();
}

/// A folder of this process alone: several of these tests run at once, each in a process of its own.
inline fs::path OwnFolder() {
  std::string name = (fs::path(testing::TempDir()) / "korvo-system-XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder: " + name);
  return name;
}

/// Runs the desktop once without a display and keeps what it left.
class DesktopRun : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    s_folder = OwnFolder();
    const std::string command = "XDG_DATA_HOME='" + (s_folder / "data").string() + "' XDG_CONFIG_HOME='" +
                                (s_folder / "config").string() + "' " + KORVO_PROGRAM + " --headless '" +
                                (s_folder / "out").string() + "' > '" + (s_folder / "log").string() +
                                "' 2>&1";
    s_exitStatus = std::system(command.c_str());
    s_values = ValuesIn(s_folder / "out" / "values.txt");
  }

  static void TearDownTestSuite() { fs::remove_all(s_folder); }

  static double Value(const std::string& name) {
    const auto found = s_values.find(name);
    if (found == s_values.end()) {
      ADD_FAILURE() << "values.txt has no line \"" << name << "\"";
      return std::nan("");
    }
    return std::stod(found->second);
  }

  static inline fs::path s_folder;
  static inline int s_exitStatus = -1;
  static inline Values s_values;
};

}  // namespace system_tests
