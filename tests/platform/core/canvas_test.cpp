#include "platform/core/graphics/canvas.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <limits>

#include "platform/core/base/exception.h"
#include "platform/core/graphics/bitmap.h"

namespace qx {
namespace {

constexpr TAlphaColor kRed = 0xFFFF0000;
constexpr TAlphaColor kBlue = 0xFF0000FF;
const TqxBrush kRedBrush = TqxBrush::Solid(kRed);

// Colours equal within a tolerance on every channel.
::testing::AssertionResult Near(TAlphaColor actual, TAlphaColor expected, int tolerance = 2) {
  for (int shift : {24, 16, 8, 0}) {
    const int a = int((actual >> shift) & 0xFF), e = int((expected >> shift) & 0xFF);
    if (std::abs(a - e) > tolerance)
      return ::testing::AssertionFailure() << std::hex << "0x" << actual << " is not near 0x" << expected;
  }
  return ::testing::AssertionSuccess();
}

int Alpha(const TqxBitmap& b, int x, int y) { return AlphaOf(b.GetPixel(x, y)); }

bool IsBlank(const TqxBitmap& b) {
  for (int y = 0; y < b.Height(); ++y)
    for (int x = 0; x < b.Width(); ++x)
      if (b.GetPixel(x, y) != 0) return false;
  return true;
}

TqxStrokeStyle Stroke(double width) {
  TqxStrokeStyle style;
  style.Width = width;
  return style;
}

TEST(CanvasTest, FillRulesAndOpacity) {
  // Two squares wound the same way: the inner one is a hole only under even-odd.
  const char* squares = "M2 2h16v16h-16z M6 6h8v8h-8z";
  TqxBitmap nonZero(20, 20), evenOdd(20, 20);
  TqxCanvas(nonZero).FillPath(squares, TqxCanvasFillRule::NonZero, kRedBrush);
  TqxCanvas(evenOdd).FillPath(squares, TqxCanvasFillRule::EvenOdd, kRedBrush);
  EXPECT_EQ(nonZero.GetPixel(10, 10), kRed);
  EXPECT_EQ(evenOdd.GetPixel(10, 10), 0u);
  EXPECT_EQ(nonZero.GetPixel(4, 4), kRed);
  EXPECT_EQ(evenOdd.GetPixel(4, 4), kRed);
  EXPECT_EQ(nonZero.GetPixel(0, 0), 0u);

  // Opacity multiplies the colour's own alpha; blending is source-over.
  TqxBitmap b(4, 4);
  TqxCanvas canvas(b);
  canvas.FillRect({0, 0, 4, 4}, 0, 0, TqxBrush::Solid(0x80FF0000), 0.5);
  EXPECT_TRUE(Near(b.GetPixel(1, 1), 0x40FF0000));
  canvas.Clear(kBlue);
  canvas.FillRect({0, 0, 4, 4}, 0, 0, kRedBrush, 0.5);
  EXPECT_TRUE(Near(b.GetPixel(1, 1), 0xFF800080));
  canvas.FillRect({0, 0, 4, 4}, 0, 0, kRedBrush, 0);
  EXPECT_TRUE(Near(b.GetPixel(1, 1), 0xFF800080));
}

TEST(CanvasTest, StrokeCapsJoinsAndMiterLimit) {
  auto capped = [](TqxLineCap cap) {
    TqxBitmap b(20, 20);
    TqxStrokeStyle style = Stroke(4);
    style.Cap = cap;
    TqxCanvas(b).DrawLine({5, 10}, {15, 10}, kRedBrush, style);
    return b;
  };
  const TqxBitmap butt = capped(TqxLineCap::Butt), square = capped(TqxLineCap::Square), round = capped(TqxLineCap::Round);
  EXPECT_EQ(Alpha(butt, 10, 9), 255);
  EXPECT_EQ(Alpha(butt, 3, 9), 0);       // butt ends at x = 5
  EXPECT_EQ(Alpha(square, 3, 9), 255);   // square reaches x = 3
  EXPECT_EQ(Alpha(square, 3, 8), 255);
  EXPECT_GT(Alpha(round, 3, 9), 128);    // round reaches x = 3 on the axis...
  EXPECT_LT(Alpha(round, 3, 8), 128);    // ...but not into the corner

  // A right-angle corner at (16, 16), stroke 4: the pixel (17, 17) lies in the
  // miter's square corner and outside the bevel's cut.
  auto joined = [](TqxLineJoin join, double miterLimit) {
    TqxBitmap b(20, 20);
    TqxStrokeStyle style = Stroke(4);
    style.Join = join;
    style.MiterLimit = miterLimit;
    TqxCanvas(b).StrokePath("M4 16L16 16L16 4", kRedBrush, style);
    return Alpha(b, 17, 17);
  };
  EXPECT_EQ(joined(TqxLineJoin::Miter, 4), 255);
  EXPECT_EQ(joined(TqxLineJoin::Bevel, 4), 0);
  const int roundJoin = joined(TqxLineJoin::Round, 4);
  EXPECT_GT(roundJoin, 0);
  EXPECT_LT(roundJoin, 255);
  // A right angle needs a limit of 1.414; below it the miter falls back to bevel.
  EXPECT_EQ(joined(TqxLineJoin::Miter, 1.2), 0);
}

TEST(CanvasTest, DashesWithOffsetOddCountsAndInvalidArrays) {
  auto dashed = [](std::vector<double> dashes, double offset) {
    TqxBitmap b(20, 3);
    TqxStrokeStyle style = Stroke(2);
    style.Dashes = std::move(dashes);
    style.DashOffset = offset;
    TqxCanvas(b).DrawLine({0, 1.5}, {20, 1.5}, kRedBrush, style);
    std::string pattern;
    for (int x = 0; x < 20; ++x) pattern += Alpha(b, x, 1) > 128 ? '#' : '.';
    return pattern;
  };
  EXPECT_EQ(dashed({4, 4}, 0), "####....####....####");
  EXPECT_EQ(dashed({4, 4}, 2), "##....####....####..");
  EXPECT_EQ(dashed({3}, 0), "###...###...###...##");
  EXPECT_EQ(dashed({4, 2, 1}, 0), "####..#....##.####..");
  // Arrays that can't dash draw a solid line.
  EXPECT_EQ(dashed({4, -1}, 0), "####################");
  EXPECT_EQ(dashed({0, 0}, 0), "####################");
  EXPECT_EQ(dashed({}, 5), "####################");
}

TEST(CanvasTest, GradientsAtKnownPoints) {
  const std::vector<TqxGradientStop> redToBlue = {{0, kRed}, {1, kBlue}};
  TqxBitmap b(20, 20);
  TqxCanvas canvas(b);
  // Padded beyond its ends: x < 5 is pure red, x > 15 pure blue.
  canvas.FillRect({0, 0, 20, 20}, 0, 0, TqxBrush::Linear({5, 0}, {15, 0}, redToBlue));
  EXPECT_TRUE(Near(b.GetPixel(1, 5), kRed));
  EXPECT_TRUE(Near(b.GetPixel(18, 5), kBlue));
  EXPECT_TRUE(Near(b.GetPixel(9, 5), 0xFF8C0073, 8));  // x = 9.5: 45% of the way
  EXPECT_EQ(b.GetPixel(9, 5), b.GetPixel(9, 15));       // constant across the axis

  // Radial: white centre, black from the radius outward.
  canvas.Clear(0);
  canvas.FillRect({0, 0, 20, 20}, 0, 0, TqxBrush::Radial({10, 10}, 8, {{0, kColorWhite}, {1, kColorBlack}}));
  // Pixel centres (10.5, 10.5) and (14.5, 10.5) are 0.71 and 4.53 from the centre.
  EXPECT_TRUE(Near(b.GetPixel(10, 10), 0xFFE8E8E8, 6));
  EXPECT_TRUE(Near(b.GetPixel(14, 10), 0xFF6F6F6F, 6));
  EXPECT_TRUE(Near(b.GetPixel(0, 0), kColorBlack));

  // Gradient coordinates are user units, under the matrix; opacity applies.
  canvas.Clear(0);
  canvas.Save();
  canvas.Scale(2, 2);
  canvas.FillRect({0, 0, 10, 10}, 0, 0, TqxBrush::Linear({0, 0}, {10, 0}, redToBlue), 0.5);
  canvas.Restore();
  EXPECT_TRUE(Near(b.GetPixel(0, 3), 0x80FF0000, 8));
  EXPECT_TRUE(Near(b.GetPixel(19, 3), 0x800000FF, 8));

  // Degenerate gradients: no stops paint nothing; one stop or no extent
  // paints the last stop's colour.
  canvas.Clear(0);
  canvas.FillRect({0, 0, 20, 20}, 0, 0, TqxBrush::Linear({0, 0}, {20, 0}, {}));
  EXPECT_TRUE(IsBlank(b));
  canvas.FillRect({0, 0, 20, 20}, 0, 0, TqxBrush::Linear({5, 5}, {5, 5}, redToBlue));
  EXPECT_EQ(b.GetPixel(2, 2), kBlue);
  canvas.FillRect({0, 0, 20, 20}, 0, 0, TqxBrush::Radial({5, 5}, 0, {{0.3, kRed}}));
  EXPECT_EQ(b.GetPixel(2, 2), kRed);
  // Stops out of order are kept in order: the later one can't go back.
  canvas.FillRect({0, 0, 20, 20}, 0, 0, TqxBrush::Linear({0, 0}, {20, 0}, {{0.8, kRed}, {0.2, kBlue}}));
  EXPECT_EQ(b.GetPixel(1, 1), kRed);
  EXPECT_EQ(b.GetPixel(18, 1), kBlue);
}

TEST(CanvasTest, RectanglesWithCornerRadiiAndEllipses) {
  TqxBitmap rounded(20, 20), square(20, 20);
  TqxCanvas(rounded).FillRect({0, 0, 20, 20}, 6, 6, kRedBrush);
  TqxCanvas(square).FillRect({0, 0, 20, 20}, 6, 0, kRedBrush);  // one zero radius: square
  EXPECT_EQ(Alpha(rounded, 0, 0), 0);
  EXPECT_LT(Alpha(rounded, 1, 1), 64);
  EXPECT_EQ(Alpha(rounded, 3, 3), 255);
  EXPECT_EQ(Alpha(rounded, 10, 0), 255);
  EXPECT_EQ(Alpha(rounded, 19, 10), 255);
  EXPECT_EQ(Alpha(rounded, 19, 19), 0);
  EXPECT_EQ(Alpha(square, 0, 0), 255);
  EXPECT_EQ(Alpha(square, 19, 19), 255);

  // Radii beyond half the side are clamped: the rectangle becomes its ellipse.
  TqxBitmap clamped(20, 10), ellipse(20, 10);
  TqxCanvas(clamped).FillRect({0, 0, 20, 10}, 100, 100, kRedBrush);
  TqxCanvas(ellipse).FillEllipse({0, 0, 20, 10}, kRedBrush);
  EXPECT_EQ(clamped, ellipse);
  EXPECT_EQ(Alpha(ellipse, 10, 5), 255);
  EXPECT_EQ(Alpha(ellipse, 1, 1), 0);

  // The outline of a half-pixel-inset rectangle lands exactly on the edge pixels.
  TqxBitmap outline(10, 10);
  TqxCanvas(outline).StrokeRect({0.5, 0.5, 9.5, 9.5}, 0, 0, kRedBrush, Stroke(1));
  EXPECT_EQ(outline.GetPixel(0, 5), kRed);
  EXPECT_EQ(outline.GetPixel(9, 0), kRed);
  EXPECT_EQ(outline.GetPixel(5, 5), 0u);
  EXPECT_EQ(outline.GetPixel(1, 1), 0u);
}

TEST(CanvasTest, StretchedBitmapWithFilteringAndOpacity) {
  TqxBitmap source(2, 2);
  source.SetPixel(0, 0, kRed);
  source.SetPixel(1, 0, 0xFF00FF00);
  source.SetPixel(0, 1, kBlue);
  source.SetPixel(1, 1, 0x80FFFFFF);

  TqxBitmap nearest(20, 20);
  TqxCanvas(nearest).DrawBitmap(source, {0, 0, 20, 20}, 1, TqxImageFilter::Nearest);
  EXPECT_EQ(nearest.GetPixel(9, 0), kRed);
  EXPECT_EQ(nearest.GetPixel(10, 0), 0xFF00FF00u);
  EXPECT_EQ(nearest.GetPixel(0, 19), kBlue);
  EXPECT_TRUE(Near(nearest.GetPixel(19, 19), 0x80FFFFFF));

  // Smooth filtering blends in the middle but keeps the edges: no fading border.
  TqxBitmap linear(20, 20);
  TqxCanvas(linear).DrawBitmap(source, {0, 0, 20, 20}, 1, TqxImageFilter::Linear);
  EXPECT_TRUE(Near(linear.GetPixel(0, 0), kRed));
  EXPECT_TRUE(Near(linear.GetPixel(19, 0), 0xFF00FF00));
  EXPECT_TRUE(Near(linear.GetPixel(10, 0), 0xFF7F7F00, 16));

  // Into a part of the target, at half opacity.
  TqxBitmap part(20, 20);
  TqxCanvas(part).DrawBitmap(source, {10, 10, 14, 14}, 0.5, TqxImageFilter::Nearest);
  EXPECT_EQ(part.GetPixel(9, 9), 0u);
  EXPECT_TRUE(Near(part.GetPixel(10, 10), 0x80FF0000));
  EXPECT_EQ(part.GetPixel(14, 14), 0u);

  // Drawing a bitmap onto itself reads the pixels as they were.
  TqxBitmap self(4, 4);
  self.SetPixel(0, 0, kRed);
  TqxCanvas canvas(self);
  canvas.DrawBitmap(self, {0, 0, 8, 8}, 1, TqxImageFilter::Nearest);
  EXPECT_EQ(self.GetPixel(1, 1), kRed);
  EXPECT_EQ(self.GetPixel(2, 2), 0u);
}

TEST(CanvasTest, MatrixSaveRestoreAndClip) {
  TqxBitmap b(20, 20);
  TqxCanvas canvas(b);
  // The concatenated matrix acts first: translate by 1, then scale by 2.
  canvas.Scale(2, 2);
  canvas.Concat(TMatrix::CreateTranslation(1, 0));
  EXPECT_EQ(TPointF{} * canvas.Matrix(), (TPointF{2, 0}));

  canvas.SetMatrix(TMatrix::Identity());
  canvas.Save();
  canvas.Translate(10, 0);
  canvas.ClipRect({0, 0, 5, 20});
  canvas.FillRect({-10, 0, 20, 5}, 0, 0, kRedBrush);  // only the clip shows
  EXPECT_EQ(canvas.SaveDepth(), 1);
  canvas.Restore();
  EXPECT_EQ(canvas.Matrix(), TMatrix::Identity());
  EXPECT_EQ(b.GetPixel(9, 2), 0u);
  EXPECT_EQ(b.GetPixel(10, 2), kRed);
  EXPECT_EQ(b.GetPixel(14, 2), kRed);
  EXPECT_EQ(b.GetPixel(15, 2), 0u);
  // The clip went with the restore.
  canvas.FillRect({0, 10, 20, 12}, 0, 0, kRedBrush);
  EXPECT_EQ(b.GetPixel(0, 10), kRed);
  // Clear keeps to the clip.
  canvas.Save();
  canvas.ClipRect({0, 0, 10, 20});
  canvas.Clear(kBlue);
  canvas.Restore();
  EXPECT_EQ(b.GetPixel(5, 15), kBlue);
  EXPECT_EQ(b.GetPixel(15, 15), 0u);
  // An unmatched Restore is harmless.
  canvas.Restore();
  EXPECT_EQ(canvas.SaveDepth(), 0);
}

TEST(CanvasTest, NonFiniteAndDegenerateInputDrawNothingAndDoNotSpoilTheCanvas) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double inf = std::numeric_limits<double>::infinity();
  TqxBitmap b(10, 10);
  TqxCanvas canvas(b);
  canvas.FillRect({0, 0, nan, 10}, 0, 0, kRedBrush);
  canvas.FillRect({0, 0, 10, 10}, inf, 0, kRedBrush);
  canvas.FillRect({0, 0, 10, 10}, 0, 0, kRedBrush, nan);
  canvas.FillRect({10, 0, 0, 10}, 0, 0, kRedBrush);  // negative width
  canvas.FillEllipse({0, 0, 10, 10}, TqxBrush::Radial({5, 5}, -1, {{0, kRed}, {1, kRed}}));
  canvas.FillEllipse({0, 0, 10, 10}, TqxBrush::Linear({0, 0}, {inf, 0}, {{0, kRed}, {1, kRed}}));
  TqxStrokeStyle badStroke = Stroke(-1);
  canvas.DrawLine({0, 5}, {10, 5}, kRedBrush, badStroke);
  badStroke = Stroke(2);
  badStroke.Dashes = {1, nan};
  canvas.DrawLine({0, 5}, {10, 5}, kRedBrush, badStroke);
  TqxPathData path;
  path.MoveTo({0, 0});
  path.LineTo({nan, 10});
  path.LineTo({10, 10});
  canvas.FillPath(path, TqxCanvasFillRule::NonZero, kRedBrush);
  canvas.DrawBitmap(b, {0, 0, 10, 10}, inf);
  // Singular and non-finite matrices: nothing, then all is well after Restore.
  canvas.Save();
  canvas.Scale(0, 1);
  canvas.FillRect({0, 0, 10, 10}, 0, 0, kRedBrush);
  canvas.SetMatrix(TMatrix::CreateTranslation(float(nan), 0));
  canvas.FillRect({0, 0, 10, 10}, 0, 0, kRedBrush);
  canvas.Restore();
  EXPECT_TRUE(IsBlank(b));
  canvas.FillRect({0, 0, 10, 10}, 0, 0, kRedBrush);
  EXPECT_EQ(b.GetPixel(5, 5), kRed);

