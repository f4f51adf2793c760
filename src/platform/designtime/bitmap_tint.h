#pragma once

#include "platform/core/base/types.h"

namespace qx {

class TqxBitmap;

// Recolours a monochrome icon in place: every pixel takes the colour's red,
// green and blue, and keeps its own alpha multiplied by the colour's alpha.
void TintFMXBitmap(TqxBitmap& bitmap, TAlphaColor color);

}  // namespace qx
