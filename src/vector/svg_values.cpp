#include "vector/svg_values.h"

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <numbers>

#include "platform/core/base/exception.h"
#include "platform/core/base/text.h"

namespace qx {

namespace {

// The platform's conversion of one token to a float: blanks around it are
// allowed, anything else that is not part of the number is not.
bool ConvertSingle(std::string_view text, float& value) {
  double parsed = 0;
  if (!qx::TryStrToFloat(text, parsed)) return false;
  if (std::fabs(parsed) > FLT_MAX) return false;
  value = static_cast<float>(parsed);
  return true;
}

// The text with its last `count` characters dropped and blanks trimmed.
std::string DropTail(std::string_view text, size_t count) { return Trim(text.substr(0, text.size() - count)); }

int HexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

// Hex digits to a 32-bit value, as the platform reads "$" numbers: the bit
// pattern is kept, and a value that needs more than 32 bits is refused.
bool HexToColor(std::string_view digits, TAlphaColor& value) {
  if (digits.empty()) return false;
  std::uint64_t result = 0;
  for (char c : digits) {
    const int digit = HexDigit(c);
    if (digit < 0) return false;
    result = (result << 4) | static_cast<std::uint64_t>(digit);
    if (result > 0xFFFFFFFFu) return false;
  }
  value = static_cast<TAlphaColor>(result);
  return true;
}

// Everything of `item` from the first `mark` on is cut. The mark is found
// ignoring case but cut where its lower-case spelling stands, so an upper-case
// "PX" empties the item; dash lists have always been read this way.
std::string CutFrom(const std::string& item, std::string_view mark) {
  if (!ContainsText(item, mark)) return item;
  const size_t at = item.find(mark);
  return at == std::string::npos ? std::string() : item.substr(0, at);
}

}  // namespace

bool TqxSVGValues::TryStrToFloat(std::string_view S, float& V) {
  if (ConvertSingle(S, V)) return true;
  // Units are dropped, not converted: "12cm" is 12, like "12px".
  if (EndsStr("px", S) || EndsStr("cm", S)) return ConvertSingle(DropTail(S, 2), V);
  if (StartsStr(".", S)) return ConvertSingle("0" + std::string(S), V);
  if (StartsStr("-.", S)) return ConvertSingle("-0" + std::string(S.substr(1)), V);
  return false;
}

float TqxSVGValues::StrToFloat(std::string_view S) {
  float value = 0;
  if (!ConvertSingle(S, value)) throw Exception(Format("'%s' is not a valid floating point value", {S}));
  return value;
}

bool TqxSVGValues::TryStrToDegree(std::string_view S, float& V) {
  if (ConvertSingle(S, V)) return true;
  float value = 0;
  if (EndsStr("deg", S)) {
    if (!ConvertSingle(DropTail(S, 3), value)) return false;
    V = value;
    return true;
  }
  // "grad" before "rad": it ends with it.
  if (EndsStr("grad", S)) {
    if (!ConvertSingle(DropTail(S, 4), value)) return false;
    V = static_cast<float>(static_cast<double>(value) * 360.0 / 400.0);
    return true;
  }
  if (EndsStr("rad", S)) {
    if (!ConvertSingle(DropTail(S, 3), value)) return false;
    V = static_cast<float>(static_cast<double>(value) * 180.0 / std::numbers::pi);
    return true;
  }
  return false;
}

bool TqxSVGValues::TryStrToRectF(std::string_view S, TRectF& R) {
  // Four numbers between spaces; read in place, since every document has a viewBox.
  float items[4];
  std::size_t count = 0;
  while (!S.empty()) {
    const std::size_t end = std::min(S.find(' '), S.size());
    const std::string_view part = S.substr(0, end);
    S.remove_prefix(std::min(end + 1, S.size()));
    if (part.empty()) continue;
    if (count == 4 || !TryStrToFloat(part, items[count])) return false;
    ++count;
  }
  if (count != 4) return false;
  R.Left = items[0];
  R.Top = items[1];
  R.Right = items[0] + items[2];
  R.Bottom = items[1] + items[3];
  return true;
}

std::vector<std::string> TqxSVGValues::StrToPoints(std::string_view S) {
  std::string text(S);
  for (char& c : text) {
    if (c == '\r' || c == '\n' || c == ',') c = ' ';
  }
  std::vector<std::string> tokens;
  for (auto& part : SplitString(Trim(text), ' ')) {
    if (!part.empty()) tokens.push_back(std::move(part));
  }
  return tokens;
}

bool TqxSVGValues::TryParseSingleArray(std::string_view S, char ASeparator, std::vector<float>& A) {
  A.clear();
  for (const auto& part : SplitString(S, ASeparator)) {
    // "%" is only cut, not resolved: "10%" is the number 10.
    const std::string item = CutFrom(CutFrom(part, "px"), "%");
    float value = 0;
    if (TryStrToFloat(item, value)) A.push_back(value);
  }
  return !A.empty();
}

bool TqxSVGValues::TryStrToColor(std::string_view S, TAlphaColor& C) {
  if (!StartsStr("#", S)) return false;
  const std::string_view hex = S.substr(1);
  std::string digits;
  if (hex.size() == 6) {
    digits = "FF" + std::string(hex);
  } else if (hex.size() == 3) {
    digits = "FF";
    for (char c : hex) digits.append(2, c);
  } else {
    // Eight digits thus read as AARRGGBB, alpha first.
    digits = hex;
  }
  return HexToColor(digits, C);
}

bool TqxSVGValues::TryStrToStrokeLineCap(std::string_view S, TqxStrokeLineCap& ACap) {
  if (SameText(S, "butt")) {
    ACap = TqxStrokeLineCap::Butt;
  } else if (SameText(S, "round")) {
    ACap = TqxStrokeLineCap::Round;
  } else if (SameText(S, "square")) {
    ACap = TqxStrokeLineCap::Square;
  } else {
    return false;
  }
  return true;
}

bool TqxSVGValues::TryStrToStrokeLineJoin(std::string_view S, TqxStrokeLineJoin& AJoin) {
  if (SameText(S, "miter")) {
    AJoin = TqxStrokeLineJoin::Miter;
  } else if (SameText(S, "round")) {
    AJoin = TqxStrokeLineJoin::Round;
  } else if (SameText(S, "bevel")) {
    AJoin = TqxStrokeLineJoin::Bevel;
  } else {
    return false;
  }
  return true;
}

}  // namespace qx
