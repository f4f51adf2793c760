#include <gtest/gtest.h>

#include <filesystem>
#include <set>

#include "platform/core/assets/asset_color.h"
#include "platform/core/assets/asset_name_helper.h"
#include "platform/core/assets/asset_targets.h"
#include "platform/core/assets/config_uris.h"
#include "platform/core/base/exception.h"
#include "platform/core/base/text.h"

namespace qx {
namespace {

TEST(AssetNameHelperTest, NormalizeTrimsPartsAndRejectsWhatCouldEscapeOrClash) {
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
  EXPECT_EQ(TqxAssetNameHelper::NormalizePath("A \\B"), "A\\B\\");
  EXPECT_EQ(TqxAssetNameHelper::NormalizePath("A\\B\\"), "A\\B\\");
  EXPECT_EQ(TqxAssetNameHelper::NormalizePath("A\\..\\"), "");
  EXPECT_EQ(TqxAssetNameHelper::NormalizePath("\\"), "");

  EXPECT_EQ(TqxAssetNameHelper::Path("A\\B\\C"), "A\\B\\");
  EXPECT_EQ(TqxAssetNameHelper::Path("C"), "");
  EXPECT_EQ(TqxAssetNameHelper::Combine("", "C"), "C");
  EXPECT_EQ(TqxAssetNameHelper::Combine("A\\B", "C"), "A\\B\\C");
  EXPECT_EQ(TqxAssetNameHelper::Combine("A\\B\\", "C"), "A\\B\\C");
}

TEST(AssetTargetsTest, EveryVariantHasItsOwnTargetIdAndId) {
  // Variants share one folder and are told apart by the target id in their
  // file names, so two targets must never give the same id.
  std::set<std::string> targetIds, ids;
  for (int p = 0; p < kPlatformCount; ++p) {
    for (int d = 0; d < kDeviceClassCount; ++d) {
      TqxAssetColor asset("A|1", p, d);
      EXPECT_TRUE(targetIds.insert(asset.GetTargetId()).second) << asset.GetTargetId();
      ids.insert(asset.GetId());
    }
  }
  EXPECT_EQ(ids.size(), 18u);
  EXPECT_EQ(TqxAssetTargets::TargetId(0, 0), "default");
  EXPECT_EQ(TqxAssetTargets::TargetId(1, 1), "android-phone-small");
  // A name holding the separator can't pose as another variant.
  EXPECT_NE(TqxAsset::GenerateId("A|1", 0, 0), TqxAsset::GenerateId("A", 1, 0));
}

TEST(AssetTargetsTest, KeysReadBackIgnoringCaseAndOutOfRangeTargetsAreRefused) {
  EXPECT_EQ(TqxAssetColor("A", 1, 2).GetTargetDeviceDisplayName(), "Android Phone Normal");
  for (int d = 0; d < kDeviceClassCount; ++d) {
    TqxDeviceClass parsed = -1;
    ASSERT_TRUE(TqxAssetTargets::TryParseDeviceClassKey(UpperCase(TqxAssetTargets::DeviceClassKey(d)), parsed));
    EXPECT_EQ(parsed, d);
  }
  TqxPlatform platform = -1;
  EXPECT_TRUE(TqxAssetTargets::TryParsePlatformKey("iOS", platform));
  EXPECT_EQ(platform, kPlatformIOS);
  EXPECT_FALSE(TqxAssetTargets::TryParsePlatformKey("windows", platform));
  EXPECT_THROW(TqxAssetColor("A", 3, 0), EqxAssertError);
  EXPECT_THROW(TqxAssetColor("A", 0, 6), EqxAssertError);
}

TEST(ConfigUrisTest, StoresRelativeToTheConfigFolderWithBackslashesAndReadsBack) {
  TqxConfigUris uris("/p/Demo/Assets/config.json");
  EXPECT_EQ(uris.Folder(), "/p/Demo/Assets");
  struct Case {
    const char* uri;
    const char* stored;
  } cases[] = {
      {"/p/Demo/Assets/Images/Logo/any@10x.png", "Images\\Logo\\any@10x.png"},
      {"/p/Demo/Assets/./Fonts//Body/../Body/any.ttf", "Fonts\\Body\\any.ttf"},
      {"Images/Logo/any@10x.png", "Images\\Logo\\any@10x.png"},
      // Outside the folder, or only sharing a prefix of its name: kept whole.
      {"/p/Demo/AssetsOld/x.png", "/p/Demo/AssetsOld/x.png"},
      {"/p/Demo/Assets", "/p/Demo/Assets"},
      {"C:\\Work\\logo.png", "C:\\Work\\logo.png"},
  };
  for (const Case& c : cases) EXPECT_EQ(uris.ToStored(c.uri), c.stored) << c.uri;

  // And back to full paths.
  EXPECT_EQ(uris.ToFull("Images\\Logo\\any@10x.png"), "/p/Demo/Assets/Images/Logo/any@10x.png");
  EXPECT_EQ(uris.ToFull("a\\.\\b\\..\\c.png"), "/p/Demo/Assets/a/c.png");
  EXPECT_EQ(uris.ToFull("..\\Shared\\x.png"), "/p/Demo/Shared/x.png");
  for (const char* stored : {"Images\\Logo\\any@10x.png", "/elsewhere/x.png"})
    EXPECT_EQ(uris.ToStored(uris.ToFull(stored)), stored);
}

TEST(ConfigUrisTest, RelativeConfigNameUsesTheWorkingFolder) {
  TqxConfigUris uris("config.json");
  EXPECT_EQ(uris.Folder(), std::filesystem::current_path().generic_string());
  EXPECT_EQ(uris.ToFull("a\\b.png"), uris.Folder() + "/a/b.png");
}

}  // namespace
}  // namespace qx
