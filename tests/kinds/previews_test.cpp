#include <gtest/gtest.h>

#include <memory>

#include "kinds/asset_previews.h"
#include "kinds_test_support.h"
#include "platform/core/assets/asset_bitmap_set.h"
#include "platform/core/assets/asset_color.h"
#include "platform/core/assets/asset_svg.h"
#include "platform/core/graphics/bitmap.h"
#include "platform/core/graphics/color.h"
#include "platform/designtime/chess_background.h"

namespace qx {
namespace {

using namespace test;

constexpr TAlphaColor kWhite = 0xFFFFFFFF;
constexpr TAlphaColor kLightGrey = 0xFFD3D3D3;

std::unique_ptr<TqxBitmap> Grey(int side, int level) {
  auto bitmap = std::make_unique<TqxBitmap>(side, side);
  bitmap->Clear(0xFF000000u | (TAlphaColor(level) * 0x010101u));
  return bitmap;
}

std::unique_ptr<TqxBitmap> Preview(TqxAsset& asset, TSize size = {24, 24}) {
  RegisterAssetEditors();
  return TqxAssetsEditorsManager::Instance().Editors(asset).GeneratePreview(&asset, size);
}

TEST(PreviewsTest, ColourSwatchIsFramedOverTheChessBackground) {
  TqxAssetColor color("Primary", 0, 0, 0xFF3366CC);
  auto swatch = Preview(color, {24, 16});
  ASSERT_EQ(swatch->Height(), 16);
  EXPECT_EQ(swatch->GetPixel(12, 8), 0xFF3366CCu);
  EXPECT_EQ(swatch->GetPixel(23, 15), kLightGrey);  // the frame

  // A translucent colour lets the chess cells show through.
  TqxAssetColor glass("Glass", 0, 0, 0x00000000);
  auto clear = Preview(glass, {16, 16});
  EXPECT_EQ(clear->GetPixel(2, 2), kWhite);
  EXPECT_EQ(clear->GetPixel(6, 2), kLightGrey);

  EXPECT_TRUE(CreateColorSwatch(0xFF3366CC, {0, 0})->IsEmpty());
}

TEST(PreviewsTest, PictureLuminanceChoosesTheGrid) {
  // 8 x 8 pictures stay 8 x 8 in the middle of 24 x 24, so the corners show the grid.
  // Level 166 is just above the threshold (0.651), 165 just below (0.647).
  auto onDark = CreateImagePreview(Grey(8, 166).get(), {24, 24});
  EXPECT_EQ(onDark->GetPixel(4, 0), DarkGridColors.Second);
  EXPECT_EQ(onDark->GetPixel(12, 12), 0xFFA6A6A6u);
  auto onLight = CreateImagePreview(Grey(8, 165).get(), {24, 24});
  EXPECT_EQ(onLight->GetPixel(4, 0), LightGridColors.Second);

  // A bitmap set's picture is its best bitmap.
  TqxAssetBitmapSet set("Icons\\White");
  auto info = std::make_unique<TqxBitmapInfo>(1.0f);
  info->SetBitmap(Grey(8, 255));
  set.Add(std::move(info));
  EXPECT_EQ(Preview(set)->GetPixel(0, 0), DarkGridColors.First);
}

TEST(PreviewsTest, MissingPictureShowsTheMark) {
  auto mark = CreateMissingImageMark({24, 24});
  ASSERT_NE(mark, nullptr);
  EXPECT_EQ(mark->GetPixel(8, 16), kWhite);
  EXPECT_GT(RedOf(mark->GetPixel(16, 8)), 200);  // where the cross's lines meet: (W-8, 8)
  EXPECT_LT(GreenOf(mark->GetPixel(16, 8)), 60);
  EXPECT_EQ(CreateMissingImageMark({0, 24}), nullptr);

  TqxAssetBitmapSet empty("Icons\\Empty");
  empty.Add(std::make_unique<TqxBitmapInfo>(1.0f));
  EXPECT_EQ(*Preview(empty), *mark);
  TqxAssetSVG gone("Art\\Gone");
  gone.SetSVGUri("/nowhere/gone.svg");
  EXPECT_EQ(*Preview(gone), *mark);
  TqxAssetSVG unreadable("Art\\Broken");
  unreadable.SetSVGUri(DataFile("kinds/broken.svg"));
  EXPECT_EQ(*Preview(unreadable), *mark);
}

TEST(PreviewsTest, SvgIsDrawnThroughTheReaderAndWriter) {
  // A 48 x 32 red rectangle drawn to fit 24 x 24: 24 x 16, rows 4 to 19, on the light grid.
  TqxAssetSVG svg("Art\\Logo");
  svg.SetSVGUri(DataFile("kinds/logo.svg"));
  auto preview = Preview(svg);
  EXPECT_EQ(preview->GetPixel(0, 10), 0xFFFF0000u);
  EXPECT_EQ(preview->GetPixel(0, 0), LightGridColors.First);

  // A white circle on nothing is light: the dark grid.
  TqxAssetSVG white("Art\\Dot");
  white.SetSVGUri(DataFile("kinds/percent.svg"));
  EXPECT_EQ(Preview(white)->GetPixel(0, 0), DarkGridColors.First);
}

}  // namespace
}  // namespace qx
