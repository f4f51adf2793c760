#pragma once

#include <optional>
#include <string>
#include <vector>

namespace qx {

// The path data texts that the basic SVG shapes become. The vector document
// knows paths only, so a circle or a rect is stored as the text of an
// equivalent path, and these texts are part of the stored format: their exact
// spelling must not drift.
//
// Numbers arrive as Singles and are widened to double before any arithmetic
// and printing, so 0.1 prints as 0.100000001490116 through %g. Lines and rects
// print through %f and keep two decimals.
struct TqxSVGShapePaths {
  static std::string Circle(float cx, float cy, float r);
  static std::string Ellipse(float cx, float cy, float rx, float ry);
  static std::string Line(float x1, float y1, float x2, float y2);
  static std::string Rect(float x, float y, float width, float height);

  // The tokens of a `points` list, joined as they stand; never parsed, so a
  // token keeps the digits of the file and an odd count passes through.
  // Nothing for two tokens or fewer. `closed` adds the "Z" of a polygon.
  static std::optional<std::string> Points(const std::vector<std::string>& tokens, bool closed);
};

}  // namespace qx
