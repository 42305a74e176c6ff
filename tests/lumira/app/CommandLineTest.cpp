#include <SQLiteCpp/SQLiteCpp.h>
#include <gmock/gmock.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "lumira/app/CommandLine.h"
#include "protocol/Codec.h"

namespace lumira {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

constexpr char kSamples[] = KORVO_SOURCE_DIR "/samples/iea15/";
constexpr char kTables[] = KORVO_SOURCE_DIR "/tests/lumira/data/import/";

struct Outcome {
  int code = 0;
  std::string out;
  std::string errors;
};

class CommandLine : public testing::Test {
 protected:
  CommandLine() {
    std::filesystem::remove_all(folder);
    std::filesystem::create_directory(folder);
  }
  ~CommandLine() override { std::filesystem::remove_all(folder); }

  Outcome Lumira(const std::vector<std::string>& arguments, bool onTerminal = false,
                 const std::string& input = {}) {
    std::vector<const char*> words = {"lumira"};
    for (const std::string& argument : arguments) words.push_back(argument.c_str());
    std::ostringstream out, errors;
    std::istringstream in(input);
    const int code =
        RunCommandLine(static_cast<int>(words.size()), words.data(), {out, errors, onTerminal, in});
    return {code, out.str(), errors.str()};
  }

  Outcome ImportSample(std::vector<std::string> more = {}) {
    std::vector<std::string> arguments = {"import",      file,
                                          "--structure", std::string(kSamples) + "structure.csv",
                                          "--mass",      std::string(kSamples) + "mass.csv",
                                          "--product",   "IEA15"};
    arguments.insert(arguments.end(), more.begin(), more.end());
    return Lumira(arguments);
  }

  // The number on the line "name = number".
  static double Value(const std::string& out, const std::string& name) {
    const std::size_t at = out.find("\n" + name + " = ");
    EXPECT_NE(at, std::string::npos) << name;
    return at == std::string::npos ? 0 : std::stod(out.substr(at + name.size() + 4));
  }

