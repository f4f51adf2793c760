#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace qx {

class TqxBitmap;

// How hard the PNG encoder works. Thumbnail jobs write many small files and
// throw them away later, so they favour speed over size.
enum class TqxPngCompression { Small, Fast };

// PNG output through libpng, with a choice of speed that TqxBitmap's own PNG
// path (through Cairo) does not offer. Pixels are written unpremultiplied,
// 8 bits per channel with alpha.
class TqxPngWriter {
public:
  // Raises Exception for an empty bitmap or when encoding fails.
  static std::vector<std::uint8_t> Encode(const TqxBitmap& bitmap, TqxPngCompression compression);
  // Raises Exception naming the file when it can't be written.
  static void SaveToFile(const TqxBitmap& bitmap, const std::string& fileName, TqxPngCompression compression);
};

}  // namespace qx
