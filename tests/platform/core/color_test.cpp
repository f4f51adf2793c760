#include "platform/core/graphics/color.h"

#include <gtest/gtest.h>

#include <string>

namespace qx {
namespace {

TEST(ColorTest, TextFormsAndParsing) {
  EXPECT_EQ(TAlphaColorHelper::ToDisplayString(0xFFFF8000), "#FF8000");
  EXPECT_EQ(TAlphaColorHelper::ToDisplayString(0x80ff8000), "#80FF8000");
  EXPECT_EQ(TAlphaColorHelper::ToARGBHex(0x0000000A), "0000000A");

  struct TCase {
    const char* Text;
    TAlphaColor Color;
  };
  const TCase good[] = {
      {"#80FF0000", 0x80FF0000}, {"#ff8000", 0xFFFF8000}, {"#0AF", 0xFF00AAFF},
      {"$FF0000", 0x00FF0000},   {"0XFF", 0x000000FF},   {"  #abc\t", 0xFFAABBCC},
      {"CornflowerBlue", 0xFF6495ED}, {"grey", 0xFF808080}, {"transparent", 0},
  };
  for (const TCase& c : good) {
    TAlphaColor color = 0x12345678;
    EXPECT_TRUE(TAlphaColorHelper::TryParse(c.Text, color)) << c.Text;
    EXPECT_EQ(color, c.Color) << c.Text;
  }
  const char* bad[] = {"", "#", "#1234", "#1234567", "#123456789", "#GG0000", "$123456789", "0x", "FF0000", "none",
                       "# FF0000"};
  for (const char* text : bad) {
    TAlphaColor color = 0x12345678;
    EXPECT_FALSE(TAlphaColorHelper::TryParse(text, color)) << text;
    EXPECT_EQ(color, 0x12345678u) << text;
  }
  // The display string always reads back to the same colour.
  for (TAlphaColor c : {0xFF000000u, 0x00000000u, 0x7F123456u}) {
    TAlphaColor back = 0;
    ASSERT_TRUE(TAlphaColorHelper::TryParse(TAlphaColorHelper::ToDisplayString(c), back));
    EXPECT_EQ(back, c);
    ASSERT_TRUE(TAlphaColorHelper::TryParse("#" + TAlphaColorHelper::ToARGBHex(c), back));
    EXPECT_EQ(back, c);
  }
}

// Look-up is a binary search: the table must stay sorted.
TEST(ColorTest, EveryNameInTheTableIsFound) {
  const auto names = NamedColors();
  for (std::size_t i = 1; i < names.size(); ++i) EXPECT_LT(names[i - 1].Name, names[i].Name);
  for (const TqxNamedColor& entry : names) {
    TAlphaColor color = 0;
    EXPECT_TRUE(TryGetNamedColor(entry.Name, color)) << entry.Name;
    EXPECT_EQ(color, entry.Color) << entry.Name;
  }
  TAlphaColor color = 0;
  EXPECT_FALSE(TryGetNamedColor("rebeccapurple", color));
}

TEST(ColorTest, PremultiplyRoundTripAndLuminance) {
  // Channels can't exceed 255 even from malformed premultiplied input.
  EXPECT_EQ(UnpremultiplyColor(0x10FFFFFF), 0x10FFFFFFu);
  for (unsigned a : {1u, 17u, 128u, 254u}) {
    const TAlphaColor c = WithAlpha(0x00FF8040, std::uint8_t(a));
    const TAlphaColor back = UnpremultiplyColor(PremultiplyColor(c));
    EXPECT_EQ(AlphaOf(back), a);
    if (a >= 128) {
      EXPECT_NEAR(RedOf(back), 0xFF, 1) << a;
    }
  }
  EXPECT_DOUBLE_EQ(Luminance(0x00FFFFFF), 1);  // alpha ignored
  EXPECT_GT(Luminance(0xFF00FF00), Luminance(0xFFFF0000));  // green weighs more than red
  EXPECT_GT(Luminance(0xFFD3D3D3), 0.65);
  EXPECT_LT(Luminance(0xFF7E7E7E), 0.65);
}

}  // namespace
}  // namespace qx
