#include "platform/core/base/text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstring>

#include "platform/core/base/exception.h"

namespace qx {

namespace {

char AsciiUpper(char c) { return (c >= 'a' && c <= 'z') ? static_cast<char>(c - 32) : c; }
char AsciiLower(char c) { return (c >= 'A' && c <= 'Z') ? static_cast<char>(c + 32) : c; }

int CompareFolded(std::string_view a, std::string_view b, bool fold) {
  const size_t n = std::min(a.size(), b.size());
  for (size_t i = 0; i < n; ++i) {
    auto ca = static_cast<unsigned char>(fold ? AsciiUpper(a[i]) : a[i]);
    auto cb = static_cast<unsigned char>(fold ? AsciiUpper(b[i]) : b[i]);
    if (ca != cb) return ca < cb ? -1 : 1;
  }
  if (a.size() == b.size()) return 0;
  return a.size() < b.size() ? -1 : 1;
}

}  // namespace

bool SameText(std::string_view a, std::string_view b) {
  return a.size() == b.size() && CompareFolded(a, b, true) == 0;
}
bool SameStr(std::string_view a, std::string_view b) { return a == b; }
int CompareText(std::string_view a, std::string_view b) { return CompareFolded(a, b, true); }
int CompareStr(std::string_view a, std::string_view b) { return CompareFolded(a, b, false); }

bool StartsText(std::string_view prefix, std::string_view text) {
  return text.size() >= prefix.size() && SameText(text.substr(0, prefix.size()), prefix);
}
bool StartsStr(std::string_view prefix, std::string_view text) { return text.starts_with(prefix); }
bool EndsText(std::string_view suffix, std::string_view text) {
  return text.size() >= suffix.size() && SameText(text.substr(text.size() - suffix.size()), suffix);
}
bool EndsStr(std::string_view suffix, std::string_view text) { return text.ends_with(suffix); }
bool ContainsText(std::string_view text, std::string_view part) {
  return UpperCase(text).find(UpperCase(part)) != std::string::npos;
}

std::string UpperCase(std::string_view text) {
  std::string result(text);
  for (char& c : result) c = AsciiUpper(c);
  return result;
}
std::string LowerCase(std::string_view text) {
  std::string result(text);
  for (char& c : result) c = AsciiLower(c);
  return result;
}

std::string Trim(std::string_view text) {
  size_t begin = 0, end = text.size();
  while (begin < end && static_cast<unsigned char>(text[begin]) <= ' ') ++begin;
  while (end > begin && static_cast<unsigned char>(text[end - 1]) <= ' ') --end;
  return std::string(text.substr(begin, end - begin));
}

std::string StringReplaceAll(std::string_view text, std::string_view from, std::string_view to) {
  if (from.empty()) return std::string(text);
  std::string result;
  size_t pos = 0;
  for (size_t hit; (hit = text.find(from, pos)) != std::string_view::npos; pos = hit + from.size()) {
    result.append(text.substr(pos, hit - pos)).append(to);
  }
  result.append(text.substr(pos));
  return result;
}

std::vector<std::string> SplitString(std::string_view text, char separator) {
  std::vector<std::string> parts;
  size_t pos = 0;
  for (size_t hit; (hit = text.find(separator, pos)) != std::string_view::npos; pos = hit + 1) {
    parts.emplace_back(text.substr(pos, hit - pos));
  }
  parts.emplace_back(text.substr(pos));
  return parts;
}

bool IsValidUtf8(std::string_view text) {
  static constexpr std::uint32_t kMinimum[] = {0, 0x80, 0x800, 0x10000};
  size_t i = 0;
  while (i < text.size()) {
    // Runs of ASCII, the bulk of most texts, eight bytes at a time.
    while (i + 8 <= text.size()) {
      std::uint64_t word;
      std::memcpy(&word, text.data() + i, 8);
      if (word & 0x8080808080808080u) break;
      i += 8;
    }
    if (i >= text.size()) break;
    const auto lead = static_cast<unsigned char>(text[i]);
    const int extra = lead < 0x80 ? 0 : (lead >> 5) == 0x6 ? 1 : (lead >> 4) == 0xE ? 2 : (lead >> 3) == 0x1E ? 3 : -1;
    if (extra < 0 || i + extra >= text.size() + (extra == 0)) return false;
    std::uint32_t cp = lead & (0x7F >> extra);
    for (int k = 1; k <= extra; ++k) {
      const auto next = static_cast<unsigned char>(text[i + k]);
      if ((next & 0xC0) != 0x80) return false;
      cp = (cp << 6) | (next & 0x3F);
    }
    if (cp < kMinimum[extra] || cp > 0x10FFFF || (cp >= 0xD800 && cp <= 0xDFFF)) return false;
    i += extra + 1;
  }
  return true;
}

// ---- numbers ---------------------------------------------------------------

namespace {

struct Decimal {
  bool negative = false;
  std::string digits;  // significant digits, no trailing zeros, at least "0"
  int exponent = 0;    // value = 0.d1d2... * 10^(exponent + 1), i.e. d1 is at 10^exponent
};

Decimal ToDecimal(double value, int precision) {
  Decimal d;
  d.negative = std::signbit(value) && value != 0;
  char buffer[64];
  std::snprintf(buffer, sizeof buffer, "%.*e", precision - 1, std::fabs(value));
  std::string text(buffer);
  const size_t e = text.find('e');
  for (size_t i = 0; i < e; ++i)
    if (text[i] != '.') d.digits += text[i];
  d.exponent = std::stoi(text.substr(e + 1));
  while (d.digits.size() > 1 && d.digits.back() == '0') d.digits.pop_back();
  return d;
}

std::string NonFinite(double value) {
  if (std::isnan(value)) return "NAN";
  return value < 0 ? "-INF" : "INF";
}

std::string Grouped(const std::string& integer) {
  std::string result;
  const int n = static_cast<int>(integer.size());
  for (int i = 0; i < n; ++i) {
    if (i > 0 && (n - i) % 3 == 0) result += ',';
    result += integer[i];
  }
  return result;
}

// The RTL takes the 18 significant digits of the value and rounds them half away
// from zero at the last decimal, so 0.125 prints as "0.13" where printf, working
// on the binary value, would give "0.12".
std::string FixedText(double value, int decimals) {
  if (!std::isfinite(value)) return NonFinite(value);
  decimals = std::clamp(decimals, 0, 18);
  Decimal d = ToDecimal(value, 18);
  const int keep = d.exponent + 1 + decimals;  // digits left of the cut
  if (keep < 0) {
    d.digits.clear();
  } else if (keep < static_cast<int>(d.digits.size())) {
    const bool up = d.digits[keep] >= '5';
    d.digits.resize(keep);
    if (up) {
      int i = keep - 1;
      while (i >= 0 && d.digits[i] == '9') d.digits[i--] = '0';
      if (i >= 0) {
        ++d.digits[i];
      } else {
        d.digits.insert(0, "1");
        ++d.exponent;
      }
    }
  }
  auto digitAt = [&](int power) {  // the digit standing at 10^power
    const int index = d.exponent - power;
    return index >= 0 && index < static_cast<int>(d.digits.size()) ? d.digits[index] : '0';
  };
  std::string text;
  for (int power = std::max(d.exponent, 0); power >= 0; --power) text += digitAt(power);
  if (decimals > 0) text += '.';
  for (int power = -1; power >= -decimals; --power) text += digitAt(power);
  // The RTL prints no sign for a value that rounds to zero.
  if (d.negative && text.find_first_not_of("0.") != std::string::npos) text.insert(0, "-");
  return text;
}

std::string ScientificText(double value, int precision) {
  if (!std::isfinite(value)) return NonFinite(value);
  char buffer[64];
  std::snprintf(buffer, sizeof buffer, "%.*E", std::clamp(precision, 1, 18) - 1, value);
  std::string text(buffer);
  // The RTL writes the exponent with a sign and at least three digits.
  const size_t e = text.find('E');
  std::string exponent = text.substr(e + 2);
  while (exponent.size() < 3) exponent.insert(0, "0");
  return text.substr(0, e + 2) + exponent;
}

}  // namespace

std::string FloatToStrG(double value, int precision) {
  if (!std::isfinite(value)) return NonFinite(value);
  if (value == 0) return "0";
  precision = std::clamp(precision, 1, 18);
  const Decimal d = ToDecimal(value, precision);
  std::string result = d.negative ? "-" : "";
  const int count = static_cast<int>(d.digits.size());
  if (d.exponent >= precision || d.exponent < -5) {
    result += d.digits[0];
    if (count > 1) result += "." + d.digits.substr(1);
    result += "E" + std::to_string(d.exponent);
    return result;
  }
  if (d.exponent < 0) {
    result += "0." + std::string(-d.exponent - 1, '0') + d.digits;
    return result;
  }
  if (count <= d.exponent + 1) {
    result += d.digits + std::string(d.exponent + 1 - count, '0');
  } else {
    result += d.digits.substr(0, d.exponent + 1) + "." + d.digits.substr(d.exponent + 1);
  }
  return result;
}

std::string FloatToStr(double value) { return FloatToStrG(value, 15); }
std::string IntToStr(std::int64_t value) { return std::to_string(value); }

bool TryStrToFloat(std::string_view text, double& value) {
  std::string trimmed = Trim(text);
  std::string_view s = trimmed;
  if (s.starts_with('+')) s.remove_prefix(1);
  if (s.empty() || s.starts_with('+')) return false;
  // from_chars takes no locale: "." is always the separator.
  double parsed = 0;
  auto [end, ec] = std::from_chars(s.data(), s.data() + s.size(), parsed, std::chars_format::general);
  if (ec != std::errc() || end != s.data() + s.size()) return false;
  if (!std::isfinite(parsed)) return false;
  value = parsed;
  return true;
}

bool TryStrToInt(std::string_view text, std::int64_t& value) {
  std::string trimmed = Trim(text);
  std::string_view s = trimmed;
  if (s.starts_with('+')) s.remove_prefix(1);
  if (s.empty()) return false;
  std::int64_t parsed = 0;
  auto [end, ec] = std::from_chars(s.data(), s.data() + s.size(), parsed);
  if (ec != std::errc() || end != s.data() + s.size()) return false;
  value = parsed;
  return true;
}

std::int64_t Round(double value) { return static_cast<std::int64_t>(std::nearbyint(value)); }
std::int64_t Trunc(double value) { return static_cast<std::int64_t>(std::trunc(value)); }

// ---- Format ----------------------------------------------------------------

namespace {

[[noreturn]] void BadFormat(std::string_view format) {
  throw Exception("Format '" + std::string(format) + "' invalid or incompatible with argument");
}

struct FieldFormat {
  bool left = false;
  int width = -1;
  int precision = -1;
  char type = 0;
};

std::string Justify(std::string text, const FieldFormat& field) {
  if (field.width > static_cast<int>(text.size())) {
    const std::string pad(field.width - text.size(), ' ');
    text = field.left ? text + pad : pad + text;
  }
  return text;
}

std::string FormatOne(const TqxFormatArg& arg, const FieldFormat& field, std::string_view format) {
  const auto& v = arg.Value();
  const auto* integer = std::get_if<std::int64_t>(&v);
  const auto* real = std::get_if<double>(&v);
  const auto* string = std::get_if<std::string>(&v);
  switch (field.type) {
    case 'd':
    case 'u': {
      if (!integer) BadFormat(format);
      std::int64_t n = *integer;
      std::string digits = field.type == 'u' ? std::to_string(static_cast<std::uint32_t>(n))
                                            : std::to_string(n < 0 ? -static_cast<std::uint64_t>(n) : n);
      if (field.precision > static_cast<int>(digits.size()))
        digits.insert(0, field.precision - digits.size(), '0');
      return (field.type == 'd' && n < 0 ? "-" : "") + digits;
    }
    case 'x': {
      if (!integer) BadFormat(format);
      char buffer[32];
      std::snprintf(buffer, sizeof buffer, "%llX", static_cast<unsigned long long>(*integer));
      std::string digits(buffer);
      if (field.precision > static_cast<int>(digits.size()))
        digits.insert(0, field.precision - digits.size(), '0');
      return digits;
    }
    case 's': {
      if (!string) BadFormat(format);
      if (field.precision >= 0 && field.precision < static_cast<int>(string->size()))
        return string->substr(0, field.precision);
      return *string;
    }
    case 'g':
    case 'f':
    case 'e':
    case 'n': {
      if (!real && !integer) BadFormat(format);
      const double x = real ? *real : static_cast<double>(*integer);
      if (field.type == 'g') return FloatToStrG(x, field.precision < 0 ? 15 : field.precision);
      if (field.type == 'e') return ScientificText(x, field.precision < 0 ? 15 : field.precision);
      std::string text = FixedText(x, field.precision < 0 ? 2 : field.precision);
      if (field.type == 'n' && std::isfinite(x)) {
        const bool negative = text.starts_with('-');
        const size_t start = negative ? 1 : 0;
        const size_t dot = text.find('.');
        const std::string integerPart = text.substr(start, dot == std::string::npos ? std::string::npos : dot - start);
        text = (negative ? "-" : "") + Grouped(integerPart) + (dot == std::string::npos ? "" : text.substr(dot));
      }
      return text;
    }
    default:
      BadFormat(format);
  }
}

int ReadNumber(std::string_view format, size_t& i, const std::vector<TqxFormatArg>& args, size_t& next) {
  if (i < format.size() && format[i] == '*') {
    ++i;
    if (next >= args.size()) BadFormat(format);
    const auto* n = std::get_if<std::int64_t>(&args[next++].Value());
    if (!n) BadFormat(format);
    return static_cast<int>(*n);
  }
  int value = 0;
  bool any = false;
  while (i < format.size() && format[i] >= '0' && format[i] <= '9') {
    value = value * 10 + (format[i++] - '0');
    if (value > 100000) BadFormat(format);
    any = true;
  }
  return any ? value : -1;
}

}  // namespace

std::string Format(std::string_view format, const std::vector<TqxFormatArg>& args) {
  std::string out;
  size_t next = 0;
  for (size_t i = 0; i < format.size(); ++i) {
    if (format[i] != '%') {
      out += format[i];
      continue;
    }
    if (++i >= format.size()) BadFormat(format);
    if (format[i] == '%') {
      out += '%';
      continue;
    }
    FieldFormat field;
    // "%1:s": an explicit argument index.
    size_t look = i;
    int index = ReadNumber(format, look, args, next);
    if (look < format.size() && format[look] == ':' && index >= 0) {
      next = static_cast<size_t>(index);
      i = look + 1;
    }
    if (i < format.size() && format[i] == '-') {
      field.left = true;
      ++i;
    }
    field.width = ReadNumber(format, i, args, next);
    if (i < format.size() && format[i] == '.') {
      ++i;
      field.precision = ReadNumber(format, i, args, next);
      if (field.precision < 0) field.precision = 0;
    }
    if (i >= format.size()) BadFormat(format);
    field.type = AsciiLower(format[i]);
    if (next >= args.size()) BadFormat(format);
    out += Justify(FormatOne(args[next++], field, format), field);
  }
  return out;
}

std::string Format(std::string_view format, TqxFormatArgs args) {
  return Format(format, std::vector<TqxFormatArg>(args));
}

}  // namespace qx
