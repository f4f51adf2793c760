#include "platform/core/assets/asset_targets.h"

#include <set>

#include <gtest/gtest.h>

#include "platform/core/assets/asset_color.h"
#include "platform/core/base/exception.h"
#include "platform/core/base/text.h"

namespace qx {
namespace {

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
  EXPECT_EQ(TqxAssetTargets::TargetId(2, 0), "ios");
  EXPECT_EQ(TqxAssetTargets::TargetId(0, 4), "any-tablet");
  // A name holding the separator can't pose as another variant.
  EXPECT_NE(TqxAsset::GenerateId("A|1", 0, 0), TqxAsset::GenerateId("A", 1, 0));
}

TEST(AssetTargetsTest, DisplayNamesAndKeysComeFromOneTable) {
  EXPECT_EQ(TqxAssetColor("A", 0, 0).GetTargetDeviceDisplayName(), "Any");
  EXPECT_EQ(TqxAssetColor("A", 1, 0).GetTargetDeviceDisplayName(), "Android");
  EXPECT_EQ(TqxAssetColor("A", 1, 2).GetTargetDeviceDisplayName(), "Android Phone Normal");
  EXPECT_EQ(TqxAssetColor("A", 0, 5).GetTargetDeviceDisplayName(), "Tablet Large");
  EXPECT_EQ(TqxAssetColor("A", 2, 3).GetTargetDeviceDisplayName(), "iOS Phone Large");

  for (int d = 0; d < kDeviceClassCount; ++d) {
    TqxDeviceClass parsed = -1;
    ASSERT_TRUE(TqxAssetTargets::TryParseDeviceClassKey(UpperCase(TqxAssetTargets::DeviceClassKey(d)), parsed));
    EXPECT_EQ(parsed, d);
  }
  TqxPlatform platform = -1;
  EXPECT_TRUE(TqxAssetTargets::TryParsePlatformKey("iOS", platform));
  EXPECT_EQ(platform, kPlatformIOS);
  EXPECT_FALSE(TqxAssetTargets::TryParsePlatformKey("windows", platform));
}

TEST(AssetTargetsTest, OutOfRangeTargetsAreRefused) {
  EXPECT_THROW(TqxAssetColor("A", 3, 0), EqxAssertError);
  EXPECT_THROW(TqxAssetColor("A", 0, 6), EqxAssertError);
  EXPECT_THROW(TqxAssetColor("A", -1, 0), EqxAssertError);
}

}  // namespace
}  // namespace qx
