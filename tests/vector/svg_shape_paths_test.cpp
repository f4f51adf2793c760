#include <gtest/gtest.h>

#include "vector/svg_shape_paths.h"

namespace qx {
namespace {

using P = TqxSVGShapePaths;

TEST(SvgShapePathsTest, ArcsPrintWidenedSinglesThroughG) {
  EXPECT_EQ(P::Circle(10, 20, 5), "M10,20m-5,0a5,5 0,1 1,10 0a5,5 0,1 1,-10 0");
  EXPECT_EQ(P::Ellipse(10, 20, 5, 3), "M5,20a5,3 0 1,0 10,0a5,3 0 1,0 -10,0");
  // A Single is printed from its binary value, not from its shortest spelling.
  EXPECT_EQ(P::Circle(0.1f, 0, 1), "M0.100000001490116,0m-1,0a1,1 0,1 1,2 0a1,1 0,1 1,-2 0");
  // The left-most point of an ellipse is computed after widening.
  EXPECT_EQ(P::Ellipse(0.3f, 0, 0.1f, 1),
            "M0.200000010430813,0a0.100000001490116,1 0 1,0 0.200000002980232,0"
            "a0.100000001490116,1 0 1,0 -0.200000002980232,0");
  // Tiny values go scientific; a negative radius doubles its sign in the text.
  EXPECT_EQ(P::Circle(0, 0, -1), "M0,0m1,0a-1,-1 0,1 1,-2 0a-1,-1 0,1 1,--2 0");
  EXPECT_EQ(P::Circle(0.000001f, 0, 0).substr(0, 3), "M9.");
  // A shape of zeros has no negative zero in it.
  EXPECT_EQ(P::Circle(0, 0, 0), "M0,0m0,0a0,0 0,1 1,0 0a0,0 0,1 1,-0 0");
}

TEST(SvgShapePathsTest, LinesAndRectsKeepTwoDecimals) {
  EXPECT_EQ(P::Line(0, 0, 10, 10), "M0.00, 0.00, L10.00, 10.00");
  EXPECT_EQ(P::Rect(0, 0, 10, 20), "M0.00, 0.00 L10.00, 0.00 10.00, 20.00 0.00, 20.00 Z");
  EXPECT_EQ(P::Rect(0.125f, -1.5f, 1, 0.004f), "M0.13, -1.50 L1.13, -1.50 1.13, -1.50 0.13, -1.50 Z");
  EXPECT_EQ(P::Line(-0.001f, 1e6f, 2.675f, 0.1f), "M0.00, 1000000.00, L2.67, 0.10");
}

TEST(SvgShapePathsTest, PointsAreJoinedAsText) {
  EXPECT_EQ(P::Points({"0", "0", "10", "0", "10", "10"}, true), "M0 0L10 0 10 10 Z");
  EXPECT_EQ(P::Points({"0", "0", "10", "0", "10", "10"}, false), "M0 0L10 0 10 10 ");
  EXPECT_EQ(P::Points({"1", "2", "3"}, false), "M1 2L3 ");
  EXPECT_EQ(P::Points({"10-5", "20-5", "30-5"}, true), "M10-5 20-5L30-5 Z");
  EXPECT_EQ(P::Points({"1", "2"}, true), std::nullopt);
  EXPECT_EQ(P::Points({}, false), std::nullopt);
}

}  // namespace
}  // namespace qx
