// The module is loaded while the desktop runs; nothing of the desktop needs it to start.
#include <sys/wait.h>

#include "tests/system/DesktopRun.h"

namespace {

using namespace system_tests;

class LoadedLibraries : public testing::Test {
 protected:
  ~LoadedLibraries() override { fs::remove_all(folder); }

  /// What a command prints; its exit code in `exitCode`.
  std::string Said(const std::string& command) {
    const fs::path said = folder / "said";
    exitCode = WEXITSTATUS(std::system((command + " > '" + said.string() + "' 2>&1").c_str()));
    return FileText(said);
  }
  /// The desktop's main job in an environment changed as `env` reads it.
  std::string RunHeadless(const std::string& environment) {
    return Said("env " + environment + " XDG_CONFIG_HOME='" + folder.string() + "' XDG_DATA_HOME='" +
                folder.string() + "' " + KORVO_PROGRAM + " --headless '" + (folder / "out").string() + "'");
  }

  const fs::path folder = OwnFolder();
  int exitCode = -1;
};

TEST_F(LoadedLibraries, TheDesktopNeedsNeitherTheModuleNorTheCommandsToStart) {
  for (const char* program : {"readelf -d ", "ldd "}) {
    const std::string needed = Said(program + std::string(KORVO_PROGRAM));
    ASSERT_NE(needed.find("libkorvo_framework.so"), std::string::npos) << needed;
    EXPECT_EQ(needed.find("NymNav"), std::string::npos) << needed;
  }
}

TEST_F(LoadedLibraries, TheModuleComesAndGoesWhileTheDesktopRuns) {
  const std::string log = RunHeadless("LD_DEBUG=files");
  EXPECT_EQ(exitCode, 0);
  const std::size_t wanted = log.find("libKorWBNymNavGUI.so [0];  needed by ");
  ASSERT_NE(wanted, std::string::npos);
  EXPECT_NE(log.find("libKorWBNymNavGUI.so [0];  destroying link map", wanted), std::string::npos)
      << "the module was not unloaded";
}

TEST_F(LoadedLibraries, WithoutThemTheRunFailsAndNamesTheFolder) {
  const std::string said = RunHeadless("KORVO_LIBRARIES=/no/such/folder");
  EXPECT_EQ(exitCode, 1);
  EXPECT_NE(said.find("/no/such/folder"), std::string::npos) << said;
}

TEST_F(LoadedLibraries, TheEnvironmentSwitchesTracesOn) {
  const fs::path log = folder / "trace.log";
  RunHeadless("KORVO_TRACE=KorWBCompPart KORVO_TRACE_FILE='" + log.string() + "'");
  EXPECT_EQ(exitCode, 0);
  EXPECT_NE(FileText(log).find("-> KorWBNymMainPanel::OnComputeNotification [KorWBCompPart"),
            std::string::npos);
  EXPECT_EQ(FileText(log).find("[KorWBCompGroup"), std::string::npos);
}

}  // namespace
