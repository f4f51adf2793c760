#include "vector/vector_bitmap_writer.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <filesystem>
#include <vector>

#include "platform/core/base/exception.h"
#include "platform/core/base/text.h"
#include "platform/core/graphics/bitmap.h"
#include "platform/core/graphics/path_data.h"
#include "platform/core/vector/vector_command.h"
#include "platform/core/vector/vector_document.h"
#include "platform/core/vector/vector_gradient.h"

namespace qx {

namespace {

bool Finite(float v) { return std::isfinite(v); }

// A side as the bitmap gets it: truncated, never negative, at most kMaxSide.
double ClampSide(double side) {
  if (std::isnan(side) || side < 0) return 0;
  return std::min(side, double(TsvgExportFMXBitmapWithSkia::kMaxSide));
}

int HexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

bool IsFinite(const TMatrix& m) {
  return Finite(m.m11) && Finite(m.m12) && Finite(m.m21) && Finite(m.m22) && Finite(m.m31) && Finite(m.m32);
}

std::vector<TqxGradientStop> StopsOf(const TqxVectorGradient& gradient) {
  std::vector<TqxGradientStop> stops;
  stops.reserve(gradient.Points.size());
  for (const TqxVectorGradientPoint& point : gradient.Points) stops.push_back({point.Offset, point.Color});
  return stops;
}

// The gradient's own Transform is not applied: a radial gradient carries its
// transform in its centre already, and a linear one never did.
std::optional<TqxBrush> ShaderOf(const TqxVectorGradient& gradient) {
  if (const auto* radial = dynamic_cast<const TqxVectorRadialGradient*>(&gradient))
    return TqxBrush::Radial(radial->Center, radial->Radius, StopsOf(gradient));
  if (const auto* linear = dynamic_cast<const TqxVectorLinearGradient*>(&gradient))
    return TqxBrush::Linear(linear->StartPoint, linear->EndPoint, StopsOf(gradient));
  return std::nullopt;
}

TqxLineCap ToCanvas(TqxStrokeLineCap cap) {
  switch (cap) {
    case TqxStrokeLineCap::Square: return TqxLineCap::Square;
    case TqxStrokeLineCap::Round: return TqxLineCap::Round;
    case TqxStrokeLineCap::Butt: break;
  }
  return TqxLineCap::Butt;
}

TqxLineJoin ToCanvas(TqxStrokeLineJoin join) {
  switch (join) {
    case TqxStrokeLineJoin::Round: return TqxLineJoin::Round;
    case TqxStrokeLineJoin::Bevel: return TqxLineJoin::Bevel;
    case TqxStrokeLineJoin::Miter: break;
  }
  return TqxLineJoin::Miter;
}

std::uint8_t AlphaOfOpacity(float opacity) {
  return std::uint8_t(Round(std::clamp(double(opacity), 0.0, 1.0) * 255));
}

}  // namespace

TsvgPaint::TsvgPaint() {
  Style.Width = 0;  // a new pen is a hairline
}

TsvgExportFMXBitmapWithSkia::TsvgExportFMXBitmapWithSkia(const TqxVectorDocument& document)
    : TsvgExportFMXBitmapWithSkia(document, document.Size) {}

TsvgExportFMXBitmapWithSkia::TsvgExportFMXBitmapWithSkia(const TqxVectorDocument& document, TSizeF size)
    : FDocument(&document) {
  size = {ClampSide(size.Width), ClampSide(size.Height)};
  FBitmap = std::make_unique<TqxBitmap>(int(size.Width), int(size.Height));
  TqxCanvas canvas(*FBitmap);
  FCanvas = &canvas;
  Process(size);
  FCanvas = nullptr;
}

TsvgExportFMXBitmapWithSkia::~TsvgExportFMXBitmapWithSkia() = default;

void TsvgExportFMXBitmapWithSkia::SaveToBitmap(TqxBitmap& bitmap) const { bitmap = *FBitmap; }

void TsvgExportFMXBitmapWithSkia::SaveToFile(const std::string& fileName) const {
  const std::string extension = std::filesystem::path(fileName).extension().string();
  if (!SameText(extension, ".png"))
    throw Exception(Format("Cannot save the image as \"%s\": the format of \"%s\" files is not supported",
                           {fileName, extension}));
  FBitmap->SaveToFile(fileName);
}

bool TsvgExportFMXBitmapWithSkia::TryStrToColor(std::string_view text, TAlphaColor& color) {
  if (!text.starts_with('#')) return false;
  std::string digits = Trim(text.substr(1));
  if (digits.size() == 6) {
    digits = "FF" + digits;
  } else if (digits.size() == 3) {
    digits = {'F', 'F', digits[0], digits[0], digits[1], digits[1], digits[2], digits[2]};
  }
  if (digits.empty()) return false;
  std::uint64_t value = 0;
  for (char c : digits) {
    const int digit = HexDigit(c);
    if (digit < 0) return false;
    value = value * 16 + std::uint64_t(digit);
    if (value > 0xFFFFFFFFu) return false;
  }
  color = TAlphaColor(value);
  return true;
}

void TsvgExportFMXBitmapWithSkia::Process(TSizeF size) {
  FStrokeOpacity = 1;
  FFillOpacity = 1;
  // The bitmap was made for this drawing, so it is transparent already.
  FFill.Color = kColorBlack;
  FStroke.Color = 0;  // no stroke until a brush or gradient gives one

  const TRectF& viewBox = FDocument->ViewBox;
  const TMatrix base =
      TMatrix::CreateTranslation(float(-viewBox.Left), float(-viewBox.Top)) *
      TMatrix::CreateScaling(float(size.Width / viewBox.Width()), float(size.Height / viewBox.Height()));
  if (!IsFinite(base) || viewBox.Width() == 0 || viewBox.Height() == 0)
    throw Exception(Format("Cannot fit the view box (%g, %g, %g, %g) into the bitmap",
                           {viewBox.Left, viewBox.Top, viewBox.Width(), viewBox.Height()}));
  FCanvas->SetMatrix(base);

  for (const auto& command : FDocument->Commands) Dispatch(*command);
}

void TsvgExportFMXBitmapWithSkia::Dispatch(const TqxVectorCommand& command) {
  switch (command.Kind) {
    case TqxVectorCommandKind::DrawPath: return DrawPath(command);
    case TqxVectorCommandKind::BeginGroup: return StoreCanvas();
    case TqxVectorCommandKind::EndGroup: return RestoreCanvas();
    case TqxVectorCommandKind::SetTransform: return SetTransform(command);
    case TqxVectorCommandKind::SetGradient: return SetGradient(command);
    case TqxVectorCommandKind::SetBrush: return SetBrush(command);
  }
  throw Exception("Unknown svg command kind");
}

void TsvgExportFMXBitmapWithSkia::StoreCanvas() {
  TsvgState state;
  state.CanvasState = FCanvas->SaveDepth();
  FCanvas->Save();
  state.StrokeOpacity = FStrokeOpacity;
  state.FillOpacity = FFillOpacity;
  state.Fill = FFill;
  state.Stroke = FStroke;
  FStates.push(std::move(state));
}

void TsvgExportFMXBitmapWithSkia::RestoreCanvas() {
  // A close without an open group (only a hand-made file has one) changes nothing.
  if (FStates.empty()) return;
  TsvgState& state = FStates.top();
  FStrokeOpacity = state.StrokeOpacity;
  FFillOpacity = state.FillOpacity;
  FFill = std::move(state.Fill);
  FStroke = std::move(state.Stroke);
  while (FCanvas->SaveDepth() > state.CanvasState) FCanvas->Restore();
  FStates.pop();
}

void TsvgExportFMXBitmapWithSkia::SetTransform(const TqxVectorCommand& command) {
  // The command's matrix acts first on a point, then what is in force.
  // A matrix that is not finite makes the canvas draw nothing until the group
  // closes.
  FCanvas->Concat(command.Matrix);
}

void TsvgExportFMXBitmapWithSkia::SetGradient(const TqxVectorCommand& command) {
  if (command.Gradient == nullptr) return;
  TsvgPaint& paint = command.IsFill ? FFill : FStroke;
  paint.Shader = ShaderOf(*command.Gradient);
}

void TsvgExportFMXBitmapWithSkia::SetBrush(const TqxVectorCommand& command) {
  const TqxVectorBrush& brush = command.Brush;
  if (brush.StrokeOpacity.HasValue() && Finite(brush.StrokeOpacity.Value()))
    FStrokeOpacity = brush.StrokeOpacity.Value();
  if (brush.FillOpacity.HasValue() && Finite(brush.FillOpacity.Value())) FFillOpacity = brush.FillOpacity.Value();
  SetStrokeFields(brush);
  // Unlike the other fields the fill rule does not carry over from an earlier brush.
  FLastFillPathRule = brush.FillRule.ValueOr(TqxFillRule::NonZero);
  TAlphaColor color = 0;
  if (brush.Fill.HasValue() && TryStrToColor(brush.Fill.Value(), color)) {
    FFill.Color = color;
    FFill.Shader.reset();
  }
}

void TsvgExportFMXBitmapWithSkia::SetStrokeFields(const TqxVectorBrush& brush) {
  TqxStrokeStyle& style = FStroke.Style;
  // A negative width is refused, as a pen has no such width.
  if (brush.StrokeWidth.HasValue() && Finite(brush.StrokeWidth.Value()) && brush.StrokeWidth.Value() >= 0)
    style.Width = brush.StrokeWidth.Value();
  TAlphaColor color = 0;
  if (brush.Stroke.HasValue() && TryStrToColor(brush.Stroke.Value(), color)) {
    FStroke.Color = color;
    FStroke.Shader.reset();
  }
  if (brush.StrokeDashArray.HasValue()) {
    const std::vector<float>& intervals = brush.StrokeDashArray.Value();
    const float offset = brush.StrokeDashOffset.ValueOr(0);
    // An odd-length array is repeated to make it even, as SVG does.
    if (Finite(offset) && std::all_of(intervals.begin(), intervals.end(), [](float v) { return Finite(v); })) {
      style.Dashes.assign(intervals.begin(), intervals.end());
      style.DashOffset = offset;
    }
  }
  if (brush.StrokeLineCap.HasValue()) style.Cap = ToCanvas(brush.StrokeLineCap.Value());
  if (brush.StrokeLineJoin.HasValue()) style.Join = ToCanvas(brush.StrokeLineJoin.Value());
}

void TsvgExportFMXBitmapWithSkia::DrawPath(const TqxVectorCommand& command) {
  const TqxPathData path = TqxPathData::Parse(command.Path);
  Paint(path, FStroke, FStrokeOpacity, true);
  Paint(path, FFill, FFillOpacity, false);
}

void TsvgExportFMXBitmapWithSkia::Paint(const TqxPathData& path, TsvgPaint& paint, float opacity, bool stroke) {
  if (opacity == 0 || !paint.IsVisible()) return;
  // The opacity takes the place of the colour's own alpha, and stays in the
  // paint afterwards.
  const std::uint8_t alpha = AlphaOfOpacity(opacity);
  paint.Color = WithAlpha(paint.Color, alpha);
  const TqxBrush brush = paint.Shader ? *paint.Shader : TqxBrush::Solid(paint.Color);
  const double brushOpacity = paint.Shader ? alpha / 255.0 : 1.0;
  if (stroke) {
    FCanvas->StrokePath(path, brush, paint.Style, brushOpacity);
  } else {
    const TqxCanvasFillRule rule =
        FLastFillPathRule == TqxFillRule::EvenOdd ? TqxCanvasFillRule::EvenOdd : TqxCanvasFillRule::NonZero;
    FCanvas->FillPath(path, rule, brush, brushOpacity);
  }
}

std::unique_ptr<TqxBitmap> RenderVectorDocument(const TqxVectorDocument& document, int width, int height) {
  TsvgExportFMXBitmapWithSkia writer(document, TSizeF{double(width), double(height)});
  return std::move(writer.FBitmap);  // the writer is done with it
}

}  // namespace qx
