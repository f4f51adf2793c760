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

IQuorvexAssetEditor& Editor(const TqxAssetType& type) {
  RegisterAssetEditors();
  return TqxAssetsEditorsManager::Instance().Editors(type);
}

TEST(AssetKindsTest, SizeTexts) {
  TqxAssetColor opaque("Primary", 0, 0, 0xFF3366CC);
  TqxAssetColor glass("Glass", 0, 0, 0x803366CC);
  EXPECT_EQ(Editor("color").GetAdditionalInfo(&opaque), "#3366CC");
  EXPECT_EQ(Editor("color").GetAdditionalInfo(&glass), "#803366CC");

  TqxAssetFont font("Fonts\\Body");
  font.SetUri("/fonts/Body.ttf");
  EXPECT_EQ(Editor("font").GetAdditionalInfo(&font), "TTF");
  font.SetUri("/fonts.d/Body");
  EXPECT_EQ(Editor("font").GetAdditionalInfo(&font), "");
  TqxAssetFile file("Data");
  file.SetUri("C:\\data\\table.Json");
  EXPECT_EQ(Editor("file").GetAdditionalInfo(&file), "JSON");
  TqxAssetLottieAnimation lottie("Pulse");
  lottie.SetUri(DataFile("kinds/pulse.json"));
  EXPECT_EQ(Editor("lottie-json").GetAdditionalInfo(&lottie), "JSON");

  TqxAssetStyle style("Styles\\Button");
  EXPECT_EQ(Editor("style").GetAdditionalInfo(&style), "None");
  style.SetUri(DataFile("kinds/button.json"));
  EXPECT_EQ(Editor("style").GetAdditionalInfo(&style), "TqxButton");

  TqxAssetSVG svg("Art\\Logo");
  svg.SetSize({47.6, 31.2});
  EXPECT_EQ(Editor("svg").GetAdditionalInfo(&svg), "48 x 31");

  TqxAssetThemeContainer theme("Dark");
  EXPECT_EQ(Editor("theme-container").GetAdditionalInfo(&theme), "");
}

TEST(AssetKindsTest, BitmapSetBaseSizeDividesByTheScaleOfTheBestBitmap) {
  TqxAssetBitmapSet set("Icons\\Logo");
  set.Add(std::make_unique<TqxBitmapInfo>(1.0f));
  EXPECT_EQ(Editor("bitmap-set").GetAdditionalInfo(&set), "");  // no bitmap anywhere

  // Only a 1.5 picture of 16 x 16: 16 / 1.5 = 10.67 rounds to 11.
  set.Add(std::make_unique<TqxBitmapInfo>(DataFile("images/blocks_16x16.jpg"), 1.5f));
  EXPECT_EQ(Editor("bitmap-set").GetAdditionalInfo(&set), "11 x 11");

  // A picture at scale 1 wins: 4 x 3 held in memory.
  set.GetBitmapInfo(1.0f)->SetBitmap(std::make_unique<TqxBitmap>(4, 3));
  EXPECT_EQ(Editor("bitmap-set").GetAdditionalInfo(&set), "4 x 3");

  TqxAssetBitmapSet broken("Broken");
  broken.Add(std::make_unique<TqxBitmapInfo>("/nowhere/missing.png", 1.0f));
  EXPECT_EQ(Editor("bitmap-set").GetAdditionalInfo(&broken), "");
}

TEST(AssetKindsTest, OperationsRefuseNoAssetAndAssetsOfOtherKinds) {
  TqxAssetColor color("Primary", 0, 0, 0xFF000000);
  TqxAssetFont font("Fonts\\Body");
  for (const char* type : {"color", "bitmap-set", "font", "lottie-json", "style", "svg", "file"}) {
    IQuorvexAssetEditor& editor = Editor(type);
    TqxAsset* other = std::string(type) == "color" ? static_cast<TqxAsset*>(&font) : &color;
    EXPECT_THROW(editor.GetAdditionalInfo(nullptr), EqxAssertError) << type;
    EXPECT_THROW(editor.GetAdditionalInfo(other), EqxAssertError) << type;
    EXPECT_THROW(editor.CreateEditor(other), EqxAssertError) << type;
    EXPECT_THROW(editor.SaveTo(other, "/tmp"), EqxAssertError) << type;
    try {
      editor.GeneratePreview(nullptr, {24, 24});
      ADD_FAILURE() << type;
    } catch (const EqxAssertError& e) {
      EXPECT_NE(std::string(e.what()).find("AResource"), std::string::npos) << e.what();
    }
  }
  // The theme container checks nothing and makes nothing.
  TqxAssetThemeContainer theme("Dark");
  EXPECT_EQ(Editor("theme-container").CreateEditor(&theme), nullptr);
  EXPECT_EQ(Editor("theme-container").GeneratePreview(&theme, {24, 24}), nullptr);
  EXPECT_EQ(Editor("font").CreateEditor(&font), nullptr);  // no frames in this build
  EXPECT_EQ(Editor("font").GeneratePreview(&font, {24, 24}), nullptr);
}

}  // namespace
}  // namespace qx
