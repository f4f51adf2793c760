#pragma once

#include <functional>
#include <memory>

#include "platform/core/base/types.h"

namespace qx {

class TqxAssetSVG;
class TqxBitmap;

// Draws an SVG asset into a new bitmap that fits the size.
using TqxSvgBitmapGenerator = std::function<std::unique_ptr<TqxBitmap>(const TqxAssetSVG& asset, TSize size)>;

// The SVG reader and the vector bitmap writer belong to the system's own code,
// a layer above this one, so they can't be called from here. The asset kinds
// install them by SetSvgBitmapGenerator when they register; an empty function
// uninstalls them.
void SetSvgBitmapGenerator(TqxSvgBitmapGenerator generator);
bool HasSvgBitmapGenerator();

// The asset's SVG file drawn as large as fits the size, proportions kept.
// Raises Exception when no generator is installed, and passes on whatever the
// reader or the writer raises.
std::unique_ptr<TqxBitmap> GenerateBitmap(const TqxAssetSVG& asset, TSize size);

}  // namespace qx
