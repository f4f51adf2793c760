#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "platform/core/base/types.h"

namespace qx {

// Channel access and construction of 0xAARRGGBB colours.
constexpr std::uint8_t AlphaOf(TAlphaColor c) { return std::uint8_t(c >> 24); }
constexpr std::uint8_t RedOf(TAlphaColor c) { return std::uint8_t(c >> 16); }
constexpr std::uint8_t GreenOf(TAlphaColor c) { return std::uint8_t(c >> 8); }
constexpr std::uint8_t BlueOf(TAlphaColor c) { return std::uint8_t(c); }

constexpr TAlphaColor MakeColor(std::uint8_t r, std::uint8_t g, std::uint8_t b, std::uint8_t a = 255) {
  return (TAlphaColor(a) << 24) | (TAlphaColor(r) << 16) | (TAlphaColor(g) << 8) | TAlphaColor(b);
}

constexpr TAlphaColor WithAlpha(TAlphaColor c, std::uint8_t a) { return (c & 0x00FFFFFFu) | (TAlphaColor(a) << 24); }

inline constexpr TAlphaColor kColorNull = 0x00000000;
inline constexpr TAlphaColor kColorBlack = 0xFF000000;
inline constexpr TAlphaColor kColorWhite = 0xFFFFFFFF;

// Straight <-> premultiplied alpha, rounding to nearest. A colour of alpha 0
// unpremultiplies to 0 whatever its channels held.
TAlphaColor PremultiplyColor(TAlphaColor straight);
TAlphaColor UnpremultiplyColor(TAlphaColor premultiplied);

// Perceived brightness from 0 (black) to 1 (white): Rec. 709 weights on the
// sRGB-encoded channels. Alpha is not taken into account.
double Luminance(TAlphaColor color);

// One CSS/SVG colour keyword and its opaque sRGB value.
struct TqxNamedColor {
  std::string_view Name;  // lower case
  TAlphaColor Color;
};

// The 147 colour keywords of SVG 1.1 (CSS extended colours, both grey
// spellings), in alphabetical order. The one table of colour names here.
std::span<const TqxNamedColor> NamedColors();
// Case-insensitive look-up in NamedColors().
bool TryGetNamedColor(std::string_view name, TAlphaColor& color);

// Text forms of colours as the designer shows and accepts them.
class TAlphaColorHelper {
public:
  // "#RRGGBB" for an opaque colour, "#AARRGGBB" otherwise, upper-case digits.
  // Never a name: several names share one value (aqua and cyan), and the hex
  // text reads back through TryParse to the same colour.
  static std::string ToDisplayString(TAlphaColor color);
  // Exactly 8 upper-case hexadecimal digits, alpha first, no prefix.
  static std::string ToARGBHex(TAlphaColor color);
  // Accepts, with blanks around the text ignored:
  //   "#AARRGGBB", "#RRGGBB" (opaque), "#RGB" (opaque, each digit doubled);
  //   "$" or "0x" followed by 1 to 8 hex digits, read as the integer
  //   0xAARRGGBB, so "$FF0000" is transparent red, as in Pascal source;
  //   a keyword of NamedColors() or "transparent", case ignored.
  // Anything else answers false and leaves color alone.
  static bool TryParse(std::string_view text, TAlphaColor& color);
};

}  // namespace qx
