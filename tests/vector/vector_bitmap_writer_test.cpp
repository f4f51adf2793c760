#include "vector/vector_bitmap_writer.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <limits>
#include <memory>

#include "platform/core/base/exception.h"
#include "platform/core/graphics/bitmap.h"
#include "platform/core/graphics/color.h"
#include "platform/core/vector/vector_document.h"

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

TAlphaColor Render(const TqxVectorDocument& doc, int x, int y) {
  return TsvgExportFMXBitmapWithSkia(doc).Bitmap().GetPixel(x, y);
}

bool Near(TAlphaColor a, TAlphaColor b, int tolerance = 3) {
  for (int shift = 0; shift < 32; shift += 8)
    if (std::abs(int((a >> shift) & 0xFF) - int((b >> shift) & 0xFF)) > tolerance) return false;
  return true;
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
  TsvgExportFMXBitmapWithSkia writer(*doc);
  EXPECT_EQ(writer.Bitmap().Width(), 32);
  EXPECT_EQ(writer.Bitmap().GetPixel(16, 16), kColorBlack);
  EXPECT_EQ(writer.Bitmap().GetPixel(8, 8), kColorBlack);  // no default stroke widens the edge
  EXPECT_EQ(writer.Bitmap().GetPixel(7, 16), kNone);
  EXPECT_EQ(writer.Bitmap().GetPixel(2, 2), kColorBlack);

  auto hidden = Doc();
  Shape(*hidden, Fill("#00000000"), kSquare);
  EXPECT_EQ(Render(*hidden, 16, 16), kNone);
}

TEST(VectorBitmapWriterTest, StrokeIsPaintedBeforeFillAndHairlineByDefault) {
  auto doc = Doc();
  Shape(*doc, Stroke("#0000FF", 10, "#FF0000"), kSquare);
  EXPECT_EQ(Render(*doc, 4, 16), kBlue);  // outer half of the stroke
  EXPECT_EQ(Render(*doc, 10, 16), kRed);  // inner half lies under the fill
  EXPECT_EQ(Render(*doc, 16, 16), kRed);

  // Without a width the stroke is one device pixel, whatever the scale.
  auto hairline = Doc({32, 32}, {0, 0, 8, 8});
  TqxVectorBrush brush = Fill("#00000000");
  brush.Stroke = "#FF0000";
  Shape(*hairline, brush, "M0 4.125H8");
  EXPECT_EQ(Render(*hairline, 16, 16), kRed);
  EXPECT_EQ(Render(*hairline, 16, 15), kNone);
  EXPECT_EQ(Render(*hairline, 16, 17), kNone);
}

TEST(VectorBitmapWriterTest, OpacityInForceReplacesTheColoursAlpha) {
  auto doc = Doc();
  Shape(*doc, Fill("#40FF0000"), kSquare);
  EXPECT_EQ(Render(*doc, 16, 16), kRed) << "the colour's own alpha does not show";

  TqxVectorBrush half = Fill("#0000FF");
  half.FillOpacity = 0.5f;
  auto halfDoc = Doc();
  Shape(*halfDoc, half, kSquare);
  EXPECT_TRUE(Near(Render(*halfDoc, 16, 16), 0x800000FF)) << std::hex << Render(*halfDoc, 16, 16);

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
  TsvgExportFMXBitmapWithSkia writer(*skippedDoc);
  EXPECT_EQ(writer.Bitmap().GetPixel(16, 16), kNone);
  EXPECT_EQ(writer.Bitmap().GetPixel(7, 16), kBlue);
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
  doc->DrawPath("M0 16H8V24H0Z");  // after the group: black, opaque, not shifted

  TqxVectorBrush evenOdd = Fill("#0000FF");
  evenOdd.FillRule = TqxFillRule::EvenOdd;
  doc->BeginGroup();
  doc->SetBrush(evenOdd);
  doc->EndGroup();
  doc->DrawPath("M0 0H8V8H0Z M2 2H6V6H2Z");  // black again, but the even-odd rule outlived the group

  TsvgExportFMXBitmapWithSkia writer(*doc);
  const TqxBitmap& bitmap = writer.Bitmap();
  EXPECT_TRUE(Near(bitmap.GetPixel(20, 4), 0x80FF0000)) << std::hex << bitmap.GetPixel(20, 4);
  EXPECT_EQ(bitmap.GetPixel(4, 20), kColorBlack);
  EXPECT_EQ(bitmap.GetPixel(1, 1), kColorBlack);
  EXPECT_EQ(bitmap.GetPixel(4, 4), kNone);
}

