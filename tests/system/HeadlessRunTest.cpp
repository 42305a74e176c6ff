#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <set>
#include <string>

#include "tests/system/SampleDatabase.h"

namespace {

using namespace system_tests;

constexpr std::array kElements{"xx", "yy", "zz", "xy", "xz", "yz"};

class HeadlessRun : public DesktopRun {
 protected:
  static void ExpectTensor(const std::string& prefix, const std::array<double, 6>& published) {
    const double trace = published[0] + published[1] + published[2];
    for (std::size_t i = 0; i < 6; ++i)
      EXPECT_NEAR(Value(prefix + kElements[i] + "_kgm2"), published[i], 1e-12 * trace)
          << prefix << kElements[i];
  }

  static void ExpectPoint(const std::string& part, const std::array<double, 3>& published) {
    const double size = std::hypot(published[0], published[1], published[2]);
    EXPECT_NEAR(Value(part + ".cg_x_m"), published[0], 1e-12 * size);
    EXPECT_NEAR(Value(part + ".cg_y_m"), published[1], 1e-12 * size);
    EXPECT_NEAR(Value(part + ".cg_z_m"), published[2], 1e-12 * size);
  }

  static std::set<std::string> Pictures() {
    std::set<std::string> names{"window-filter.png",
                                "part-panel-results.png",
                                "part-panel-mass-types.png",
                                "part-panel-material.png",
                                "part-panel-precision.png",
                                "part-panel-documents.png",
                                "part-panel-additional.png",
                                "part-panel-imperial.png",
                                "part-panel-mixed.png",
                                "part-panel-dark.png",
                                "part-panel-custom.png",
                                "part-panel-filter.png",
                                "part-panel-edit-revision.png",
                                "question-unread.png",
                                "window.png",
                                "window-dark.png"};
    for (const char* inAllLooks :
         {"filter-panel", "warning-dialog", "history", "window-saved", "part-panel-edit-results",
          "part-panel-edit-mass-types", "part-panel-edit-material", "part-panel-edit-precision",
          "part-panel-edit-documents", "part-panel-edit-additional", "part-panel-edit-marked"})
      for (const char* look : {"", "-dark", "-de"}) names.insert(std::string(inAllLooks) + look + ".png");
    return names;
  }

  static std::set<std::string> FilesLeft() {
    std::set<std::string> names;
    for (const auto& file : fs::directory_iterator(s_folder / "out")) names.insert(file.path().filename());
    return names;
  }

  static bool IsPng(const std::string& name) {
    std::ifstream in(s_folder / "out" / name, std::ios::binary);
    std::array<char, 8> head{};
    in.read(head.data(), head.size());
    return std::string(head.data(), head.size()) == "\x89PNG\r\n\x1a\n";
  }
};

/// A start of a program that is refused, and what was said.
class Run : public testing::Test {
 protected:
  ~Run() override { fs::remove_all(folder); }

  /// Starts the desktop in an environment changed as `env` reads it; the exit code.
  int Start(const std::string& environment, const std::string& arguments) const {
    const std::string command =
        "env " + environment + " " + KORVO_PROGRAM + " " + arguments + " > '" + said.string() + "' 2>&1";
    return WEXITSTATUS(std::system(command.c_str()));
  }

  const fs::path folder = OwnFolder();
  const fs::path said = folder / "said";
};

}  // namespace

TEST_F(HeadlessRun, EndsWellAndLeavesItsPictures) {
  ASSERT_EQ(s_exitStatus, 0) << FileText(s_folder / "log");
  std::set<std::string> files = Pictures();
  files.insert("values.txt");
  EXPECT_EQ(FilesLeft(), files);
  for (const std::string& name : Pictures()) EXPECT_TRUE(IsPng(name)) << name;
}

