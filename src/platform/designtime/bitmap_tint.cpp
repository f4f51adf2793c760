#include "platform/designtime/bitmap_tint.h"

#include <cstddef>

#include "platform/core/graphics/bitmap.h"
#include "platform/core/graphics/color.h"

namespace qx {

void TintFMXBitmap(TqxBitmap& bitmap, TAlphaColor color) {
  const std::size_t count = std::size_t(bitmap.Width()) * std::size_t(bitmap.Height());
  auto* pixels = bitmap.Pixels();
  for (std::size_t i = 0; i < count; ++i) {
    const unsigned alpha = (AlphaOf(pixels[i]) * AlphaOf(color) + 127) / 255;
    pixels[i] = PremultiplyColor(WithAlpha(color, std::uint8_t(alpha)));
  }
}

}  // namespace qx
