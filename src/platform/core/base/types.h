#pragma once

#include <cstdint>
#include <string>

namespace qx {

// 0xAARRGGBB, alpha in the high byte.
using TAlphaColor = std::uint32_t;

// `\` separates folder parts; a folder path ends in `\`.
using TqxAssetName = std::string;
using TqxThemeName = std::string;

// 0 means any on both axes.
using TqxPlatform = int;
using TqxDeviceClass = int;

inline constexpr TqxPlatform kPlatformAny = 0;
inline constexpr TqxPlatform kPlatformAndroid = 1;
inline constexpr TqxPlatform kPlatformIOS = 2;
inline constexpr int kPlatformCount = 3;

inline constexpr TqxDeviceClass kDeviceClassAny = 0;
inline constexpr int kDeviceClassCount = 6;

struct TPointF {
  double X = 0, Y = 0;
  bool operator==(const TPointF&) const = default;
};

struct TSizeF {
  double Width = 0, Height = 0;
  bool operator==(const TSizeF&) const = default;
};

// Integer size in pixels, as of a preview.
struct TSize {
  int Width = 0, Height = 0;
  bool operator==(const TSize&) const = default;
};

// Integer rectangle, as pixel insets or bounds.
struct TRect {
  int Left = 0, Top = 0, Right = 0, Bottom = 0;
  bool operator==(const TRect&) const = default;
};

struct TRectF {
  double Left = 0, Top = 0, Right = 0, Bottom = 0;
  double Width() const { return Right - Left; }
  double Height() const { return Bottom - Top; }
  bool IsEmpty() const { return Right <= Left || Bottom <= Top; }
  bool operator==(const TRectF&) const = default;
};

}  // namespace qx