TEST(VectorBitmapWriterTest, BrushFieldsWithoutValueOrUnreadableLeaveTheLiveState) {
  auto doc = Doc();
  doc->BeginGroup();
  doc->SetBrush(Stroke("#0000FF", 4, "#FF0000"));
  doc->DrawPath("M0 0H1");  // nothing to see; settles the paints
  TqxVectorBrush partial;
  partial.Fill = "inherit";    // no colour: red stays
  partial.Stroke = "blue";     // names are resolved by the reader, not here
  partial.StrokeWidth = kNaN;  // not finite: width 4 stays
  partial.FillOpacity = kNaN;
  doc->SetBrush(partial);
  doc->DrawPath(kSquare);
  doc->EndGroup();

  TsvgExportFMXBitmapWithSkia writer(*doc);
  EXPECT_EQ(writer.Bitmap().GetPixel(16, 16), kRed);
  EXPECT_EQ(writer.Bitmap().GetPixel(6, 16), kBlue);
  EXPECT_EQ(writer.Bitmap().GetPixel(5, 16), kNone);
  EXPECT_EQ(writer.Bitmap().GetPixel(9, 16), kRed);
}

TEST(VectorBitmapWriterTest, FillRuleFollowsEachBrushAndFallsBackToNonZero) {
  const char* ring = "M4 4H28V28H4Z M12 12H20V20H12Z";  // both squares clockwise
  auto doc = Doc({32, 64}, {0, 0, 32, 64});
  TqxVectorBrush evenOdd = Fill("#FF0000");
  evenOdd.FillRule = TqxFillRule::EvenOdd;
  Shape(*doc, evenOdd, ring);
  doc->SetTransform(Transform(TMatrix::CreateTranslation(0, 32)));
  Shape(*doc, Fill("#0000FF"), ring);

  TsvgExportFMXBitmapWithSkia writer(*doc);
  EXPECT_EQ(writer.Bitmap().GetPixel(16, 16), kNone);
  EXPECT_EQ(writer.Bitmap().GetPixel(6, 16), kRed);
  EXPECT_EQ(writer.Bitmap().GetPixel(16, 48), kBlue);
}

TEST(VectorBitmapWriterTest, GradientsPadBeyondTheirEndsAndYieldToALaterColour) {
  auto doc = Doc();
  doc->BeginGroup();
  doc->SetGradient(Linear({8, 0}, {24, 0}, kRed, kBlue), true);
  doc->DrawPath("M0 0H32V16H0Z");
  doc->SetBrush(Fill("#00FF00"));  // a colour takes the gradient away
  doc->DrawPath("M0 16H32V32H0Z");
  doc->EndGroup();
  TsvgExportFMXBitmapWithSkia linear(*doc);
  EXPECT_EQ(linear.Bitmap().GetPixel(2, 4), kRed);
  EXPECT_EQ(linear.Bitmap().GetPixel(29, 4), kBlue);
  const TAlphaColor middle = linear.Bitmap().GetPixel(16, 4);
  EXPECT_GT(RedOf(middle), 90);
  EXPECT_GT(BlueOf(middle), 90);
  EXPECT_EQ(linear.Bitmap().GetPixel(2, 24), kGreen);

  auto radial = std::make_shared<TqxVectorRadialGradient>();
  radial->Center = {16, 16};
  radial->Radius = 8;
  radial->Points = {{0, kWhite}, {1, kGreen}};
  auto radialDoc = Doc();
  radialDoc->BeginGroup();
  radialDoc->SetGradient(radial, true);
  radialDoc->DrawPath("M0 0H32V32H0Z");
  radialDoc->EndGroup();
  TsvgExportFMXBitmapWithSkia writer(*radialDoc);
  EXPECT_TRUE(Near(writer.Bitmap().GetPixel(16, 16), kWhite, 40));
  EXPECT_EQ(writer.Bitmap().GetPixel(1, 1), kGreen);
  EXPECT_EQ(writer.Bitmap().GetPixel(16, 30), kGreen);
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
  TsvgExportFMXBitmapWithSkia writer(*doc);
  EXPECT_TRUE(Near(writer.Bitmap().GetPixel(16, 8), 0x800000FF)) << std::hex << writer.Bitmap().GetPixel(16, 8);
  EXPECT_EQ(writer.Bitmap().GetPixel(16, 24), kNone);
}

TEST(VectorBitmapWriterTest, PathTextsAsTheSvgReaderWritesThemDraw) {
  auto doc = Doc({64, 32}, {0, 0, 64, 32});
  Shape(*doc, Fill("#FF0000"), "M16,16m-8,0a8,8 0,1 1,16 0a8,8 0,1 1,-16 0");  // circle
  Shape(*doc, Fill("#0000FF"), "M32.00, 8.00 L48.00, 8.00 48.00, 24.00 32.00, 24.00 Z");  // rect
  Shape(*doc, Stroke("#00FF00", 2), "M48.00, 16.00, L64.00, 16.00");  // line, with its trailing comma
  TsvgExportFMXBitmapWithSkia writer(*doc);
  EXPECT_EQ(writer.Bitmap().GetPixel(10, 16), kRed);
  EXPECT_EQ(writer.Bitmap().GetPixel(9, 9), kNone);
  EXPECT_EQ(writer.Bitmap().GetPixel(40, 16), kBlue);
  EXPECT_EQ(writer.Bitmap().GetPixel(56, 16), kGreen);
}

