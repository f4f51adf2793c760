#include "platform/core/base/text.h"

#include <gtest/gtest.h>

#include "platform/core/base/exception.h"

namespace qx {
namespace {

TEST(FormatTest, GeneralFormatMatchesRtl) {
  EXPECT_EQ(Format("%g", {1.5}), "1.5");
  EXPECT_EQ(Format("%g", {100.0}), "100");
  EXPECT_EQ(Format("%g", {-0.25}), "-0.25");
  // Widened single precision prints its binary value, not its shortest form.
  EXPECT_EQ(Format("%g", {0.1f}), "0.100000001490116");
  // Scientific only below 0.00001 or past 15 integer digits.
  EXPECT_EQ(Format("%g", {0.0001}), "0.0001");
  EXPECT_EQ(Format("%g", {0.00001}), "0.00001");
  EXPECT_EQ(Format("%g", {0.000001}), "1E-6");
  EXPECT_EQ(Format("%g", {1e15}), "1E15");
  EXPECT_EQ(Format("%g", {123456789012345.0}), "123456789012345");
  EXPECT_EQ(Format("%g", {0.0}), "0");
}

TEST(FormatTest, FixedIntegerStringAndErrors) {
  EXPECT_EQ(Format("M%f,%f", {1.005, 2.0}), "M1.00,2.00");
  // Ties in the decimal digits round away from zero; a carry may add a digit.
  EXPECT_EQ(Format("%f|%f|%f|%f", {0.125, -2.375, 9.999, 0.005}), "0.13|-2.38|10.00|0.01");
  EXPECT_EQ(Format("%f|%f|%.0f|%.3f", {-0.001, 1e6, 0.5, 123.0}), "0.00|1000000.00|1|123.000");
  EXPECT_EQ(Format("%s-%d", {"Color", 2}), "Color-2");
  EXPECT_EQ(Format("%.3d|%-4s|%4s|%x", {7, "ab", "cd", 255}), "007|ab  |  cd|FF");
  EXPECT_EQ(Format("%1:s %0:s", {"a", "b"}), "b a");
  EXPECT_EQ(Format("100%%", {}), "100%");
  EXPECT_EQ(Format("%n", {1234567.891}), "1,234,567.89");
  EXPECT_THROW(Format("%d", {"text"}), Exception);
  EXPECT_THROW(Format("%s %s", {"one"}), Exception);
  EXPECT_THROW(Format("%", {}), Exception);
}

TEST(TextTest, CaseRulesAndOrdering) {
  EXPECT_TRUE(SameText("Colors\\Primary", "COLORS\\primary"));
  EXPECT_FALSE(SameText("Color", "Colors"));
  // Letters fold to upper case, so '_' (0x5F) sorts after them.
  EXPECT_LT(CompareText("abc", "ab_"), 0);
  EXPECT_GT(CompareStr("abc", "ABC"), 0);
  EXPECT_EQ(CompareText("Icon", "ICON"), 0);
  EXPECT_LT(CompareText("Icon", "Icons"), 0);
  // Only ASCII letters fold: Cyrillic stays case-sensitive as in the RTL's SameText.
  EXPECT_FALSE(SameText("Цвет", "ЦВЕТ"));
}

TEST(TextTest, NumbersParseUnderEnUsAndRoundHalfToEven) {
  double value = 0;
  EXPECT_TRUE(TryStrToFloat(" 1.5 ", value));
  EXPECT_DOUBLE_EQ(value, 1.5);
  EXPECT_TRUE(TryStrToFloat("-.5e-3", value));
  EXPECT_DOUBLE_EQ(value, -0.0005);
  EXPECT_FALSE(TryStrToFloat("1,5", value));
  EXPECT_FALSE(TryStrToFloat("1.5px", value));
  EXPECT_FALSE(TryStrToFloat("", value));
  EXPECT_EQ(Round(2.5), 2);
  EXPECT_EQ(Round(3.5), 4);
  EXPECT_EQ(Round(-2.5), -2);
  EXPECT_EQ(Trunc(1.9), 1);
}

TEST(TextTest, Utf8Validation) {
  EXPECT_TRUE(IsValidUtf8("plain"));
  EXPECT_TRUE(IsValidUtf8("Цвет \xF0\x9F\x98\x80"));
  EXPECT_FALSE(IsValidUtf8("\xC3"));          // truncated sequence
  EXPECT_FALSE(IsValidUtf8("\xC0\xAF"));      // overlong
  EXPECT_FALSE(IsValidUtf8("\xED\xA0\x80"));  // surrogate
  EXPECT_FALSE(IsValidUtf8("\xFF"));
  // Long ASCII runs are skipped in blocks; what follows them still counts.
  EXPECT_TRUE(IsValidUtf8("0123456789abcdef\xC3\xA9 and more"));
  EXPECT_FALSE(IsValidUtf8("0123456789abcdef\xC3"));
  EXPECT_FALSE(IsValidUtf8("01234567\xFF"));
}

}  // namespace
}  // namespace qx