  // Path text that doesn't read raises before anything is drawn.
  EXPECT_THROW(canvas.FillPath("M0 0 L", TqxCanvasFillRule::NonZero, kRedBrush), Exception);
  EXPECT_THROW(canvas.StrokePath("Q", kRedBrush, Stroke(1)), Exception);

  // A canvas on an empty bitmap does nothing at all.
  TqxBitmap empty;
  TqxCanvas none(empty);
  none.Clear(kRed);
  none.FillRect({0, 0, 1, 1}, 0, 0, kRedBrush);
  none.DrawBitmap(b, {0, 0, 1, 1});
}

TEST(CanvasTest, ZeroWidthIsAHairlineWhateverTheScale) {
  TqxBitmap b(40, 40);
  TqxCanvas canvas(b);
  canvas.Scale(10, 10);
  canvas.DrawLine({0, 2.05}, {4, 2.05}, kRedBrush, Stroke(0));
  int covered = 0;
  for (int y = 0; y < 40; ++y) covered += Alpha(b, 20, y) > 0;
  EXPECT_EQ(covered, 1);
  EXPECT_GT(Alpha(b, 20, 20), 200);
}

// Values a hostile file can carry: huge coordinates, widths and tiny dashes
// must neither hang nor leave the canvas unable to draw.
TEST(CanvasTest, ExtremeFiniteValuesFinishAndLeaveTheCanvasWorking) {
  TqxBitmap b(50, 50);
  TqxCanvas canvas(b);
  TqxStrokeStyle style = Stroke(2);
  style.Dashes = {1e-9, 1e-9};
  canvas.DrawLine({-1e5, 10}, {1e5, 10}, kRedBrush, style);
  style.Dashes = {1, 1};
  canvas.DrawLine({-1e12, -1e12}, {1e12, 1e12}, kRedBrush, style);
  canvas.StrokePath("M0 0L1e9 10 L0 20", kRedBrush, style);
  canvas.FillRect({-1e300, -1e300, 1e300, 1e300}, 0, 0, kRedBrush);
  canvas.DrawLine({0, 0}, {10, 10}, kRedBrush, Stroke(1e300));
  canvas.Save();
  canvas.Scale(1e-20f, 1e-20f);
  canvas.StrokePath("M0 0 L1e300 1e300 A1e300 1e300 0 1 1 -1e300 1e300", kRedBrush, Stroke(1));
  canvas.Restore();
  canvas.Clear(0);
  canvas.FillRect({0, 0, 10, 10}, 0, 0, TqxBrush::Solid(kBlue));
  EXPECT_EQ(b.GetPixel(5, 5), kBlue);
}

}  // namespace
}  // namespace qx