TEST(VectorBitmapWriterTest, DashesFollowIntervalsAndOffset) {
  const auto dashed = [](std::vector<float> intervals, std::optional<float> offset, int x) {
    auto doc = Doc();
    TqxVectorBrush brush = Stroke("#FF0000", 2);
    if (!intervals.empty()) brush.StrokeDashArray = std::move(intervals);
    if (offset) brush.StrokeDashOffset = *offset;
    Shape(*doc, brush, "M0 16H32");
    return Render(*doc, x, 16);
  };
  EXPECT_EQ(dashed({4, 4}, std::nullopt, 2), kRed);
  EXPECT_EQ(dashed({4, 4}, std::nullopt, 6), kNone);
  EXPECT_EQ(dashed({4, 4}, 4.0f, 2), kNone);
  EXPECT_EQ(dashed({4}, std::nullopt, 6), kNone);  // an odd list repeats
  EXPECT_EQ(dashed({}, 4.0f, 6), kRed);            // an offset alone is no dash
}

TEST(VectorBitmapWriterTest, CapsAndJoinsShapeTheStrokeEnds) {
  const auto stroked = [](std::optional<TqxStrokeLineCap> cap, std::optional<TqxStrokeLineJoin> join,
                          const char* path, int x, int y) {
    auto doc = Doc();
    TqxVectorBrush brush = Stroke("#FF0000", 8);
    if (cap) brush.StrokeLineCap = *cap;
    if (join) brush.StrokeLineJoin = *join;
    Shape(*doc, brush, path);
    return Render(*doc, x, y);
  };
  const char* line = "M8 16H24";
  EXPECT_EQ(stroked(std::nullopt, std::nullopt, line, 6, 16), kNone);  // butt
  EXPECT_EQ(stroked(TqxStrokeLineCap::Square, std::nullopt, line, 4, 12), kRed);
  EXPECT_EQ(stroked(TqxStrokeLineCap::Round, std::nullopt, line, 4, 12), kNone);
  EXPECT_EQ(stroked(TqxStrokeLineCap::Round, std::nullopt, line, 5, 16), kRed);

  const char* corner = "M8 24V8H24";  // outer corner around (4, 4)
  EXPECT_EQ(stroked(std::nullopt, std::nullopt, corner, 4, 4), kRed);  // miter
  EXPECT_EQ(stroked(std::nullopt, TqxStrokeLineJoin::Bevel, corner, 4, 4), kNone);
  EXPECT_EQ(stroked(std::nullopt, TqxStrokeLineJoin::Round, corner, 5, 6), kRed);
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
  TsvgExportFMXBitmapWithSkia writer(*doc);
  EXPECT_EQ(writer.Bitmap().GetPixel(13, 2), kColorBlack);
  EXPECT_EQ(writer.Bitmap().GetPixel(15, 3), kColorBlack);
  EXPECT_EQ(writer.Bitmap().GetPixel(11, 2), kNone);
  EXPECT_EQ(writer.Bitmap().GetPixel(17, 2), kNone);
}

TEST(VectorBitmapWriterTest, ViewBoxIsStretchedOverTheBitmapEachAxisOnItsOwn) {
  auto doc = Doc({48, 48}, {0, 0, 24, 12});
  doc->DrawPath("M1 1H2V2H1Z");  // a unit of x is 2 pixels, of y 4
  TsvgExportFMXBitmapWithSkia writer(*doc);
  EXPECT_EQ(writer.Bitmap().GetPixel(2, 4), kColorBlack);
  EXPECT_EQ(writer.Bitmap().GetPixel(3, 7), kColorBlack);
  EXPECT_EQ(writer.Bitmap().GetPixel(4, 4), kNone);
  EXPECT_EQ(writer.Bitmap().GetPixel(2, 8), kNone);

  auto shifted = Doc({24, 24}, {10, 10, 34, 34});
  shifted->DrawPath("M10 10H11V11H10Z");
  EXPECT_EQ(Render(*shifted, 0, 0), kColorBlack);
  EXPECT_EQ(Render(*shifted, 1, 1), kNone);

  // A caller's size replaces the document's; the whole view box still fits.
  auto full = Doc({1, 1}, {0, 0, 24, 24});
  full->DrawPath("M12 0H24V24H12Z");
  auto bitmap = RenderVectorDocument(*full, 16, 8);
  ASSERT_EQ(bitmap->Width(), 16);
  ASSERT_EQ(bitmap->Height(), 8);
  EXPECT_EQ(bitmap->GetPixel(15, 7), kColorBlack);
  EXPECT_EQ(bitmap->GetPixel(7, 7), kNone);
  EXPECT_EQ(bitmap->GetPixel(8, 0), kColorBlack);
}

