#include "vector/svg_shape_paths.h"

#include "platform/core/base/text.h"

namespace qx {

std::string TqxSVGShapePaths::Circle(float cx, float cy, float r) {
  // A move to the centre, a relative move to the left-most point, two half arcs.
  const double radius = r;
  return Format("M%g,%gm%g,0a%g,%g 0,1 1,%g 0a%g,%g 0,1 1,-%g 0",
                {double(cx), double(cy), -radius, radius, radius, 2 * radius, radius, radius, 2 * radius});
}

std::string TqxSVGShapePaths::Ellipse(float cx, float cy, float rx, float ry) {
  // Starts at the left-most point; the sweep flags differ from the circle's.
  const double radiusX = rx;
  return Format("M%g,%ga%g,%g 0 1,0 %g,0a%g,%g 0 1,0 -%g,0",
                {double(cx) - radiusX, double(cy), radiusX, double(ry), 2 * radiusX, radiusX, double(ry),
                 2 * radiusX});
}

std::string TqxSVGShapePaths::Line(float x1, float y1, float x2, float y2) {
  return Format("M%f, %f, L%f, %f", {double(x1), double(y1), double(x2), double(y2)});
}

std::string TqxSVGShapePaths::Rect(float x, float y, float width, float height) {
  const double right = double(x) + double(width);
  const double bottom = double(y) + double(height);
  return Format("M%f, %f L%f, %f %f, %f %f, %f Z",
                {double(x), double(y), right, double(y), right, bottom, double(x), bottom});
}

std::optional<std::string> TqxSVGShapePaths::Points(const std::vector<std::string>& tokens, bool closed) {
  if (tokens.size() <= 2) return std::nullopt;
  std::string text = "M" + tokens[0] + " " + tokens[1] + "L";
  for (size_t i = 2; i < tokens.size(); ++i) text += tokens[i] + " ";
  if (closed) text += "Z";
  return text;
}

}  // namespace qx
