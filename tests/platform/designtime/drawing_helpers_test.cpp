#include <gtest/gtest.h>

#include "platform/core/graphics/bitmap.h"
#include "platform/designtime/bitmap_luminance.h"
#include "platform/designtime/bitmap_tint.h"
#include "platform/designtime/chess_background.h"
#include "platform/designtime/preview_builder.h"

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
  ASSERT_EQ(chess->Width(), 10);
  ASSERT_EQ(chess->Height(), 6);
  EXPECT_EQ(chess->GetPixel(0, 0), kWhite);
  EXPECT_EQ(chess->GetPixel(3, 3), kWhite);
  EXPECT_EQ(chess->GetPixel(4, 0), kBlack);
  EXPECT_EQ(chess->GetPixel(0, 4), kBlack);
  EXPECT_EQ(chess->GetPixel(4, 4), kWhite);
  EXPECT_EQ(chess->GetPixel(9, 5), kBlack);  // a partial cell at the edge

  auto fine = CreateChessBackground({2, 1}, 0, kWhite, kBlack);  // cells of at least one pixel
  EXPECT_EQ(fine->GetPixel(0, 0), kWhite);
  EXPECT_EQ(fine->GetPixel(1, 0), kBlack);
  EXPECT_TRUE(CreateChessBackground({0, 0}, 4, kWhite, kBlack)->IsEmpty());
}

TEST(LuminanceTest, AveragesVisiblePixelsOnly) {
  EXPECT_DOUBLE_EQ(Luminance(*Filled(3, 3, kWhite)), 1.0);
  EXPECT_DOUBLE_EQ(Luminance(*Filled(3, 3, kBlack)), 0.0);
  // Fully transparent pixels don't darken a white icon.
  auto icon = Filled(4, 4, 0);
  icon->SetPixel(1, 1, kWhite);
  EXPECT_NEAR(Luminance(*icon), 1.0, 1e-9);
  // Half-covered pixels weigh half.
  auto mixed = Filled(2, 1, 0);
  mixed->SetPixel(0, 0, kWhite);
  mixed->SetPixel(1, 0, 0x80000000);
  EXPECT_NEAR(Luminance(*mixed), 255.0 / (255 + 128), 1e-9);
  // Nothing visible, or nothing at all: dark.
  EXPECT_EQ(Luminance(*Filled(2, 2, 0)), 0.0);
  EXPECT_EQ(Luminance(TqxBitmap()), 0.0);
  // Green counts most, blue least.
  EXPECT_GT(Luminance(*Filled(1, 1, 0xFF00FF00)), Luminance(*Filled(1, 1, kRed)));
  EXPECT_GT(Luminance(*Filled(1, 1, kRed)), Luminance(*Filled(1, 1, 0xFF0000FF)));
}

TEST(CreatePreviewTest, FitsLargePicturesCentredAndKeepsSmallOnesAtTheirSize) {
  // 16 x 8 into 8 x 8: scaled to 8 x 4, rows 2 to 5.
  auto wide = CreatePreview(*Filled(16, 8, kRed), {8, 8}, kWhite, kBlack, 4);
  ASSERT_EQ(wide->Width(), 8);
  EXPECT_EQ(wide->GetPixel(4, 3), kRed);
  EXPECT_EQ(wide->GetPixel(0, 0), kWhite);  // grid above the picture
  EXPECT_EQ(wide->GetPixel(4, 0), kBlack);
  EXPECT_EQ(wide->GetPixel(0, 7), kBlack);  // and below it

  // 2 x 2 into 8 x 8: not enlarged, in the middle.
  auto small = CreatePreview(*Filled(2, 2, kRed), {8, 8}, kWhite, kBlack, 4);
  EXPECT_EQ(small->GetPixel(3, 3), kRed);
  EXPECT_EQ(small->GetPixel(4, 4), kRed);
  EXPECT_EQ(small->GetPixel(2, 3), kWhite);
  EXPECT_EQ(small->GetPixel(5, 4), kWhite);

  // A translucent picture shows the grid through it.
  auto glass = CreatePreview(*Filled(8, 8, 0x80FF0000), {8, 8}, kWhite, kBlack, 4);
  EXPECT_NE(glass->GetPixel(0, 0), glass->GetPixel(4, 0));
}

TEST(FitPictureTest, KeepsProportionsAndOnlyGrowsWhenAsked) {
  EXPECT_EQ(FitPicture({10, 5}, {20, 20}, false), (TRectF{5, 7.5, 15, 12.5}));
  EXPECT_EQ(FitPicture({10, 5}, {20, 20}, true), (TRectF{0, 5, 20, 15}));
  EXPECT_EQ(FitPicture({40, 80}, {20, 20}, false), (TRectF{5, 0, 15, 20}));
  EXPECT_TRUE(FitPicture({0, 5}, {20, 20}, true).IsEmpty());
}

TEST(TintTest, RecoloursAndKeepsShape) {
  auto icon = Filled(2, 1, 0);
  icon->SetPixel(0, 0, kBlack);
  icon->SetPixel(1, 0, 0x80000000);
  TintFMXBitmap(*icon, 0xFF2080FF);
  EXPECT_EQ(icon->GetPixel(0, 0), 0xFF2080FFu);
  EXPECT_EQ(icon->GetPixel(1, 0) >> 24, 0x80u);
  EXPECT_NEAR(int(icon->GetPixel(1, 0) & 0xFF), 0xFF, 2);

  auto faded = Filled(1, 1, kBlack);
  TintFMXBitmap(*faded, 0x80FFFFFF);
  EXPECT_EQ(faded->GetPixel(0, 0) >> 24, 0x80u);
}

}  // namespace
}  // namespace qx
