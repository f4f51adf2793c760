#include "platform/designtime/svg_bitmap_generator.h"

#include <utility>

#include "platform/core/base/exception.h"
#include "platform/core/graphics/bitmap.h"

namespace qx {
namespace {

TqxSvgBitmapGenerator& Generator() {
  static TqxSvgBitmapGenerator generator;
  return generator;
}

}  // namespace

void SetSvgBitmapGenerator(TqxSvgBitmapGenerator generator) { Generator() = std::move(generator); }

bool HasSvgBitmapGenerator() { return static_cast<bool>(Generator()); }

std::unique_ptr<TqxBitmap> GenerateBitmap(const TqxAssetSVG& asset, TSize size) {
  if (!Generator()) throw Exception("No SVG bitmap generator is installed: register the asset editors first");
  return Generator()(asset, size);
}

}  // namespace qx
