#include "platform/core/assets/config_uris.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace qx {
namespace {

TEST(ConfigUrisTest, StoresRelativeToTheConfigFolderWithBackslashes) {
  TqxConfigUris uris("/p/Demo/Assets/config.json");
  EXPECT_EQ(uris.Folder(), "/p/Demo/Assets");
  struct Case {
    const char* uri;
    const char* stored;
  } cases[] = {
      {"", ""},
      {"/p/Demo/Assets/Images/Logo/any@10x.png", "Images\\Logo\\any@10x.png"},
      {"/p/Demo/Assets/./Fonts//Body/../Body/any.ttf", "Fonts\\Body\\any.ttf"},
      {"Images\\Logo\\any@10x.png", "Images\\Logo\\any@10x.png"},
      {"Images/Logo/any@10x.png", "Images\\Logo\\any@10x.png"},
      // Outside the folder, or only sharing a prefix of its name: kept whole.
      {"/home/me/Pictures/logo.png", "/home/me/Pictures/logo.png"},
      {"/p/Demo/AssetsOld/x.png", "/p/Demo/AssetsOld/x.png"},
      {"/p/Demo/Assets", "/p/Demo/Assets"},
      {"C:\\Work\\logo.png", "C:\\Work\\logo.png"},
  };
  for (const Case& c : cases) EXPECT_EQ(uris.ToStored(c.uri), c.stored) << c.uri;
}

TEST(ConfigUrisTest, ReadsBackFullPaths) {
  TqxConfigUris uris("/p/Demo/Assets/config.json");
  EXPECT_EQ(uris.ToFull(""), "");
  EXPECT_EQ(uris.ToFull("Images\\Logo\\any@10x.png"), "/p/Demo/Assets/Images/Logo/any@10x.png");
  EXPECT_EQ(uris.ToFull("a\\.\\b\\..\\c.png"), "/p/Demo/Assets/a/c.png");
  EXPECT_EQ(uris.ToFull("..\\Shared\\x.png"), "/p/Demo/Shared/x.png");
  EXPECT_EQ(uris.ToFull("/abs/x.png"), "/abs/x.png");
  EXPECT_EQ(uris.ToFull("C:\\Work\\x.png"), "C:\\Work\\x.png");
  for (const char* stored : {"Images\\Logo\\any@10x.png", "x.png", "/elsewhere/x.png"}) {
    EXPECT_EQ(uris.ToStored(uris.ToFull(stored)), stored);
  }
}

TEST(ConfigUrisTest, RelativeConfigNameUsesTheWorkingFolder) {
  TqxConfigUris uris("config.json");
  EXPECT_EQ(uris.Folder(), std::filesystem::current_path().generic_string());
  EXPECT_EQ(uris.ToFull("a\\b.png"), uris.Folder() + "/a/b.png");
}

}  // namespace
}  // namespace qx
