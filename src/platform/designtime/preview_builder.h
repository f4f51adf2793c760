#pragma once

#include <memory>

#include "platform/core/base/types.h"

namespace qx {

class TqxBitmap;

// Where a picture of pictureSize stands inside a box of boxSize: as large as
// fits with its proportions kept, centred. A picture that already fits keeps
// its size unless enlarge is set. An empty picture gives an empty rectangle.
TRectF FitPicture(TSizeF pictureSize, TSizeF boxSize, bool enlarge);

// A thumbnail of the size: a chess background of the two colours in cells of
// cellSize pixels, and the picture over it, fitted without being enlarged, so
// that small icons stay sharp.
std::unique_ptr<TqxBitmap> CreatePreview(const TqxBitmap& picture, TSize size, TAlphaColor first,
                                         TAlphaColor second, int cellSize);

}  // namespace qx
