#include "platform/core/graphics/png_writer.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "platform/core/base/exception.h"
#include "platform/core/graphics/bitmap.h"

namespace qx {
namespace {

// Straight colours survive the premultiplied pixels within rounding, channel
// order included, at both speeds; the fast setting may only cost size.
TEST(PngWriterTest, BothSpeedsKeepTheColours) {
  TqxBitmap bitmap(64, 64);
  for (int y = 0; y < 64; ++y)
    for (int x = 0; x < 64; ++x) bitmap.SetPixel(x, y, x < 32 ? 0xFF102030u : 0x80FF8000u);
  bitmap.SetPixel(0, 0, 0x00000000u);
  bitmap.SetPixel(1, 0, 0x0A0000FFu);

  for (TqxPngCompression compression : {TqxPngCompression::Small, TqxPngCompression::Fast}) {
    const std::vector<std::uint8_t> png = TqxPngWriter::Encode(bitmap, compression);
    const auto decoded = TqxBitmap::LoadFromMemory(png.data(), png.size());
    ASSERT_EQ(decoded->Width(), 64);
    ASSERT_EQ(decoded->Height(), 64);
    EXPECT_EQ(*decoded, bitmap) << (compression == TqxPngCompression::Fast ? "fast" : "small");
  }
  EXPECT_THROW(TqxPngWriter::Encode(TqxBitmap(), TqxPngCompression::Fast), Exception);
}

}  // namespace
}  // namespace qx
