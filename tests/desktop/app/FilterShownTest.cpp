// What the main window shows of the filter in force.
#include <QAction>
#include <QFont>
#include <QStatusBar>
#include <QTreeView>

#include "desktop/app/SampleProduct.h"
#include "desktop/app/SelectionPane.h"
#include "framework/dialog/KorDlgCombo.h"
#include "framework/dialog/KorDlgEditor.h"
#include "framework/dialog/KorDlgLabel.h"
#include "framework/dialog/KorDlgRadioButton.h"
#include "framework/dialog/KorDlgTabContainer.h"
#include "lumira/import/ImportProduct.h"
#include "protocol/Codec.h"
#include "protocol/Constants.h"
#include "tests/desktop/app/ScriptedTransport.h"
#include "tests/desktop/app/WindowHarness.h"
#include "tests/desktop/support/QtApplication.h"

namespace desktop::test {
namespace {

const std::vector<std::string> kAboveYaw{"nacelle.1", "Above_yaw.1"};
const std::vector<std::string> kBedplate{"nacelle.1", "Above_yaw.1", "bedplate.1"};
const std::vector<std::string> kRotor{"nacelle.1", "Above_yaw.1", "generator.1", "generator_rotor.1"};

class FilterShownTest : public WindowTest {
 protected:
  void ChooseInstances(const std::vector<std::vector<std::string>>& paths) {
    OpenFilterPanel();
    SelectAll(paths);
    window.AddToFilter();
    EXPECT_TRUE(window.FilterPanel().Panel()->PressOK());
    RunPendingEvents();
  }
  QVariant Of(const std::vector<std::string>& path, int role) {
    return window.Tree().IndexOf("IEA15", path).data(role);
  }
  bool IsGrey(const std::vector<std::string>& path) { return Of(path, Qt::ForegroundRole).isValid(); }
  bool IsItalic(const std::vector<std::string>& path) {
    return Of(path, Qt::FontRole).value<QFont>().italic();
  }
  std::string ShownMass() {
    return Panel().Find<KorDlgEditor>("TabContainer001.TabPage002.MassFrame.MassEditor").GetText().Utf8();
  }
};

TEST_F(FilterShownTest, WithoutOneEverythingCounts) {
  EXPECT_EQ(window.FilterText(), "Filter: No Filter");
  EXPECT_EQ(window.FilterMeaning(), "Everything counts.");
  EXPECT_EQ(window.Selection().FilterNote(), "");
}

TEST_F(FilterShownTest, AConfigurationFilterIsNamedWithWhatItMeans) {
  ChooseFilter("Without generator");
  EXPECT_EQ(window.FilterText(), "Filter: Without generator");
  EXPECT_TRUE(window.FilterMeaning().startsWith("Without generator: "))
      << window.FilterMeaning().toStdString();
  EXPECT_TRUE(window.FilterMeaning().contains("3 of 21")) << window.FilterMeaning().toStdString();
}

TEST_F(FilterShownTest, AUserFilterNamesItsInstances) {
  ChooseInstances({kBedplate, kRotor});
  EXPECT_EQ(window.FilterText(), "Filter: User Filter");
  EXPECT_EQ(window.FilterMeaning(),
            "Only these instances count, each with everything below it:\n"
            "bedplate.1 (part bedplate)\n"
            "generator_rotor.1 (part generator_rotor)");
}

TEST_F(FilterShownTest, ALongUserFilterNamesTenAndCountsTheRest) {
  std::vector<std::vector<std::string>> paths;
  for (const char* part : {"mb1.1", "mb2.1", "lss.1", "hss.1", "brake.1", "gearbox.1", "hvac.1", "nose.1",
                           "platform.1", "cover.1", "transformer.1", "converter.1"})
    paths.push_back({"nacelle.1", "Above_yaw.1", part});
  ChooseInstances(paths);
  EXPECT_EQ(window.FilterMeaning().count('\n'), 11);
  EXPECT_TRUE(window.FilterMeaning().endsWith("\nand 2 more")) << window.FilterMeaning().toStdString();
}

TEST_F(FilterShownTest, AUserFilterMarksTheTree) {
  ChooseInstances({kBedplate, kRotor});
  for (const auto& path : {kBedplate, kRotor}) {
    EXPECT_FALSE(IsGrey(path));
    EXPECT_FALSE(IsItalic(path));
  }
  EXPECT_TRUE(IsItalic({}));
  EXPECT_TRUE(IsItalic(kAboveYaw));
  EXPECT_TRUE(IsGrey({"Blades.1"}));
  EXPECT_TRUE(Of({"Blades.1"}, Qt::ToolTipRole).toString().endsWith("The filter leaves it out."));
  EXPECT_TRUE(Of(kAboveYaw, Qt::ToolTipRole).toString().endsWith("The filter leaves only part of it."));
}

TEST_F(FilterShownTest, WhyALineIsMarkedIsNotForTheMouseAlone) {
  ChooseInstances({kBedplate});
  EXPECT_EQ(Of({"Blades.1"}, Qt::AccessibleDescriptionRole), "The filter leaves it out.");
  EXPECT_EQ(Of(kAboveYaw, Qt::AccessibleDescriptionRole), "The filter leaves only part of it.");
  EXPECT_EQ(Of(kBedplate, Qt::AccessibleDescriptionRole), "");
}

TEST_F(FilterShownTest, TheStatusBarSaysWhyTheCurrentLineIsMarked) {
  ChooseInstances({kBedplate});
  Select({"Blades.1"});
  EXPECT_EQ(window.statusBar()->currentMessage(), "The filter leaves it out.");
  Select(kAboveYaw);
  EXPECT_EQ(window.statusBar()->currentMessage(), "The filter leaves only part of it.");
  Select(kBedplate);
  EXPECT_EQ(window.statusBar()->currentMessage(), "");
}

TEST_F(FilterShownTest, TheStatusBarFollowsTheFilterWhileTheLineStays) {
  ChooseInstances({kBedplate});
  Select({"Blades.1"});
  ChooseFilter("No Filter");
  EXPECT_EQ(window.statusBar()->currentMessage(), "");
  OpenFilterPanel();
  EXPECT_TRUE(InFilterPanel<KorDlgRadioButton>("PVSFilterBtn").Check());
  EXPECT_TRUE(window.FilterPanel().Panel()->PressOK());
  RunPendingEvents();
  EXPECT_EQ(window.statusBar()->currentMessage(), "The filter leaves it out.");
}

TEST_F(FilterShownTest, NameAndMeaningAreToldByTheKeyboard) {
  ChooseInstances({kBedplate, kRotor});
  EXPECT_EQ(window.Command("TellFilter")->shortcut(), QKeySequence("Ctrl+Shift+F"));
  window.Command("TellFilter")->trigger();
  EXPECT_EQ(OnlyMessage(),
            "Filter: User Filter\n\n"
            "Only these instances count, each with everything below it:\n"
            "bedplate.1 (part bedplate)\n"
            "generator_rotor.1 (part generator_rotor)");
}

TEST_F(FilterShownTest, ALongNameIsWholeInTheTooltipAndLeavesRoomForMessages) {
  const std::string name(195, 'x');
  lumira::ImportTables tables;
  tables.structure = {"structure.csv", "parent,child,instance\ncar,wheel,wheel.1\n"};
  tables.mass = {"mass.csv", "part,mass [kg]\nwheel,20\n"};
  tables.filters = {"filters.csv", "filter,description,condition,name,values,sense\n" + name +
                                       ",Long,instances,,wheel.1,keep\n"};
  lumira::ImportOptions options;
  options.product = "Car";
  const auto imported = lumira::ImportProduct(window.Session().Transport().Store(), tables, options);
  ASSERT_TRUE(imported.Ok()) << imported.Failure().message;
  ASSERT_TRUE(window.OpenProduct(File()));
  ASSERT_TRUE(window.Select("Car", {}));
  const int before = window.minimumSizeHint().width();
  ChooseFilter(name);
  EXPECT_TRUE(window.FilterText().endsWith(QString::fromStdString(name)));
  EXPECT_TRUE(window.FilterMeaning().startsWith(QString::fromStdString(name)))
      << window.FilterMeaning().toStdString();
  EXPECT_LE(window.minimumSizeHint().width(), before + 40 * window.fontMetrics().averageCharWidth());
}

TEST_F(FilterShownTest, TheMarksGoWithTheFilter) {
  ChooseInstances({kBedplate});
  ChooseFilter("No Filter");
  EXPECT_FALSE(IsGrey({"Blades.1"}));
  EXPECT_FALSE(IsItalic(kAboveYaw));
}

TEST_F(FilterShownTest, AnotherProductIsNeitherMarkedNorFiltered) {
  AddSecondProduct();
  Select({});
  ChooseInstances({kBedplate});
  ASSERT_TRUE(window.Select("Car", {"wheel.1"}));
  EXPECT_EQ(window.FilterText(), "Filter: No Filter");
  EXPECT_FALSE(window.Tree().IndexOf("Car", {"wheel.1"}).data(Qt::ForegroundRole).isValid());
  Select(kBedplate);
  EXPECT_EQ(window.FilterText(), "Filter: User Filter");
}

TEST_F(FilterShownTest, ThePaneSaysThatItsValuesAreOfTheWholeProduct) {
  ChooseFilter("Structure only");
  Select(kAboveYaw);
  EXPECT_TRUE(window.Selection().FilterNote().contains("\"Structure only\""))
      << window.Selection().FilterNote().toStdString();
  ChooseFilter("No Filter");
  EXPECT_EQ(window.Selection().FilterNote(), "");
}

TEST_F(FilterShownTest, StoredValuesOfTheWholeProductAreNotShownAsThoseUnderAFilter) {
  OpenPanelOnAboveYaw();
  ASSERT_TRUE(window.PartPanel().Compute());
  RunPendingEvents();
  ASSERT_EQ(ShownMass(), "644856.5481 kg");
  ChooseFilter("Structure only");
  EXPECT_EQ(ShownMass(), "...");
  EXPECT_TRUE(Panel().Find<KorDlgLabel>("Frame012.FrameStatus.FlagRedLabel").IsShown());
  ASSERT_TRUE(window.PartPanel().Compute());
  EXPECT_EQ(ShownMass(), "122376.3031 kg");
}

TEST_F(FilterShownTest, TheyAreBackWithoutTheFilter) {
  OpenPanelOnAboveYaw();
  ASSERT_TRUE(window.PartPanel().Compute());
  ChooseFilter("Structure only");
  ASSERT_TRUE(window.PartPanel().Compute());
  ChooseFilter("No Filter");
  EXPECT_EQ(ShownMass(), "644856.5481 kg");
}

TEST_F(FilterShownTest, WhatUsersHaveStoredIsShownUnderAFilterToo) {
  Select(kBedplate);
  window.ShowPartPanel();
  ChooseFilter("Structure only");
  const std::string page = "TabContainer001.TabPage003.Frame107.Frame231.";
  ASSERT_TRUE(Panel().Find<KorDlgTabContainer>("TabContainer001").Pick(1));
  Panel().Find<KorDlgCombo>(page + "MassTypeCombo").Pick("Calculated");
  EXPECT_EQ(Panel().Find<KorDlgEditor>(page + "MTMassEditor").GetText(), "42274.27441 kg");
}

TEST_F(FilterShownTest, AFilterThatTheFileDoesNotKnowIsToldOf) {
  ChooseFilter("Structure only");
  ScriptedTransport server;
  server.answer = [](const std::string& command, const std::string&) {
    return command == protocol::kCommandFilters ? protocol::WriteFilterList({})
                                                : protocol::ErrorReply("not asked");
  };
  window.ChooseLanguage("en");  // shows everything anew
  EXPECT_EQ(window.FilterMeaning(),
            "The product has no filter \"Structure only\" any more. Choose another one.");
  server.answer = [](auto&...) { return protocol::ErrorReply("the disk is full"); };
  window.ChooseLanguage("en");
  EXPECT_EQ(window.FilterMeaning(),
            "What the filter \"Structure only\" means cannot be asked for: the disk is full");
}

TEST_F(FilterShownTest, AFileThatIsOpenedAgainTellsWhatTheFilterOfThatNameMeansNow) {
  ChooseFilter("Without generator");
  ASSERT_EQ(window.FilterMeaning(),
            "Without generator: The nacelle before the generator is mounted - Leaves out 3 of 21 instances");
  auto tables = ReadSampleTables(KORVO_SOURCE_DIR "/samples");
  ASSERT_TRUE(tables.Ok()) << tables.Failure().message;
  tables.Value().filters = {"filters.csv",
                            "filter,description,condition,name,values,sense\n"
                            "Without generator,Another meaning,instances,,Blades.1,leave out\n"};
  lumira::ImportOptions options;
  options.product = "IEA15";
  options.existing = lumira::Existing::Replace;
  const auto imported = lumira::ImportProduct(window.Session().Transport().Store(), tables.Value(), options);
  ASSERT_TRUE(imported.Ok()) << imported.Failure().message;
  ASSERT_TRUE(window.OpenProduct(File()));
  EXPECT_EQ(window.FilterText(), "Filter: Without generator");
  EXPECT_EQ(window.FilterMeaning(), "Without generator: Another meaning - Leaves out 1 of 21 instances");
}

TEST_F(FilterShownTest, ALanguageIsThatOfTheMeaningToo) {
  ASSERT_TRUE(window.ChooseLanguage("de"));
  EXPECT_EQ(window.FilterMeaning(), QString::fromUtf8("Alles zählt."));
}

}  // namespace
}  // namespace desktop::test
