#pragma once

#include <string>
#include <string_view>

namespace qx {

// Character rules for turning free text into Object Pascal identifiers. Text
// is UTF-8; letters and digits are those of Unicode, so a Cyrillic or accented
// letter stays a letter.
class TqxPascalIdentifier {
public:
  // "" stays "". A text whose first character isn't a letter gets "_" in
  // front; then every character after the first that is neither letter nor
  // digit becomes "_".
  static std::string Normalize(std::string_view text);
  // True for the few reserved words that a generated constant would collide
  // with, compared ignoring case. Other reserved words aren't listed.
  static bool IsKeyword(std::string_view text);
  // The text with every character that is neither letter nor digit removed.
  static std::string LettersAndDigits(std::string_view text);
  // Upper case, Unicode letters included.
  static std::string ToUpper(std::string_view text);
  // The length as the IDE counts it: UTF-16 code units.
  static std::size_t Length(std::string_view text);
};

}  // namespace qx
