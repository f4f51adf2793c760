#include <gtest/gtest.h>

#include <string>

#include "platform/core/assets/asset_svg.h"
#include "platform/core/base/exception.h"
#include "platform/core/base/file_io.h"
#include "platform/core/graphics/bitmap.h"
#include "platform/designtime/bitmap_luminance.h"
#include "platform/designtime/bitmap_tint.h"
#include "platform/designtime/chess_background.h"
#include "platform/designtime/preview_builder.h"
#include "platform/designtime/svg_bitmap_generator.h"
#include "platform/designtime/svg_natural_size.h"

namespace qx {
namespace {

constexpr TAlphaColor kRed = 0xFFFF0000;
constexpr TAlphaColor kWhite = 0xFFFFFFFF;
constexpr TAlphaColor kBlack = 0xFF000000;

std::unique_ptr<TqxBitmap> Filled(int width, int height, TAlphaColor color) {
  auto bitmap = std::make_unique<TqxBitmap>(width, height);
  bitmap->Clear(color);
  return bitmap;
}

TEST(ChessBackgroundTest, AlternatesCellsFromTheFirstColourAtTopLeft) {
  auto chess = CreateChessBackground({10, 6}, 4, kWhite, kBlack);
  EXPECT_EQ(chess->GetPixel(3, 3), kWhite);
  EXPECT_EQ(chess->GetPixel(4, 0), kBlack);
  EXPECT_EQ(chess->GetPixel(0, 4), kBlack);
  EXPECT_EQ(chess->GetPixel(9, 5), kBlack);  // a partial cell at the edge
  // Cells of at least one pixel.
  EXPECT_EQ(CreateChessBackground({2, 1}, 0, kWhite, kBlack)->GetPixel(1, 0), kBlack);
}

TEST(LuminanceTest, AveragesVisiblePixelsOnly) {
  // Fully transparent pixels don't darken a white icon; half-covered ones weigh half.
  auto icon = Filled(4, 4, 0);
  icon->SetPixel(1, 1, kWhite);
  EXPECT_NEAR(Luminance(*icon), 1.0, 1e-9);
  icon->SetPixel(2, 2, 0x80000000);
  EXPECT_NEAR(Luminance(*icon), 255.0 / (255 + 128), 1e-9);
  // Nothing visible, or nothing at all: dark.
  EXPECT_EQ(Luminance(*Filled(2, 2, 0)), 0.0);
  EXPECT_EQ(Luminance(TqxBitmap()), 0.0);
}

TEST(CreatePreviewTest, FitsLargePicturesCentredAndKeepsSmallOnesAtTheirSize) {
  // 16 x 8 into 8 x 8: scaled to 8 x 4, rows 2 to 5, on the grid.
  auto wide = CreatePreview(*Filled(16, 8, kRed), {8, 8}, kWhite, kBlack, 4);
  EXPECT_EQ(wide->GetPixel(4, 3), kRed);
  EXPECT_EQ(wide->GetPixel(4, 0), kBlack);
  EXPECT_EQ(wide->GetPixel(0, 7), kBlack);
  // 2 x 2 into 8 x 8: not enlarged, in the middle.
  auto small = CreatePreview(*Filled(2, 2, kRed), {8, 8}, kWhite, kBlack, 4);
  EXPECT_EQ(small->GetPixel(3, 3), kRed);
  EXPECT_EQ(small->GetPixel(2, 3), kWhite);
  EXPECT_EQ(small->GetPixel(5, 4), kWhite);
  // A translucent picture shows the grid through it.
  auto glass = CreatePreview(*Filled(8, 8, 0x80FF0000), {8, 8}, kWhite, kBlack, 4);
  EXPECT_NE(glass->GetPixel(0, 0), glass->GetPixel(4, 0));

  EXPECT_EQ(FitPicture({10, 5}, {20, 20}, false), (TRectF{5, 7.5, 15, 12.5}));
  EXPECT_EQ(FitPicture({10, 5}, {20, 20}, true), (TRectF{0, 5, 20, 15}));
  EXPECT_TRUE(FitPicture({0, 5}, {20, 20}, true).IsEmpty());
}

TEST(TintTest, RecoloursAndKeepsShape) {
  auto icon = Filled(2, 1, kBlack);
  icon->SetPixel(1, 0, 0x80000000);
  TintFMXBitmap(*icon, 0xFF2080FF);
  EXPECT_EQ(icon->GetPixel(0, 0), 0xFF2080FFu);
  EXPECT_EQ(icon->GetPixel(1, 0) >> 24, 0x80u);
  EXPECT_NEAR(int(icon->GetPixel(1, 0) & 0xFF), 0xFF, 2);
  // The tint's own alpha fades the picture.
  auto faded = Filled(1, 1, kBlack);
  TintFMXBitmap(*faded, 0x80FFFFFF);
  EXPECT_EQ(faded->GetPixel(0, 0) >> 24, 0x80u);
}

std::string Svg(const std::string& attributes) {
  return "<svg xmlns=\"http://www.w3.org/2000/svg\" " + attributes + "><rect width=\"1\" height=\"1\"/></svg>";
}

TEST(SvgNaturalSizeTest, TakesAbsoluteSizeThenViewBoxElseNothing) {
  TSizeF size;
  ASSERT_TRUE(TryGetSvgNaturalSize(TqxFileIO::ReadAll(std::string(QX_TEST_DATA_DIR) + "/kinds/logo.svg"), size));
  EXPECT_EQ(size, (TSizeF{48, 32}));

  ASSERT_TRUE(TryGetSvgNaturalSize(Svg("width=\"1in\" height=\"0.5in\""), size));
  EXPECT_EQ(size, (TSizeF{96, 48}));

  // Percentages say nothing of their own: the view box does.
  ASSERT_TRUE(TryGetSvgNaturalSize(TqxFileIO::ReadAll(std::string(QX_TEST_DATA_DIR) + "/kinds/percent.svg"), size));
  EXPECT_EQ(size, (TSizeF{20, 10}));

  // Text that tells nothing leaves the size alone.
  for (const std::string& text : {Svg(""), std::string("<svg"), Svg("width=\"0\" height=\"10\"")})
    EXPECT_FALSE(TryGetSvgNaturalSize(text, size)) << text;
  EXPECT_EQ(size, (TSizeF{20, 10}));
}

TEST(GenerateBitmapTest, RefusesWithoutGeneratorAndForwardsToTheInstalledOne) {
  TqxAssetSVG asset("Icons\\Logo");
  SetSvgBitmapGenerator(nullptr);
  EXPECT_THROW(GenerateBitmap(asset, {8, 8}), Exception);

  const TqxAssetSVG* seen = nullptr;
  SetSvgBitmapGenerator([&](const TqxAssetSVG& a, TSize size) {
    seen = &a;
    return std::make_unique<TqxBitmap>(size.Width, size.Height);
  });
  EXPECT_EQ(GenerateBitmap(asset, {5, 3})->Height(), 3);
  EXPECT_EQ(seen, &asset);
  SetSvgBitmapGenerator(nullptr);
}

}  // namespace
}  // namespace qx