  std::string folder = testing::TempDir() + "lumira-app-" + std::to_string(getpid());
  std::string file = folder + "/p.lumira";
};

TEST_F(CommandLine, MakesADatabaseOnce) {
  const Outcome made = Lumira({"init", file});
  EXPECT_EQ(made.code, kDone);
  EXPECT_EQ(made.out, "Made the database \"" + file + "\".\n");
  const Outcome again = Lumira({"init", file});
  EXPECT_EQ(again.code, kRefused);
  EXPECT_EQ(again.errors, "lumira: database \"" + file + "\": the file exists already\n");
  EXPECT_EQ(again.out, "");
}

TEST_F(CommandLine, ImportsTheSample) {
  Lumira({"init", file});
  const Outcome imported = ImportSample();
  EXPECT_EQ(imported.code, kDone) << imported.errors;
  EXPECT_EQ(imported.out,
            "Imported product \"IEA15\": 22 parts, 21 instances, 26 mass types; 0 warnings, 0 things left "
            "out.\n");
  EXPECT_EQ(imported.errors, "");
}

TEST_F(CommandLine, WritesNothingInADryRun) {
  Lumira({"init", file});
  EXPECT_THAT(ImportSample({"--dry-run"}).out, StartsWith("Would import product \"IEA15\": 22 parts"));
  EXPECT_EQ(Lumira({"tree", file}).out, "");
}

TEST_F(CommandLine, RefusesAProductThatExistsUnlessItIsToBeReplaced) {
  Lumira({"init", file});
  ImportSample();
  const Outcome again = ImportSample();
  EXPECT_EQ(again.code, kRefused);
  EXPECT_EQ(again.errors, "lumira: product \"IEA15\" exists already\n");
  EXPECT_EQ(ImportSample({"--replace"}).code, kDone);
}

TEST_F(CommandLine, MakesAFileOfNamesThatLookLikeNone) {
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path(folder);
  for (const char* name : {":memory:", "file:foo?mode=memory"}) {
    EXPECT_EQ(Lumira({"init", name}).code, kDone) << name;
    EXPECT_TRUE(std::filesystem::exists(name)) << name;
    EXPECT_EQ(Lumira({"tree", name}).code, kDone) << name;
  }
  const Outcome empty = Lumira({"init", ""});
  std::filesystem::current_path(before);
  EXPECT_EQ(empty.code, kRefused);
  EXPECT_EQ(empty.out, "");
  EXPECT_THAT(empty.errors, HasSubstr("a file name expected"));
}

TEST_F(CommandLine, RefusesAFolderAsATableAsItRefusesAWrongOne) {
  Lumira({"init", file});
  const Outcome imported = Lumira({"import", file, "--mass", folder});
  EXPECT_EQ(imported.code, kRefused);
  EXPECT_EQ(imported.errors, "lumira: " + folder + ": is not a file\n");
}

TEST_F(CommandLine, PrintsTheProductsThatCanBeReadAndSaysWhatIsWrongWithTheOthers) {
  const std::string mass = folder + "/two.csv";
  std::ofstream(mass) << "part,parent,mass [kg]\nz,,\na,z,1\n";
  const std::string damages[] = {
      "UPDATE roots SET part = CAST(x'ff' AS TEXT) WHERE part = 'RNA'",
      "UPDATE parts SET name = CAST(x'ff' AS TEXT) WHERE part = 'RNA'",
      "DELETE FROM roots WHERE part = 'RNA'",
      "UPDATE roots SET part = 'nobody' WHERE part = 'RNA'",
      "UPDATE parts SET name = CAST(x'ff' AS TEXT) WHERE part = 'generator'",
  };
  for (const std::string& damage : damages) {
    std::filesystem::remove(file);
    Lumira({"init", file});
    ImportSample();
    ASSERT_EQ(Lumira({"import", file, "--mass", mass}).code, kDone);
    SQLite::Database(file, SQLite::OPEN_READWRITE).exec(damage);
    const Outcome tree = Lumira({"tree", file});
    EXPECT_EQ(tree.code, kStorage) << damage;
    EXPECT_THAT(tree.errors, HasSubstr("database \"" + file + "\": the file is damaged")) << damage;
    EXPECT_THAT(tree.out, HasSubstr("Product \"z\"\n  z\n    a  1 kg\n")) << damage;
  }
  for (const char* table : {"results", "instances"}) {
    std::filesystem::remove(file);
    Lumira({"init", file});
    ImportSample();
    SQLite::Database database(file, SQLite::OPEN_READWRITE);
    database.exec("DROP TABLE " + std::string(table));
    const Outcome tree = Lumira({"tree", file});
    EXPECT_EQ(tree.code, kStorage) << table;
    EXPECT_THAT(tree.errors, HasSubstr("no such table: " + std::string(table))) << table;
  }
}

TEST_F(CommandLine, ReportsEveryErrorOfATable) {
  Lumira({"init", file});
  const std::string mass = folder + "/wrong.csv";
  std::ofstream(mass) << "part,parent,mass [kg]\na,,x\nb,a,nan\n";
  const Outcome imported = Lumira({"import", file, "--mass", mass});
  EXPECT_EQ(imported.code, kRefused);
  EXPECT_EQ(imported.errors,
            "lumira: wrong.csv, line 2, column 3 (mass [kg]): \"x\" is not a finite number\n"
            "wrong.csv, line 3, column 3 (mass [kg]): \"nan\" is not a finite number\n");
}

TEST_F(CommandLine, WarnsOnTheErrorsAndImportsAllTheSame) {
  Lumira({"init", file});
  const std::string mass = folder + "/odd.csv";
  std::ofstream(mass) << "part,parent,remark\na,,\nb,a,hello\n";
  const Outcome imported = Lumira({"import", file, "--mass", mass});
  EXPECT_EQ(imported.code, kDone);
  EXPECT_EQ(imported.errors,
            "warning: odd.csv: 1 part has neither children nor mass data: \"b\"\n"
            "left out: odd.csv, line 1, column 3 (remark): the column is not known\n");
  EXPECT_EQ(imported.out,
            "Imported product \"a\": 2 parts, 1 instance, 0 mass types; 1 warning, 1 thing left out.\n");
}

TEST_F(CommandLine, ComputesTheSampleAsPublished) {
  Lumira({"init", file});
  ImportSample();
  const Outcome above = Lumira({"compute", file, "Above_yaw"});
  ASSERT_EQ(above.code, kDone) << above.errors;
  const double trace = 9474045.437011357 + 10608608.72268249 + 10536262.58048209;
  EXPECT_NEAR(Value(above.out, "above_yaw.mass_kg"), 644856.548088461, 1e-12 * 644856);
  EXPECT_NEAR(Value(above.out, "above_yaw.cg_x_m"), -5.124694874749737, 5e-12);
  EXPECT_NEAR(Value(above.out, "above_yaw.inertia_cg_xz_kgm2"), 2197871.805292473, 1e-12 * trace);
  EXPECT_NEAR(Value(above.out, "above_yaw.inertia_ref_xx_kgm2"), 21491840.63823167, 1e-12 * trace);

  const Outcome generator = Lumira({"compute", file, "generator"});
  EXPECT_NEAR(Value(generator.out, "generator.mass_kg"), 368839.4071518108, 1e-12 * 368839);
  EXPECT_NEAR(Value(generator.out, "generator.cg_x_m"), -6.516676090182924, 6e-12);
  EXPECT_NEAR(Value(generator.out, "generator.cg_z_m"), 5.034389671180861, 6e-12);
  EXPECT_NEAR(Value(generator.out, "generator.inertia_cg_xx_kgm2"), 5197408.244421278, 1e-12 * trace);
  EXPECT_NEAR(Value(generator.out, "generator.inertia_ref_xz_kgm2"), 11846570.5011075, 1e-12 * trace);
  EXPECT_NEAR(Value(generator.out, "generator.inertia_ref_zz_kgm2"), 18443112.75334539, 1e-12 * trace);
}

TEST_F(CommandLine, ComputesTheToyTreeToTheInteger) {
  Lumira({"init", file});
  ASSERT_EQ(Lumira({"import", file, "--mass", std::string(kTables) + "test.csv"}).code, kDone);
  const Outcome top = Lumira({"compute", file, "A.1"});
  EXPECT_THAT(top.out, HasSubstr("a_1.mass_kg = 21\na_1.cg_x_m = 0\na_1.cg_y_m = 0\na_1.cg_z_m = 0\n"
                                 "a_1.inertia_cg_xx_kgm2 = 144\na_1.inertia_cg_yy_kgm2 = 144\n"
                                 "a_1.inertia_cg_zz_kgm2 = 139\n"));
}

TEST_F(CommandLine, ComputesStandardDeviations) {
  Lumira({"init", file});
  ASSERT_EQ(Lumira({"import", file, "--structure", std::string(kTables) + "sawe_structure.csv", "--mass",
                    std::string(kTables) + "sawe_mass.csv"})
                .code,
            kDone);
  const std::string out = Lumira({"compute", file, "Combined"}).out;
  EXPECT_NEAR(Value(out, "combined.cg_x_m"), 109.87693956853812, 110e-12);
  EXPECT_NEAR(Value(out, "combined.sd_mass_kg"), 2.130079622924927, 3e-9);
  EXPECT_NEAR(Value(out, "combined.mass_upper_deviation_kg"), 2.130079622924927, 3e-9);
  EXPECT_NEAR(Value(out, "combined.sd_inertia_cg_xy_kgm2"), 1488.0947508132901, 3e-6);
}

TEST_F(CommandLine, ComputesTheSampleUnderAConfigurationFilter) {
  Lumira({"init", file});
  const Outcome imported = ImportSample({"--filters", std::string(kSamples) + "filters.csv"});
  ASSERT_EQ(imported.code, kDone) << imported.errors;
  EXPECT_EQ(imported.out,
            "Imported product \"IEA15\": 22 parts, 21 instances, 26 mass types, 4 configuration filters; 0 "
            "warnings, 0 things left out.\n");
  const Outcome without = Lumira({"compute", file, "Above_yaw", "--filter", "Without generator"});
  ASSERT_EQ(without.code, kDone) << without.errors;
  EXPECT_THAT(without.out, HasSubstr("\n# Under the filter 0|Without generator\n"));
  // The published rows of Above_yaw and generator: what remains is their difference.
  EXPECT_NEAR(Value(without.out, "above_yaw.mass_kg"), 644856.548088461 - 368839.4071518108, 1e-6);
  EXPECT_NEAR(Value(without.out, "above_yaw.cg_x_m"),
              (644856.548088461 * -5.124694874749737 - 368839.4071518108 * -6.516676090182924) /
                  (644856.548088461 - 368839.4071518108),
              1e-10);
  EXPECT_EQ(Lumira({"compute", file, "Above_yaw", "--filter", "Nobody"}).errors,
            "lumira: there is no configuration filter \"Nobody\" in product \"IEA15\"\n");
}

TEST_F(CommandLine, ComputesTheSampleWithChosenInstances) {
  Lumira({"init", file});
  ImportSample();
  const std::string filter = "1|1|generator.1|generator||2|nacelle.1|Above_yaw.1";
  const Outcome chosen = Lumira({"compute", file, "nacelle", "--user-filter", filter});
  ASSERT_EQ(chosen.code, kDone) << chosen.errors;
  EXPECT_NEAR(Value(chosen.out, "nacelle.mass_kg"), 368839.4071518108, 1e-6);
  EXPECT_NEAR(Value(chosen.out, "nacelle.cg_z_m"), 5.034389671180861, 6e-12);
  const Outcome broken =
      Lumira({"compute", file, "nacelle", "--user-filter", "1|1|generator.1|generator||0"});
  EXPECT_EQ(broken.code, kRefused);
  EXPECT_EQ(broken.errors,
            "lumira: Filter: row 1, instance id: there is no instance \"generator.1\" in part \"RNA\"\n");
  EXPECT_EQ(Lumira({"compute", file, "RNA", "--filter", "X", "--user-filter", "1|0"}).code, kUsage);
  EXPECT_EQ(Lumira({"compute", file, "RNA", "--user-filter", ""}).code, kRefused);
  EXPECT_EQ(Lumira({"compute", file, "RNA", "--filter", ""}).code, kRefused);
}

TEST_F(CommandLine, ImportsNothingWhenTheFilterTableIsWrong) {
  Lumira({"init", file});
  const std::string filters = folder + "/filters.csv";
  std::ofstream(filters) << "filter,condition,values\nKit,instances,generator.2\n";
  const Outcome refused = ImportSample({"--filters", filters});
  EXPECT_EQ(refused.code, kRefused);
  EXPECT_EQ(refused.errors,
            "lumira: filters.csv, line 2, column 3 (values): there is no instance \"generator.2\"\n");
  EXPECT_EQ(Lumira({"tree", file}).out, "");
  EXPECT_EQ(ImportSample({"--filters", folder + "/none.csv"}).code, kRefused);
}

TEST_F(CommandLine, ImportsDocumentsAndPropertiesOfTheSample) {
  Lumira({"init", file});
  const Outcome imported = ImportSample({"--documents", std::string(kSamples) + "documents.csv",
                                         "--properties", std::string(kSamples) + "properties.csv"});
  ASSERT_EQ(imported.code, kDone) << imported.errors;
  EXPECT_EQ(
      imported.out,
      "Imported product \"IEA15\": 22 parts, 21 instances, 26 mass types, 9 document revisions, 7 extra "
      "properties; 0 warnings, 0 things left out.\n");
  const Outcome revision = Lumira({"command", file, "WBGetActiveDocInfo", "DOC-BEDPLATE|A"});
  EXPECT_EQ(revision.code, kDone);
  EXPECT_THAT(revision.out, HasSubstr("|Estimated|1|45500|-1.35|0|2.61|"));
  EXPECT_THAT(revision.out, HasSubstr("|Overall length|9.2|2|0|1|LENGTH|"));
  const Outcome computed = Lumira({"compute", file, "Above_yaw"});
  EXPECT_NEAR(Value(computed.out, "above_yaw.mass_kg"), 644856.548088461, 1e-6);
}

TEST_F(CommandLine, ImportsNothingWhenATableOfDocumentsOrPropertiesIsWrong) {
  Lumira({"init", file});
  const std::string documents = folder + "/documents.csv", properties = folder + "/properties.csv";
  std::ofstream(documents) << "part,document,revision\nbedplates,D,A\n";
  std::ofstream(properties) << "property,type,part,value\nchecked,date,bedplate,31.12.2020\n";
  const Outcome refused = ImportSample({"--documents", documents, "--properties", properties});
  EXPECT_EQ(refused.code, kRefused);
  EXPECT_EQ(
      refused.errors,
      "lumira: properties.csv, line 2, column 4 (value): \"31.12.2020\" is no date; a day of the calendar "
      "as YYYY-MM-DD expected\n"
      "documents.csv, line 2, column 1 (part): part \"bedplates\" is not in the structure\n");
  EXPECT_EQ(Lumira({"tree", file}).out, "");
  EXPECT_EQ(ImportSample({"--documents", folder + "/none.csv"}).code, kRefused);
  EXPECT_EQ(ImportSample({"--properties", folder + "/none.csv"}).code, kRefused);
}

TEST_F(CommandLine, SaysWhenAPartStandsInSeveralPlaces) {
  Lumira({"init", file});
  const std::string mass = folder + "/twice.csv";
  std::ofstream(mass) << "part,parent,mass [kg]\ntop,,\na,top,1\na,top,\n";
  Lumira({"import", file, "--mass", mass});
  EXPECT_THAT(Lumira({"compute", file, "a"}).out,
              HasSubstr("the part itself, which stands in several places"));
}

TEST_F(CommandLine, PrintsWarningsOfAComputationOnTheErrors) {
  Lumira({"init", file});
  const std::string mass = folder + "/bare.csv";
  std::ofstream(mass) << "part,parent,mass [kg]\ntop,,\na,top,1\nb,top,\n";
  Lumira({"import", file, "--mass", mass});
  const Outcome computed = Lumira({"compute", file, "top"});
  EXPECT_EQ(computed.code, kDone);
  EXPECT_EQ(computed.errors,
            "warning: 1 part has no mass data and is left out (b)\n"
            "warning: 1 part has a mass but no centre of gravity and counts in the mass only, 1 kg in all "
            "(a)\n");
}

TEST_F(CommandLine, PrintsMomentsOfMassesThatCancel) {
  Lumira({"init", file});
  const std::string mass = folder + "/cancel.csv";
  std::ofstream(mass)
      << "part,parent,mass [kg],cg x [m],cg y [m],cg z [m]\ntop,,,,,\na,top,5,0,0,0\nb,top,-5,1,0,0\n";
  Lumira({"import", file, "--mass", mass});
  const std::string out = Lumira({"compute", file, "top"}).out;
  EXPECT_EQ(Value(out, "top.mass_kg"), 0);
  EXPECT_EQ(Value(out, "top.first_moment_x_kgm"), -5);
  EXPECT_EQ(Value(out, "top.inertia_origin_yy_kgm2"), -5);
  EXPECT_EQ(out.find("top.cg_x_m"), std::string::npos);
}

TEST_F(CommandLine, PrintsTheTree) {
  Lumira({"init", file});
  ImportSample();
  const Outcome tree = Lumira({"tree", file});
  EXPECT_THAT(tree.out,
              StartsWith("Product \"IEA15\"\n  RNA \"Rotor-nacelle assembly\"\n    nacelle \"Nacelle\"\n"));
  EXPECT_THAT(tree.out, HasSubstr("\n          generator_rotor \"Generator rotor\"  130349.2496292837 kg\n"));
  EXPECT_EQ(Lumira({"tree", file, "generator"}).out,
            "generator \"Generator\"\n"
            "  generator_rotor \"Generator rotor\"  130349.2496292837 kg\n"
            "  generator_stator \"Generator stator\"  238490.157522527 kg\n");
}

TEST_F(CommandLine, PrintsAsManyLevelsBelowAPartAsBelowARoot) {
  Lumira({"init", file});
  ImportSample();
  const std::string leaf = "generator_rotor \"Generator rotor\"  130349.2496292837 kg\n";
  EXPECT_EQ(Lumira({"tree", file, "--depth", "0"}).out,
            "Product \"IEA15\"\n  RNA \"Rotor-nacelle assembly\"\n");
  EXPECT_EQ(Lumira({"tree", file, "RNA", "--depth", "0"}).out, "RNA \"Rotor-nacelle assembly\"\n");
  EXPECT_THAT(Lumira({"tree", file, "--depth", "1"}).out, HasSubstr("\n    nacelle \"Nacelle\"\n"));
  EXPECT_EQ(Lumira({"tree", file, "--depth", "1"}).out.find("\n      "), std::string::npos);
  EXPECT_THAT(Lumira({"tree", file, "RNA", "--depth", "1"}).out, HasSubstr("\n  nacelle \"Nacelle\"\n"));
  EXPECT_EQ(Lumira({"tree", file, "RNA", "--depth", "1"}).out.find("\n    "), std::string::npos);
  EXPECT_EQ(Lumira({"tree", file, "generator_rotor"}).out, leaf);
  EXPECT_EQ(Lumira({"tree", file, "nobody"}).code, kRefused);
}

TEST_F(CommandLine, RunsServerCommands) {
  Lumira({"init", file});
  ImportSample();
  const Outcome reply = Lumira({"command", file, "LumGetChildren", "ChildrenRequest/1|yaw|0|1|end"});
  EXPECT_EQ(reply.code, kDone);
  EXPECT_EQ(reply.out, "TreeNodes/1|yaw|0|0|0|end\n");
  const Outcome refused = Lumira({"command", file, "LumGetChildren", "rubbish"});
  EXPECT_EQ(refused.code, kRefused);
  EXPECT_EQ(refused.errors,
            "lumira: ChildrenRequest: field 1 (form): \"rubbish\" is not \"ChildrenRequest/1\"\n");
}

class CommandLineHistory : public CommandLine {
 protected:
  CommandLineHistory() {
    Lumira({"init", file});
    ImportSample();
  }

