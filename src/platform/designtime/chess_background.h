#pragma once

#include <memory>

#include "platform/core/base/types.h"

namespace qx {

class TqxBitmap;

// Two colours of a chess background: the first fills the cell at the top left.
struct TqxGridColors {
  TAlphaColor First = 0;
  TAlphaColor Second = 0;
  bool operator==(const TqxGridColors&) const = default;
};

// Behind dark or coloured pictures.
inline constexpr TqxGridColors LightGridColors{0xFFFFFFFF, 0xFFD3D3D3};
// Behind light pictures, which vanish on the light grid.
inline constexpr TqxGridColors DarkGridColors{0xFF404040, 0xFF2C2C2C};

// A new opaque bitmap of the size, in square cells of cellSize pixels, the
// first colour at the top left. A cell size below 1 counts as 1.
std::unique_ptr<TqxBitmap> CreateChessBackground(TSize size, int cellSize, TAlphaColor first, TAlphaColor second);
// Paints the cells over the whole of an existing bitmap.
void DrawChessBackground(TqxBitmap& bitmap, int cellSize, TAlphaColor first, TAlphaColor second);

}  // namespace qx
