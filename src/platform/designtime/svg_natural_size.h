#pragma once

#include <string_view>

#include "platform/core/base/types.h"

namespace qx {

// The size an SVG text asks to be drawn at, in pixels at 96 dpi: its root's
// width and height when both are absolute lengths, otherwise the size of its
// view box. False, with size left alone, for a text that isn't SVG or tells
// neither.
bool TryGetSvgNaturalSize(std::string_view content, TSizeF& size);

}  // namespace qx
