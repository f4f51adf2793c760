#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/core/base/types.h"

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
};

}  // namespace qx
