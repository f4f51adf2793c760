#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace qx {

// Text and number helpers with the semantics of the Delphi run-time library that
// the designer's rules rely on. Strings are UTF-8; case folding covers ASCII
// letters only, as the RTL's SameText and CompareText do.

bool SameText(std::string_view a, std::string_view b);
bool SameStr(std::string_view a, std::string_view b);
// <0, 0, >0; letters compare as upper case, so '_' sorts after them.
int CompareText(std::string_view a, std::string_view b);
// Ordinal, case-sensitive.
int CompareStr(std::string_view a, std::string_view b);
bool StartsText(std::string_view prefix, std::string_view text);
bool StartsStr(std::string_view prefix, std::string_view text);
bool EndsText(std::string_view suffix, std::string_view text);
bool EndsStr(std::string_view suffix, std::string_view text);
bool ContainsText(std::string_view text, std::string_view part);
std::string UpperCase(std::string_view text);
std::string LowerCase(std::string_view text);
std::string Trim(std::string_view text);
std::string StringReplaceAll(std::string_view text, std::string_view from, std::string_view to);
std::vector<std::string> SplitString(std::string_view text, char separator);
bool IsValidUtf8(std::string_view text);

// One argument of Format: an integer, a floating-point number or a string.
class TqxFormatArg {
public:
  template <class T, std::enable_if_t<std::is_integral_v<T> && !std::is_same_v<T, bool>, int> = 0>
  TqxFormatArg(T value) : FValue(static_cast<std::int64_t>(value)) {}  // NOLINT
  TqxFormatArg(bool value) : FValue(static_cast<std::int64_t>(value)) {}  // NOLINT
  TqxFormatArg(double value) : FValue(value) {}  // NOLINT
  TqxFormatArg(float value) : FValue(static_cast<double>(value)) {}  // NOLINT
  TqxFormatArg(const char* value) : FValue(std::string(value)) {}  // NOLINT
  TqxFormatArg(std::string value) : FValue(std::move(value)) {}  // NOLINT
  TqxFormatArg(std::string_view value) : FValue(std::string(value)) {}  // NOLINT

  const std::variant<std::int64_t, double, std::string>& Value() const { return FValue; }

private:
  std::variant<std::int64_t, double, std::string> FValue;
};

using TqxFormatArgs = std::initializer_list<TqxFormatArg>;

// Delphi's Format under "en-us" settings: %s %d %u %x %g %f %e %n %%, with
// optional index ("%1:s"), '-' justification, width and precision ('*' taken
// from the arguments). %g is the general format: up to 15 significant digits
// (or the precision), no trailing zeros, scientific below 0.00001 or when the
// integer part has more digits than the precision. %f has 2 decimals by default.
// A mismatch between format and arguments raises Exception.
std::string Format(std::string_view format, TqxFormatArgs args);
std::string Format(std::string_view format, const std::vector<TqxFormatArg>& args);

// The general format of one number with the given significant digits.
std::string FloatToStrG(double value, int precision = 15);
// The general format with 15 digits, as the RTL's FloatToStr under "en-us".
std::string FloatToStr(double value);
std::string IntToStr(std::int64_t value);
// "en-us" parsing: "." separator, optional exponent; the whole text must be a number.
bool TryStrToFloat(std::string_view text, double& value);
bool TryStrToInt(std::string_view text, std::int64_t& value);

// Round half to even, as the platform's Round does.
std::int64_t Round(double value);
// Truncation toward zero.
std::int64_t Trunc(double value);

}  // namespace qx
