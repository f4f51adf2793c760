#include "platform/core/graphics/canvas.h"

#include <cairo.h>

#include <algorithm>
#include <cmath>

#include "platform/core/graphics/bitmap.h"

namespace qx {

namespace {

// Approximation of a quarter ellipse by one cubic.
constexpr double kKappa = 0.5522847498307936;

bool Finite(double v) { return std::isfinite(v); }
bool Finite(TPointF p) { return Finite(p.X) && Finite(p.Y); }
bool Finite(const TRectF& r) { return Finite(r.Left) && Finite(r.Top) && Finite(r.Right) && Finite(r.Bottom); }
bool ValidOpacity(double opacity) { return Finite(opacity) && opacity > 0; }
bool ValidRect(const TRectF& r) { return Finite(r) && r.Right >= r.Left && r.Bottom >= r.Top; }

bool Finite(const TqxPathData& path) {
  for (const TqxPathCommand& command : path.Commands())
    for (const TPointF& p : command.Points)
      if (!Finite(p)) return false;
  return true;
}

bool Finite(const TqxBrush& brush) {
  if (!Finite(brush.Start) || !Finite(brush.End) || !Finite(brush.Center) || !Finite(brush.Radius)) return false;
  if (brush.Radius < 0) return false;
  return std::all_of(brush.Stops.begin(), brush.Stops.end(), [](const TqxGradientStop& s) { return Finite(s.Offset); });
}

// Cairo refuses matrices it can't invert and then stays in an error state, so
// such a matrix never reaches it.
bool Invertible(const TMatrix& m) {
  for (float v : {m.m11, m.m12, m.m21, m.m22, m.m31, m.m32})
    if (!std::isfinite(v)) return false;
  const double det = double(m.m11) * m.m22 - double(m.m12) * m.m21;
  return std::abs(det) > 1e-12 && std::isfinite(1 / det);
}

cairo_matrix_t ToCairo(const TMatrix& m) {
  cairo_matrix_t result;
  cairo_matrix_init(&result, m.m11, m.m12, m.m21, m.m22, m.m31, m.m32);
  return result;
}

void SetSourceColor(cairo_t* cr, TAlphaColor color, double opacity) {
  cairo_set_source_rgba(cr, RedOf(color) / 255.0, GreenOf(color) / 255.0, BlueOf(color) / 255.0,
                        AlphaOf(color) / 255.0 * opacity);
}

void AddStops(cairo_pattern_t* pattern, const std::vector<TqxGradientStop>& stops, double opacity) {
  double previous = 0;
  for (const TqxGradientStop& stop : stops) {
    const double offset = std::max(previous, std::clamp(stop.Offset, 0.0, 1.0));
    cairo_pattern_add_color_stop_rgba(pattern, offset, RedOf(stop.Color) / 255.0, GreenOf(stop.Color) / 255.0,
                                      BlueOf(stop.Color) / 255.0, AlphaOf(stop.Color) / 255.0 * opacity);
    previous = offset;
  }
}

// False when the brush paints nothing.
bool SetSource(cairo_t* cr, const TqxBrush& brush, double opacity) {
  using TKind = TqxBrush::TKind;
  if (brush.Kind == TKind::Solid) {
    SetSourceColor(cr, brush.Color, opacity);
    return true;
  }
  if (brush.Stops.empty()) return false;
  const bool degenerate = brush.Stops.size() == 1 ||
                          (brush.Kind == TKind::Linear ? brush.Start == brush.End : brush.Radius == 0);
  if (degenerate) {
    SetSourceColor(cr, brush.Stops.back().Color, opacity);
    return true;
  }
  cairo_pattern_t* pattern =
      brush.Kind == TKind::Linear
          ? cairo_pattern_create_linear(brush.Start.X, brush.Start.Y, brush.End.X, brush.End.Y)
          : cairo_pattern_create_radial(brush.Center.X, brush.Center.Y, 0, brush.Center.X, brush.Center.Y,
                                        brush.Radius);
  AddStops(pattern, brush.Stops, opacity);
  cairo_pattern_set_extend(pattern, CAIRO_EXTEND_PAD);
  cairo_set_source(cr, pattern);
  cairo_pattern_destroy(pattern);
  return true;
}

void AddPath(cairo_t* cr, const TqxPathData& path) {
  cairo_new_path(cr);
  for (const TqxPathCommand& c : path.Commands()) {
    switch (c.Verb) {
      case TqxPathVerb::MoveTo: cairo_move_to(cr, c.Points[0].X, c.Points[0].Y); break;
      case TqxPathVerb::LineTo: cairo_line_to(cr, c.Points[0].X, c.Points[0].Y); break;
      case TqxPathVerb::CubicTo:
        cairo_curve_to(cr, c.Points[0].X, c.Points[0].Y, c.Points[1].X, c.Points[1].Y, c.Points[2].X, c.Points[2].Y);
        break;
      case TqxPathVerb::ClosePath: cairo_close_path(cr); break;
    }
  }
}

TqxPathData RoundRectPath(const TRectF& r, double rx, double ry) {
  TqxPathData path;
  rx = std::min(rx, r.Width() / 2);
  ry = std::min(ry, r.Height() / 2);
  if (!(rx > 0 && ry > 0)) {
    path.MoveTo({r.Left, r.Top});
    path.LineTo({r.Right, r.Top});
    path.LineTo({r.Right, r.Bottom});
    path.LineTo({r.Left, r.Bottom});
    path.ClosePath();
    return path;
  }
  const double kx = rx * kKappa, ky = ry * kKappa;
  path.MoveTo({r.Left + rx, r.Top});
  path.LineTo({r.Right - rx, r.Top});
  path.CubicTo({r.Right - rx + kx, r.Top}, {r.Right, r.Top + ry - ky}, {r.Right, r.Top + ry});
  path.LineTo({r.Right, r.Bottom - ry});
  path.CubicTo({r.Right, r.Bottom - ry + ky}, {r.Right - rx + kx, r.Bottom}, {r.Right - rx, r.Bottom});
  path.LineTo({r.Left + rx, r.Bottom});
  path.CubicTo({r.Left + rx - kx, r.Bottom}, {r.Left, r.Bottom - ry + ky}, {r.Left, r.Bottom - ry});
  path.LineTo({r.Left, r.Top + ry});
  path.CubicTo({r.Left, r.Top + ry - ky}, {r.Left + rx - kx, r.Top}, {r.Left + rx, r.Top});
  path.ClosePath();
  return path;
}

cairo_line_cap_t ToCairo(TqxLineCap cap) {
  switch (cap) {
    case TqxLineCap::Round: return CAIRO_LINE_CAP_ROUND;
    case TqxLineCap::Square: return CAIRO_LINE_CAP_SQUARE;
    case TqxLineCap::Butt: break;
  }
  return CAIRO_LINE_CAP_BUTT;
}

cairo_line_join_t ToCairo(TqxLineJoin join) {
  switch (join) {
    case TqxLineJoin::Round: return CAIRO_LINE_JOIN_ROUND;
    case TqxLineJoin::Bevel: return CAIRO_LINE_JOIN_BEVEL;
    case TqxLineJoin::Miter: break;
  }
  return CAIRO_LINE_JOIN_MITER;
}

bool ValidStroke(const TqxStrokeStyle& s) {
  return Finite(s.Width) && s.Width >= 0 && Finite(s.MiterLimit) && Finite(s.DashOffset) &&
         std::all_of(s.Dashes.begin(), s.Dashes.end(), [](double d) { return Finite(d); });
}

// Cairo takes the dash array as SVG does, but errors on negative or all-zero
// lengths; those draw solid.
void SetDash(cairo_t* cr, const TqxStrokeStyle& s) {
  double sum = 0;
  for (double d : s.Dashes) {
    if (d < 0) return cairo_set_dash(cr, nullptr, 0, 0);
    sum += d;
  }
  if (!(sum > 0) || !Finite(sum)) return cairo_set_dash(cr, nullptr, 0, 0);
  cairo_set_dash(cr, s.Dashes.data(), int(s.Dashes.size()), s.DashOffset);
}

}  // namespace

TqxBrush TqxBrush::Solid(TAlphaColor color) {
  TqxBrush brush;
  brush.Color = color;
  return brush;
}

TqxBrush TqxBrush::Linear(TPointF start, TPointF end, std::vector<TqxGradientStop> stops) {
  TqxBrush brush;
  brush.Kind = TKind::Linear;
  brush.Start = start;
  brush.End = end;
  brush.Stops = std::move(stops);
  return brush;
}

TqxBrush TqxBrush::Radial(TPointF center, double radius, std::vector<TqxGradientStop> stops) {
  TqxBrush brush;
  brush.Kind = TKind::Radial;
  brush.Center = center;
  brush.Radius = radius;
  brush.Stops = std::move(stops);
  return brush;
}

struct TqxCanvas::TImpl {
  cairo_surface_t* Surface = nullptr;
  cairo_t* Cr = nullptr;  // null for an empty bitmap: every call does nothing
  TMatrix Matrix;
  bool Singular = false;
  std::vector<TMatrix> Saved;