TEST_F(HeadlessRun, KeepsWhatQtCannotDoWithoutADisplayToItself) {
  ASSERT_TRUE(fs::exists(s_folder / "log"));
  EXPECT_EQ(FileText(s_folder / "log").find("This plugin"), std::string::npos) << FileText(s_folder / "log");
}

// Worked out from the sample's tables in exact arithmetic, with 43000 kg for the bedplate.
TEST_F(HeadlessRun, TellsWhatTheSaveOfTheBedplateChangesAboveIt) {
  EXPECT_NEAR(Value("saved.above_yaw.mass_kg"), 645582.2736735792, 1e-12 * 645582.2736735792);
  ExpectPoint("saved.above_yaw", {-5.120373778758365, -0.14631703128246193, 4.312559133412999});
  ExpectTensor("saved.above_yaw.inertia_cg_", {9476226.618777072, 10621485.35225945, 10546989.13690823,
                                               483668.8774929535, 2202688.0320618246, -235961.14770707005});
  ExpectTensor("saved.above_yaw.inertia_ref_", {21496694.151658878, 39554154.83271013, 27486833.204891074, 0,
                                                16458380.735074362, 171401.81548770788});
}

// Rows of the sample's tables. About the origin: with the mass m and the centre (x, 0, z), xx + m z^2,
// yy + m (x^2 + z^2), zz + m x^2 and xz - m x z, in exact arithmetic.
TEST_F(HeadlessRun, TellsTheBedplateBeforeTheSave) {
  EXPECT_EQ(Value("bedplate.mass_kg"), 42274.27441488182);
  ExpectPoint("bedplate", {-1.280786058419792, 0, 2.586079672663417});
  ExpectTensor("bedplate.inertia_cg_",
               {549069.848115082, 664478.6729689115, 407774.3100071914, 0, 176991.4853469148, 0});
  ExpectTensor("bedplate.inertia_ref_",
               {831792.0818424884, 1016548.172944742, 477121.57625561557, 0, 317012.9623304249, 0});
}

/// The same with 43000 kg: nothing but the mass was typed.
TEST_F(HeadlessRun, TellsTheBedplateAsItWasSavedAndWhatTheSaveChanged) {
  EXPECT_EQ(Value("saved.bedplate.changed_fields"), 1);
  EXPECT_EQ(Value("saved.bedplate.calculated_mass_before_kg"), 42274.27441488182);
  EXPECT_EQ(Value("saved.bedplate.calculated_mass_after_kg"), 43000);
  EXPECT_EQ(Value("saved.bedplate.mass_kg"), 43000);
  ExpectPoint("saved.bedplate", {-1.280786058419792, 0, 2.586079672663417});
  ExpectTensor("saved.bedplate.inertia_cg_",
               {549069.848115082, 664478.6729689115, 407774.3100071914, 0, 176991.4853469148, 0});
  ExpectTensor("saved.bedplate.inertia_ref_",
               {836645.5952696878, 1022592.176003545, 478312.0658872192, 0, 319416.7213474501, 0});
}

// Published rows of the IEA 15 MW nacelle, see tests/lumira/data/README.md.
TEST_F(HeadlessRun, ReproducesThePublishedRowOfTheWholeAboveTheYawBearing) {
  EXPECT_NEAR(Value("above_yaw.mass_kg"), 644856.548088461, 1e-12 * 644856.548088461);
  ExpectPoint("above_yaw", {-5.124694874749737, -0.146481697382938, 4.314502124176699});
  ExpectTensor("above_yaw.inertia_cg_", {9474045.437011357, 10608608.72268249, 10536262.58048209,
                                         484077.0468450342, 2197871.805292473, -236144.6819962184});
  ExpectTensor("above_yaw.inertia_ref_", {21491840.63823167, 39548110.82965133, 27485642.71525947,
                                          1.746229827404022e-10, 16455976.97605734, 171401.8154877078});
}

