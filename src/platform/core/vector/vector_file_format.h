#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace qx::vector_format {

// Layout constants of the .vector file; docs/vector-format.md is the reference.

inline constexpr std::string_view kMagic = "QXVECTOR";
inline constexpr std::uint32_t kVersion = 1;
// Magic, version, body length.
inline constexpr std::size_t kHeaderSize = 16;
// CRC-32 of everything before it.
inline constexpr std::size_t kTrailerSize = 4;

inline constexpr std::uint8_t kLinearGradient = 1;
inline constexpr std::uint8_t kRadialGradient = 2;

// Presence bits of the brush fields, in the order the fields follow the mask.
enum BrushField : std::uint16_t {
  kFill = 1 << 0,
  kFillOpacity = 1 << 1,
  kFillRule = 1 << 2,
  kStroke = 1 << 3,
  kStrokeWidth = 1 << 4,
  kStrokeOpacity = 1 << 5,
  kStrokeDashArray = 1 << 6,
  kStrokeDashOffset = 1 << 7,
  kStrokeLineCap = 1 << 8,
  kStrokeLineJoin = 1 << 9,
};
inline constexpr std::uint16_t kKnownBrushFields = (1 << 10) - 1;

// Smallest encodings, which bound the counts a file may announce.
inline constexpr std::size_t kMinGradientSize = 1 + 4 + 36 + 4 + 12;
inline constexpr std::size_t kGradientPointSize = 8;
inline constexpr std::size_t kMinCommandSize = 1;

}  // namespace qx::vector_format
