#include <gtest/gtest.h>

#include <memory>

#include "kinds/assets_editors_manager.h"
#include "kinds_test_support.h"
#include "platform/core/assets/asset_bitmap_set.h"
#include "platform/core/assets/asset_color.h"
#include "platform/core/assets/asset_file.h"
#include "platform/core/assets/asset_font.h"
#include "platform/core/assets/asset_lottie_animation.h"
#include "platform/core/assets/asset_style.h"
#include "platform/core/assets/asset_svg.h"
#include "platform/core/assets/asset_theme_container.h"
#include "platform/core/base/exception.h"
#include "platform/core/graphics/bitmap.h"

namespace qx {
namespace {

using test::DataFile;

TEST(AssetsEditorsManagerTest, RegistersTheKindsInOrderOnce) {
  TqxAssetsEditorsManager manager;
  RegisterAssetEditors(manager);
  const std::vector<TqxAssetType> order = {"color", "bitmap-set", "font", "lottie-json",
                                           "style", "svg",        "file", "theme-container"};
  ASSERT_EQ(manager.OrderedEditors().size(), order.size());
  for (std::size_t i = 0; i < order.size(); ++i)
    EXPECT_EQ(&manager.Editors(order[i]), manager.OrderedEditors()[i].get()) << order[i];
  EXPECT_THROW(manager.Editors("Color"), Exception);       // types are exact
  EXPECT_THROW(RegisterAssetEditors(manager), Exception);  // a second registration of a type fails

  // The package's registry: a repeated call changes nothing.
  RegisterAssetEditors();
  RegisterAssetEditors();
  EXPECT_EQ(TqxAssetsEditorsManager::Instance().OrderedEditors().size(), order.size());
}

TEST(AssetsEditorsManagerTest, DroppedFilesBecomeTheFirstKindThatTakesThem) {
  RegisterAssetEditors();
  const auto& manager = TqxAssetsEditorsManager::Instance();
  auto typeOf = [&](const std::string& file) { return manager.TryCreateAsset("Dropped", file)->GetType(); };

  EXPECT_EQ(typeOf("/pictures/PHOTO.JPEG"), "bitmap-set");
  EXPECT_EQ(typeOf(DataFile("images/rgb_4x3.bmp")), "bitmap-set");
  EXPECT_EQ(typeOf("/fonts/Body.TTF"), "font");
  EXPECT_EQ(typeOf("/art/LOGO.SVG"), "svg");
  // JSON is never taken for an animation or a style.
  EXPECT_EQ(typeOf(DataFile("kinds/pulse.json")), "file");
  EXPECT_EQ(typeOf("/pictures/anim.gif"), "file");
  EXPECT_EQ(typeOf("/folder.png/readme"), "file");  // a point in a folder's name is no extension

  // A picture fills scale 1 of a set with every scale.
  auto dropped = manager.TryCreateAsset("Icons\\Logo", "/pictures/logo.png");
  const auto infos = dynamic_cast<TqxAssetBitmapSet&>(*dropped).GetBitmapInfos();
  ASSERT_EQ(infos.size(), 5u);
  EXPECT_EQ(infos[0]->Uri(), "/pictures/logo.png");
  EXPECT_EQ(infos[4]->Scale(), 4.0f);

  auto svg = manager.TryCreateAsset("Art\\Logo", DataFile("kinds/logo.svg"));
  EXPECT_EQ(static_cast<TqxAssetSVG&>(*svg).Size(), (TSizeF{48, 32}));
  // A file that isn't there gives an asset without a size.
  auto missing = manager.TryCreateAsset("Art\\Gone", "/nowhere/gone.svg");
  EXPECT_EQ(static_cast<TqxAssetSVG&>(*missing).Size(), (TSizeF{0, 0}));

  for (const char* type : {"color", "lottie-json", "style", "theme-container"}) {
    EXPECT_EQ(manager.Editors(type).TryCreateAsset("X", DataFile("kinds/pulse.json")), nullptr) << type;
  }
}


IQuorvexAssetEditor& Editor(const TqxAssetType& type) {
  RegisterAssetEditors();
  return TqxAssetsEditorsManager::Instance().Editors(type);
}

TEST(AssetKindsTest, InfoTexts) {
  TqxAssetColor glass("Glass", 0, 0, 0x803366CC);
  EXPECT_EQ(Editor("color").GetAdditionalInfo(&glass), "#803366CC");
  TqxAssetFont font("Fonts\\Body");
  font.SetUri("/fonts.d/Body");  // a point in a folder's name is no extension
  EXPECT_EQ(Editor("font").GetAdditionalInfo(&font), "");
  TqxAssetFile file("Data");
  file.SetUri("C:\\data\\table.Json");
  EXPECT_EQ(Editor("file").GetAdditionalInfo(&file), "JSON");  // Windows separators, upper case
  TqxAssetStyle style("Styles\\Button");
  EXPECT_EQ(Editor("style").GetAdditionalInfo(&style), "None");
  style.SetUri(DataFile("kinds/button.json"));
  EXPECT_EQ(Editor("style").GetAdditionalInfo(&style), "TqxButton");
  TqxAssetSVG svg("Art\\Logo");
  svg.SetSize({47.6, 31.2});
  EXPECT_EQ(Editor("svg").GetAdditionalInfo(&svg), "48 x 31");

  // A bitmap set's base size divides by the scale of its best bitmap.
  TqxAssetBitmapSet set("Icons\\Logo");
  set.Add(std::make_unique<TqxBitmapInfo>(1.0f));
  EXPECT_EQ(Editor("bitmap-set").GetAdditionalInfo(&set), "");  // no bitmap anywhere

  // Only a 1.5 picture of 16 x 16: 16 / 1.5 = 10.67 rounds to 11.
  set.Add(std::make_unique<TqxBitmapInfo>(DataFile("images/blocks_16x16.jpg"), 1.5f));
  EXPECT_EQ(Editor("bitmap-set").GetAdditionalInfo(&set), "11 x 11");

  // A picture at scale 1 wins: 4 x 3 held in memory.
  set.GetBitmapInfo(1.0f)->SetBitmap(std::make_unique<TqxBitmap>(4, 3));
  EXPECT_EQ(Editor("bitmap-set").GetAdditionalInfo(&set), "4 x 3");
}

TEST(AssetKindsTest, OperationsRefuseAssetsOfOtherKindsButTheThemeContainerMakesNothing) {
  TqxAssetColor color("Primary", 0, 0, 0xFF000000);
  for (const char* type : {"bitmap-set", "font", "lottie-json", "style", "svg", "file"})
    EXPECT_THROW(Editor(type).SaveTo(&color, "/tmp"), EqxAssertError) << type;
  TqxAssetThemeContainer theme("Dark");
  EXPECT_EQ(Editor("theme-container").CreateEditor(&theme), nullptr);
  EXPECT_EQ(Editor("theme-container").GeneratePreview(&theme, {24, 24}), nullptr);
}

}  // namespace
}  // namespace qx
