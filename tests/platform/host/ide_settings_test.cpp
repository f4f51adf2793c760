#include "platform/host/ide_settings.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "../../support/temp_folder.h"

namespace qx {
namespace {

namespace fs = std::filesystem;

TEST(IdeSettingsTest, ValuesSurviveIntoANewSessionAndABrokenFileReadsAsEmpty) {
  const test::TTempFolder dir("settings");
  const std::string fileName = (dir / "quorvex/settings.json").string();
  {
    TqxIdeSettings settings(fileName);
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

  // A broken file reads as empty and is replaced on the next write.
  test::WriteText(fileName, "{ not json");
  TqxIdeSettings broken(fileName);
  EXPECT_EQ(broken.GetIntegerValue(TIntegerField::AssetsTreeWidth), 0);
  broken.SetIntegerValue(TIntegerField::AssetsTreeWidth, 200);
  broken.Reload();
  EXPECT_EQ(broken.GetIntegerValue(TIntegerField::AssetsTreeWidth), 200);
}

TEST(IdeSettingsTest, TheDefaultFileLivesInTheUsersConfigurationFolder) {
  const test::TTempFolder dir("settings");
  const char* savedXdg = std::getenv("XDG_CONFIG_HOME");
  std::string saved = savedXdg ? savedXdg : "";
  ::setenv("XDG_CONFIG_HOME", dir.Path().c_str(), 1);
  EXPECT_EQ(TqxIdeSettings::DefaultFileName(), (dir / "quorvex/settings.json").string());
  ::unsetenv("XDG_CONFIG_HOME");
  EXPECT_TRUE(TqxIdeSettings::DefaultFileName().ends_with("/.config/quorvex/settings.json"));
  if (savedXdg) ::setenv("XDG_CONFIG_HOME", saved.c_str(), 1);

  TqxIdeSettings::SetInstanceFileName((dir / "instance.json").string());
  TqxIdeSettings::Instance().SetIntegerValue(TIntegerField::AssetsTreeWidth, 7);
  EXPECT_TRUE(fs::exists(dir / "instance.json"));
}

}  // namespace
}  // namespace qx
