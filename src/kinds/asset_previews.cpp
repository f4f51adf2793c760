#include "kinds/asset_previews.h"

#include <exception>

#include "platform/core/base/log.h"
#include "platform/core/graphics/bitmap.h"
#include "platform/core/graphics/canvas.h"
#include "platform/core/graphics/color.h"
#include "platform/designtime/bitmap_luminance.h"
#include "platform/designtime/chess_background.h"
#include "platform/designtime/preview_builder.h"

namespace qx {
namespace {

const char* const kLogTag = "AssetsDesigner";

bool IsDrawable(TSize size) { return size.Width > 0 && size.Height > 0; }

// The bounds moved in by half a pixel, so that a one-pixel line covers whole pixels.
TRectF InnerFrame(const TqxBitmap& bitmap) { return {0.5, 0.5, bitmap.Width() - 0.5, bitmap.Height() - 0.5}; }

}  // namespace

std::unique_ptr<TqxBitmap> CreateColorSwatch(TAlphaColor color, TSize size) {
  auto swatch = CreateChessBackground(size, kPreviewCellSize, kColorWhite, kPreviewFrameColor);
  if (!IsDrawable(size)) return swatch;
  TqxCanvas canvas(*swatch);
  const TRectF frame = InnerFrame(*swatch);
  canvas.FillRect(frame, 0, 0, TqxBrush::Solid(color));
  canvas.StrokeRect(frame, 0, 0, TqxBrush::Solid(kPreviewFrameColor), TqxStrokeStyle{});
  canvas.Flush();
  return swatch;
}

std::unique_ptr<TqxBitmap> CreateImagePreview(const TqxBitmap* picture, TSize size) {
  if (picture != nullptr && IsDrawable(size)) {
    try {
      const TqxGridColors& grid = Luminance(*picture) > kLightPictureLuminance ? DarkGridColors : LightGridColors;
      return CreatePreview(*picture, size, grid.First, grid.Second, kPreviewCellSize);
    } catch (const std::exception& e) {
      TqxLog::Error(kLogTag, "%s", {e.what()});
    }
  }
  return CreateMissingImageMark(size);
}

std::unique_ptr<TqxBitmap> CreateMissingImageMark(TSize size) {
  if (!IsDrawable(size)) return nullptr;
  auto mark = std::make_unique<TqxBitmap>(size.Width, size.Height);
  TqxCanvas canvas(*mark);
  canvas.Clear(kColorWhite);

  TqxStrokeStyle dashed;
  dashed.Dashes = {3, 1};
  canvas.StrokeRect(InnerFrame(*mark), 0, 0, TqxBrush::Solid(kPreviewFrameColor), dashed);

  TqxStrokeStyle cross;
  cross.Width = 2;
  const double w = size.Width;
  const TqxBrush red = TqxBrush::Solid(kMissingMarkColor);
  canvas.DrawLine({w - 4, 12}, {w - 12, 4}, red, cross);
  canvas.DrawLine({w - 4, 4}, {w - 12, 12}, red, cross);
  canvas.Flush();
  return mark;
}

}  // namespace qx
