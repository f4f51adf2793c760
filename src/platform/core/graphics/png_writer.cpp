#include "platform/core/graphics/png_writer.h"

#include <png.h>

#include <cstring>
#include <filesystem>
#include <fstream>

#include "platform/core/base/exception.h"
#include "platform/core/graphics/bitmap.h"

namespace qx {

namespace {

// Cairo's premultiplied native-endian ARGB words as straight BGRA bytes, the
// layout libpng's PNG_FORMAT_BGRA expects.
std::vector<std::uint8_t> StraightBgra(const TqxBitmap& bitmap) {
  const std::size_t count = std::size_t(bitmap.Width()) * std::size_t(bitmap.Height());
  std::vector<std::uint8_t> bytes(count * 4);
  const std::uint32_t* pixels = bitmap.Pixels();
  for (std::size_t i = 0; i < count; ++i) {
    const std::uint32_t p = pixels[i];
    const std::uint32_t a = p >> 24;
    std::uint8_t* out = &bytes[i * 4];
    out[3] = std::uint8_t(a);
    if (a == 0) {
      out[0] = out[1] = out[2] = 0;
      continue;
    }
    const std::uint32_t channels[3] = {p & 0xFF, (p >> 8) & 0xFF, (p >> 16) & 0xFF};
    for (int c = 0; c < 3; ++c) out[c] = std::uint8_t(a == 255 ? channels[c] : (channels[c] * 255 + a / 2) / a);
  }
  return bytes;
}

}  // namespace

std::vector<std::uint8_t> TqxPngWriter::Encode(const TqxBitmap& bitmap, TqxPngCompression compression) {
  if (bitmap.IsEmpty()) throw Exception("An empty bitmap can't be saved as PNG");
  const std::vector<std::uint8_t> pixels = StraightBgra(bitmap);

  png_image image;
  std::memset(&image, 0, sizeof(image));
  image.version = PNG_IMAGE_VERSION;
  image.width = png_uint_32(bitmap.Width());
  image.height = png_uint_32(bitmap.Height());
  image.format = PNG_FORMAT_BGRA;
  if (compression == TqxPngCompression::Fast) image.flags = PNG_IMAGE_FLAG_FAST;

  png_alloc_size_t size = PNG_IMAGE_PNG_SIZE_MAX(image);
  std::vector<std::uint8_t> out(size);
  const int ok = png_image_write_to_memory(&image, out.data(), &size, 0, pixels.data(), 0, nullptr);
  if (!ok) {
    const std::string message = image.message;
    png_image_free(&image);
    throw Exception("PNG encoding failed: " + message);
  }
  out.resize(size);
  return out;
}

void TqxPngWriter::SaveToFile(const TqxBitmap& bitmap, const std::string& fileName, TqxPngCompression compression) {
  const std::vector<std::uint8_t> png = Encode(bitmap, compression);
  std::ofstream out(std::filesystem::u8path(fileName), std::ios::binary | std::ios::trunc);
  if (!out) throw Exception("Cannot create image file \"" + fileName + "\"");
  out.write(reinterpret_cast<const char*>(png.data()), std::streamsize(png.size()));
  if (!out.flush()) throw Exception("Cannot write image file \"" + fileName + "\"");
}

}  // namespace qx
