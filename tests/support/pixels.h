#pragma once

#include <gtest/gtest.h>

#include <cstdlib>

#include "platform/core/graphics/bitmap.h"

namespace qx::test {

// Colours equal within a tolerance on every channel.
inline ::testing::AssertionResult Near(TAlphaColor actual, TAlphaColor expected, int tolerance = 2) {
  for (int shift : {24, 16, 8, 0}) {
    const int a = int((actual >> shift) & 0xFF), e = int((expected >> shift) & 0xFF);
    if (std::abs(a - e) > tolerance)
      return ::testing::AssertionFailure() << std::hex << "0x" << actual << " is not near 0x" << expected;
  }
  return ::testing::AssertionSuccess();
}

inline bool IsBlank(const TqxBitmap& bitmap) {
  for (int y = 0; y < bitmap.Height(); ++y)
    for (int x = 0; x < bitmap.Width(); ++x)
      if (bitmap.GetPixel(x, y) != 0) return false;
  return true;
}

}  // namespace qx::test
