#include "platform/core/graphics/bitmap.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "../../support/error_message.h"
#include "../../support/pixels.h"
#include "../../support/temp_folder.h"
#include "platform/core/base/exception.h"
#include "platform/core/graphics/canvas.h"
#include "platform/core/graphics/png_writer.h"

namespace qx {
namespace {

using test::Near;

std::string Image(const char* name) { return std::string(QX_TEST_DATA_DIR) + "/images/" + name; }

std::vector<std::uint8_t> ReadBytes(const std::string& fileName) {
  const std::string text = test::ReadText(fileName);
  return {text.begin(), text.end()};
}

class BitmapFileTest : public ::testing::Test {
protected:
  std::string Temp(const std::string& name) const { return (FDir / name).string(); }
  std::string Write(const std::string& name, const std::vector<std::uint8_t>& bytes) const {
    test::WriteText(FDir / name, {bytes.begin(), bytes.end()});
    return Temp(name);
  }

  test::TTempFolder FDir{"bitmap"};
};

TEST_F(BitmapFileTest, LoadsPngJpegAndBmpWithStraightColours) {
  const auto png = TqxBitmap::LoadFromFile(Image("rgba_4x3.png"));
  ASSERT_EQ(png->Width(), 4);
  EXPECT_EQ(png->GetPixel(2, 0), 0xFF0000FFu);  // channel order
  EXPECT_EQ(png->GetPixel(0, 1), 0u);
  EXPECT_EQ(png->GetPixel(1, 1), 0x80FF0000u);  // premultiplied inside, straight outside
  EXPECT_EQ(png->Pixels()[1 * 4 + 1], 0x80800000u);

  // Two-bit grey and palette PNGs widen to the same format.
  const auto gray = TqxBitmap::LoadFromFile(Image("gray_2x2.png"));
  EXPECT_EQ(gray->GetPixel(1, 0), 0xFF555555u);
  EXPECT_EQ(TqxBitmap::LoadFromFile(Image("palette_4x3.png"))->GetPixel(2, 0), 0xFF0000FFu);

  EXPECT_TRUE(Near(TqxBitmap::LoadFromFile(Image("blocks_16x16.jpg"))->GetPixel(12, 8), 0xFF0000FF, 6));

  // A 24-bit BMP, stored bottom-up.
  const auto bmp = TqxBitmap::LoadFromFile(Image("rgb_4x3.bmp"));
  EXPECT_EQ(bmp->GetPixel(0, 0), 0xFFFF0000u);
  EXPECT_EQ(bmp->GetPixel(2, 2), 0xFFFFFF00u);

  // The same bytes from memory give the same bitmap.
  const std::vector<std::uint8_t> bytes = ReadBytes(Image("rgba_4x3.png"));
  EXPECT_EQ(*TqxBitmap::LoadFromMemory(bytes.data(), bytes.size()), *png);
}

TEST_F(BitmapFileTest, RefusesMissingTruncatedGarbageAndOversizedImages) {
  auto expectRefused = [](const std::string& fileName, const std::string& part) {
    const std::string message = test::ErrorOf([&] { TqxBitmap::LoadFromFile(fileName); });
    EXPECT_NE(message.find(fileName), std::string::npos) << message;
    EXPECT_NE(message.find(part), std::string::npos) << message;
  };
  expectRefused(Temp("missing.png"), "Cannot open");
  expectRefused(Write("empty.png", {}), "Cannot read");

  std::vector<std::uint8_t> png = ReadBytes(Image("rgba_4x3.png"));
  expectRefused(Write("header_only.png", {png.begin(), png.begin() + 40}), "Cannot read");
  std::vector<std::uint8_t> jpeg = ReadBytes(Image("blocks_16x16.jpg"));
  jpeg.resize(jpeg.size() / 2);
  expectRefused(Write("half.jpg", jpeg), "Cannot read");

  const std::string text = "<svg xmlns=\"http://www.w3.org/2000/svg\"/>";
  expectRefused(Write("not_an_image.png", {text.begin(), text.end()}), "Cannot read");

  // A header that claims a side beyond the limit is refused before decoding.
  std::vector<std::uint8_t> huge = png;
  huge[17] = 0x01;  // the IHDR width, big-endian at offset 16, becomes 65540
  expectRefused(Write("huge.png", huge), "out of range");

  EXPECT_THROW(TqxBitmap(TqxBitmap::kMaxSide + 1, 1), Exception);
  EXPECT_THROW(TqxBitmap::LoadFromMemory(nullptr, 0), Exception);
}

// Both encoders: the file save and the writer at either speed.
TEST_F(BitmapFileTest, SavedPngReadsBackPixelForPixel) {
  TqxBitmap drawn(24, 16);
  {
    TqxCanvas canvas(drawn);
    canvas.FillRect({0, 0, 24, 16}, 0, 0,
                    TqxBrush::Linear({0, 0}, {24, 0}, {{0, 0xFFFF0000}, {1, 0x200000FF}}));
    canvas.FillEllipse({4, 2, 20, 14}, TqxBrush::Solid(0x9000FF00));
  }
  drawn.SetPixel(0, 0, 0);
  drawn.SetPixel(1, 0, 0x01FFFFFF);
  const std::string fileName = Temp("drawn.png");
  drawn.SaveToFile(fileName);
  EXPECT_EQ(*TqxBitmap::LoadFromFile(fileName), drawn);
  for (TqxPngCompression compression : {TqxPngCompression::Small, TqxPngCompression::Fast}) {
    const std::vector<std::uint8_t> png = TqxPngWriter::Encode(drawn, compression);
    EXPECT_EQ(*TqxBitmap::LoadFromMemory(png.data(), png.size()), drawn)
        << (compression == TqxPngCompression::Fast ? "fast" : "small");
  }

  EXPECT_THROW(TqxPngWriter::Encode(TqxBitmap(), TqxPngCompression::Fast), Exception);
  EXPECT_THROW(TqxBitmap().SaveToFile(Temp("empty.png")), Exception);
  EXPECT_THROW(drawn.SaveToFile(Temp("no/such/folder/x.png")), Exception);
}

TEST(BitmapTest, PixelAccessOutsideIsHarmless) {
  TqxBitmap b(2, 2);
  b.SetPixel(-1, 0, 0xFFFFFFFF);
  b.SetPixel(2, 0, 0xFFFFFFFF);
  EXPECT_EQ(b.GetPixel(0, 5), 0u);
  EXPECT_EQ(b.GetPixel(0, 1), 0u);  // no wrapping into the next row
  b.SetSize(3, 1);
  EXPECT_EQ(b.GetPixel(2, 0), 0u);
}

}  // namespace
}  // namespace qx
