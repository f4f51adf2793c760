#include "platform/core/graphics/canvas.h"

#include <gtest/gtest.h>

#include <limits>

#include "../../support/pixels.h"
#include "platform/core/base/exception.h"
#include "platform/core/graphics/bitmap.h"

namespace qx {
namespace {

using test::IsBlank;
using test::Near;

constexpr TAlphaColor kRed = 0xFFFF0000;
constexpr TAlphaColor kBlue = 0xFF0000FF;
const TqxBrush kRedBrush = TqxBrush::Solid(kRed);

int Alpha(const TqxBitmap& b, int x, int y) { return AlphaOf(b.GetPixel(x, y)); }

TqxStrokeStyle Stroke(double width) {
  TqxStrokeStyle style;
  style.Width = width;
  return style;
}

// Fill rules, caps, joins, dashes and gradients are drawn through vector
// documents too; here are the rules only the canvas itself decides.
TEST(CanvasTest, OpacityMultipliesTheColoursAlphaAndBlendsOver) {
  TqxBitmap b(4, 4);
  TqxCanvas canvas(b);
  canvas.FillRect({0, 0, 4, 4}, 0, 0, TqxBrush::Solid(0x80FF0000), 0.5);
  EXPECT_TRUE(Near(b.GetPixel(1, 1), 0x40FF0000));
  canvas.Clear(kBlue);
  canvas.FillRect({0, 0, 4, 4}, 0, 0, kRedBrush, 0.5);
  EXPECT_TRUE(Near(b.GetPixel(1, 1), 0xFF800080));
}

TEST(CanvasTest, MiterFallsBackToBevelBelowItsLimit) {
  // A right-angle corner at (16, 16), stroke 4: the pixel (17, 17) lies in the
  // miter's square corner and outside the bevel's cut. A right angle needs a
  // limit of 1.414.
  auto joined = [](double miterLimit) {
    TqxBitmap b(20, 20);
    TqxStrokeStyle style = Stroke(4);
    style.Join = TqxLineJoin::Miter;
    style.MiterLimit = miterLimit;
    TqxCanvas(b).StrokePath("M4 16L16 16L16 4", kRedBrush, style);
    return Alpha(b, 17, 17);
  };
  EXPECT_EQ(joined(1.5), 255);
  EXPECT_EQ(joined(1.2), 0);
}

TEST(CanvasTest, DashOffsetAndArraysThatCannotDash) {
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
  EXPECT_EQ(dashed({4, 4}, 2), "##....####....####..");
  // A negative or an all-zero array draws a solid line.
  EXPECT_EQ(dashed({4, -1}, 0), "####################");
  EXPECT_EQ(dashed({0, 0}, 0), "####################");
}

TEST(CanvasTest, GradientsInUserUnitsAndDegenerateOnes) {
  const std::vector<TqxGradientStop> redToBlue = {{0, kRed}, {1, kBlue}};
  TqxBitmap b(20, 20);
  TqxCanvas canvas(b);
  // Gradient coordinates are user units, under the matrix; opacity applies.
  canvas.Save();
  canvas.Scale(2, 2);
  canvas.FillRect({0, 0, 10, 10}, 0, 0, TqxBrush::Linear({0, 0}, {10, 0}, redToBlue), 0.5);
  canvas.Restore();
  EXPECT_TRUE(Near(b.GetPixel(0, 3), 0x80FF0000, 8));
  EXPECT_TRUE(Near(b.GetPixel(19, 3), 0x800000FF, 8));

  // No stops paint nothing; no extent paints the last stop; stops out of order
  // are kept in order, so the later one can't go back.
  canvas.Clear(0);
  canvas.FillRect({0, 0, 20, 20}, 0, 0, TqxBrush::Linear({0, 0}, {20, 0}, {}));
  EXPECT_TRUE(IsBlank(b));
  canvas.FillRect({0, 0, 20, 20}, 0, 0, TqxBrush::Linear({5, 5}, {5, 5}, redToBlue));
  EXPECT_EQ(b.GetPixel(2, 2), kBlue);
  canvas.FillRect({0, 0, 20, 20}, 0, 0, TqxBrush::Linear({0, 0}, {20, 0}, {{0.8, kRed}, {0.2, kBlue}}));
  EXPECT_EQ(b.GetPixel(1, 1), kRed);
  EXPECT_EQ(b.GetPixel(18, 1), kBlue);
}

TEST(CanvasTest, RoundedRectanglesClampTheirRadii) {
  TqxBitmap rounded(20, 20), square(20, 20);
  TqxCanvas(rounded).FillRect({0, 0, 20, 20}, 6, 6, kRedBrush);
  TqxCanvas(square).FillRect({0, 0, 20, 20}, 6, 0, kRedBrush);  // one zero radius: square
  EXPECT_EQ(Alpha(rounded, 0, 0), 0);
  EXPECT_EQ(Alpha(rounded, 3, 3), 255);
  EXPECT_EQ(Alpha(square, 0, 0), 255);

  // Radii beyond half the side: the rectangle becomes its ellipse.
  TqxBitmap clamped(20, 10), ellipse(20, 10);
  TqxCanvas(clamped).FillRect({0, 0, 20, 10}, 100, 100, kRedBrush);
  TqxCanvas(ellipse).FillEllipse({0, 0, 20, 10}, kRedBrush);
  EXPECT_EQ(clamped, ellipse);
  EXPECT_EQ(Alpha(ellipse, 1, 1), 0);

  // The outline of a half-pixel-inset rectangle lands exactly on the edge pixels.
  TqxBitmap outline(10, 10);
  TqxCanvas(outline).StrokeRect({0.5, 0.5, 9.5, 9.5}, 0, 0, kRedBrush, Stroke(1));
  EXPECT_EQ(outline.GetPixel(0, 5), kRed);
  EXPECT_EQ(outline.GetPixel(1, 1), 0u);
}

TEST(CanvasTest, StretchedBitmapWithFilteringAndOpacity) {
  TqxBitmap source(2, 2);
  source.SetPixel(0, 0, kRed);
  source.SetPixel(1, 0, 0xFF00FF00);
  TqxBitmap nearest(20, 20), linear(20, 20), part(20, 20);
  TqxCanvas(nearest).DrawBitmap(source, {0, 0, 20, 20}, 1, TqxImageFilter::Nearest);
  EXPECT_EQ(nearest.GetPixel(9, 0), kRed);
  EXPECT_EQ(nearest.GetPixel(10, 0), 0xFF00FF00u);
  // Smooth filtering blends in the middle but keeps the edges: no fading border.
  TqxCanvas(linear).DrawBitmap(source, {0, 0, 20, 20}, 1, TqxImageFilter::Linear);
  EXPECT_TRUE(Near(linear.GetPixel(0, 0), kRed));
  EXPECT_TRUE(Near(linear.GetPixel(10, 0), 0xFF7F7F00, 16));
  // Into a part of the target, at half opacity.
  TqxCanvas(part).DrawBitmap(source, {10, 10, 14, 14}, 0.5, TqxImageFilter::Nearest);
  EXPECT_EQ(part.GetPixel(9, 9), 0u);
  EXPECT_TRUE(Near(part.GetPixel(10, 10), 0x80FF0000));

  // Drawing a bitmap onto itself reads the pixels as they were.
  TqxBitmap self(4, 4);
  self.SetPixel(0, 0, kRed);
  TqxCanvas(self).DrawBitmap(self, {0, 0, 8, 8}, 1, TqxImageFilter::Nearest);
  EXPECT_EQ(self.GetPixel(1, 1), kRed);
  EXPECT_EQ(self.GetPixel(2, 2), 0u);
}

TEST(CanvasTest, MatrixSaveRestoreAndClip) {
  TqxBitmap b(20, 20);
  TqxCanvas canvas(b);
  canvas.Save();
  canvas.Translate(10, 0);
  canvas.ClipRect({0, 0, 5, 20});
  canvas.FillRect({-10, 0, 20, 5}, 0, 0, kRedBrush);  // only the clip shows
  canvas.Restore();
  EXPECT_EQ(canvas.Matrix(), TMatrix::Identity());
  EXPECT_EQ(b.GetPixel(9, 2), 0u);
  EXPECT_EQ(b.GetPixel(10, 2), kRed);
  EXPECT_EQ(b.GetPixel(15, 2), 0u);
  // The clip went with the restore; Clear keeps to a clip.
  canvas.FillRect({0, 10, 20, 12}, 0, 0, kRedBrush);
  EXPECT_EQ(b.GetPixel(0, 10), kRed);
  canvas.ClipRect({0, 0, 10, 20});
  canvas.Clear(kBlue);
  EXPECT_EQ(b.GetPixel(5, 15), kBlue);
  EXPECT_EQ(b.GetPixel(15, 15), 0u);
  canvas.Restore();  // unmatched: harmless
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
  canvas.DrawLine({0, 5}, {10, 5}, kRedBrush, Stroke(-1));
  TqxStrokeStyle badDashes = Stroke(2);
  badDashes.Dashes = {1, nan};
  canvas.DrawLine({0, 5}, {10, 5}, kRedBrush, badDashes);
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

  // Path text that doesn't read raises; a canvas on an empty bitmap does nothing.
  EXPECT_THROW(canvas.StrokePath("Q", kRedBrush, Stroke(1)), Exception);
  TqxBitmap empty;
  TqxCanvas none(empty);
  none.FillRect({0, 0, 1, 1}, 0, 0, kRedBrush);
  none.DrawBitmap(b, {0, 0, 1, 1});
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
