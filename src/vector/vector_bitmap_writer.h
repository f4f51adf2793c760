#pragma once

#include <memory>
#include <optional>
#include <stack>
#include <string>
#include <string_view>

#include "platform/core/base/types.h"
#include "platform/core/graphics/canvas.h"
#include "platform/core/vector/vector_brush.h"

namespace qx {

class TqxBitmap;
class TqxVectorCommand;
class TqxVectorDocument;

// What one paint holds while a document is played: a colour, an optional
// gradient that takes the colour's place, and (for strokes) the pen.
struct TsvgPaint {
  TAlphaColor Color = 0;
  std::optional<TqxBrush> Shader;  // a linear or radial gradient brush
  TqxStrokeStyle Style;

  TsvgPaint();
  // Colour 0 without a gradient paints nothing, so drawing is skipped.
  bool IsVisible() const { return Color != 0 || Shader.has_value(); }
};

// One open group: what its close gives back.
struct TsvgState {
  int CanvasState = 0;  // the canvas's save depth before the group's save
  float StrokeOpacity = 1;
  float FillOpacity = 1;
  TsvgPaint Fill;
  TsvgPaint Stroke;
};

// Plays the commands of a vector document onto a canvas and keeps the picture.
// This is what thumbnails show: the document the SVG reader made, drawn, not
// the SVG file itself. All the drawing happens in the constructor; afterwards
// the object only holds the bitmap.
//
// Paint semantics kept on purpose:
//   - a group saves and restores the matrix, both opacities and both paints;
//     the fill rule is not part of it and falls back to non-zero at each brush;
//   - brush fields without a value, or whose number is not finite, leave the
//     live paint alone; a colour text that does not read leaves it too;
//   - the stroke is painted before the fill, so the fill covers its inner half;
//   - the opacity in force replaces the alpha of the paint's colour;
//   - the view box is stretched over the bitmap, each axis on its own.
//
// Raises Exception for a command of unknown kind ("Unknown svg command kind"),
// for path data the parser refuses, and for a view box that can't be fitted
// (zero width or height). A bitmap side beyond kMaxSide pixels is clamped.
class TsvgExportFMXBitmapWithSkia {
public:
  static constexpr int kMaxSide = 16384;

  // Renders at the document's Size.
  explicit TsvgExportFMXBitmapWithSkia(const TqxVectorDocument& document);
  // Renders at the given size instead, the view box stretched over it.
  TsvgExportFMXBitmapWithSkia(const TqxVectorDocument& document, TSizeF size);
  ~TsvgExportFMXBitmapWithSkia();
  TsvgExportFMXBitmapWithSkia(const TsvgExportFMXBitmapWithSkia&) = delete;
  TsvgExportFMXBitmapWithSkia& operator=(const TsvgExportFMXBitmapWithSkia&) = delete;

  const TqxBitmap& Bitmap() const { return *FBitmap; }
  // Copies the picture into the given bitmap, size included.
  void SaveToBitmap(TqxBitmap& bitmap) const;
  // The format follows the extension; ".png" is the one written. Raises
  // Exception for another extension or when the file can't be written.
  void SaveToFile(const std::string& fileName) const;

  // The writer's colour reader: "#RGB", "#RRGGBB" (both opaque) or up to eight
  // hexadecimal digits read as 0xAARRGGBB, blanks after the "#" ignored.
  // Named colours and functional forms answer false.
  static bool TryStrToColor(std::string_view text, TAlphaColor& color);

private:
  friend std::unique_ptr<TqxBitmap> RenderVectorDocument(const TqxVectorDocument&, int, int);

  void Process(TSizeF size);
  void Dispatch(const TqxVectorCommand& command);
  void StoreCanvas();
  void RestoreCanvas();
  void SetTransform(const TqxVectorCommand& command);
  void SetGradient(const TqxVectorCommand& command);
  void SetBrush(const TqxVectorCommand& command);
  void SetStrokeFields(const TqxVectorBrush& brush);
  void DrawPath(const TqxVectorCommand& command);
  void Paint(const TqxPathData& path, TsvgPaint& paint, float opacity, bool stroke);

  const TqxVectorDocument* FDocument;
  std::unique_ptr<TqxBitmap> FBitmap;
  float FStrokeOpacity = 1;
  float FFillOpacity = 1;
  std::stack<TsvgState> FStates;
  TqxCanvas* FCanvas = nullptr;  // valid while drawing only
  TsvgPaint FStroke;
  TsvgPaint FFill;
  TqxFillRule FLastFillPathRule = TqxFillRule::NonZero;
};

// Draws the document into a new bitmap of width x height pixels, its view box
// stretched over the whole bitmap. Raises as the writer does.
std::unique_ptr<TqxBitmap> RenderVectorDocument(const TqxVectorDocument& document, int width, int height);

}  // namespace qx