  protocol::PartData Bedplate() {
    const protocol::PartDataRequest request{.partId = "bedplate"};
    const auto data = protocol::ReadPartData(
        Line(Lumira({"command", file, "WBGetPartData", protocol::WritePartDataRequest(request)})));
    EXPECT_TRUE(data.Ok()) << data.Failure().message;
    return data.Ok() ? data.Value() : protocol::PartData{};
  }

  Outcome SaveMaterial(const std::string& material, const std::vector<std::string>& more) {
    protocol::PartData data = Bedplate();
    data.material.name = material;
    std::vector<std::string> words = {"command", file, "WBSaveNymValues", protocol::WritePartData(data)};
    words.insert(words.end(), more.begin(), more.end());
    return Lumira(words);
  }

  static std::string Line(const Outcome& outcome) { return outcome.out.substr(0, outcome.out.find('\n')); }
};

TEST_F(CommandLineHistory, TellsWhoHasSavedWhatTheLatestFirst) {
  EXPECT_THAT(SaveMaterial("Steel", {"--user", "eva"}).out, StartsWith("SaveReply/1|bedplate|"));
  EXPECT_EQ(SaveMaterial("Iron", {"--user", "bob"}).code, kDone);
  const Outcome history = Lumira({"history", file, "bedplate"});
  EXPECT_EQ(history.code, kDone);
  EXPECT_THAT(history.out, testing::MatchesRegex("2  20[-0-9]+T[:0-9]+Z  bob\n"
                                                 "  material.name: Steel -> Iron\n"
                                                 "1  20[-0-9]+T[:0-9]+Z  eva\n"
                                                 "  material.name: [^\n]*-> Steel\n"));
  const Outcome latest = Lumira({"history", file, "bedplate", "--limit", "1"});
  EXPECT_THAT(latest.out, StartsWith("2  "));
  EXPECT_EQ(latest.out.find("eva"), std::string::npos);
  EXPECT_EQ(Lumira({"history", file, "yaw"}).out, "");
}

TEST_F(CommandLineHistory, GivesAStateThatCanBeSavedAgain) {
  const std::string before = Bedplate().material.name;
  SaveMaterial("Steel, painted", {"--user", "eva"});
  const std::string state =
      Line(Lumira({"command", file, "LumGetHistoryState", "HistoryStateRequest/1|bedplate|1|0|end"}));
  EXPECT_EQ(Lumira({"command", file, "WBSaveNymValues", state, "--user", "bob"}).code, kDone);
  EXPECT_EQ(Bedplate().material.name, before);
  EXPECT_THAT(Lumira({"history", file, "bedplate"}).out,
              HasSubstr("  material.name: Steel, painted -> " + before + "\n"));
}

TEST_F(CommandLineHistory, ShowsControlCharactersOfValuesEscaped) {
  SaveMaterial(
      "a\n99  2030-01-01T00:00:00Z  admin\n\x1B[31mred\xC2\x9B"
      "1m",
      {"--user", "eva"});
  EXPECT_THAT(Lumira({"history", file, "bedplate"}).out,
              HasSubstr("-> a\\x0A99  2030-01-01T00:00:00Z  admin\\x0A\\x1B[31mred\\xC2\\x9B1m\n"));
}

TEST_F(CommandLineHistory, ReadsARequestFromTheInputHoweverLongItIs) {
  protocol::PartData data = Bedplate();
  data.material.name = std::string(500'000, 'x');
  const auto save = [&](const std::string& input) {
    return Lumira({"command", file, "WBSaveNymValues", "-", "--user", "eva"}, false, input);
  };
  const Outcome saved = save(protocol::WritePartData(data) + "\n");
  EXPECT_EQ(saved.code, kDone) << saved.errors;
  EXPECT_EQ(Bedplate().material.name, data.material.name);
  const Outcome endless = save(std::string((std::size_t{64} << 20) + 2, 'x'));
  EXPECT_EQ(endless.code, kRefused);
  EXPECT_THAT(endless.errors, HasSubstr("the limit is 67108864"));
}

TEST_F(CommandLineHistory, TakesTheUserOfTheEnvironmentWhenNobodyIsNamed) {
  const char* before = std::getenv("USER");
  const std::optional<std::string> user =
      before == nullptr ? std::nullopt : std::optional<std::string>(before);
  setenv("USER", "joe", 1);
  SaveMaterial("Steel", {});
  user ? setenv("USER", user->c_str(), 1) : unsetenv("USER");
  EXPECT_THAT(Lumira({"history", file, "bedplate"}).out, HasSubstr("Z  joe\n"));
}

TEST_F(CommandLineHistory, RefusesNamesThatAreNoneAndPartsThatAreNot) {
  const Outcome refused = SaveMaterial("Steel, painted", {"--user", "e|va"});
  EXPECT_EQ(refused.code, kUsage);
  EXPECT_THAT(refused.errors, HasSubstr("\"e|va\" holds \"|\""));
  EXPECT_NE(Bedplate().material.name, "Steel, painted");
  const Outcome unknown = Lumira({"history", file, "nobody"});
  EXPECT_EQ(unknown.code, kRefused);
  EXPECT_EQ(unknown.errors, "lumira: there is no part \"nobody\"\n");
}

TEST_F(CommandLineHistory, TellsAConflictAsInputThatIsRefused) {
  protocol::PartData old = Bedplate();
  SaveMaterial("Steel", {"--user", "eva"});
  old.material.name = "Iron";
  const Outcome refused = Lumira({"command", file, "WBSaveNymValues", protocol::WritePartData(old)});
  EXPECT_EQ(refused.code, kRefused);
  EXPECT_THAT(refused.errors, HasSubstr("part \"bedplate\" was changed by \"eva\" on"));
}

TEST_F(CommandLine, TellsInputFromStorageByItsExitCode) {
  EXPECT_EQ(Lumira({"tree", file}).code, kRefused);
  EXPECT_EQ(Lumira({"tree", file}).errors, "lumira: database \"" + file + "\": there is no such file\n");
  std::ofstream(file) << std::string(5000, 'x');
  EXPECT_EQ(Lumira({"tree", file}).code, kStorage);
  std::filesystem::remove(file);
  Lumira({"init", file});
  EXPECT_EQ(Lumira({"compute", file, "nobody"}).code, kRefused);
  EXPECT_EQ(Lumira({"import", file, "--mass", folder + "/no.csv"}).code, kRefused);
}

TEST_F(CommandLine, RefusesWhatItDoesNotUnderstand) {
  for (const std::vector<std::string>& words :
       std::vector<std::vector<std::string>>{{},
                                             {"make", file},
                                             {"init"},
                                             {"init", file, "more"},
                                             {"import", file},
                                             {"compute", file},
                                             {"tree", file, "--depth", "-1"},
                                             {"tree", file, "--depth", "x"},
                                             {"history", file},
                                             {"history", file, "p", "--limit", "0"},
                                             {"import", file, "--mass", "m", "--frobnicate"}}) {
    const Outcome outcome = Lumira(words);
    EXPECT_EQ(outcome.code, kUsage);
    EXPECT_NE(outcome.errors, "");
    EXPECT_EQ(outcome.out, "");
  }
}

TEST_F(CommandLine, HelpsWithEachCommand) {
  EXPECT_THAT(Lumira({"--help"}).out, HasSubstr("Exit codes: 0 done"));
  for (const char* command : {"init", "import", "tree", "compute", "command", "history"}) {
    const Outcome help = Lumira({command, "--help"});
    EXPECT_EQ(help.code, kDone);
    EXPECT_THAT(help.out, HasSubstr("FILE")) << command;
  }
}

TEST_F(CommandLine, ShowsProgressOnATerminalOnly) {
  Lumira({"init", file});
  ImportSample();
  EXPECT_THAT(Lumira({"compute", file, "generator"}, true).errors, HasSubstr("\r\033[KLoading the product"));
  EXPECT_EQ(Lumira({"compute", file, "generator"}).errors, "");
}

// Refuses every byte, as a full disk does.
class FullDisk : public std::streambuf {};

TEST_F(CommandLine, FailsWhenTheOutputCannotBeWritten) {
  FullDisk disk;
  std::ostream out(&disk);
  std::ostringstream errors;
  const std::array words = {"lumira", "init", file.c_str()};
  EXPECT_EQ(RunCommandLine(3, words.data(), {out, errors}), kStorage);
  EXPECT_EQ(errors.str(), "lumira: the output cannot be written\n");
}

TEST_F(CommandLine, AnswersWithACodeWhateverIsThrown) {
  FullDisk disk;
  std::ostream out(&disk);
  out.exceptions(std::ios::badbit);
  std::ostringstream errors;
  const std::array words = {"lumira", "init", file.c_str()};
  EXPECT_EQ(RunCommandLine(3, words.data(), {out, errors}), kFailed);
  EXPECT_THAT(errors.str(), StartsWith("lumira: an unexpected failure: "));
}

#if !defined(__SANITIZE_ADDRESS__) && \
    !defined(__SANITIZE_THREAD__)  // which take far more address space themselves
TEST_F(CommandLine, EndsWithAMessageWhenThereIsNotEnoughMemory) {
  Lumira({"init", file});
  const std::string mass = folder + "/large.csv", errors = folder + "/errors";
  std::ofstream(mass) << "part\n";
  std::filesystem::resize_file(mass, 900'000'000);  // a hole, which takes no room on the disk
  const int status = std::system(
      ("ulimit -v 500000; " LUMIRA_PROGRAM " import " + file + " --mass " + mass + " 2>" + errors).c_str());
  EXPECT_EQ(WEXITSTATUS(status), kFailed);
  std::stringstream text;
  text << std::ifstream(errors).rdbuf();
  EXPECT_EQ(text.str(), "lumira: there is not enough memory\n");
}
#endif

TEST_F(CommandLine, OfTheProgramItselfGivesTheExitCodes) {
  const auto exitCode = [&](const std::string& arguments) {
    const int status =
        std::system((std::string(LUMIRA_PROGRAM " ") + arguments + " >/dev/null 2>&1").c_str());
    return WEXITSTATUS(status);
  };
  const int full = std::system((std::string(LUMIRA_PROGRAM) + " --help >/dev/full 2>/dev/null").c_str());
  EXPECT_EQ(WEXITSTATUS(full), 4);
  EXPECT_EQ(exitCode("--help"), 0);
  EXPECT_EQ(exitCode("init " + file), 0);
  EXPECT_EQ(exitCode("nonsense"), 2);
  EXPECT_EQ(exitCode("compute " + file + " nobody"), 3);
  std::ofstream(file) << std::string(5000, 'x');
  EXPECT_EQ(exitCode("tree " + file), 4);
}

}  // namespace
}  // namespace lumira