TEST_F(HeadlessRun, ReproducesThePublishedRowOfTheGenerator) {
  EXPECT_NEAR(Value("generator.mass_kg"), 368839.4071518108, 1e-12 * 368839.4071518108);
  ExpectPoint("generator", {-6.516676090182924, 0.0, 5.034389671180861});
  ExpectTensor("generator.inertia_cg_", {5197408.244421278, 2752875.38606201, 2752875.38606201, 0, 0, 0});
  ExpectTensor("generator.inertia_ref_",
               {14518962.83623591, 27764667.34516002, 18443112.75334539, 0, 11846570.5011075, 0});
}

TEST_F(HeadlessRun, WritesNumbersThatReadBackExactly) {
  ASSERT_FALSE(s_values.empty());
  for (const auto& [name, text] : s_values) {
    std::array<char, 64> again{};
    std::snprintf(again.data(), again.size(), "%.17g", std::stod(text));
    EXPECT_EQ(text, again.data()) << name;
  }
}

/// What the server's program prints for the sample: the same names, with the filter's behind the part's.
Values FiguresOfTheServersProgram(const fs::path& folder) {
  const SampleDatabase database(folder);
  Values all;
  const auto compute = [&](const std::string& arguments, const std::string& filter) {
    for (const auto& [name, value] : database.Compute(arguments)) {
      const std::size_t behindPart = name.find('.') + 1;
      all[name.substr(0, behindPart) + filter + name.substr(behindPart)] = value;
    }
  };
  compute("Above_yaw", "");
  compute("generator", "");
  compute("bedplate", "");
  compute("Above_yaw --filter 'Without generator'", "without_generator.");
  compute("Above_yaw --filter 'Structure only'", "structure_only.");
  compute("Above_yaw --filter 'Rotating parts'", "rotating_parts.");
  compute("Above_yaw --filter 'As built 2020'", "as_built_2020.");
  compute(
      "Above_yaw --user-filter '1|2|bedplate.1|bedplate||2|nacelle.1|Above_yaw.1|"
      "generator.1|generator||2|nacelle.1|Above_yaw.1'",
      "user_filter.");
  return all;
}

TEST_F(HeadlessRun, GivesTheFiguresThatTheServersProgramGives) {
  const Values fromProgram = FiguresOfTheServersProgram(s_folder);
  // Ten computations: mass, three of the centre of gravity, six of each tensor. Two of them and three values
  // of the change are of what was saved, which that program's sample does not have.
  ASSERT_EQ(s_values.size(), 10u * 16u + 3u);
  for (const auto& [name, text] : s_values) {
    if (name.starts_with("saved.")) continue;
    ASSERT_TRUE(fromProgram.contains(name)) << name;
    const double value = std::stod(text);
    EXPECT_NEAR(std::stod(fromProgram.at(name)), value, 1e-12 * std::max(std::abs(value), 1.0)) << name;
  }
}

TEST_F(Run, SaysHowToGoOnWithoutADisplay) {
  const std::string command = std::string("env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM ") +
                              KORVO_SOURCE_DIR + "/run > '" + said.string() + "' 2>&1";
  const int status = std::system(command.c_str());
  EXPECT_EQ(WEXITSTATUS(status), 2);
  EXPECT_NE(FileText(said).find("./run --headless DIR"), std::string::npos) << FileText(said);
}

TEST_F(Run, TheDesktopItselfSaysSoToo) {
  const std::string command = std::string("env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM ") +
                              KORVO_PROGRAM + " > '" + said.string() + "' 2>&1";
  const int status = std::system(command.c_str());
  EXPECT_EQ(WEXITSTATUS(status), 2);
  EXPECT_NE(FileText(said).find("--headless"), std::string::npos) << FileText(said);
}

TEST_F(Run, SaysHowToGoOnWhenTheDisplayIsDead) {
  const std::string command = std::string("env -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM DISPLAY=:4711 ") +
                              KORVO_PROGRAM + " > '" + said.string() + "' 2>&1";
  const int status = std::system(command.c_str());
  EXPECT_EQ(WEXITSTATUS(status), 2);
  EXPECT_NE(FileText(said).find("--headless"), std::string::npos) << FileText(said);
}

