#include "platform/core/assets/assets_manager.h"

#include <gtest/gtest.h>

#include "platform/core/assets/asset_bitmap_set.h"
#include "platform/core/assets/asset_color.h"
#include "platform/core/assets/asset_font.h"
#include "platform/core/assets/assets_manager_helper.h"
#include "platform/core/base/exception.h"

namespace qx {
namespace {

using Names = std::vector<TqxAssetName>;

TqxAssetColor* AddColor(TqxAssetsManager& m, const TqxAssetName& name, TqxPlatform p, TqxDeviceClass d,
                        TAlphaColor c = 0xFF000000) {
  return m.Add(std::make_unique<TqxAssetColor>(name, p, d, c));
}

Names NamesOf(const std::vector<TqxAsset*>& assets) {
  Names names;
  for (auto* a : assets) names.push_back(a->Name() + "/" + a->GetTargetId());
  return names;
}

TEST(AssetsManagerTest, VariantsShareANameAndTheSameIdReplaces) {
  TqxAssetsManager m;
  AddColor(m, "Primary", 1, 2, 0xFF000001);
  AddColor(m, "Primary", 0, 0, 0xFF000002);
  AddColor(m, "accent", 0, 0);
  AddColor(m, "Primary", 1, 0);
  TqxAssetColor* replacement = AddColor(m, "Primary", 1, 2, 0xFF000003);

  EXPECT_EQ(m.Count(), 4u);
  EXPECT_EQ(m.FindExact("Primary", 1, 2), replacement);
  EXPECT_FALSE(m.Contains("primary"));  // names are case-sensitive
  // Names in order ignoring case; variants any first.
  EXPECT_EQ(m.GetAssetsNames(), (Names{"accent", "Primary"}));
  EXPECT_EQ(NamesOf(m.GetAllAssets()),
            (Names{"accent/default", "Primary/default", "Primary/android", "Primary/android-phone-normal"}));

  const auto groups = m.GetGroupedAssets();
  ASSERT_EQ(groups.size(), 2u);
  EXPECT_EQ(groups[1].Items().size(), 3u);
}

TEST(AssetsManagerTest, RenameMovesEveryVariantOrRefusesWholly) {
  TqxAssetsManager m;
  AddColor(m, "A", 0, 0);
  TqxAsset* android = AddColor(m, "A", 1, 3);
  AddColor(m, "B", 0, 0);

  EXPECT_FALSE(m.Rename("A", "B"));        // taken
  EXPECT_FALSE(m.Rename("Missing", "C"));  // no source
  EXPECT_FALSE(m.Rename("A", ""));
  EXPECT_EQ(m.GetAssetsNames(), (Names{"A", "B"}));

  EXPECT_TRUE(m.Rename("A", "Folder\\C"));
  EXPECT_EQ(m.GetAssetsNames(), (Names{"B", "Folder\\C"}));
  EXPECT_EQ(m.FindExact("Folder\\C", 1, 3), android);
  EXPECT_EQ(m.FindExact("A", 1, 3), nullptr);
}

TEST(AssetsManagerTest, RemoveByNameTakesAllVariantsByAssetOnlyThatOne) {
  TqxAssetsManager m;
  AddColor(m, "A", 0, 0);
  TqxAsset* a1 = AddColor(m, "A", 1, 0);
  AddColor(m, "B", 0, 0);
  TqxAsset* b2 = AddColor(m, "B", 2, 0);

  EXPECT_TRUE(m.Remove(a1));
  EXPECT_EQ(m.FindExact("A", 1, 0), nullptr);
  TqxAssetColor stranger("B", 2, 0);  // same id, other object
  EXPECT_FALSE(m.Remove(&stranger));
  EXPECT_EQ(m.FindExact("B", 2, 0), b2);

  EXPECT_TRUE(m.Remove("B"));
  EXPECT_FALSE(m.Remove("B"));
  EXPECT_EQ(NamesOf(m.GetAllAssets()), (Names{"A/default"}));
  m.Remove(m.FindExact("A", 0, 0));
  EXPECT_FALSE(m.Contains("A"));  // the last variant takes its name along
  EXPECT_TRUE(m.IsEmpty());
}

TEST(AssetsManagerTest, FindFallsBackToTheMoreGeneralVariant) {
  TqxAssetsManager m;
  TqxAsset* any = AddColor(m, "C", 0, 0);
  TqxAsset* android = AddColor(m, "C", 1, 0);
  TqxAsset* large = AddColor(m, "C", 0, 3);
  TqxAsset* androidSmall = AddColor(m, "C", 1, 1);

  EXPECT_EQ(m.Find("C", 1, 1), androidSmall);
  EXPECT_EQ(m.Find("C", 1, 3), android);  // the platform weighs more than the device class
  EXPECT_EQ(m.Find("C", 2, 3), large);
  EXPECT_EQ(m.Find("C", 2, 1), any);

  // A variant of another class is no hit: the look-up goes on.
  m.Add(std::make_unique<TqxAssetFont>("C", 2, 0));
  EXPECT_EQ(m.Find("C", 2, 1)->GetType(), "font");
  EXPECT_EQ(m.Find<TqxAssetColor>("C", 2, 1), any);
  EXPECT_EQ(m.Find<TqxAssetBitmapSet>("C", 2, 1), nullptr);
}

TEST(AssetsManagerTest, CurrentManagerAndTargetDriveTheShortFind) {
  auto m = std::make_unique<TqxAssetsManager>();
  TqxAsset* any = AddColor(*m, "C", 0, 0);
  TqxAsset* ios = AddColor(*m, "C", 2, 0);
  TqxAssetsManager::SetCurrent(m.get());
  EXPECT_EQ(TqxAssetsManager::GetCurrent()->Find("C"), any);

  TqxAssetsManager::SetCurrentPlatform(kPlatformIOS);
  TqxAssetsManager::SetCurrentDeviceClass(4);
  EXPECT_EQ(TqxAssetsManager::GetCurrent()->Find<TqxAssetColor>("C"), ios);
  TqxAssetsManager::SetCurrentPlatform(kPlatformAny);
  TqxAssetsManager::SetCurrentDeviceClass(kDeviceClassAny);
  EXPECT_THROW(TqxAssetsManager::SetCurrentPlatform(7), EqxAssertError);

  m.reset();
  EXPECT_EQ(TqxAssetsManager::GetCurrent(), nullptr);  // no dangling current manager
}

TEST(AssetsManagerTest, HelperAddsColourForAnyTargetAndRespectsReplace) {
  TqxAssetsManager m;
  TqxAssetColor* first = TqxAssetsManagerHelper::AddColor(m, "C", 0xFF112233, true);
  EXPECT_EQ(TqxAssetsManagerHelper::AddColor(m, "C", 0xFF445566, false), first);
  EXPECT_EQ(first->Color(), 0xFF112233u);

  TqxAssetColor* second = TqxAssetsManagerHelper::AddColor(m, "C", 0xFF445566, true);
  EXPECT_EQ(m.Count(), 1u);
  EXPECT_EQ(m.FindExact("C", 0, 0), second);

  m.Add(std::make_unique<TqxAssetFont>("F"));
  EXPECT_THROW(TqxAssetsManagerHelper::AddColor(m, "F", 0, false), Exception);
}

}  // namespace
}  // namespace qx
