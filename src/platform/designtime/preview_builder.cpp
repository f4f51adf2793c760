#include "platform/designtime/preview_builder.h"

#include <algorithm>

#include "platform/core/graphics/bitmap.h"
#include "platform/core/graphics/canvas.h"
#include "platform/designtime/chess_background.h"

namespace qx {

TRectF FitPicture(TSizeF pictureSize, TSizeF boxSize, bool enlarge) {
  if (pictureSize.Width <= 0 || pictureSize.Height <= 0 || boxSize.Width <= 0 || boxSize.Height <= 0) return {};
  double scale = std::min(boxSize.Width / pictureSize.Width, boxSize.Height / pictureSize.Height);
  if (!enlarge) scale = std::min(scale, 1.0);
  const double width = pictureSize.Width * scale;
  const double height = pictureSize.Height * scale;
  const double left = (boxSize.Width - width) / 2;
  const double top = (boxSize.Height - height) / 2;
  return {left, top, left + width, top + height};
}

std::unique_ptr<TqxBitmap> CreatePreview(const TqxBitmap& picture, TSize size, TAlphaColor first,
                                         TAlphaColor second, int cellSize) {
  auto preview = CreateChessBackground(size, cellSize, first, second);
  const TRectF place = FitPicture(picture.Size(), preview->Size(), false);
  if (!place.IsEmpty()) {
    TqxCanvas canvas(*preview);
    canvas.DrawBitmap(picture, place, 1, TqxImageFilter::Smooth);
    canvas.Flush();
  }
  return preview;
}

}  // namespace qx
