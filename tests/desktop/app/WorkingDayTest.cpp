// An engineer's working day on a real product file, in front of a recording toolkit and of Qt: what was typed
// and saved is there for another process, and in SI in the file.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <QCoreApplication>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTemporaryDir>

#include "desktop/app/CommandsLibrary.h"
#include "desktop/app/EmbeddedTransport.h"
#include "desktop/app/SampleProduct.h"
#include "desktop/toolkit/HeadlessBoxes.h"
#include "desktop/toolkit/QtBackend.h"
#include "framework/dialog/KorApplicationFrame.h"
#include "framework/knowledge/KorUnitSystems.h"
#include "framework/pdm/KorPdmClient.h"
#include "protocol/Codec.h"
#include "services/LumWBAllDataBuffer.h"
#include "tests/desktop/app/WorkingDay.h"
#include "tests/desktop/support/QtApplication.h"
#include "tests/support/RecordingBackend.h"
#include "tests/support/UnreachableGuard.h"

namespace desktop::test {
namespace {

/// A toolkit and its boxes; a box that comes up fails the test.
struct Toolkit {
  virtual ~Toolkit() = default;
  virtual KorDlgBackend& Backend() = 0;
};

struct RecordingToolkit : Toolkit {
  KorDlgBackend& Backend() override { return backend; }
  RecordingBackend backend;  ///< its script expects nothing
};

struct QtToolkit : Toolkit {
  ~QtToolkit() override {
    EXPECT_TRUE(boxes.Messages().empty());
    EXPECT_EQ(boxes.UnexpectedCount(), 0);
  }
  KorDlgBackend& Backend() override { return backend; }
  HeadlessBoxes boxes;
  QtBackend backend{&boxes};
};

template <class Kind>
std::unique_ptr<Toolkit> Make() {
  return std::make_unique<Kind>();
}

struct ToolkitRow {
  const char* name;
  std::unique_ptr<Toolkit> (*make)();
};

/// The file that a test has left for the process that it starts to read it; set in that process alone.
constexpr const char* kSavedDay = "KORVO_TEST_SAVED_DAY";

class WorkingDayTest : public testing::TestWithParam<ToolkitRow> {
 protected:
  void SetUp() override {
    KorApplyUnitSystem("Mixed");
    KorApplicationFrame::SetBackend(&toolkit->Backend());
    if (!IsReader()) {
      const auto made = CreateSampleProduct(KORVO_SOURCE_DIR "/samples", File());
      ASSERT_TRUE(made.Ok()) << made.Failure().message;
    }
    OpenFile();
  }

  void TearDown() override {
    CloseFile();
    KorApplicationFrame::SetBackend(nullptr);
  }

  /// Whether this process was started by a test to read what that has saved.
  static bool IsReader() { return qEnvironmentVariableIsSet(kSavedDay); }
  std::string File() const {
    return (IsReader() ? qEnvironmentVariable(kSavedDay) : folder.filePath("day.lumira")).toStdString();
  }

  static std::string Request() {
    return protocol::WritePartDataRequest({.product = "IEA15",
                                           .partId = "bedplate",
                                           .instancePath = {"nacelle.1", "Above_yaw.1", "bedplate.1"}});
  }

  void OpenFile() {
    auto opened = EmbeddedTransport::Open(File());
    ASSERT_TRUE(opened.Ok()) << opened.Failure().message;
    server = std::move(opened).Value();
    KorPdmClient::SetTransport(server.get());
    OpenPanel();
  }

  void CloseFile() {
    ClosePanel();
    KorPdmClient::SetTransport(nullptr);
    server.reset();
  }

  void OpenPanel() {
    buffer = LumWBAllDataBuffer_var::Adopt(new LumWBAllDataBuffer);
    ASSERT_EQ(buffer->SetAllData(server->Run("WBGetPartData", Request()), true), S_OK);
    panel = library.Commands()->CreatePartPanel(*buffer);
    panel->Dialog().Attach(&toolkit->Backend());
    panel->Dialog().SetVisibility(KorVisibility::Shown);
    RunPendingEvents();
  }