  void ApplyMatrix() {
    Singular = !Invertible(Matrix);
    if (Cr != nullptr && !Singular) {
      const cairo_matrix_t m = ToCairo(Matrix);
      cairo_set_matrix(Cr, &m);
    }
  }
  bool CanDraw() const { return Cr != nullptr && !Singular; }

  // Cairo keeps an error for good once it has one; begin anew rather than
  // draw nothing for the rest of the canvas's life. Saved clips are lost.
  void RecoverFromError() {
    if (Cr == nullptr || cairo_status(Cr) == CAIRO_STATUS_SUCCESS) return;
    cairo_destroy(Cr);
    Cr = cairo_create(Surface);
    Saved.clear();
    ApplyMatrix();
  }

  void Fill(const TqxPathData& path, TqxCanvasFillRule rule, const TqxBrush& brush, double opacity) {
    if (!CanDraw() || !ValidOpacity(opacity) || !Finite(path) || !Finite(brush)) return;
    // No save and restore: every fill sets the rule and source it needs, and
    // a gstate copy per fill shows in the cost of small pictures.
    AddPath(Cr, path);
    cairo_set_fill_rule(Cr, rule == TqxCanvasFillRule::EvenOdd ? CAIRO_FILL_RULE_EVEN_ODD : CAIRO_FILL_RULE_WINDING);
    if (SetSource(Cr, brush, std::min(opacity, 1.0))) cairo_fill(Cr);  // which clears the path
    RecoverFromError();
  }

