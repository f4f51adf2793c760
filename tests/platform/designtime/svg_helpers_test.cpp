#include <gtest/gtest.h>

#include <string>

#include "platform/core/assets/asset_svg.h"
#include "platform/core/base/exception.h"
#include "platform/core/base/file_io.h"
#include "platform/core/graphics/bitmap.h"
#include "platform/designtime/svg_bitmap_generator.h"
#include "platform/designtime/svg_natural_size.h"

namespace qx {
namespace {

std::string Svg(const std::string& attributes) {
  return "<svg xmlns=\"http://www.w3.org/2000/svg\" " + attributes + "><rect width=\"1\" height=\"1\"/></svg>";
}

TEST(SvgNaturalSizeTest, TakesAbsoluteSizeThenViewBox) {
  TSizeF size;
  ASSERT_TRUE(TryGetSvgNaturalSize(TqxFileIO::ReadAll(std::string(QX_TEST_DATA_DIR) + "/kinds/logo.svg"), size));
  EXPECT_EQ(size, (TSizeF{48, 32}));

  ASSERT_TRUE(TryGetSvgNaturalSize(Svg("width=\"1in\" height=\"0.5in\""), size));
  EXPECT_EQ(size, (TSizeF{96, 48}));

  // Percentages say nothing of their own: the view box does.
  ASSERT_TRUE(TryGetSvgNaturalSize(TqxFileIO::ReadAll(std::string(QX_TEST_DATA_DIR) + "/kinds/percent.svg"), size));
  EXPECT_EQ(size, (TSizeF{20, 10}));
  ASSERT_TRUE(TryGetSvgNaturalSize(Svg("viewBox=\"0 0 24 12\""), size));
  EXPECT_EQ(size, (TSizeF{24, 12}));
}

TEST(SvgNaturalSizeTest, LeavesSizeAloneWhenTheTextTellsNothing) {
  TSizeF size{7, 7};
  EXPECT_FALSE(TryGetSvgNaturalSize(Svg(""), size));
  EXPECT_FALSE(TryGetSvgNaturalSize("", size));
  EXPECT_FALSE(TryGetSvgNaturalSize("<svg", size));
  EXPECT_FALSE(TryGetSvgNaturalSize("plain text", size));
  EXPECT_FALSE(TryGetSvgNaturalSize(Svg("width=\"0\" height=\"10\""), size));
  EXPECT_EQ(size, (TSizeF{7, 7}));
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
  auto bitmap = GenerateBitmap(asset, {5, 3});
  EXPECT_EQ(seen, &asset);
  EXPECT_EQ(bitmap->Width(), 5);
  EXPECT_EQ(bitmap->Height(), 3);
  SetSvgBitmapGenerator(nullptr);
  EXPECT_EQ(HasSvgBitmapGenerator(), false);
}

}  // namespace
}  // namespace qx
