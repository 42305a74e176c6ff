// An engineer's working day on a real product file, in front of a recording toolkit and of Qt: what was typed
// and saved is there for another process, and in SI in the file.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <QProcess>
#include <QTemporaryDir>

#include "desktop/app/CommandsLibrary.h"
#include "desktop/app/EmbeddedTransport.h"
#include "desktop/app/SampleProduct.h"
#include "desktop/toolkit/HeadlessBoxes.h"
#include "desktop/toolkit/QtBackend.h"
#include "framework/dialog/KorApplicationFrame.h"
#include "framework/dialog/KorDlgCombo.h"
#include "framework/dialog/KorDlgEditor.h"
#include "framework/dialog/KorDlgPushButton.h"
#include "framework/dialog/KorDlgRadioButton.h"
#include "framework/dialog/KorDlgTabContainer.h"
#include "framework/knowledge/KorUnitSystems.h"
#include "framework/pdm/KorPdmClient.h"
#include "protocol/Codec.h"
#include "services/LumWBAllDataBuffer.h"
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

constexpr const char* kTypes = "TabContainer001.TabPage003.Frame107.Frame231.";
constexpr const char* kInertia = "TabContainer001.TabPage003.Frame113.MTMomentOfInertia.";
constexpr const char* kCG = "TabContainer001.TabPage003.Frame113.MTCGFrame.";
constexpr const char* kPrecision = "TabContainer001.TabPage005.Frame252.";
constexpr const char* kDocuments = "TabContainer001.TabPageDocuments.";
constexpr const char* kProperties = "TabContainer001.TabPageAdditional.ExtraPropertiesFrame.";
enum Page { kMassTypesPage = 1, kPrecisionPage = 3, kDocumentsPage, kPropertiesPage };

class WorkingDayTest : public testing::TestWithParam<ToolkitRow> {
 protected:
  void SetUp() override {
    KorApplyUnitSystem("Mixed");
    KorApplicationFrame::SetBackend(&toolkit->Backend());
    const auto made = CreateSampleProduct(KORVO_SOURCE_DIR "/samples", File());
    ASSERT_TRUE(made.Ok()) << made.Failure().message;
    auto opened = EmbeddedTransport::Open(File());
    ASSERT_TRUE(opened.Ok()) << opened.Failure().message;
    server = std::move(opened).Value();
    KorPdmClient::SetTransport(server.get());
    OpenPanel();
  }

  void TearDown() override {
    ClosePanel();
    KorPdmClient::SetTransport(nullptr);
    KorApplicationFrame::SetBackend(nullptr);
  }

  std::string File() const { return folder.filePath("day.lumira").toStdString(); }

  static std::string Request() {
    return protocol::WritePartDataRequest({.product = "IEA15",
                                           .partId = "bedplate",
                                           .instancePath = {"nacelle.1", "Above_yaw.1", "bedplate.1"}});
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
    RunPendingEvents();
  }

  template <class Widget>
  Widget& Find(const std::string& path) {
    return panel->Dialog().Find<Widget>(path);
  }
  void Press(const std::string& button) { ASSERT_TRUE(Find<KorDlgPushButton>(button).Press()) << button; }
  void GoTo(Page page) { ASSERT_TRUE(Find<KorDlgTabContainer>("TabContainer001").Pick(page)) << page; }
  void Pick(const std::string& combo, const char* line) {
    ASSERT_TRUE(Find<KorDlgCombo>(combo).Pick(KorUnicodeString(line))) << combo << " " << line;
  }
  /// As a user types: the focus comes, the text is replaced, the focus goes.
  void Type(const std::string& editor, const char* text) {
    auto& widget = Find<KorDlgEditor>(editor);
    ASSERT_TRUE(widget.EnterFocus()) << editor;
    ASSERT_TRUE(widget.Type(text)) << editor;
    ASSERT_TRUE(widget.LeaveFocus()) << editor;
  }
  std::string TextOf(const std::string& editor) { return Find<KorDlgEditor>(editor).GetText().Utf8(); }

  // ---- the steps of the day ----

