#include "vector/svg_style_sheet.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace qx {
namespace {

std::vector<std::string> Names(const TsvgCssClasses& classes) {
  std::vector<std::string> names;
  for (const auto& [name, css] : classes) {
    EXPECT_EQ(name, css->Name);
    names.push_back(name);
  }
  std::sort(names.begin(), names.end());
  return names;
}

// The sheet is cut at every "." rather than parsed: these are the shapes that
// real sheets take and what each of them leaves.
TEST(SvgStyleSheetTest, RulesAreWhatTheDotsCut) {
  struct Case {
    const char* sheet;
    std::vector<std::string> names;
  };
  const Case cases[] = {
      {".st0{fill:#010101;}.st1{fill:none}", {"st0", "st1"}},
      {".a{opacity:0.5}", {}},  // the decimal point splits the rule
      {".a,.b{fill:red}", {"b"}},
      {"rect{fill:red}", {"rect"}},
      {"\n  .A { fill : red }\n  .b{}\n", {"a", "b"}},
      {".x{fill:red", {}},
      {"/* note */ .c{fill:red}", {"c"}},
      {"", {}},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.sheet);
    TsvgCssClasses classes;
    ParseStyleSheet(c.sheet, classes);
    EXPECT_EQ(Names(classes), c.names);
  }
}

TEST(SvgStyleSheetTest, ValuesAreLowerCasedAndBadOnesLeftEmpty) {
  TsvgCssClasses classes;
  ParseStyleSheet(
      ".k{FILL:RED; stroke-width:2px ;stroke-dasharray:3,1;stroke-linecap:Round;stroke-linejoin:MITER;"
      "fill-rule:EvenOdd;stroke-dashoffset:4;stroke:blue}"
      ".bad{stroke-width:wide;stroke-dasharray:x;stroke-linecap:flat;stroke-linejoin:flat;fill-rule:nonzero}",
      classes);
  const TsvgCssClass& k = *classes.at("k");
  EXPECT_EQ(k.Fill.Value(), "red");
  EXPECT_EQ(k.StrokeWidth.Value(), 2.0f);
  EXPECT_EQ(k.StrokeDashArray.Value(), (std::vector<float>{3, 1}));
  EXPECT_EQ(k.StrokeLineCap.Value(), TqxStrokeLineCap::Round);
  EXPECT_EQ(k.StrokeLineJoin.Value(), TqxStrokeLineJoin::Miter);
  EXPECT_EQ(k.FillRule.Value(), TqxFillRule::EvenOdd);
  EXPECT_FALSE(k.StrokeDashOffset.HasValue());
  EXPECT_FALSE(k.Opacity.HasValue());

  const TsvgCssClass& bad = *classes.at("bad");
  EXPECT_FALSE(bad.Fill.HasValue());
  EXPECT_FALSE(bad.StrokeWidth.HasValue());
  EXPECT_FALSE(bad.StrokeDashArray.HasValue());
  EXPECT_FALSE(bad.StrokeLineCap.HasValue());
  EXPECT_FALSE(bad.StrokeLineJoin.HasValue());
  EXPECT_FALSE(bad.FillRule.HasValue());
}

TEST(SvgStyleSheetTest, LaterRuleReplacesTheEarlierWhole) {
  TsvgCssClasses classes;
  ParseStyleSheet(".a{fill:red;stroke-width:2}", classes);
  ParseStyleSheet(".A{stroke-linecap:round}", classes);
  const TsvgCssClass& a = *classes.at("a");
  EXPECT_FALSE(a.Fill.HasValue());
  EXPECT_FALSE(a.StrokeWidth.HasValue());
  EXPECT_TRUE(a.StrokeLineCap.HasValue());
}

}  // namespace
}  // namespace qx