  void Stroke(const TqxPathData& path, const TqxBrush& brush, const TqxStrokeStyle& style, double opacity) {
    if (!CanDraw() || !ValidOpacity(opacity) || !Finite(path) || !Finite(brush) || !ValidStroke(style)) return;
    cairo_save(Cr);
    AddPath(Cr, path);
    if (SetSource(Cr, brush, std::min(opacity, 1.0))) {
      cairo_set_line_cap(Cr, ToCairo(style.Cap));
      cairo_set_line_join(Cr, ToCairo(style.Join));
      cairo_set_miter_limit(Cr, style.MiterLimit);
      SetDash(Cr, style);
      if (style.Width == 0) {
        // A hairline: the path is already in device space, so the pen is one pixel.
        cairo_identity_matrix(Cr);
        cairo_set_line_width(Cr, 1);
      } else {
        cairo_set_line_width(Cr, style.Width);
      }
      cairo_stroke(Cr);
    }
    cairo_new_path(Cr);
    cairo_restore(Cr);
    RecoverFromError();
  }
};

TqxCanvas::TqxCanvas(TqxBitmap& bitmap) : FBitmap(bitmap), FImpl(std::make_unique<TImpl>()) {
  if (bitmap.IsEmpty()) return;
  FImpl->Surface = cairo_image_surface_create_for_data(reinterpret_cast<unsigned char*>(bitmap.Pixels()),
                                                       CAIRO_FORMAT_ARGB32, bitmap.Width(), bitmap.Height(),
                                                       bitmap.Stride());
  FImpl->Cr = cairo_create(FImpl->Surface);
}

TqxCanvas::~TqxCanvas() {
  if (FImpl->Cr != nullptr) {
    cairo_surface_flush(FImpl->Surface);
    cairo_destroy(FImpl->Cr);
  }
  if (FImpl->Surface != nullptr) cairo_surface_destroy(FImpl->Surface);
}

void TqxCanvas::Save() {
  FImpl->Saved.push_back(FImpl->Matrix);
  if (FImpl->Cr != nullptr) cairo_save(FImpl->Cr);
}

void TqxCanvas::Restore() {
  if (FImpl->Saved.empty()) return;
  FImpl->Matrix = FImpl->Saved.back();
  FImpl->Saved.pop_back();
  if (FImpl->Cr != nullptr) cairo_restore(FImpl->Cr);
  FImpl->ApplyMatrix();
}

int TqxCanvas::SaveDepth() const { return int(FImpl->Saved.size()); }

const TMatrix& TqxCanvas::Matrix() const { return FImpl->Matrix; }

void TqxCanvas::SetMatrix(const TMatrix& matrix) {
  FImpl->Matrix = matrix;
  FImpl->ApplyMatrix();
}

void TqxCanvas::Concat(const TMatrix& matrix) { SetMatrix(matrix * FImpl->Matrix); }
void TqxCanvas::Translate(double dx, double dy) { Concat(TMatrix::CreateTranslation(float(dx), float(dy))); }
void TqxCanvas::Scale(double sx, double sy) { Concat(TMatrix::CreateScaling(float(sx), float(sy))); }

void TqxCanvas::Clear(TAlphaColor color) {
  cairo_t* cr = FImpl->Cr;
  if (cr == nullptr) return;
  cairo_save(cr);
  cairo_set_operator(cr, CAIRO_OPERATOR_SOURCE);
  SetSourceColor(cr, color, 1);
  cairo_paint(cr);
  cairo_restore(cr);
}

void TqxCanvas::ClipRect(const TRectF& rect) {
  cairo_t* cr = FImpl->Cr;
  if (cr == nullptr) return;
  cairo_new_path(cr);
  if (FImpl->Singular || !ValidRect(rect)) {
    // Nothing of such a rectangle is visible, so nothing may be drawn.
    cairo_save(cr);
    cairo_identity_matrix(cr);
    cairo_rectangle(cr, 0, 0, 0, 0);
    cairo_restore(cr);
  } else {
    cairo_rectangle(cr, rect.Left, rect.Top, rect.Width(), rect.Height());
  }
  cairo_clip(cr);
}

void TqxCanvas::FillRect(const TRectF& rect, double radiusX, double radiusY, const TqxBrush& brush,
                         double opacity) {
  if (!ValidRect(rect) || !Finite(radiusX) || !Finite(radiusY)) return;
  FImpl->Fill(RoundRectPath(rect, radiusX, radiusY), TqxCanvasFillRule::NonZero, brush, opacity);
}

void TqxCanvas::StrokeRect(const TRectF& rect, double radiusX, double radiusY, const TqxBrush& brush,
                           const TqxStrokeStyle& stroke, double opacity) {
  if (!ValidRect(rect) || !Finite(radiusX) || !Finite(radiusY)) return;
  FImpl->Stroke(RoundRectPath(rect, radiusX, radiusY), brush, stroke, opacity);
}

void TqxCanvas::FillEllipse(const TRectF& rect, const TqxBrush& brush, double opacity) {
  if (!ValidRect(rect)) return;
  FImpl->Fill(RoundRectPath(rect, rect.Width() / 2, rect.Height() / 2), TqxCanvasFillRule::NonZero, brush, opacity);
}

void TqxCanvas::StrokeEllipse(const TRectF& rect, const TqxBrush& brush, const TqxStrokeStyle& stroke,
                              double opacity) {
  if (!ValidRect(rect)) return;
  FImpl->Stroke(RoundRectPath(rect, rect.Width() / 2, rect.Height() / 2), brush, stroke, opacity);
}

void TqxCanvas::DrawLine(TPointF from, TPointF to, const TqxBrush& brush, const TqxStrokeStyle& stroke,
                         double opacity) {
  TqxPathData path;
  path.MoveTo(from);
  path.LineTo(to);
  FImpl->Stroke(path, brush, stroke, opacity);
}

void TqxCanvas::FillPath(const TqxPathData& path, TqxCanvasFillRule rule, const TqxBrush& brush, double opacity) {
  FImpl->Fill(path, rule, brush, opacity);
}

void TqxCanvas::StrokePath(const TqxPathData& path, const TqxBrush& brush, const TqxStrokeStyle& stroke,
                           double opacity) {
  FImpl->Stroke(path, brush, stroke, opacity);
}

void TqxCanvas::FillPath(std::string_view pathData, TqxCanvasFillRule rule, const TqxBrush& brush, double opacity) {
  FImpl->Fill(TqxPathData::Parse(pathData), rule, brush, opacity);
}

void TqxCanvas::StrokePath(std::string_view pathData, const TqxBrush& brush, const TqxStrokeStyle& stroke,
                           double opacity) {
  FImpl->Stroke(TqxPathData::Parse(pathData), brush, stroke, opacity);
}

void TqxCanvas::DrawBitmap(const TqxBitmap& source, const TRectF& dest, double opacity, TqxImageFilter filter) {
  cairo_t* cr = FImpl->Cr;
  if (!FImpl->CanDraw() || source.IsEmpty() || !ValidOpacity(opacity) || !ValidRect(dest) || dest.IsEmpty()) return;
  // Cairo can't read the pixels it is writing.
  std::unique_ptr<TqxBitmap> copy;
  const TqxBitmap* from = &source;
  if (&source == &FBitmap) from = (copy = source.Clone()).get();

  cairo_surface_t* surface = cairo_image_surface_create_for_data(
      reinterpret_cast<unsigned char*>(const_cast<std::uint32_t*>(from->Pixels())), CAIRO_FORMAT_ARGB32,
      from->Width(), from->Height(), from->Stride());
  cairo_pattern_t* pattern = cairo_pattern_create_for_surface(surface);
  cairo_matrix_t m;
  cairo_matrix_init_scale(&m, from->Width() / dest.Width(), from->Height() / dest.Height());
  cairo_matrix_translate(&m, -dest.Left, -dest.Top);
  cairo_pattern_set_matrix(pattern, &m);
  cairo_pattern_set_filter(pattern, filter == TqxImageFilter::Nearest  ? CAIRO_FILTER_NEAREST
                                    : filter == TqxImageFilter::Linear ? CAIRO_FILTER_BILINEAR
                                                                       : CAIRO_FILTER_GOOD);
  // Edge pixels repeat outward, so a stretched picture doesn't fade at its border.
  cairo_pattern_set_extend(pattern, CAIRO_EXTEND_PAD);

  cairo_save(cr);
  cairo_new_path(cr);
  cairo_rectangle(cr, dest.Left, dest.Top, dest.Width(), dest.Height());
  cairo_clip(cr);
  cairo_set_source(cr, pattern);
  cairo_paint_with_alpha(cr, std::min(opacity, 1.0));
  cairo_restore(cr);
  cairo_pattern_destroy(pattern);
  cairo_surface_destroy(surface);
  FImpl->RecoverFromError();
}

void TqxCanvas::Flush() {
  if (FImpl->Surface != nullptr) cairo_surface_flush(FImpl->Surface);
}

}  // namespace qx
