#include "vector/svg_values.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <optional>

#include "platform/core/base/exception.h"

namespace qx {
namespace {

using R = TqxSVGValues;

constexpr float kUntouched = -777.0f;

// The value read, or nothing when the reader answered false; a false answer
// must also leave the out value as it was.
std::optional<float> TryFloat(std::string_view text) {
  float value = kUntouched;
  if (R::TryStrToFloat(text, value)) return value;
  EXPECT_EQ(value, kUntouched) << "out value changed for \"" << text << "\"";
  return std::nullopt;
}

std::optional<float> TryDegree(std::string_view text) {
  float value = kUntouched;
  if (R::TryStrToDegree(text, value)) return value;
  EXPECT_EQ(value, kUntouched) << "out value changed for \"" << text << "\"";
  return std::nullopt;
}

TEST(SvgNumberTest, TolerantReaderAcceptsPxAndCmUnscaledAndLeadingPoints) {
  const struct {
    const char* text;
    std::optional<float> expected;
  } cases[] = {
      {"12px", 12.0f},  {"12cm", 12.0f},  {"12 px", 12.0f}, {" -3.25 ", -3.25f}, {"1e2px", 100.0f},
      {".5px", 0.5f},   {"-.5", -0.5f},   {"5.", 5.0f},
      // A lone point reads as "0." through the leading-point rule.
      {".", 0.0f},
      // Other units, percentages and upper-case units are no numbers, nor is
      // anything a scanner would split into two tokens.
      {"12mm", {}},     {"12%", {}},      {"12PX", {}},     {"px", {}},        {"", {}},
      {"1,5", {}},      {"10-5", {}},     {"1.5.5", {}},    {"12px ", {}},     {"inf", {}},
  };
  for (const auto& c : cases) EXPECT_EQ(TryFloat(c.text), c.expected) << '"' << c.text << '"';
}

TEST(SvgNumberTest, ValuesBeyondFloatRangeFail) {
  EXPECT_EQ(TryFloat("1e39"), std::nullopt);
  EXPECT_EQ(TryFloat("-1e39px"), std::nullopt);
  EXPECT_EQ(TryFloat("3e38"), 3e38f);
  EXPECT_THROW(R::StrToFloat("1e39"), Exception);
}

TEST(SvgNumberTest, StrictReaderTakesPlainNumbersOnlyAndRaises) {
  EXPECT_EQ(R::StrToFloat("12"), 12.0f);
  EXPECT_EQ(R::StrToFloat(" -1.5e1 "), -15.0f);
  EXPECT_EQ(R::StrToFloat(".25"), 0.25f);
  for (const char* text : {"10px", "50%", "12cm", "", "1,5", "1.5.5", "x"}) {
    EXPECT_THROW(R::StrToFloat(text), Exception) << '"' << text << '"';
  }
  try {
    R::StrToFloat("10px");
    FAIL();
  } catch (const Exception& e) {
    EXPECT_EQ(e.Message(), "'10px' is not a valid floating point value");
  }
}

TEST(SvgNumberTest, DegreesFromEveryUnitGiveTheSameQuarterTurn) {
  for (const char* text : {"90", "90deg", "100grad", "1.5707963rad", "90 deg", " 90"}) {
    const auto value = TryDegree(text);
    ASSERT_TRUE(value.has_value()) << text;
    EXPECT_NEAR(*value, 90.0f, 1e-4f) << text;
  }
  EXPECT_NEAR(*TryDegree("-200grad"), -180.0f, 1e-4f);
  // Units are exact-case; a step with its extra arguments is no angle at all.
  for (const char* text : {"90DEG", "90turn", "45 10 10", "deg", "xrad", "90px", ""}) {
    EXPECT_EQ(TryDegree(text), std::nullopt) << '"' << text << '"';
  }
}

TEST(SvgNumberTest, RectangleNeedsExactlyFourBlankSeparatedNumbers) {
  TRectF rect;
  ASSERT_TRUE(R::TryStrToRectF("  -1  2.5 24px 10 ", rect));
  EXPECT_EQ(rect, (TRectF{-1, 2.5, 23, 12.5}));

  const TRectF before{1, 2, 3, 4};
  for (const char* text : {"0,0,24,24", "0, 0, 24, 24", "0 0 24", "0 0 24 24 1", "0 0 24 x", ""}) {
    rect = before;
    EXPECT_FALSE(R::TryStrToRectF(text, rect)) << '"' << text << '"';
    EXPECT_EQ(rect, before) << '"' << text << '"';
  }
}

TEST(SvgNumberTest, PointsAreUncheckedTokensSplitAtBlanksCommasAndLineEnds) {
  using Tokens = std::vector<std::string>;
  EXPECT_EQ(R::StrToPoints("1,2 3,4\n5,6"), (Tokens{"1", "2", "3", "4", "5", "6"}));
  EXPECT_EQ(R::StrToPoints(" 1,,2\r\n  3 "), (Tokens{"1", "2", "3"}));
  EXPECT_EQ(R::StrToPoints("1-2 x"), (Tokens{"1-2", "x"}));
  EXPECT_TRUE(R::StrToPoints(" , \n").empty());
}

TEST(SvgNumberTest, DashArrayCutsUnitsAndDropsWhatDoesNotRead) {
  using Numbers = std::vector<float>;
  const struct {
    const char* text;
    char separator;
    Numbers expected;
  } cases[] = {
      {"4px,2%,x,1", ',', {4, 2, 1}},
      {"4  2", ' ', {4, 2}},
      {"3cm,.5", ',', {3, 0.5f}},
      // The unit is found ignoring case but cut in lower case only.
      {"10PX,1Px2px,5", ',', {5}},
      // With the other separator each item is "4,2" or "4 2": no number.
      {"4,2", ' ', {}},
      {"", ',', {}},
  };
  for (const auto& c : cases) {
    Numbers numbers{99};
    EXPECT_EQ(R::TryParseSingleArray(c.text, c.separator, numbers), !c.expected.empty()) << '"' << c.text << '"';
    EXPECT_EQ(numbers, c.expected) << '"' << c.text << '"';
  }
}

TEST(SvgColorTest, HashFormsOnlyWithEightDigitsAlphaFirst) {
  const struct {
    const char* text;
    std::optional<TAlphaColor> expected;
  } cases[] = {
      {"#abc", 0xFFAABBCC}, {"#ABCDEF", 0xFFABCDEF}, {"#80FF0000", 0x80FF0000},
      // Other lengths read as plain hex numbers, transparent when short.
      {"#12345", 0x00012345}, {"#123456789", {}}, {"#ggg", {}}, {" #abc", {}}, {"white", {}},
  };
  for (const auto& c : cases) {
    TAlphaColor color = 0x12345678;
    const bool read = R::TryStrToColor(c.text, color);
    EXPECT_EQ(read, c.expected.has_value()) << c.text;
    EXPECT_EQ(color, c.expected.value_or(0x12345678)) << c.text;
  }
}

}  // namespace
}  // namespace qx
