#include "designer/assets_model.h"

#include <gtest/gtest.h>

#include "platform/core/assets/asset_bitmap_set.h"
#include "platform/core/assets/asset_color.h"
#include "platform/core/assets/asset_font.h"
#include "platform/core/assets/asset_theme_container.h"
#include "platform/core/base/exception.h"
#include "platform/core/graphics/bitmap.h"

namespace qx {
namespace {

using Names = std::vector<TqxAssetName>;

// A model whose events are written down in order, as text.
class AssetsModelTest : public ::testing::Test {
protected:
  AssetsModelTest() {
    FModel.FOnAssetRenamed = [this](const TqxAssetName& from, const TqxAssetName& to) {
      FEvents.push_back("rename " + from + " > " + to);
    };
    FModel.FOnAssetChanged = [this](const TqxAssetName& name, TqxAssetOperation operation) {
      const char* verbs[] = {"added", "deleting", "renamed"};
      FEvents.push_back(verbs[static_cast<int>(operation)] + (" " + name));
    };
  }

  void AddColors(std::initializer_list<const char*> names) {
    for (const char* name : names) FModel.GetAssetsManager().Add(std::make_unique<TqxAssetColor>(name, 0, 0));
  }
  void AddVariant(const TqxAssetName& name, TqxPlatform p, TqxDeviceClass d, TAlphaColor color) {
    FModel.GetAssetsManager().Add(std::make_unique<TqxAssetColor>(name, p, d, color));
  }
  Names AssetNames() const { return FModel.GetAssetsManager().GetAssetsNames(); }
  Names Targets(const TqxAssetName& name) const {
    Names result;
    for (TqxAsset* a : FModel.GetAssets(name).Items()) result.push_back(a->GetTargetId());
    return result;
  }
  Names TakeEvents() { return std::exchange(FEvents, {}); }

