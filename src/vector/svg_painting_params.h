#pragma once

#include <string>
#include <vector>

#include "platform/core/base/nullable.h"
#include "platform/core/vector/vector_brush.h"

namespace qx {

// The paint values one element states itself, through its `style` attribute
// and its presentation attributes. A style sheet class is merged later, when
// the brush is built.
struct TsvgPaintingParams {
  TqxNullable<std::string> FillColor;  // a colour text, or a gradient id with IsCustomFillColor
  TqxNullable<float> FillOpacity;
  TqxNullable<TqxFillRule> FillRule;
  TqxNullable<std::string> StrokeColor;  // a colour text, or a gradient id with IsCustomStrokeColor
  TqxNullable<float> StrokeWidth;
  TqxNullable<float> StrokeOpacity;
  TqxNullable<std::vector<float>> StrokeDashArray;
  TqxNullable<float> StrokeDashOffset;
  TqxNullable<TqxStrokeLineCap> StrokeLineCap;
  TqxNullable<TqxStrokeLineJoin> StrokeLineJoin;
  bool IsCustomFillColor = false;
  bool IsCustomStrokeColor = false;

  // Everything empty except the fill rule, which is NonZero: every element
  // states its own fill rule, so a group's rule never reaches its children.
  void ResetToDefault() {
    *this = TsvgPaintingParams();
    FillRule = TqxFillRule::NonZero;
  }
};

}  // namespace qx
