#pragma once

#include <string>

#include <nlohmann/json.hpp>

#include "platform/core/base/types.h"
#include "platform/core/vector/vector_brush.h"
#include "platform/core/vector/vector_command.h"
#include "platform/core/vector/vector_document.h"

namespace qx {

// A vector document as JSON, for dumps that people and scripts read and for
// golden files in tests. Numbers are the Singles the document holds, printed in
// their shortest form ("0.1", not "0.10000000149011612"), so dumps stay stable.
//
//   {"size": [w, h], "viewBox": [x, y, w, h], "commands": [...]}
//
// Commands in document order, each an object with "kind":
//   "path"      "path": the path data text
//   "begin", "end"
//   "transform" "matrix": 9 numbers, row by row
//   "gradient"  "fill": bool, "type": "linear" | "radial", "id", "start" and
//               "end" or "center" and "radius", "stops": [[offset, "#AARRGGBB"]...],
//               "transform": 9 numbers
//   "brush"     only the fields that have a value: "fill", "fillOpacity",
//               "fillRule", "stroke", "strokeWidth", "strokeOpacity",
//               "strokeDashArray", "strokeDashOffset", "strokeLineCap",
//               "strokeLineJoin"; enumerations by name ("NonZero", "Round", ...)
class TqxVectorDocumentJson {
public:
  static nlohmann::ordered_json Document(const TqxVectorDocument& document);
  static nlohmann::ordered_json Commands(const TqxVectorCommands& commands);
  static nlohmann::ordered_json Command(const TqxVectorCommand& command);
  static nlohmann::ordered_json Brush(const TqxVectorBrush& brush);
  static nlohmann::ordered_json Gradient(const TqxVectorGradient& gradient, bool isFill);
  static nlohmann::ordered_json Matrix(const TMatrix& matrix);

  // The shortest decimal that reads back as the same Single, as a double.
  static double Single(double value);
  // "#AARRGGBB" in upper case.
  static std::string ColorText(TAlphaColor color);

  static std::string FillRuleName(TqxFillRule rule);
  static std::string LineCapName(TqxStrokeLineCap cap);
  static std::string LineJoinName(TqxStrokeLineJoin join);
};

}  // namespace qx
