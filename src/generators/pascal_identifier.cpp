#include "generators/pascal_identifier.h"

#include <locale.h>
#include <wctype.h>

#include <array>
#include <vector>

#include "platform/core/base/text.h"

namespace qx {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

// The C library's Unicode tables, through a UTF-8 locale object so that the
// process's own locale doesn't matter. Without one, ASCII rules apply.
locale_t UnicodeLocale() {
  static const locale_t locale = newlocale(LC_CTYPE_MASK, "C.UTF-8", static_cast<locale_t>(nullptr));
  return locale;
}

bool IsAsciiLetter(char32_t c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }
bool IsAsciiDigit(char32_t c) { return c >= '0' && c <= '9'; }

bool IsLetter(char32_t c) {
  if (c < 0x80) return IsAsciiLetter(c);
  const locale_t locale = UnicodeLocale();
  return locale != nullptr && iswalpha_l(static_cast<wint_t>(c), locale) != 0;
}

bool IsLetterOrDigit(char32_t c) {
  if (c < 0x80) return IsAsciiLetter(c) || IsAsciiDigit(c);
  const locale_t locale = UnicodeLocale();
  return locale != nullptr && iswalnum_l(static_cast<wint_t>(c), locale) != 0;
}

char32_t UpperOf(char32_t c) {
  if (c < 0x80) return (c >= 'a' && c <= 'z') ? c - 'a' + 'A' : c;
  const locale_t locale = UnicodeLocale();
  return locale == nullptr ? c : static_cast<char32_t>(towupper_l(static_cast<wint_t>(c), locale));
}

// Code points of UTF-8 text; a byte that doesn't start a valid sequence reads
// as U+FFFD, which is neither letter nor digit.
std::vector<char32_t> Decode(std::string_view text) {
  std::vector<char32_t> result;
  result.reserve(text.size());
  std::size_t i = 0;
  while (i < text.size()) {
    const auto lead = static_cast<unsigned char>(text[i]);
    const std::size_t length = lead < 0x80 ? 1
                               : (lead >> 5) == 0x6  ? 2
                               : (lead >> 4) == 0xE  ? 3
                               : (lead >> 3) == 0x1E ? 4
                                                     : 0;
    if (length == 0 || i + length > text.size() || !IsValidUtf8(text.substr(i, length))) {
      result.push_back(kReplacement);
      ++i;
      continue;
    }
    char32_t c = length == 1 ? lead : lead & (0x7F >> length);
    for (std::size_t k = 1; k < length; ++k) c = (c << 6) | (static_cast<unsigned char>(text[i + k]) & 0x3F);
    result.push_back(c);
    i += length;
  }
  return result;
}

void Append(std::string& out, char32_t c) {
  if (c < 0x80) {
    out += static_cast<char>(c);
  } else if (c < 0x800) {
    out += static_cast<char>(0xC0 | (c >> 6));
    out += static_cast<char>(0x80 | (c & 0x3F));
  } else if (c < 0x10000) {
    out += static_cast<char>(0xE0 | (c >> 12));
    out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (c & 0x3F));
  } else {
    out += static_cast<char>(0xF0 | (c >> 18));
    out += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
    out += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (c & 0x3F));
  }
}

std::string Encode(const std::vector<char32_t>& chars) {
  std::string out;
  out.reserve(chars.size());
  for (char32_t c : chars) Append(out, c);
  return out;
}

}  // namespace

std::string TqxPascalIdentifier::Normalize(std::string_view text) {
  if (text.empty()) return {};
  std::vector<char32_t> chars = Decode(text);
  if (!IsLetter(chars.front())) chars.insert(chars.begin(), U'_');
  for (std::size_t i = 1; i < chars.size(); ++i) {
    if (!IsLetterOrDigit(chars[i])) chars[i] = U'_';
  }
  return Encode(chars);
}

bool TqxPascalIdentifier::IsKeyword(std::string_view text) {
  static constexpr std::array<std::string_view, 19> kKeywords = {
      "type", "in",     "out",   "label", "set",  "repeat", "begin", "end",   "xor",  "or",
      "string", "const", "then", "of",    "packed", "array", "and",  "not", "file"};
  for (std::string_view keyword : kKeywords) {
    if (SameText(keyword, text)) return true;
  }
  return false;
}

std::string TqxPascalIdentifier::LettersAndDigits(std::string_view text) {
  std::vector<char32_t> kept;
  for (char32_t c : Decode(text)) {
    if (IsLetterOrDigit(c)) kept.push_back(c);
  }
  return Encode(kept);
}

std::string TqxPascalIdentifier::ToUpper(std::string_view text) {
  std::vector<char32_t> chars = Decode(text);
  for (char32_t& c : chars) c = UpperOf(c);
  return Encode(chars);
}

std::size_t TqxPascalIdentifier::Length(std::string_view text) {
  std::size_t length = 0;
  for (char32_t c : Decode(text)) length += c >= 0x10000 ? 2 : 1;
  return length;
}

}  // namespace qx
