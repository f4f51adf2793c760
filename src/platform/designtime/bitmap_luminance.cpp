#include "platform/designtime/bitmap_luminance.h"

#include <cstddef>

#include "platform/core/graphics/bitmap.h"
#include "platform/core/graphics/color.h"

namespace qx {

double Luminance(const TqxBitmap& bitmap) {
  // Pixels are premultiplied, so summing the weighted channels as they stand
  // already weighs every pixel by its alpha.
  double weighted = 0;
  double alpha = 0;
  const std::size_t count = std::size_t(bitmap.Width()) * std::size_t(bitmap.Height());
  const auto* pixels = bitmap.Pixels();
  for (std::size_t i = 0; i < count; ++i) {
    const TAlphaColor p = pixels[i];
    weighted += 0.2126 * RedOf(p) + 0.7152 * GreenOf(p) + 0.0722 * BlueOf(p);
    alpha += AlphaOf(p);
  }
  return alpha > 0 ? weighted / alpha : 0.0;
}

}  // namespace qx
