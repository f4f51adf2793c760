#include "platform/designtime/chess_background.h"

#include <algorithm>
#include <cstdint>

#include "platform/core/graphics/bitmap.h"
#include "platform/core/graphics/color.h"

namespace qx {

std::unique_ptr<TqxBitmap> CreateChessBackground(TSize size, int cellSize, TAlphaColor first, TAlphaColor second) {
  auto bitmap = std::make_unique<TqxBitmap>(std::max(size.Width, 0), std::max(size.Height, 0));
  DrawChessBackground(*bitmap, cellSize, first, second);
  return bitmap;
}

void DrawChessBackground(TqxBitmap& bitmap, int cellSize, TAlphaColor first, TAlphaColor second) {
  const int cell = std::max(cellSize, 1);
  const std::uint32_t colors[2] = {PremultiplyColor(first), PremultiplyColor(second)};
  std::uint32_t* row = bitmap.Pixels();
  for (int y = 0; y < bitmap.Height(); ++y, row += bitmap.Width()) {
    for (int x = 0; x < bitmap.Width(); ++x) row[x] = colors[(x / cell + y / cell) % 2];
  }
}

}  // namespace qx