  /// The revision of the document before the latest one, chosen by hand; its values are shown.
  void ChooseRevision() {
    const std::string choice = kDocuments + std::string("UpperMainFrameActiveDoc.FrameActiveDoc.");
    GoTo(kDocumentsPage);
    ASSERT_TRUE(Find<KorDlgRadioButton>(kDocuments + std::string("LowerMainFrameActiveDoc.FrameActiveDocType."
                                                                 "ActiveDocUsrSelButton"))
                    .Check());
    Press(choice + "ChangeActiveDocButton");
    Pick(choice + "ActiveDocsCombo", "DOC-BEDPLATE B");
    Press(choice + "ApplyActiveDocButton");
    GoTo(kMassTypesPage);
    Pick(kTypes + std::string("MassTypeCombo"), "Calculated");
    EXPECT_EQ(TextOf(kTypes + std::string("MTMassEditor")), "42900 kg");
  }

  /// Another mass type's values, scaled to another mass, as those of the shown type.
  void PasteAndRescale() {
    GoTo(kMassTypesPage);
    Type(kTypes + std::string("MTMassEditor"), "2 * 21500");
    EXPECT_EQ(TextOf(kTypes + std::string("MTMassEditor")), "43000");
    Pick(kTypes + std::string("MTPasteValuesCombo"), "Computed");
    EXPECT_EQ(TextOf(kTypes + std::string("MTMassEditor")), "42274.27441 kg");
    Type(kTypes + std::string("MTMassEditor"), "84548.54882976364 kg");
    Press(kTypes + std::string("UpdatePropertiesButton"));
    // Twice the mass and 549069.848115082 kg m2.
    EXPECT_EQ(TextOf(kInertia + std::string("MTIxxEditor")), "1098139.696 kg\u00b7m\u00b2");
    Type(kCG + std::string("MTCGxEditor"), "-1300.5 mm");
  }

  /// 4 percent of the active mass of the chosen revision, 42900 kg, and back.
  void ChangePrecisionAndBack() {
    GoTo(kPrecisionPage);
    Pick(kPrecision + std::string("Frame092.TypeCombo"), "User Defined");
    Type(kPrecision + std::string("PrecisionValueFrame.LowerValueEditor"), "4");
    Type(kPrecision + std::string("PrecisionValueFrame.UpperValueEditor"), "2.5 %");
    EXPECT_EQ(TextOf(kPrecision + std::string("PrecisionValueFrame.UpperValueEditor")), "2.5%");
    Pick(kPrecision + std::string("PrecisionValueFrame.ValueTypeCombo"), "Absolute");
    EXPECT_EQ(TextOf(kPrecision + std::string("PrecisionValueFrame.LowerValueEditor")), "1716 kg");
    Pick(kPrecision + std::string("PrecisionValueFrame.ValueTypeCombo"), "Relative");
    EXPECT_EQ(TextOf(kPrecision + std::string("PrecisionValueFrame.LowerValueEditor")), "4%");
  }

  void EditProperty(const char* name, const char* shown, const char* text) {
    Pick(kProperties + std::string("PropertyNameCombo"), name);
    EXPECT_EQ(TextOf(kProperties + std::string("PropertyValueEditor")), shown);
    Type(kProperties + std::string("PropertyValueEditor"), text);
  }

  /// A date, a length in millimetres and a mass; the last one is still being edited when it is saved.
  void EditProperties() {
    GoTo(kPropertiesPage);
    EditProperty("Last weighing", "2020-06-18", "2024-02-29");
    EditProperty("Overall length", "9200 mm", "9350.5 mm");
    EditProperty("Transport mass", "44500 kg", "45125");
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
  ASSERT_FALSE(server->Run("WBComputeNymValues", "1|bedplate|").starts_with("LumiraError: "));
  ClosePanel();
  OpenPanel();
  Press("Frame238.EditButton");
  ChooseRevision();
  PasteAndRescale();
  ChangePrecisionAndBack();
  EditProperties();
  Press("Frame238.SaveButton");
  EXPECT_FALSE(Find<KorDlgPushButton>("Frame238.SaveButton").IsEnabled());

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

INSTANTIATE_TEST_SUITE_P(Toolkits, WorkingDayTest,
                         testing::Values(ToolkitRow{"Recording", Make<RecordingToolkit>},
                                         ToolkitRow{"Qt", Make<QtToolkit>}),
                         [](const auto& row) { return row.param.name; });

}  // namespace
}  // namespace desktop::test
