#include "vector/vector_bitmap_writer.h"

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <functional>
#include <limits>
#include <memory>

#include "platform/core/base/exception.h"
#include "platform/core/graphics/bitmap.h"
#include "platform/core/graphics/color.h"
#include "platform/core/vector/vector_document.h"
#include "../support/pixels.h"
#include "../support/temp_folder.h"

namespace qx {
namespace {

constexpr TAlphaColor kRed = 0xFFFF0000;
constexpr TAlphaColor kBlue = 0xFF0000FF;
constexpr TAlphaColor kGreen = 0xFF00FF00;
constexpr TAlphaColor kWhite = 0xFFFFFFFF;
constexpr TAlphaColor kNone = 0;
constexpr float kNaN = std::numeric_limits<float>::quiet_NaN();

const char* const kSquare = "M8 8H24V24H8Z";  // 16 x 16 in the middle of 32 x 32

std::unique_ptr<TqxVectorDocument> Doc(TSizeF size = {32, 32}, TRectF viewBox = {0, 0, 32, 32}) {
  auto doc = std::make_unique<TqxVectorDocument>();
  doc->Size = size;
  doc->ViewBox = viewBox;
  return doc;
}

TqxVectorBrush Fill(const std::string& fill) {
  TqxVectorBrush brush;
  brush.Fill = fill;
  return brush;
}

TqxVectorBrush Stroke(const std::string& stroke, float width, const std::string& fill = "#00000000") {
  TqxVectorBrush brush = Fill(fill);
  brush.Stroke = stroke;
  brush.StrokeWidth = width;
  return brush;
}

// A shape as the reader emits it: its own group, its brush, the path.
void Shape(TqxVectorDocument& doc, const TqxVectorBrush& brush, const std::string& path) {
  doc.BeginGroup();
  doc.SetBrush(brush);
  doc.DrawPath(path);
  doc.EndGroup();
}

TqxVectorTransform Transform(const TMatrix& matrix) {
  TqxVectorTransform transform;
  transform.Matrix = matrix;
  return transform;
}

struct Px {
  int X, Y;
  TAlphaColor Color;
  int Tolerance = 0;  // per channel; blending may round either way
};

// Draws the document and checks the pixels.
void ExpectPixels(const TqxVectorDocument& doc, std::initializer_list<Px> pixels) {
  TsvgExportFMXBitmapWithSkia writer(doc);
  for (const Px& p : pixels) {
    const TAlphaColor actual = writer.Bitmap().GetPixel(p.X, p.Y);
    EXPECT_TRUE(test::Near(actual, p.Color, p.Tolerance)) << "at (" << p.X << ", " << p.Y << ")";
  }
}

std::shared_ptr<TqxVectorGradient> Linear(TPointF from, TPointF to, TAlphaColor c0, TAlphaColor c1) {
  auto gradient = std::make_shared<TqxVectorLinearGradient>();
  gradient->StartPoint = from;
  gradient->EndPoint = to;
  gradient->Points = {{0, c0}, {1, c1}};
  return gradient;
}

TEST(VectorBitmapWriterTest, DefaultsPaintOpaqueBlackFillAndNoStroke) {
  auto doc = Doc();
  doc->DrawPath(kSquare);  // no brush at all
  Shape(*doc, TqxVectorBrush{}, "M0 0H4V4H0Z");
  // No default stroke widens the edge.
  ExpectPixels(*doc, {{16, 16, kColorBlack}, {7, 16, kNone}, {2, 2, kColorBlack}});
}

TEST(VectorBitmapWriterTest, StrokeIsPaintedBeforeFillAndHairlineByDefault) {
  auto doc = Doc();
  Shape(*doc, Stroke("#0000FF", 10, "#FF0000"), kSquare);
  // The stroke's outer half shows, its inner half lies under the fill.
  ExpectPixels(*doc, {{4, 16, kBlue}, {10, 16, kRed}, {16, 16, kRed}});

  // Without a width the stroke is one device pixel, whatever the scale.
  auto hairline = Doc({32, 32}, {0, 0, 8, 8});
  TqxVectorBrush brush = Fill("#00000000");
  brush.Stroke = "#FF0000";
  Shape(*hairline, brush, "M0 4.125H8");
  ExpectPixels(*hairline, {{16, 16, kRed}, {16, 15, kNone}, {16, 17, kNone}});
}

TEST(VectorBitmapWriterTest, OpacityInForceReplacesTheColoursAlpha) {
  auto doc = Doc();
  Shape(*doc, Fill("#40FF0000"), kSquare);  // the colour's own alpha does not show
  TqxVectorBrush half = Fill("#0000FF");
  half.FillOpacity = 0.5f;
  Shape(*doc, half, "M0 0H4V4H0Z");
  ExpectPixels(*doc, {{16, 16, kRed}, {2, 2, 0x800000FF, 3}});

  // A fill opacity of 0 skips the fill altogether, gradient or not; the
  // stroke keeps its own opacity.
  TqxVectorBrush skipped = Stroke("#0000FF", 4, "#FF0000");
  skipped.FillOpacity = 0.0f;
  auto skippedDoc = Doc();
  skippedDoc->BeginGroup();
  skippedDoc->SetBrush(skipped);
  skippedDoc->SetGradient(Linear({0, 0}, {32, 0}, kRed, kGreen), true);
  skippedDoc->DrawPath(kSquare);
  skippedDoc->EndGroup();
  ExpectPixels(*skippedDoc, {{16, 16, kNone}, {7, 16, kBlue}});
}

TEST(VectorBitmapWriterTest, GroupsRestorePaintOpacityAndMatrixButNotFillRule) {
  auto doc = Doc();
  doc->BeginGroup();
  TqxVectorBrush group = Fill("#FF0000");
  group.FillOpacity = 0.5f;
  doc->SetBrush(group);
  doc->SetTransform(Transform(TMatrix::CreateTranslation(16, 0)));
  Shape(*doc, TqxVectorBrush{}, "M0 0H8V8H0Z");  // child without paint: red, half, shifted
  doc->EndGroup();
  doc->DrawPath("M0 16H8V24H0Z M2 18H6V22H2Z");  // after the group: black, opaque, not shifted, non-zero

  TqxVectorBrush evenOdd = Fill("#0000FF");
  evenOdd.FillRule = TqxFillRule::EvenOdd;
  doc->BeginGroup();
  doc->SetBrush(evenOdd);
  doc->EndGroup();
  doc->DrawPath("M0 0H8V8H0Z M2 2H6V6H2Z");  // black again, but the even-odd rule outlived the group

  ExpectPixels(*doc, {{20, 4, 0x80FF0000, 3}, {4, 20, kColorBlack}, {1, 1, kColorBlack}, {4, 4, kNone}});
}

TEST(VectorBitmapWriterTest, BrushFieldsWithoutValueOrUnreadableLeaveTheLiveState) {
  auto doc = Doc();
  doc->BeginGroup();
  doc->SetBrush(Stroke("#0000FF", 4, "#FF0000"));
  doc->DrawPath("M0 0H1");  // nothing to see; settles the paints
  TqxVectorBrush partial;
  partial.Fill = "# ggg";      // no colour: red stays
  partial.Stroke = "blue";     // names are resolved by the reader, not here
  partial.StrokeWidth = kNaN;  // not finite: width 4 stays
  partial.FillOpacity = kNaN;
  doc->SetBrush(partial);
  doc->DrawPath(kSquare);
  doc->EndGroup();
  ExpectPixels(*doc, {{16, 16, kRed}, {6, 16, kBlue}, {5, 16, kNone}, {9, 16, kRed}});
}

TEST(VectorBitmapWriterTest, GradientsPadBeyondTheirEndsAndYieldToALaterColour) {
  auto doc = Doc();
  doc->BeginGroup();
  doc->SetGradient(Linear({8, 0}, {24, 0}, kRed, kBlue), true);
  doc->DrawPath("M0 0H32V16H0Z");
  doc->SetBrush(Fill("#00FF00"));  // a colour takes the gradient away
  doc->DrawPath("M0 16H32V32H0Z");
  doc->EndGroup();
  ExpectPixels(*doc, {{2, 4, kRed}, {29, 4, kBlue}, {16, 4, 0xFF800080, 40}, {2, 24, kGreen}});

  auto radial = std::make_shared<TqxVectorRadialGradient>();
  radial->Center = {16, 16};
  radial->Radius = 8;
  radial->Points = {{0, kWhite}, {1, kGreen}};
  auto radialDoc = Doc();
  radialDoc->BeginGroup();
  radialDoc->SetGradient(radial, true);
  radialDoc->DrawPath("M0 0H32V32H0Z");
  radialDoc->EndGroup();
  ExpectPixels(*radialDoc, {{16, 16, kWhite, 40}, {1, 1, kGreen}});
}

TEST(VectorBitmapWriterTest, StrokeGradientShowsWithoutStrokeColourUntilNoneHidesIt) {
  auto doc = Doc();
  doc->BeginGroup();
  TqxVectorBrush brush = Fill("#00000000");
  brush.StrokeWidth = 4;
  brush.StrokeOpacity = 0.5f;
  doc->SetBrush(brush);
  doc->SetGradient(Linear({0, 0}, {32, 0}, kBlue, kBlue), false);
  doc->DrawPath("M0 8H32");
  doc->SetBrush(Stroke("#00000000", 4));
  doc->DrawPath("M0 24H32");
  doc->EndGroup();
  ExpectPixels(*doc, {{16, 8, 0x800000FF, 3}, {16, 24, kNone}});
}

TEST(VectorBitmapWriterTest, PathTextsAsTheSvgReaderWritesThemDraw) {
  auto doc = Doc({64, 32}, {0, 0, 64, 32});
  Shape(*doc, Fill("#FF0000"), "M16,16m-8,0a8,8 0,1 1,16 0a8,8 0,1 1,-16 0");  // circle
  Shape(*doc, Fill("#0000FF"), "M32.00, 8.00 L48.00, 8.00 48.00, 24.00 32.00, 24.00 Z");  // rect
  Shape(*doc, Stroke("#00FF00", 2), "M48.00, 16.00, L64.00, 16.00");  // line, with its trailing comma
  ExpectPixels(*doc, {{10, 16, kRed}, {40, 16, kBlue}, {56, 16, kGreen}});
}

TEST(VectorBitmapWriterTest, DashesCapsAndJoinsShapeTheStroke) {
  using Set = std::function<void(TqxVectorBrush&)>;
  const auto stroked = [](const char* path, float width, const Set& set) {
    auto doc = Doc();
    TqxVectorBrush brush = Stroke("#FF0000", width);
    set(brush);
    Shape(*doc, brush, path);
    return doc;
  };
  const auto dash = [](std::vector<float> intervals, float offset) -> Set {
    return [=](TqxVectorBrush& b) {
      if (!intervals.empty()) b.StrokeDashArray = intervals;
      b.StrokeDashOffset = offset;
    };
  };
  const char* line = "M0 16H32";
  ExpectPixels(*stroked(line, 2, dash({4, 4}, 0)), {{2, 16, kRed}, {6, 16, kNone}});
  ExpectPixels(*stroked(line, 2, dash({4, 4}, 4)), {{2, 16, kNone}});
  ExpectPixels(*stroked(line, 2, dash({4}, 0)), {{6, 16, kNone}});  // an odd list repeats
  ExpectPixels(*stroked(line, 2, dash({}, 4)), {{6, 16, kRed}});    // an offset alone is no dash

  const Set butt = [](TqxVectorBrush&) {};
  const Set square = [](TqxVectorBrush& b) { b.StrokeLineCap = TqxStrokeLineCap::Square; };
  const Set round = [](TqxVectorBrush& b) { b.StrokeLineCap = TqxStrokeLineCap::Round; };
  ExpectPixels(*stroked("M8 16H24", 8, butt), {{6, 16, kNone}});
  ExpectPixels(*stroked("M8 16H24", 8, square), {{4, 12, kRed}});
  ExpectPixels(*stroked("M8 16H24", 8, round), {{4, 12, kNone}, {5, 16, kRed}});

  const char* corner = "M8 24V8H24";  // outer corner around (4, 4)
  const Set bevel = [](TqxVectorBrush& b) { b.StrokeLineJoin = TqxStrokeLineJoin::Bevel; };
  const Set roundJoin = [](TqxVectorBrush& b) { b.StrokeLineJoin = TqxStrokeLineJoin::Round; };
  ExpectPixels(*stroked(corner, 8, butt), {{4, 4, kRed}});  // miter
  ExpectPixels(*stroked(corner, 8, bevel), {{4, 4, kNone}});
  ExpectPixels(*stroked(corner, 8, roundJoin), {{5, 6, kRed}});
}

TEST(VectorBitmapWriterTest, TransformsActBeforeWhatIsInForce) {
  auto doc = Doc({32, 32}, {0, 0, 16, 16});  // 2 pixels a unit
  doc->BeginGroup();
  doc->SetTransform(Transform(TMatrix::CreateTranslation(4, 0)));
  // The later matrix acts first: (1..2, 0..1) scales to (2..4, 0..2), moves to
  // (6..8, 0..2), and the view box fit puts it on pixels 12..16 x 0..4.
  doc->SetTransform(Transform(TMatrix::CreateScaling(2, 2)));
  doc->DrawPath("M1 0H2V1H1Z");
  doc->EndGroup();
  ExpectPixels(*doc, {{13, 2, kColorBlack}, {11, 2, kNone}, {17, 2, kNone}});
}

TEST(VectorBitmapWriterTest, ViewBoxIsStretchedOverTheBitmapEachAxisOnItsOwn) {
  auto doc = Doc({48, 48}, {0, 0, 24, 12});
  doc->DrawPath("M1 1H2V2H1Z");  // a unit of x is 2 pixels, of y 4
  ExpectPixels(*doc, {{2, 4, kColorBlack}, {4, 4, kNone}, {2, 8, kNone}});

  // A caller's size replaces the document's; the whole view box still fits.
  auto full = Doc({1, 1}, {0, 0, 24, 24});
  full->DrawPath("M12 0H24V24H12Z");
  auto bitmap = RenderVectorDocument(*full, 16, 8);
  ASSERT_EQ(bitmap->Width(), 16);
  ASSERT_EQ(bitmap->Height(), 8);
  EXPECT_EQ(bitmap->GetPixel(8, 0), kColorBlack);
  EXPECT_EQ(bitmap->GetPixel(7, 7), kNone);
}

TEST(VectorBitmapWriterTest, BitmapSidesAreTruncatedAndClamped) {
  auto huge = Doc({100000, 4.9}, {0, 0, 100, 4});
  huge->DrawPath("M99 0H100V4H99Z");  // the right-most unit
  TsvgExportFMXBitmapWithSkia writer(*huge);
  EXPECT_EQ(writer.Bitmap().Width(), TsvgExportFMXBitmapWithSkia::kMaxSide);
  EXPECT_EQ(writer.Bitmap().Height(), 4);
  EXPECT_EQ(writer.Bitmap().GetPixel(TsvgExportFMXBitmapWithSkia::kMaxSide - 1, 0), kColorBlack);

  for (TSizeF size : {TSizeF{-5, 10}, TSizeF{std::nan(""), 10}, TSizeF{0.5, 0.5}}) {
    auto doc = Doc(size, {0, 0, 10, 10});
    doc->DrawPath(kSquare);
    TsvgExportFMXBitmapWithSkia empty(*doc);
    EXPECT_TRUE(empty.Bitmap().IsEmpty());
  }
}

TEST(VectorBitmapWriterTest, FailuresRaiseWhereTheDrawingCannotGoOn) {
  const auto messageOf = [](const TqxVectorDocument& doc) -> std::string {
    try {
      TsvgExportFMXBitmapWithSkia writer(doc);
    } catch (const Exception& e) {
      return e.Message();
    }
    return "";
  };
  auto unknown = Doc();
  unknown->Commands.push_back(std::make_unique<TqxVectorCommand>(TqxVectorCommandKind(6)));
  EXPECT_EQ(messageOf(*unknown), "Unknown svg command kind");

  // Refused path data raises even where nothing would be painted.
  for (const char* path : {"M0 0 L", "X10 10", "M 0 0 L 1e999 0"}) {
    auto bad = Doc();
    Shape(*bad, Fill("#00000000"), path);
    EXPECT_NE(messageOf(*bad), "") << path;
  }

  for (TRectF viewBox : {TRectF{0, 0, 0, 10}, TRectF{0, 0, 10, 0}}) {
    auto flat = Doc({10, 10}, viewBox);
    EXPECT_NE(messageOf(*flat), "");
  }

  // Compact path grammar, an empty path, unread colours, unbalanced groups and
  // numbers that aren't finite are no failures; what can't be drawn is left out.
  auto fine = Doc();
  fine->EndGroup();
  fine->BeginGroup();
  Shape(*fine, Fill("rgb(1,2,3)"), "M8-8.5.5.5l16 0a1 1 0 1116 0");
  Shape(*fine, Fill("#FF0000"), "");
  fine->EndGroup();
  fine->BeginGroup();
  fine->SetTransform(Transform(TMatrix::CreateScaling(kNaN, 1)));
  fine->DrawPath(kSquare);
  fine->EndGroup();
  fine->BeginGroup();
  fine->SetGradient(Linear({0, 0}, {std::numeric_limits<double>::infinity(), 0}, kRed, kBlue), true);
  fine->DrawPath(kSquare);
  fine->EndGroup();
  Shape(*fine, Fill("#00FF00"), "M0 0H4V4H0Z");
  EXPECT_EQ(messageOf(*fine), "");
  ExpectPixels(*fine, {{16, 16, kNone}, {2, 2, kGreen}});
}

TEST(VectorBitmapWriterTest, ResultIsSavedAsPngOnly) {
  auto doc = Doc({8, 8}, {0, 0, 8, 8});
  doc->DrawPath("M0 0H4V8H0Z");
  TsvgExportFMXBitmapWithSkia writer(*doc);
  test::TTempFolder dir("bitmap-writer");
  writer.SaveToFile((dir / "picture.PNG").string());
  EXPECT_EQ(*TqxBitmap::LoadFromFile((dir / "picture.PNG").string()), writer.Bitmap());
  EXPECT_THROW(writer.SaveToFile((dir / "picture.gif").string()), Exception);
  EXPECT_FALSE(std::filesystem::exists(dir / "picture.gif"));
}

}  // namespace
}  // namespace qx
