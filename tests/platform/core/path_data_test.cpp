#include "platform/core/graphics/path_data.h"

#include <gtest/gtest.h>

#include <charconv>
#include <cmath>
#include <cstdio>
#include <string>

#include "../../support/error_message.h"

namespace qx {
namespace {

std::string Num(double v) {
  char buffer[32];
  std::snprintf(buffer, sizeof buffer, "%.4g", std::abs(v) < 5e-5 ? 0.0 : v);
  return buffer;
}

// A compact text of the reduced commands, numbers to 4 significant digits.
std::string Dump(const TqxPathData& path) {
  std::string out;
  for (const TqxPathCommand& c : path.Commands()) {
    if (!out.empty()) out += ' ';
    auto pt = [&](int i) { return Num(c.Points[i].X) + "," + Num(c.Points[i].Y); };
    switch (c.Verb) {
      case TqxPathVerb::MoveTo: out += "M" + pt(0); break;
      case TqxPathVerb::LineTo: out += "L" + pt(0); break;
      case TqxPathVerb::CubicTo: out += "C" + pt(0) + " " + pt(1) + " " + pt(2); break;
      case TqxPathVerb::ClosePath: out += "Z"; break;
    }
  }
  return out;
}

std::string ParseDump(const std::string& text) { return Dump(TqxPathData::Parse(text)); }

struct TCase {
  const char* Text;
  const char* Expected;
};

TEST(PathDataTest, ReducesEveryCommandToAbsoluteMoveLineCubicClose) {
  const TCase cases[] = {
      {"", ""},
      // Extra pairs after a move are lines, relative after "m".
      {"m1 2 3 4 5 6", "M1,2 L4,6 L9,12"},
      {"M0 0L10 0l5 5", "M0,0 L10,0 L15,5"},
      {"M1 1H5h2V9v-3", "M1,1 L5,1 L7,1 L7,9 L7,6"},
      {"M1 1c1 2 3 4 5 6 1 1 2 2 3 3", "M1,1 C2,3 4,5 6,7 C7,8 8,9 9,10"},
      // Smooth cubic: reflection after a cubic, the current point otherwise.
      {"M0 0C0 10 10 10 10 0s10 -10 10 0", "M0,0 C0,10 10,10 10,0 C10,-10 20,-10 20,0"},
      {"M0 0S10 10 20 0", "M0,0 C0,0 10,10 20,0"},
      {"M0 0Q3 3 6 0L6 3S9 9 12 3", "M0,0 C2,2 4,2 6,0 L6,3 C6,3 9,9 12,3"},
      // Quadratics raised to cubics; T reflects only after Q or T.
      {"M0 0Q3 6 6 0T12 0T18 0", "M0,0 C2,4 4,4 6,0 C8,-4 10,-4 12,0 C14,4 16,4 18,0"},
      {"M0 0T6 0", "M0,0 C0,0 2,0 6,0"},
      {"M0 0C1 1 2 2 3 3T6 0", "M0,0 C1,1 2,2 3,3 C3,3 4,2 6,0"},
      // Close: the next segment restarts at the subpath's start.
      {"M1 1L5 1zl2 2", "M1,1 L5,1 Z M1,1 L3,3"},
      {"M1 1L5 1Zm1 1", "M1,1 L5,1 Z M2,2"},
      {"M1 1L5 1ZZ", "M1,1 L5,1 Z"},
      // Compact numbers.
      {"M1.5.5", "M1.5,0.5"},
      {"M-.5e-3+2E1", "M-0.0005,20"},
      {"M0.0.0.0.0", "M0,0 L0,0"},
      // Separators: commas between numbers, blanks anywhere, and a trailing
      // comma before the next command.
      {"M 1 , 2 L\n3\t4", "M1,2 L3,4"},
      {"M0.00, 0.00, L10.00, 10.00", "M0,0 L10,10"},
      // Numbers too small for a double are zero.
      {"M1e-400 0", "M0,0"},
  };
  for (const TCase& c : cases) EXPECT_EQ(ParseDump(c.Text), c.Expected) << "path: \"" << c.Text << "\"";
}

TEST(PathDataTest, ArcsBecomeCubicsThroughTheirCentre) {
  // A half circle of radius 10 from (0, 0) to (20, 0), clockwise on screen:
  // two quarter arcs passing through the top (10, -10) or bottom (10, 10).
  EXPECT_EQ(ParseDump("M0 0A10 10 0 0 1 20 0"), "M0,0 C0,-5.523 4.477,-10 10,-10 C15.52,-10 20,-5.523 20,0");
  EXPECT_EQ(ParseDump("M0 0A10 10 0 0 0 20 0"), "M0,0 C0,5.523 4.477,10 10,10 C15.52,10 20,5.523 20,0");
  // Radii too small to reach are scaled up: the same half circle.
  EXPECT_EQ(ParseDump("M0 0A1 1 0 0 1 20 0"), ParseDump("M0 0A10 10 0 0 1 20 0"));
  // Flags written without separators, in both commas and compact forms.
  EXPECT_EQ(ParseDump("M0 0a10 10 0 0120 0"), ParseDump("M0 0A10,10,0,0,1,20,0"));
  // Large and clockwise from (10, 0) to (0, 10): three quarters around the
  // centre (10, 10), in three cubics.
  const TqxPathData large = TqxPathData::Parse("M10 0A10 10 0 1 1 0 10");
  EXPECT_EQ(large.Commands().size(), 4u);
  EXPECT_NEAR(large.Bounds().Right, 20, 1e-6);
  EXPECT_EQ(large.Commands().back().Points[2], (TPointF{0, 10}));  // exact, not accumulated
  // Zero radius: a line. Same end point: nothing. Negative radii: absolute.
  EXPECT_EQ(ParseDump("M0 0A0 5 0 1 1 10 10"), "M0,0 L10,10");
  EXPECT_EQ(ParseDump("M5 5A3 3 0 1 1 5 5"), "M5,5");
  EXPECT_EQ(ParseDump("M0 0A-10 -10 0 0 1 20 0"), ParseDump("M0 0A10 10 0 0 1 20 0"));
  // A rotated ellipse keeps its end point exactly.
  EXPECT_EQ(TqxPathData::Parse("M0 0a30 10 45 1 0 15 15").Commands().back().Points[2], (TPointF{15, 15}));
}

TEST(PathDataTest, BoundsFollowCurveExtremesNotControlPoints) {
  EXPECT_EQ(TqxPathData().Bounds(), TRectF{});
  const TRectF box = TqxPathData::Parse("M0 0C0 -40 10 -40 10 0").Bounds();
  EXPECT_NEAR(box.Top, -30, 1e-9);  // the curve's peak, not the control point at -40
  // A lone move-to counts.
  EXPECT_EQ(TqxPathData::Parse("M0 0L1 1M-5 7").Bounds(), (TRectF{-5, 0, 1, 7}));
}

struct TErrorCase {
  const char* Text;
  std::size_t Offset;
  const char* Reason;
};

TEST(PathDataTest, RefusesBadTextSayingWhereAndWhy) {
  const TErrorCase cases[] = {
      {"L10 10", 0, "the path must begin with a move-to command"},
      {"M", 1, "expected a number"},
      {"M10 10 L", 8, "expected a number"},
      {"M10,,10", 4, "expected a number"},
      {"M1 2 L3 4,,L5 6", 10, "expected a command"},
      {"M1 2e", 4, "expected a command"},
      {"M1 2 Z 3 4", 7, "expected a command"},
      {"M0 0 A1 1 0 2 0 5 5", 12, "expected a flag (0 or 1)"},
      {"M1e999 0", 1, "number out of range"},
      {"M1e308 0 l1e308 0", 10, "coordinates out of range"},
      {"M. 1", 1, "expected a number"},
  };
  for (const TErrorCase& c : cases) {
    TqxPathData path;
    TqxPathDataError error;
    EXPECT_FALSE(TqxPathData::TryParse(c.Text, path, &error)) << c.Text;
    EXPECT_EQ(error.Offset, c.Offset) << c.Text;
    EXPECT_EQ(error.Reason, c.Reason) << c.Text;
    for (const TqxPathCommand& command : path.Commands())
      for (const TPointF& p : command.Points) EXPECT_TRUE(std::isfinite(p.X) && std::isfinite(p.Y)) << c.Text;
  }
  EXPECT_EQ(test::ErrorOf([] { TqxPathData::Parse("M10 10 L"); }),
            "Invalid path data at offset 8: expected a number");
}

TEST(PathDataTest, TryParseKeepsTheSegmentsBeforeTheError) {
  TqxPathData path;
  EXPECT_FALSE(TqxPathData::TryParse("M0 0 L10 0 20 0 L30", path));
  EXPECT_EQ(Dump(path), "M0,0 L10,0 L20,0");
  // The set that overflows is not kept.
  EXPECT_FALSE(TqxPathData::TryParse("M0 0l1e308 1 1e308 1", path));
  EXPECT_EQ(Dump(path), "M0,0 L1e+308,1");
  // A good parse replaces what the path held.
  EXPECT_TRUE(TqxPathData::TryParse("M5 5", path));
  EXPECT_EQ(Dump(path), "M5,5");
}

// Numbers are read on a short path for the common short decimals; every
// value must still be the correctly rounded one, bit for bit.
TEST(PathDataTest, NumbersReadToTheNearestDouble) {
  const char* numbers[] = {"0.1", "2.675", "-17.99", ".5e-3", "9007199254740993", "1e23",
                           "123e-25", "0.000000000000000000000000001", "00012.50", "4503599627370497.5"};
  for (const char* number : numbers) {
    double expected = 0;
    const std::string_view text(number);
    std::from_chars(text.data() + (text[0] == '-'), text.data() + text.size(), expected);
    if (text[0] == '-') expected = -expected;
    const TqxPathData path = TqxPathData::Parse(std::string("M") + number + " 0");
    EXPECT_EQ(path.Commands()[0].Points[0].X, expected) << number;
  }
}

TEST(PathDataTest, BuildingStartsAtOriginAndReopensAfterClose) {
  TqxPathData path;
  path.LineTo({5, 5});
  path.ClosePath();
  path.QuadTo({3, 3}, {6, 0});
  EXPECT_EQ(Dump(path), "M0,0 L5,5 Z M0,0 C2,2 4,2 6,0");
}

}  // namespace
}  // namespace qx