TEST(VectorBitmapWriterTest, BitmapSidesAreTruncatedAndClamped) {
  auto huge = Doc({100000, 4.9}, {0, 0, 100, 4});
  huge->DrawPath("M99 0H100V4H99Z");  // the right-most unit
  TsvgExportFMXBitmapWithSkia writer(*huge);
  EXPECT_EQ(writer.Bitmap().Width(), TsvgExportFMXBitmapWithSkia::kMaxSide);
  EXPECT_EQ(writer.Bitmap().Height(), 4);
  EXPECT_EQ(writer.Bitmap().GetPixel(TsvgExportFMXBitmapWithSkia::kMaxSide - 1, 0), kColorBlack);

  for (TSizeF size : {TSizeF{0, 10}, TSizeF{-5, 10}, TSizeF{std::nan(""), 10}, TSizeF{0.5, 0.5}}) {
    auto doc = Doc(size, {0, 0, 10, 10});
    doc->DrawPath(kSquare);
    TsvgExportFMXBitmapWithSkia empty(*doc);
    EXPECT_TRUE(empty.Bitmap().IsEmpty());
  }
}

TEST(VectorBitmapWriterTest, NonFiniteNumbersDrawNothingAndSpoilNothingAfter) {
  auto doc = Doc();
  doc->BeginGroup();
  doc->SetTransform(Transform(TMatrix::CreateScaling(kNaN, 1)));
  doc->DrawPath(kSquare);
  doc->EndGroup();
  doc->BeginGroup();
  doc->SetGradient(Linear({0, 0}, {std::numeric_limits<double>::infinity(), 0}, kRed, kBlue), true);
  doc->DrawPath(kSquare);
  doc->EndGroup();
  Shape(*doc, Fill("#00FF00"), "M0 0H4V4H0Z");

  TsvgExportFMXBitmapWithSkia writer(*doc);
  EXPECT_EQ(writer.Bitmap().GetPixel(16, 16), kNone);
  EXPECT_EQ(writer.Bitmap().GetPixel(2, 2), kGreen);
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

  for (TRectF viewBox : {TRectF{0, 0, 0, 10}, TRectF{0, 0, 10, 0}, TRectF{0, 0, 0, 0}}) {
    auto flat = Doc({10, 10}, viewBox);
    EXPECT_NE(messageOf(*flat), "");
  }

  // Compact path grammar, an empty path, unread colours and unbalanced groups
  // are no failures.
  auto fine = Doc();
  fine->EndGroup();
  fine->BeginGroup();
  Shape(*fine, Fill("rgb(1,2,3)"), "M8-8.5.5.5l16 0a1 1 0 1116 0");
  Shape(*fine, Fill("#FF0000"), "");
  EXPECT_EQ(messageOf(*fine), "");
}

TEST(VectorBitmapWriterTest, ColourReaderTakesHashFormsOnly) {
  const struct {
    const char* text;
    std::optional<TAlphaColor> expected;
  } cases[] = {
      {"#abc", 0xFFAABBCC}, {"#80FF0000", 0x80FF0000}, {"# ff0000 ", 0xFFFF0000}, {"#12345", 0x00012345},
      {" #FF0000", {}},     {"red", {}},               {"#1FFFFFFFF", {}},      {"#0x12", {}},
  };
  for (const auto& c : cases) {
    TAlphaColor color = 0x12345678;
    const bool read = TsvgExportFMXBitmapWithSkia::TryStrToColor(c.text, color);
    EXPECT_EQ(read ? std::optional(color) : std::nullopt, c.expected) << '"' << c.text << '"';
    if (!read) EXPECT_EQ(color, 0x12345678u) << '"' << c.text << '"';
  }
}

TEST(VectorBitmapWriterTest, ResultIsSavedAsPngOnly) {
  auto doc = Doc({8, 8}, {0, 0, 8, 8});
  doc->DrawPath("M0 0H4V8H0Z");
  TsvgExportFMXBitmapWithSkia writer(*doc);
  const auto dir = std::filesystem::temp_directory_path() / "qx_vector_bitmap_writer_test";
  std::filesystem::create_directories(dir);
  writer.SaveToFile((dir / "picture.PNG").string());
  EXPECT_EQ(*TqxBitmap::LoadFromFile((dir / "picture.PNG").string()), writer.Bitmap());
  EXPECT_THROW(writer.SaveToFile((dir / "picture.gif").string()), Exception);
  EXPECT_FALSE(std::filesystem::exists(dir / "picture.gif"));
  std::filesystem::remove_all(dir);
}

}  // namespace
}  // namespace qx
