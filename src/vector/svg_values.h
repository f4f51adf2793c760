#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <pugixml.hpp>

#include "platform/core/base/matrix.h"
#include "platform/core/base/types.h"
#include "platform/core/vector/vector_brush.h"
#include "platform/core/vector/vector_gradient.h"
#include "platform/core/vector/vector_transform.h"

namespace qx {

// The readers that turn SVG attribute text into values. The SVG reader derives
// from this class, so each reader is reachable under the reader's own name.
//
// Two kinds of failure, and callers choose between them on purpose: a `Try...`
// reader answers false and leaves its out value alone, which costs the caller
// one shape or one paint value; the others raise Exception, which ends the whole
// read of the document.
//
// Every number goes through the "en-us" conversion: "." is the decimal
// separator whatever the machine's locale, there is no thousands separator, and
// a value beyond the range of a float is no number.
class TqxSVGValues {
public:
  // A number, or a number followed by "px" or "cm" (taken as is, not scaled),
  // or one that starts with "." or "-.".
  static bool TryStrToFloat(std::string_view S, float& V);
  // A plain number only; raises otherwise.
  static float StrToFloat(std::string_view S);
  // Degrees: plain, or with "deg", "grad" or "rad".
  static bool TryStrToDegree(std::string_view S, float& V);
  // "x y width height", separated by blanks only; R is untouched on failure.
  static bool TryStrToRectF(std::string_view S, TRectF& R);
  // The tokens of a `points` list, unchecked.
  static std::vector<std::string> StrToPoints(std::string_view S);
  // The items of S that read as numbers, after cutting any "px" or "%" tail;
  // false when none does.
  static bool TryParseSingleArray(std::string_view S, char ASeparator, std::vector<float>& A);
  // "#RGB", "#RRGGBB" (opaque) or any other hex length read as AARRGGBB.
  static bool TryStrToColor(std::string_view S, TAlphaColor& C);
  // Case is ignored: "butt", "round", "square".
  static bool TryStrToStrokeLineCap(std::string_view S, TqxStrokeLineCap& ACap);
  // Case is ignored: "miter", "round", "bevel".
  static bool TryStrToStrokeLineJoin(std::string_view S, TqxStrokeLineJoin& AJoin);

  // Six numbers a b c d e f, separated by blanks or commas, as the rows
  // (a, b, 0), (c, d, 0), (e, f, 1). Raises on a bad or missing number.
  static TMatrix StrToMatrix(std::string_view S);

  // The node's `transform` attribute; false when it has none. Raises when a
  // translate or scale step has a bad number.
  static bool ReadTransform(const pugi::xml_node& ANode, TqxVectorTransform& T);
  // The steps translate, translatex, translatey, rotate, scale, scalex and
  // scaley; every other step, matrix and skews included, is passed over.
  static TqxVectorTransform ParseTransform(std::string_view AValue);
  // The node's `gradientTransform`, when it is a matrix, becomes the gradient's
  // `Transform`; any other value is passed over. Raises on a bad number.
  static void ReadGradientTransform(const pugi::xml_node& ANode, TqxVectorGradient& AGradient);
  static void ParseGradientTransform(std::string_view AValue, TqxVectorGradient& AGradient);
};

}  // namespace qx
