#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/core/base/nullable.h"

namespace qx {

// The paint enumerations; their ordinals are stored in .vector files.
enum class TqxFillRule : std::uint8_t { NonZero = 0, EvenOdd = 1 };
enum class TqxStrokeLineCap : std::uint8_t { Square = 0, Round = 1, Butt = 2 };
enum class TqxStrokeLineJoin : std::uint8_t { Miter = 0, Round = 1, Bevel = 2 };

// The paint of a scope. A field without a value leaves the paint of the enclosing
// group in force. Colours stay text ("#FF0000", "#00000000" for none, or any
// text the SVG gave): only the consumer of the brush turns them into numbers.
struct TqxVectorBrush {
  TqxNullable<std::string> Fill;
  TqxNullable<float> FillOpacity;
  TqxNullable<TqxFillRule> FillRule;
  TqxNullable<std::string> Stroke;
  TqxNullable<float> StrokeWidth;
  TqxNullable<float> StrokeOpacity;
  TqxNullable<std::vector<float>> StrokeDashArray;
  TqxNullable<float> StrokeDashOffset;
  TqxNullable<TqxStrokeLineCap> StrokeLineCap;
  TqxNullable<TqxStrokeLineJoin> StrokeLineJoin;

  bool operator==(const TqxVectorBrush&) const = default;
};

}  // namespace qx
