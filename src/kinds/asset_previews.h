#pragma once

#include <memory>

#include "platform/core/base/types.h"

namespace qx {

class TqxBitmap;

// Pictures the asset kinds give the tree.

// Above this luminance a picture is shown on the dark grid, else on the light one.
inline constexpr double kLightPictureLuminance = 0.65;
inline constexpr int kPreviewCellSize = 4;
inline constexpr TAlphaColor kPreviewFrameColor = 0xFFD3D3D3;
inline constexpr TAlphaColor kMissingMarkColor = 0xFFFF0000;

// The colour over a chess background, framed; the bare background when the
// size is empty.
std::unique_ptr<TqxBitmap> CreateColorSwatch(TAlphaColor color, TSize size);

// The picture on the grid its luminance calls for; the missing-image mark
// when there is no picture or the preview can't be made (which is logged).
std::unique_ptr<TqxBitmap> CreateImagePreview(const TqxBitmap* picture, TSize size);

// White, a dashed frame, and a red cross in the top right corner; nullptr
// when the size is empty.
std::unique_ptr<TqxBitmap> CreateMissingImageMark(TSize size);

}  // namespace qx
