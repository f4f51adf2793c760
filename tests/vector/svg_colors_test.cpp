#include "vector/svg_colors.h"

#include <gtest/gtest.h>

#include <fstream>
#include <set>
#include <sstream>

#include "platform/core/base/text.h"
#include "vector/svg_values.h"

namespace qx {
namespace {

std::string Lookup(std::string_view name) {
  std::string color = "stale";
  if (!TsvgColors::Default().TryGetValue(name, color)) {
    EXPECT_EQ(color, "") << "a miss must clear the out value";
    return "<none>";
  }
  return color;
}

// The X11 comparison below checks most values; these are the rows it can't.
TEST(SvgColorsTest, TableHoldsTheWebKeywordsWhateverTheirCase) {
  EXPECT_EQ(TsvgColors::Default().Count(), 148u);
  // Where the web colours differ from the older X11 ones.
  EXPECT_EQ(Lookup("gray"), "#FF808080");
  EXPECT_EQ(Lookup("green"), "#FF008000");
  EXPECT_EQ(Lookup("purple"), "#FF800080");
  EXPECT_EQ(Lookup("None"), "#00000000");
  EXPECT_EQ(Lookup("DarkSlateBlue"), "#FF483D8B");
  EXPECT_EQ(Lookup("rebeccapurple"), "<none>");
  EXPECT_EQ(Lookup(" red"), "<none>");
  EXPECT_EQ(Lookup("#ff0000"), "<none>");
}

TEST(SvgColorsTest, ValuesAgreeWithTheX11TableWhereTheWebKeptThem) {
  // An independent source for most rows: X11's colour names, of which the web
  // colours are a subset, except for four that the web redefined.
  std::ifstream rgb("/usr/share/X11/rgb.txt");
  if (!rgb) GTEST_SKIP() << "no X11 colour table on this machine";
  const std::set<std::string> redefined = {"gray", "grey", "green", "maroon", "purple"};
  int compared = 0;
  for (std::string line; std::getline(rgb, line);) {
    std::istringstream fields(line);
    int r = 0, g = 0, b = 0;
    std::string name, word;
    if (!(fields >> r >> g >> b)) continue;
    while (fields >> word) name += word;
    std::string color;
    if (redefined.count(LowerCase(name)) || !TsvgColors::Default().TryGetValue(name, color)) continue;
    EXPECT_EQ(color, Format("#FF%.2x%.2x%.2x", {r, g, b})) << name;
    TAlphaColor number = 0;
    EXPECT_TRUE(TqxSVGValues::TryStrToColor(color, number)) << name;
    ++compared;
  }
  EXPECT_GT(compared, 130);
}

}  // namespace
}  // namespace qx
