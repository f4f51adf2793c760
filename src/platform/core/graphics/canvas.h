#pragma once

#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "platform/core/base/matrix.h"
#include "platform/core/base/types.h"
#include "platform/core/graphics/color.h"
#include "platform/core/graphics/path_data.h"

namespace qx {

class TqxBitmap;

enum class TqxCanvasFillRule : std::uint8_t { NonZero, EvenOdd };
enum class TqxLineCap : std::uint8_t { Butt, Round, Square };
enum class TqxLineJoin : std::uint8_t { Miter, Round, Bevel };
enum class TqxImageFilter : std::uint8_t { Nearest, Linear, Smooth };

struct TqxGradientStop {
  double Offset = 0;  // 0 to 1; clamped, and never below the previous stop's
  TAlphaColor Color = 0;
};

// What fills or strokes: a solid colour or a gradient that pads its end
// colours beyond its ends. A gradient without stops paints nothing; one with
// a single stop, or with no extent (start = end, radius 0), paints the colour
// of its last stop.
struct TqxBrush {
  enum class TKind : std::uint8_t { Solid, Linear, Radial };
  TKind Kind = TKind::Solid;
  TAlphaColor Color = kColorBlack;
  TPointF Start, End;   // linear
  TPointF Center;       // radial
  double Radius = 0;    // radial
  std::vector<TqxGradientStop> Stops;

  static TqxBrush Solid(TAlphaColor color);
  static TqxBrush Linear(TPointF start, TPointF end, std::vector<TqxGradientStop> stops);
  static TqxBrush Radial(TPointF center, double radius, std::vector<TqxGradientStop> stops);
};

struct TqxStrokeStyle {
  // In user units. 0 is a hairline: one device pixel wide whatever the matrix.
  double Width = 1;
  TqxLineCap Cap = TqxLineCap::Butt;
  TqxLineJoin Join = TqxLineJoin::Miter;
  double MiterLimit = 4;
  // On and off lengths, repeated; an odd count is repeated twice over. Empty,
  // all zero, or with a negative length: a solid line.
  std::vector<double> Dashes;
  double DashOffset = 0;
};

// Draws on a TqxBitmap, which it borrows: the bitmap must outlive the canvas
// and keep its size meanwhile. Everything is anti-aliased and blended over
// what is there (source-over), except Clear.
//
// Coordinates are user units mapped by the current matrix. A call with a value
// that is not finite (a coordinate, radius, width, opacity, stop, matrix) or a
// negative size draws nothing; so does any drawing while the matrix is
// singular or nearly so (determinant below 1e-12), and a clip set then hides
// everything. Opacity is from 0 to 1 and multiplies the brush's alpha.
class TqxCanvas {
public:
  explicit TqxCanvas(TqxBitmap& bitmap);
  ~TqxCanvas();
  TqxCanvas(const TqxCanvas&) = delete;
  TqxCanvas& operator=(const TqxCanvas&) = delete;

  TqxBitmap& Bitmap() const { return FBitmap; }

  // Keeps matrix and clip; Restore without a matching Save does nothing.
  void Save();
  void Restore();
  int SaveDepth() const;

  const TMatrix& Matrix() const;
  // Only the affine part counts: the third column is taken to be (0, 0, 1).
  void SetMatrix(const TMatrix& matrix);
  // The new matrix is matrix * current: the given one acts first on a point.
  void Concat(const TMatrix& matrix);
  void Translate(double dx, double dy);
  void Scale(double sx, double sy);

  // Replaces the pixels inside the clip with the colour, blending nothing.
  void Clear(TAlphaColor color);
  // Narrows the clip to the rectangle, under the current matrix.
  void ClipRect(const TRectF& rect);

  // Corner radii are clamped to half the side; either radius 0 gives square corners.
  void FillRect(const TRectF& rect, double radiusX, double radiusY, const TqxBrush& brush, double opacity = 1);
  void StrokeRect(const TRectF& rect, double radiusX, double radiusY, const TqxBrush& brush,
                  const TqxStrokeStyle& stroke, double opacity = 1);
  void FillEllipse(const TRectF& rect, const TqxBrush& brush, double opacity = 1);
  void StrokeEllipse(const TRectF& rect, const TqxBrush& brush, const TqxStrokeStyle& stroke, double opacity = 1);
  void DrawLine(TPointF from, TPointF to, const TqxBrush& brush, const TqxStrokeStyle& stroke, double opacity = 1);

  void FillPath(const TqxPathData& path, TqxCanvasFillRule rule, const TqxBrush& brush, double opacity = 1);
  void StrokePath(const TqxPathData& path, const TqxBrush& brush, const TqxStrokeStyle& stroke, double opacity = 1);
  // Path data text; raises Exception when TqxPathData::Parse refuses it.
  void FillPath(std::string_view pathData, TqxCanvasFillRule rule, const TqxBrush& brush, double opacity = 1);
  void StrokePath(std::string_view pathData, const TqxBrush& brush, const TqxStrokeStyle& stroke,
                  double opacity = 1);

  // The whole of the source stretched over dest.
  void DrawBitmap(const TqxBitmap& source, const TRectF& dest, double opacity = 1,
                  TqxImageFilter filter = TqxImageFilter::Linear);

  // Makes every drawing so far visible in the bitmap's pixels. Drawing calls
  // write through at once with Cairo's image backend; this is for safety.
  void Flush();

private:
  struct TImpl;
  TqxBitmap& FBitmap;
  std::unique_ptr<TImpl> FImpl;
};

}  // namespace qx
