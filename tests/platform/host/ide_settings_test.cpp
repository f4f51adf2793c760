#include "platform/host/ide_settings.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace qx {
namespace {

namespace fs = std::filesystem;

class IdeSettingsTest : public ::testing::Test {
protected:
  void SetUp() override {
    FDir = fs::temp_directory_path() / ("qx_settings_" + std::to_string(::getpid()));
    fs::remove_all(FDir);
  }
  void TearDown() override { fs::remove_all(FDir); }
  fs::path FDir;
};

TEST_F(IdeSettingsTest, ValuesSurviveIntoANewSession) {
  const std::string fileName = (FDir / "quorvex" / "settings.json").string();
  {
    TqxIdeSettings settings(fileName);
    EXPECT_EQ(settings.GetIntegerValue(TIntegerField::AssetsTreeWidth), 0);  // fresh installation
    settings.SetIntegerValue(TIntegerField::AssetsTreeWidth, 312);
    settings.SetIntegerValue(TIntegerField::AssetsTreeSecondColumnWidth, 90);
    settings.SetString("Last.Folder", "/home/user/Шрифты");
    settings.SetString("Gone", "x");
    settings.Remove("Gone");
  }
  TqxIdeSettings settings(fileName);
  EXPECT_EQ(settings.GetIntegerValue(TIntegerField::AssetsTreeWidth), 312);
  EXPECT_EQ(settings.GetIntegerValue(TIntegerField::AssetsTreeSecondColumnWidth), 90);
  EXPECT_EQ(settings.GetString("Last.Folder"), "/home/user/Шрифты");
  EXPECT_FALSE(settings.HasValue("Gone"));
  // A value of another type reads as the fallback.
  EXPECT_EQ(settings.GetInteger("Last.Folder", -1), -1);
  EXPECT_EQ(settings.GetString("Missing", "none"), "none");
}

TEST_F(IdeSettingsTest, ABrokenFileReadsAsEmptyAndIsReplacedOnWrite) {
  fs::create_directories(FDir);
  const std::string fileName = (FDir / "settings.json").string();
  std::ofstream(fileName) << "{ not json";
  TqxIdeSettings settings(fileName);
  EXPECT_EQ(settings.GetIntegerValue(TIntegerField::AssetsTreeWidth), 0);
  settings.SetIntegerValue(TIntegerField::AssetsTreeWidth, 200);
  settings.Reload();
  EXPECT_EQ(settings.GetIntegerValue(TIntegerField::AssetsTreeWidth), 200);
}

TEST_F(IdeSettingsTest, TheDefaultFileLivesInTheUsersConfigurationFolder) {
  const char* savedXdg = std::getenv("XDG_CONFIG_HOME");
  std::string saved = savedXdg ? savedXdg : "";
  ::setenv("XDG_CONFIG_HOME", FDir.c_str(), 1);
  EXPECT_EQ(TqxIdeSettings::DefaultFileName(), (FDir / "quorvex" / "settings.json").string());
  ::unsetenv("XDG_CONFIG_HOME");
  EXPECT_TRUE(TqxIdeSettings::DefaultFileName().ends_with("/.config/quorvex/settings.json"));
  if (savedXdg) ::setenv("XDG_CONFIG_HOME", saved.c_str(), 1);

  TqxIdeSettings::SetInstanceFileName((FDir / "instance.json").string());
  TqxIdeSettings::Instance().SetIntegerValue(TIntegerField::AssetsTreeWidth, 7);
  EXPECT_TRUE(fs::exists(FDir / "instance.json"));
}

}  // namespace
}  // namespace qx
