#include <gtest/gtest.h>

#include "vector/svg_shape_paths.h"

namespace qx {
namespace {

using P = TqxSVGShapePaths;

// Number forms that real files rarely hold; the usual texts are checked
// through whole SVG files in the reader's tests.
TEST(SvgShapePathsTest, NumbersAreWidenedBeforeArithmeticAndPrinting) {
  // The left-most point of an ellipse is computed from the widened values.
  EXPECT_EQ(P::Ellipse(0.3f, 0, 0.1f, 1),
            "M0.200000010430813,0a0.100000001490116,1 0 1,0 0.200000002980232,0"
            "a0.100000001490116,1 0 1,0 -0.200000002980232,0");
  // Tiny values go scientific; a negative radius doubles its sign in the text.
  EXPECT_EQ(P::Circle(0.000001f, 0, 0).substr(0, 3), "M9.");
  EXPECT_EQ(P::Circle(0, 0, -1), "M0,0m1,0a-1,-1 0,1 1,-2 0a-1,-1 0,1 1,--2 0");
  // A shape of zeros prints no negative zero.
  EXPECT_EQ(P::Circle(0, 0, 0), "M0,0m0,0a0,0 0,1 1,0 0a0,0 0,1 1,-0 0");
  // Two decimals: a Single just below a tie rounds down, sums are widened.
  EXPECT_EQ(P::Line(-0.001f, 1e6f, 2.675f, 0.1f), "M0.00, 1000000.00, L2.67, 0.10");
  EXPECT_EQ(P::Rect(0.125f, -1.5f, 1, 0.004f), "M0.13, -1.50 L1.13, -1.50 1.13, -1.50 0.13, -1.50 Z");
  EXPECT_EQ(P::Points({"1", "2"}, true), std::nullopt);
}

}  // namespace
}  // namespace qx