  TqxAssetsModel FModel;
  Names FEvents;
};

TEST_F(AssetsModelTest, AddGroupMovesOwnedVariantsWithOneEvent) {
  TqxAssetGroup group("Brand");
  group.Adopt(std::make_unique<TqxAssetColor>("Brand", 1, 0, 1));
  group.Adopt(std::make_unique<TqxAssetColor>("Brand", 0, 0, 2));
  FModel.AddGroup(group);
  EXPECT_EQ(TakeEvents(), (Names{"added Brand"}));
  EXPECT_EQ(Targets("Brand"), (Names{"default", "android"}));

  // Items the group only borrows can't change owner.
  TqxAssetGroup borrowed("Brand");
  borrowed.Add(FModel.GetAssetsManager().FindExact("Brand", 0, 0));
  EXPECT_THROW(FModel.AddGroup(borrowed), EqxAssertError);
}

TEST_F(AssetsModelTest, RenameOntoATakenNameYieldsASuffixAndReportsIt) {
  AddColors({"A", "B", "B-1"});
  AddVariant("A", 2, 1, 5);

  FModel.Rename("A", "A");
  FModel.Rename("Missing", "C");  // refused by the manager: silence
  EXPECT_TRUE(TakeEvents().empty());

  FModel.Rename("A", "B");
  EXPECT_EQ(TakeEvents(), (Names{"rename A > B-2", "renamed B-2"}));
  EXPECT_EQ(Targets("B-2"), (Names{"default", "ios-phone-small"}));
  EXPECT_EQ(AssetNames(), (Names{"B", "B-1", "B-2"}));
}

TEST_F(AssetsModelTest, RenamePathMovesEachMemberAloneThroughTheUniqueNameRule) {
  FModel.GetAssetsManager().Add(std::make_unique<TqxAssetThemeContainer>("Light"));
  AddColors({"Light\\Text\\Primary", "Light\\Text\\Secondary", "Light\\Icon", "LightBox", "Dark\\Icon"});
  AddVariant("Light\\Icon", 1, 0, 7);

  // A theme's rename: the container, then the members' folder.
  FModel.Rename("Light", "Dark");
  FModel.RenamePath("Light\\", "Dark\\");
  EXPECT_EQ(TakeEvents(), (Names{"rename Light > Dark", "renamed Dark",                      //
                                 "rename Light\\Icon > Dark\\Icon-1", "renamed Dark\\Icon-1",  // collision
                                 "rename Light\\Text\\Primary > Dark\\Text\\Primary", "renamed Dark\\Text\\Primary",
                                 "rename Light\\Text\\Secondary > Dark\\Text\\Secondary",
                                 "renamed Dark\\Text\\Secondary"}));
  EXPECT_EQ(AssetNames(), (Names{"Dark", "Dark\\Icon", "Dark\\Icon-1", "Dark\\Text\\Primary",
                                 "Dark\\Text\\Secondary", "LightBox"}));
  EXPECT_EQ(Targets("Dark\\Icon-1"), (Names{"default", "android"}));
}

TEST_F(AssetsModelTest, RemovePathTellsFoldersFromAContainersOwnName) {
  FModel.GetAssetsManager().Add(std::make_unique<TqxAssetThemeContainer>("Light"));
  AddColors({"Light\\A", "Light\\Sub\\B", "LightBox", "Other"});
  AddVariant("Light\\A", 1, 0, 1);

  FModel.RemovePath("Light");
  EXPECT_EQ(TakeEvents(), (Names{"deleting Light"}));
  EXPECT_EQ(AssetNames(), (Names{"LightBox", "Light\\A", "Light\\Sub\\B", "Other"}));

  FModel.RemovePath("Light\\");
  EXPECT_EQ(TakeEvents(), (Names{"deleting Light\\A", "deleting Light\\Sub\\B"}));
  EXPECT_EQ(AssetNames(), (Names{"LightBox", "Other"}));

  EXPECT_THROW(FModel.RemovePath(""), EqxAssertError);
}

TEST_F(AssetsModelTest, CopyClonesEveryVariantUnderOneNewName) {
  auto* set = FModel.GetAssetsManager().Add(std::make_unique<TqxAssetBitmapSet>("Icon", 0, 0));
  auto bitmap = std::make_unique<TqxBitmap>(2, 2);
  bitmap->Clear(0xFF00FF00);
  set->Add(std::make_unique<TqxBitmapInfo>(1.0f))->SetBitmap(std::move(bitmap));
  FModel.GetAssetsManager().Add(std::make_unique<TqxAssetBitmapSet>("Icon", 2, 0));
  FModel.GetAssetsManager().Add(std::make_unique<TqxAssetBitmapSet>("Icon", 1, 3));
  AddColors({"Icon-1"});

  FModel.Copy("Icon");
  EXPECT_EQ(TakeEvents(), (Names{"added Icon-2"}));
  EXPECT_EQ(Targets("Icon-2"), (Names{"default", "android-phone-large", "ios"}));

  auto* copy = dynamic_cast<TqxAssetBitmapSet*>(FModel.GetAssetsManager().FindExact("Icon-2", 0, 0));
  ASSERT_NE(copy, nullptr);
  copy->GetBitmapInfo(1.0f)->GetRawBitmap()->Clear(0);
  EXPECT_EQ(set->GetBitmapInfo(1.0f)->GetRawBitmap()->GetPixel(0, 0), 0xFF00FF00u) << "the copy is deep";
}

TEST_F(AssetsModelTest, CleanUpDropsColourVariantsThatAddNothing) {
  const TAlphaColor red = 0xFFFF0000, blue = 0xFF0000FF, green = 0xFF00FF00;
  // Default red; device 2 blue; Android equal to default goes, Android for 2
  // equal to blue goes, Android for 3 (no device variant) compares with red.
  AddVariant("C", 0, 0, red);
  AddVariant("C", 0, 1, red);
  AddVariant("C", 0, 2, blue);
  AddVariant("C", 1, 0, red);
  AddVariant("C", 1, 2, blue);
  AddVariant("C", 2, 2, red);  // differs from what device 2 shows: stays
  AddVariant("C", 1, 3, red);
  AddVariant("C", 2, 4, green);
  // No default: the default compares as 0, so a colour 0 variant goes.
  AddVariant("NoDefault", 0, 1, 0);
  AddVariant("NoDefault", 2, 0, 0);
  AddVariant("NoDefault", 1, 0, green);
  // Not colours: left alone, even beside a colour of the same name.
  FModel.GetAssetsManager().Add(std::make_unique<TqxAssetFont>("Mixed", 0, 0));
  AddVariant("Mixed", 1, 0, 0);
  FModel.GetAssetsManager().Add(std::make_unique<TqxAssetFont>("Font", 1, 0));

  FModel.CleanUp();
  EXPECT_EQ(Targets("C"), (Names{"default", "any-phone-normal", "ios-phone-normal", "ios-tablet"}));
  EXPECT_EQ(Targets("NoDefault"), (Names{"android"}));
  EXPECT_EQ(Targets("Mixed"), (Names{"default"}));
  EXPECT_EQ(Targets("Font"), (Names{"android"}));
  EXPECT_TRUE(TakeEvents().empty());
}

}  // namespace
}  // namespace qx