TEST_F(Run, RefusesAHeadlessFolderWithoutAName) {
  const std::string command = std::string(KORVO_PROGRAM) + " --headless '' > /dev/null 2>&1";
  EXPECT_EQ(WEXITSTATUS(std::system(command.c_str())), 2);
}

TEST_F(Run, RefusesAHeadlessFolderThatIsLeftOut) {
  EXPECT_EQ(Start("QT_QPA_PLATFORM=offscreen", "--headless"), 2);
  EXPECT_NE(FileText(said).find("headless"), std::string::npos) << FileText(said);
}

TEST_F(Run, RefusesAnOptionThatItDoesNotKnow) {
  EXPECT_EQ(Start("QT_QPA_PLATFORM=offscreen", "--nonsense"), 2);
  EXPECT_NE(FileText(said).find("nonsense"), std::string::npos) << FileText(said);
}

TEST_F(Run, RefusesAnOptionThatItDoesNotKnowWithoutADisplayToo) {
  EXPECT_EQ(Start("-u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM", "--nonsense"), 2);
  EXPECT_NE(FileText(said).find("nonsense"), std::string::npos) << FileText(said);
}

TEST_F(Run, TellsAllOptionsWithoutADisplay) {
  EXPECT_EQ(Start("-u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM", "--help-all"), 0);
  EXPECT_NE(FileText(said).find("-platform"), std::string::npos) << FileText(said);
}

TEST_F(Run, NamesTheFolderWithoutCatalogues) {
  EXPECT_EQ(Start("KORVO_CATALOGUES=/no/such/folder", "--headless " + (folder / "out").string()), 1);
  EXPECT_NE(FileText(said).find("/no/such/folder"), std::string::npos) << FileText(said);
}

TEST_F(Run, NamesTheFolderWithoutSamples) {
  EXPECT_EQ(Start("KORVO_SAMPLES=/no/such/folder", "--headless " + (folder / "out").string()), 1);
  EXPECT_NE(FileText(said).find("/no/such/folder"), std::string::npos) << FileText(said);
}

/// The script ./run among programs that only look like those that it calls.
class RunScript : public Run {
 protected:
  RunScript() {
    fs::copy_file(fs::path(KORVO_SOURCE_DIR) / "run", folder / "run");
    Script(folder / "scripts" / "install-packages", "exit 0");
    Script(folder / "bin" / "cmake", "exit 0");
    Script(folder / "build" / "release" / "bin" / "korvo", "echo started with \"$@\"");
  }
  static void Script(const fs::path& file, const std::string& text) {
    fs::create_directories(file.parent_path());
    std::ofstream(file) << "#!/bin/sh\n" << text << "\n";
    fs::permissions(file, fs::perms::owner_all);
  }
  int RunWith(const std::string& arguments) const {
    const std::string command = "env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM PATH='" +
                                (folder / "bin").string() + "':\"$PATH\" '" + (folder / "run").string() +
                                "' " + arguments + " > '" + said.string() + "' 2>&1";
    return WEXITSTATUS(std::system(command.c_str()));
  }
};

TEST_F(RunScript, StartsTheDesktopWithoutADisplayForWhatNeedsNone) {
  for (const char* arguments : {"--headless out", "--headless=out", "--help", "--help-all", "-h", "--version",
                                "-v", "-platform offscreen", "--platform offscreen"}) {
    EXPECT_EQ(RunWith(arguments), 0) << arguments;
    EXPECT_EQ(FileText(said), std::string("started with ") + arguments + "\n");
  }
}

TEST_F(RunScript, RefusesEverythingElseWithoutADisplay) {
  for (const char* arguments : {"", "product.lumira"}) EXPECT_EQ(RunWith(arguments), 2) << arguments;
}
