// The commands that open a dialog of their own, from the action to what the window shows afterwards.
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>
#include <functional>

#include "desktop/app/ImportDialog.h"
#include "desktop/app/SearchBox.h"
#include "desktop/app/SelectionPane.h"
#include "desktop/app/UnitsDialog.h"
#include "tests/desktop/app/WindowHarness.h"

namespace desktop::test {
namespace {

class DialogCommandsTest : public WindowTest {
 protected:
  void TearDown() override {
    WindowTest::TearDown();
    KorApplyUnitSystem("Mixed");
    KorCkeUnit::SetShownDigits(10);
  }

  /// Triggers a command and works the dialog that it opens, which is closed afterwards. Fails when another
  /// one or none comes up.
  template <class Dialog>
  void InDialogOf(const char* command, const std::function<void(Dialog&)>& work) {
    bool worked = false;
    QTimer inDialog;
    inDialog.setSingleShot(true);
    QObject::connect(&inDialog, &QTimer::timeout, [&] {
      QWidget* shown = QApplication::activeModalWidget();
      if (auto* dialog = dynamic_cast<Dialog*>(shown)) {
        worked = true;
        work(*dialog);
      }
      // The command returns only when the dialog is closed.
      if (shown) shown->close();
    });
    inDialog.start(0);
    window.Command(command)->trigger();
    EXPECT_TRUE(worked) << command;
  }
  QString Table(const char* name, const char* text) const {
    QFile file(folder.filePath(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text);
    return file.fileName();
  }
  void FillInCar(ImportDialog& dialog) const {
    dialog.StructureEdit()->setText(
        Table("structure.csv", "parent,child,instance,x [m]\ncar,wheel,wheel.1,2\n"));
    dialog.MassEdit()->setText(Table("mass.csv", "part,mass [kg]\nwheel,20\n"));
  }
  static void Choose(QComboBox* combo, int index) {
    combo->setCurrentIndex(index);
    Q_EMIT combo->activated(index);
  }
  QStringList Products() {
    QStringList names;
    auto& model = *window.TreeView().model();
    for (int row = 0; row < model.rowCount(); ++row) names << model.index(row, 0).data().toString();
    return names;
  }
  QString MassOf(const std::vector<std::string>& instancePath) {
    Select(instancePath);
    return window.TreeView().currentIndex().siblingAtColumn(ProductTreeModel::Mass).data().toString();
  }
  std::string PanelMass() {
    const KorDlgObject& editor = Panel().Find("TabContainer001.TabPage002.MassFrame.MassEditor");
    return backend.ControlOf<QLineEdit>(editor)->text().toStdString();
  }
  static constexpr int kImperial = 2;  ///< place among the systems that the dialog offers
};

TEST_F(DialogCommandsTest, AnImportAddsAProductToTheOpenFileAndShowsIt) {
  InDialogOf<ImportDialog>("ImportTables", [this](ImportDialog& dialog) {
    FillInCar(dialog);
    dialog.ImportButton()->click();
    EXPECT_FALSE(dialog.Imported().empty()) << dialog.ReportText().toStdString();
  });
  EXPECT_EQ(Products(), QStringList({"Rotor-nacelle assembly", "car"}));
  EXPECT_TRUE(window.Select("car", {"wheel.1"}));
}

TEST_F(DialogCommandsTest, AnImportThatIsOnlyCheckedLeavesPanelAndSelectionAsTheyAre) {
  OpenPanelOnAboveYaw();
  InDialogOf<ImportDialog>("ImportTables", [this](ImportDialog& dialog) {
    FillInCar(dialog);
    dialog.CheckButton()->click();
    EXPECT_TRUE(dialog.ReportText().contains("car")) << dialog.ReportText().toStdString();
  });
  EXPECT_TRUE(window.PartPanel().IsOpen());
  EXPECT_EQ(window.Selection().PartText("Selection.Part"), "Above_yaw");
  EXPECT_EQ(Products(), QStringList{"Rotor-nacelle assembly"});
}

TEST_F(DialogCommandsTest, AnImportOverTheOpenProductClosesThePanelAndForgetsWhatWasFound) {
  OpenPanelOnAboveYaw();
  window.Search().Edit()->setText("bedplate");
  window.Search().Search();
  ASSERT_EQ(window.Search().Hits()->topLevelItemCount(), 1);
  InDialogOf<ImportDialog>("ImportTables", [this](ImportDialog& dialog) {
    FillInCar(dialog);
    dialog.ProductEdit()->setText("IEA15");
    dialog.ReplaceBox()->setChecked(true);
    dialog.ImportButton()->click();
    EXPECT_FALSE(dialog.Imported().empty()) << dialog.ReportText().toStdString();
  });
  EXPECT_FALSE(window.PartPanel().IsOpen());
  EXPECT_EQ(window.Search().Hits()->topLevelItemCount(), 0);
  EXPECT_EQ(Products(), QStringList{"car"});
  EXPECT_EQ(window.Selection().PartText("Selection.Part"), "car");
  EXPECT_EQ(MassOf({"wheel.1"}), "20 kg");
  window.ShowPartPanel();
  EXPECT_TRUE(window.PartPanel().IsOpen());
  EXPECT_TRUE(boxes.Messages().empty());
}

TEST_F(DialogCommandsTest, ANewProductAsksForItsTables) {
  boxes.files = {KorUnicodeString(folder.filePath("new.lumira").toStdString())};
  InDialogOf<ImportDialog>("NewProduct", [this](ImportDialog& dialog) {
    FillInCar(dialog);
    dialog.ImportButton()->click();
  });
  EXPECT_EQ(window.ServerText(), "Server: embedded, new.lumira");
  EXPECT_EQ(Products(), QStringList{"car"});
}

TEST_F(DialogCommandsTest, UnitsThatAreAcceptedAreShownEverywhereAndRemembered) {
  InDialogOf<UnitsDialog>("Units", [](UnitsDialog& dialog) {
    Choose(dialog.SystemCombo(), kImperial);
    dialog.DigitsBox()->setValue(6);
    dialog.accept();
  });
  EXPECT_EQ(window.UnitSystemText(), "Units: Imperial");
  // 48672 kg / 0.45359237 = 107303.39225... lb
  EXPECT_EQ(MassOf({"nacelle.1", "Above_yaw.1", "platform.1"}), "107303 lb");
  KorApplyUnitSystem("SI");
  settings.ApplyUnits();
  EXPECT_EQ(KorCurrentUnitSystem(), "Imperial");
}

TEST_F(DialogCommandsTest, UnitsThatAreAcceptedAreThoseOfAnOpenPanel) {
  OpenPanelOnAboveYaw();
  window.Compute();
  const std::string before = PanelMass();
  InDialogOf<UnitsDialog>("Units", [](UnitsDialog& dialog) {
    Choose(dialog.SystemCombo(), kImperial);
    dialog.accept();
  });
  EXPECT_EQ(before, "644856.5481 kg");
  // 644856.548088461 kg / 0.45359237 = 1421665.334... lb
  EXPECT_EQ(PanelMass(), "1421665.334 lb");
}

TEST_F(DialogCommandsTest, UnitsThatAreCancelledStayAsTheyWere) {
  InDialogOf<UnitsDialog>("Units", [](UnitsDialog& dialog) {
    Choose(dialog.SystemCombo(), kImperial);
    dialog.reject();
  });
  EXPECT_EQ(window.UnitSystemText(), "Units: Mixed (mm, kg)");
  EXPECT_EQ(MassOf({"nacelle.1", "Above_yaw.1", "platform.1"}), "48672 kg");
}

}  // namespace
}  // namespace desktop::test
