#include "platform/core/assets/asset_name_helper.h"

#include <gtest/gtest.h>

#include "platform/core/assets/asset_color.h"

namespace qx {
namespace {

TEST(AssetNameHelperTest, NormalizeTrimsPartsAndRejectsWhatCouldEscapeOrClash) {
  EXPECT_EQ(TqxAssetNameHelper::Normalize("Color"), "Color");
  EXPECT_EQ(TqxAssetNameHelper::Normalize("  Theme \\ Text\\Primary  "), "Theme\\Text\\Primary");
  EXPECT_EQ(TqxAssetNameHelper::Normalize("Ёлка\\Ветка"), "Ёлка\\Ветка");
  EXPECT_EQ(TqxAssetNameHelper::Normalize("a..b\\.hidden"), "a..b\\.hidden");

  for (const char* bad : {"", "   ", "\\Color", "Color\\", "A\\\\B", "A\\ \\B", "..", "A\\..\\B", "A\\.\\B",
                          "A/B", "Light:Text", "A*", "Tab\there", "bad\xff"}) {
    EXPECT_EQ(TqxAssetNameHelper::Normalize(bad), "") << bad;
    EXPECT_FALSE(TqxAssetNameHelper::IsValid(bad)) << bad;
  }
  EXPECT_TRUE(TqxAssetNameHelper::IsValid("A\\B"));
  EXPECT_FALSE(TqxAssetNameHelper::IsValid(" A\\B"));  // valid only once normalised
}

TEST(AssetNameHelperTest, PathsKeepTheirClosingSeparator) {
  EXPECT_EQ(TqxAssetNameHelper::NormalizePath(""), "");
  EXPECT_EQ(TqxAssetNameHelper::NormalizePath("A \\B"), "A\\B\\");
  EXPECT_EQ(TqxAssetNameHelper::NormalizePath("A\\B\\"), "A\\B\\");
  EXPECT_EQ(TqxAssetNameHelper::NormalizePath("A\\..\\"), "");
  EXPECT_EQ(TqxAssetNameHelper::NormalizePath("\\"), "");

  EXPECT_EQ(TqxAssetNameHelper::Path("A\\B\\C"), "A\\B\\");
  EXPECT_EQ(TqxAssetNameHelper::Path("C"), "");
  EXPECT_EQ(TqxAssetNameHelper::ShortName("A\\B\\C"), "C");
  EXPECT_EQ(TqxAssetNameHelper::ShortName("C"), "C");
  EXPECT_EQ(TqxAssetNameHelper::Combine("", "C"), "C");
  EXPECT_EQ(TqxAssetNameHelper::Combine("A\\B", "C"), "A\\B\\C");
  EXPECT_EQ(TqxAssetNameHelper::Combine("A\\B\\", "C"), "A\\B\\C");
}

TEST(AssetNameHelperTest, AssetSplitsItsNameIntoFolderAndShortName) {
  TqxAssetColor nested("Theme\\Text\\Primary", kPlatformAny, kDeviceClassAny);
  EXPECT_EQ(nested.GetRelativePath(), "Theme\\Text");
  EXPECT_EQ(nested.GetShortName(), "Primary");

  TqxAssetColor top("Primary", kPlatformAny, kDeviceClassAny);
  EXPECT_EQ(top.GetRelativePath(), "");
  EXPECT_EQ(top.GetShortName(), "Primary");
}

}  // namespace
}  // namespace qx
