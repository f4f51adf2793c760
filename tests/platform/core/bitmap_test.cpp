#include "platform/core/graphics/bitmap.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <vector>

#include "platform/core/base/exception.h"
#include "platform/core/graphics/canvas.h"

namespace qx {
namespace {

namespace fs = std::filesystem;

std::string Image(const char* name) { return std::string(QX_TEST_DATA_DIR) + "/images/" + name; }

std::vector<std::uint8_t> ReadBytes(const std::string& fileName) {
  std::ifstream in(fileName, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

::testing::AssertionResult Near(TAlphaColor actual, TAlphaColor expected, int tolerance) {
  for (int shift : {24, 16, 8, 0}) {
    const int a = int((actual >> shift) & 0xFF), e = int((expected >> shift) & 0xFF);
    if (std::abs(a - e) > tolerance)
      return ::testing::AssertionFailure() << std::hex << "0x" << actual << " is not near 0x" << expected;
  }
  return ::testing::AssertionSuccess();
}

class BitmapFileTest : public ::testing::Test {
protected:
  void SetUp() override {
    FDir = fs::temp_directory_path() / ("qx_bitmap_test_" + std::to_string(std::random_device{}()));
    fs::create_directories(FDir);
  }
  void TearDown() override { fs::remove_all(FDir); }

  std::string Temp(const std::string& name) const { return (FDir / name).string(); }
  std::string Write(const std::string& name, const std::vector<std::uint8_t>& bytes) const {
    std::ofstream out(Temp(name), std::ios::binary);
    out.write(reinterpret_cast<const char*>(bytes.data()), std::streamsize(bytes.size()));
    return Temp(name);
  }

  fs::path FDir;
};

TEST_F(BitmapFileTest, LoadsPngJpegAndBmpWithStraightColours) {
  const auto png = TqxBitmap::LoadFromFile(Image("rgba_4x3.png"));
  ASSERT_EQ(png->Width(), 4);
  ASSERT_EQ(png->Height(), 3);
  EXPECT_EQ(png->GetPixel(0, 0), 0xFFFF0000u);
  EXPECT_EQ(png->GetPixel(1, 0), 0xFF00FF00u);
  EXPECT_EQ(png->GetPixel(2, 0), 0xFF0000FFu);
  EXPECT_EQ(png->GetPixel(3, 0), 0xFFFFFFFFu);
  EXPECT_EQ(png->GetPixel(0, 1), 0u);
  EXPECT_EQ(png->GetPixel(1, 1), 0x80FF0000u);  // premultiplied inside, straight outside
  EXPECT_EQ(png->GetPixel(3, 1), 0xFF808080u);
  EXPECT_EQ(png->GetPixel(3, 2), 0xFFFFFF00u);
  EXPECT_EQ(png->Pixels()[1 * 4 + 1], 0x80800000u);

  // Two-bit grey and palette PNGs widen to the same format.
  const auto gray = TqxBitmap::LoadFromFile(Image("gray_2x2.png"));
  EXPECT_EQ(gray->GetPixel(0, 0), 0xFF000000u);
  EXPECT_EQ(gray->GetPixel(1, 0), 0xFF555555u);
  EXPECT_EQ(gray->GetPixel(1, 1), 0xFFFFFFFFu);
  const auto palette = TqxBitmap::LoadFromFile(Image("palette_4x3.png"));
  EXPECT_EQ(palette->GetPixel(0, 1), 0u);
  EXPECT_EQ(palette->GetPixel(2, 0), 0xFF0000FFu);

  const auto jpeg = TqxBitmap::LoadFromFile(Image("blocks_16x16.jpg"));
  ASSERT_EQ(jpeg->Width(), 16);
  EXPECT_TRUE(Near(jpeg->GetPixel(3, 8), 0xFFFF0000, 6));
  EXPECT_TRUE(Near(jpeg->GetPixel(12, 8), 0xFF0000FF, 6));

  // A 24-bit BMP, stored bottom-up.
  const auto bmp = TqxBitmap::LoadFromFile(Image("rgb_4x3.bmp"));
  ASSERT_EQ(bmp->Height(), 3);
  EXPECT_EQ(bmp->GetPixel(0, 0), 0xFFFF0000u);
  EXPECT_EQ(bmp->GetPixel(0, 1), 0xFFFFFFFFu);
  EXPECT_EQ(bmp->GetPixel(1, 1), 0xFFFF7F7Fu);
  EXPECT_EQ(bmp->GetPixel(2, 2), 0xFFFFFF00u);

  // The same bytes from memory give the same bitmap.
  const std::vector<std::uint8_t> bytes = ReadBytes(Image("rgba_4x3.png"));
  EXPECT_EQ(*TqxBitmap::LoadFromMemory(bytes.data(), bytes.size()), *png);
}

TEST_F(BitmapFileTest, RefusesMissingTruncatedGarbageAndOversizedImages) {
  auto expectRefused = [](const std::string& fileName, const std::string& part) {
    try {
      TqxBitmap::LoadFromFile(fileName);
      ADD_FAILURE() << fileName << " was read";
    } catch (const Exception& e) {
      EXPECT_NE(e.Message().find(fileName), std::string::npos) << e.Message();
      EXPECT_NE(e.Message().find(part), std::string::npos) << e.Message();
    }
  };
  expectRefused(Temp("missing.png"), "Cannot open");
  expectRefused(Write("empty.png", {}), "Cannot read");

  std::vector<std::uint8_t> png = ReadBytes(Image("rgba_4x3.png"));
  expectRefused(Write("header_only.png", {png.begin(), png.begin() + 40}), "Cannot read");
  std::vector<std::uint8_t> jpeg = ReadBytes(Image("blocks_16x16.jpg"));
  jpeg.resize(jpeg.size() / 2);
  expectRefused(Write("half.jpg", jpeg), "Cannot read");

  std::mt19937 random(7);
  std::vector<std::uint8_t> noise(512);
  for (auto& b : noise) b = std::uint8_t(random());
  expectRefused(Write("noise.png", noise), "Cannot read");
  const std::string text = "<svg xmlns=\"http://www.w3.org/2000/svg\"/>";
  expectRefused(Write("not_an_image.png", {text.begin(), text.end()}), "Cannot read");

  // A header that claims a side beyond the limit is refused before decoding.
  std::vector<std::uint8_t> huge = png;
  huge[16] = 0x00;  // IHDR width, big-endian, at offset 16
  huge[17] = 0x01;
  huge[18] = 0x00;
  huge[19] = 0x00;
  expectRefused(Write("huge.png", huge), "out of range");

  EXPECT_THROW(TqxBitmap(TqxBitmap::kMaxSide + 1, 1), Exception);
  EXPECT_THROW(TqxBitmap::LoadFromMemory(nullptr, 0), Exception);
}

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
  const auto loaded = TqxBitmap::LoadFromFile(fileName);
  EXPECT_EQ(*loaded, drawn);

  EXPECT_THROW(TqxBitmap().SaveToFile(Temp("empty.png")), Exception);
  EXPECT_THROW(drawn.SaveToFile(Temp("no/such/folder/x.png")), Exception);
}

TEST(BitmapTest, PixelAccessOutsideIsHarmless) {
  TqxBitmap b(2, 2);
  b.SetPixel(-1, 0, 0xFFFFFFFF);
  b.SetPixel(2, 0, 0xFFFFFFFF);
  b.SetPixel(0, 2, 0xFFFFFFFF);
  EXPECT_EQ(b.GetPixel(-1, 0), 0u);
  EXPECT_EQ(b.GetPixel(0, 5), 0u);
  b.Clear(0x80FFFFFF);
  EXPECT_EQ(b.GetPixel(1, 1), 0x80FFFFFFu);
  b.SetSize(3, 1);
  EXPECT_EQ(b.GetPixel(2, 0), 0u);
}

}  // namespace
}  // namespace qx