  void ClosePanel() {
    if (panel) panel->Dialog().Detach();
    panel.reset();
    buffer = {};
    RunPendingEvents();
  }

  /// Panel, buffer and server go and come anew.
  void OpenFileAnew() {
    CloseFile();
    OpenFile();
  }

  WorkingDay Day() { return WorkingDay(panel->Dialog()); }

  /// With computed values to paste from.
  void WorkADay(WorkingDay::Bounds bounds = WorkingDay::Bounds::Relative) {
    ASSERT_FALSE(server->Run("WBComputeNymValues", "1|bedplate|").starts_with("LumiraError: "));
    ClosePanel();
    OpenPanel();
    Day().Work(bounds);
  }

  // ---- what is there afterwards ----

  /// The part as another process reads it from the file.
  protocol::PartData ReadInNewProcess() {
    QProcess process;
    process.start(LUMIRA_PROGRAM, {"command", QString::fromStdString(File()), "WBGetPartData",
                                   QString::fromStdString(Request())});
    EXPECT_TRUE(process.waitForFinished(60'000));
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    const auto data = protocol::ReadPartData(process.readAllStandardOutput().trimmed().toStdString());
    EXPECT_TRUE(data.Ok()) << data.Failure().message;
    return data.Ok() ? data.Value() : protocol::PartData();
  }

  /// Runs the test of this name in a process of its own, which finds the file of this one; what it said.
  void ExpectPassesInNewProcess(const std::string& test) {
    CloseFile();
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(kSavedDay, QString::fromStdString(File()));
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(QCoreApplication::applicationFilePath(),
                  {QString::fromStdString("--gtest_filter=" + test)});
    EXPECT_TRUE(process.waitForFinished(60'000));
    const std::string said = process.readAll().toStdString();
    EXPECT_EQ(process.exitCode(), 0) << said;
    EXPECT_NE(said.find("[  PASSED  ] 1 test."), said.npos) << said;
  }

  static double Real(sqlite3_stmt* query, int column) { return sqlite3_column_double(query, column); }
  static std::string Characters(sqlite3_stmt* query, int column) {
    return reinterpret_cast<const char*>(sqlite3_column_text(query, column));
  }

  static std::string PropertyOf(const protocol::PartData& data, const std::string& name) {
    for (const protocol::ExtraProperty& property : data.properties)
      if (property.name == name) return property.value;
    return "no such property";
  }

  /// The only row that a query of the file gives, each column as `read` reads it.
  template <class Value>
  std::vector<Value> RowOf(const char* sql, Value (*read)(sqlite3_stmt*, int)) const {
    sqlite3* database = nullptr;
    EXPECT_EQ(sqlite3_open_v2(File().c_str(), &database, SQLITE_OPEN_READONLY, nullptr), SQLITE_OK);
    sqlite3_stmt* query = nullptr;
    EXPECT_EQ(sqlite3_prepare_v2(database, sql, -1, &query, nullptr), SQLITE_OK) << sqlite3_errmsg(database);
    EXPECT_EQ(sqlite3_step(query), SQLITE_ROW);
    std::vector<Value> row;
    for (int column = 0; column < sqlite3_column_count(query); ++column) row.push_back(read(query, column));
    EXPECT_EQ(sqlite3_step(query), SQLITE_DONE);
    sqlite3_finalize(query);
    sqlite3_close(database);
    return row;
  }

  /// Of the bedplate, as the file has it.
  std::string StoredProperty(const std::string& name) const {
    const std::string sql =
        "SELECT value FROM property_values JOIN parts ON parts.key = property_values.part "
        "JOIN property_definitions ON property_definitions.product = parts.product "
        "AND property_definitions.position = property_values.definition "
        "WHERE parts.part = 'bedplate' AND property_definitions.name = '" +
        name + "'";
    return RowOf(sql.c_str(), Characters).at(0);
  }

  QTemporaryDir folder;
  UnreachableGuard unreachable;
  std::unique_ptr<Toolkit> toolkit = GetParam().make();
  std::unique_ptr<EmbeddedTransport> server;
  CommandsLibrary library;
  LumWBAllDataBuffer_var buffer;
  std::unique_ptr<KorWBPartPanel> panel;
};

TEST_P(WorkingDayTest, EverythingThatWasSavedIsThereForANewProcessAndInSIInTheFile) {
  WorkADay();

  const protocol::PartData data = ReadInNewProcess();
  const auto type = std::find_if(data.massTypes.begin(), data.massTypes.end(),
                                 [](const protocol::MassType& one) { return one.name == "Calculated"; });
  ASSERT_NE(type, data.massTypes.end());
  EXPECT_EQ(type->mass, 84548.54882976364);
  EXPECT_EQ((*type->cg)[0], -1.3005);
  EXPECT_EQ((*type->inertia)[0], 1098139.696);
  EXPECT_EQ(type->precisionType, 1);
  EXPECT_EQ(type->precisionValueType, 0);
  EXPECT_EQ(type->lowerPrecision, 0.04);
  EXPECT_EQ(type->upperPrecision, 0.025);
  EXPECT_EQ(data.documents.activeId, "DOC-BEDPLATE");
  EXPECT_EQ(data.documents.activeVersion, "B");
  EXPECT_TRUE(data.documents.usedSpecificRevisionBefore);
  EXPECT_EQ(PropertyOf(data, "Last weighing"), "2024-02-29");
  EXPECT_EQ(PropertyOf(data, "Overall length"), "9.3505");
  EXPECT_EQ(PropertyOf(data, "Transport mass"), "45125");
  EXPECT_EQ(PropertyOf(data, "Supplier"), "Nordguss") << "nobody edited it";

  EXPECT_THAT(RowOf("SELECT mass, cg_x, inertia_xx FROM mass_types JOIN parts ON parts.key = mass_types.part "
                    "WHERE parts.part = 'bedplate' AND mass_types.name = 'Calculated'",
                    Real),
              testing::ElementsAre(84548.54882976364, -1.3005, 1098139.696));
  EXPECT_THAT(RowOf("SELECT document, active_version, used_specific_revision FROM part_details "
                    "JOIN parts ON parts.key = part_details.part WHERE parts.part = 'bedplate'",
                    Characters),
              testing::ElementsAre("DOC-BEDPLATE", "B", "1"));
  EXPECT_EQ(StoredProperty("Last weighing"), "2024-02-29");
  EXPECT_EQ(StoredProperty("Overall length"), "9.3505");
  EXPECT_EQ(StoredProperty("Transport mass"), "45125");
}

TEST_P(WorkingDayTest, APanelThatIsOpenedAgainOnANewServerShowsEverythingThatWasSaved) {
  WorkADay();
  OpenFileAnew();
  Day().ExpectShown();
}

TEST_P(WorkingDayTest, BoundsThatAreSavedAsMassesAreMassesInTheFileAndWhenThePanelIsOpenedAgain) {
  WorkADay(WorkingDay::Bounds::Absolute);
  // 4 and 2.5 percent of 42900 kg
  EXPECT_THAT(RowOf("SELECT precision_type, value_type, lower, upper FROM precisions "
                    "JOIN parts ON parts.key = precisions.part "
                    "WHERE parts.part = 'bedplate' AND precisions.mass_type = 'Calculated'",
                    Real),
              testing::ElementsAre(1, 1, 1716, 1072.5));
  OpenFileAnew();
  Day().ExpectShown(WorkingDay::Bounds::Absolute);
}

/// Plays both processes: the one that saves, and the one that it starts.
TEST_P(WorkingDayTest, ThePanelOfANewProcessShowsEverythingThatWasSaved) {
  if (IsReader()) return Day().ExpectShown();
  WorkADay();
  ExpectPassesInNewProcess(std::string("Toolkits/WorkingDayTest."
                                       "ThePanelOfANewProcessShowsEverythingThatWasSaved/") +
                           GetParam().name);
}

INSTANTIATE_TEST_SUITE_P(Toolkits, WorkingDayTest,
                         testing::Values(ToolkitRow{"Recording", Make<RecordingToolkit>},
                                         ToolkitRow{"Qt", Make<QtToolkit>}),
                         [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace desktop::test
