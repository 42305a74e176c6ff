#include <gtest/gtest.h>

#include <QTemporaryDir>

#include "desktop/app/Settings.h"
#include "framework/knowledge/KorUnitSystems.h"

namespace desktop::test {
namespace {

class SettingsTest : public ::testing::Test {
 protected:
  void TearDown() override {
    KorApplyUnitSystem("Mixed");
    KorCkeUnit::SetShownDigits(10);
  }
  QString File() const { return folder.filePath("settings.ini"); }
  QTemporaryDir folder;
};

TEST_F(SettingsTest, PutTheProductOpenedLastInFrontAndNameItOnce) {
  Settings settings(File());
  for (const char* file : {"a", "b", "a"}) settings.AddRecentProduct(file);
  EXPECT_EQ(settings.RecentProducts(), QStringList({"a", "b"}));
}

TEST_F(SettingsTest, KeepTheLastTenProducts) {
  Settings settings(File());
  for (int i = 0; i < 12; ++i) settings.AddRecentProduct(QString::number(i));
  EXPECT_EQ(settings.RecentProducts().size(), 10);
  EXPECT_EQ(settings.RecentProducts().front(), "11");
  EXPECT_EQ(settings.RecentProducts().back(), "2");
}

TEST_F(SettingsTest, BeginWithTheMixedUnitSystem) {
  KorApplyUnitSystem("SI");
  Settings(File()).ApplyUnits();
  EXPECT_EQ(KorCurrentUnitSystem(), "Mixed");
}

TEST_F(SettingsTest, RememberUnitsAndDigitsForTheNextStart) {
  KorApplyUnitSystem("Imperial");
  KorCkeUnit::SetShownDigits(6);
  Settings(File()).KeepUnits();
  KorApplyUnitSystem("SI");
  KorCkeUnit::SetShownDigits(10);
  Settings(File()).ApplyUnits();
  EXPECT_EQ(KorCurrentUnitSystem(), "Imperial");
  EXPECT_EQ(KorCkeUnit::GetShownDigits(), 6);
}

TEST_F(SettingsTest, TakeNoHarmFromASettingsFileWithNonsense) {
  QSettings file(File(), QSettings::IniFormat);
  file.setValue("theme", 99);
  file.setValue("units/digits", "many");
  file.setValue("units/MASS", "STONE");
  file.sync();
  Settings settings(File());
  settings.ApplyUnits();
  EXPECT_EQ(settings.Theme(), ThemeChoice::Dark);
  EXPECT_EQ(KorCkeUnit::GetShownDigits(), 1);
  EXPECT_EQ(KorCurrentUnitSystem(), "Mixed");
}

}  // namespace
}  // namespace desktop::test
