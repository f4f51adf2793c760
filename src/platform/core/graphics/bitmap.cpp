#include "platform/core/graphics/bitmap.h"

#include <cairo.h>
#include <stb/stb_image.h>

#include <fstream>
#include <iterator>

#include "platform/core/base/exception.h"
#include "platform/core/graphics/color.h"

namespace qx {

namespace {

void CheckSize(int width, int height) {
  if (width < 0 || height < 0 || width > TqxBitmap::kMaxSide || height > TqxBitmap::kMaxSide)
    throw Exception("Bitmap size " + std::to_string(width) + "x" + std::to_string(height) + " is out of range");
}

cairo_status_t AppendToVector(void* closure, const unsigned char* data, unsigned int length) {
  auto* out = static_cast<std::vector<std::uint8_t>*>(closure);
  out->insert(out->end(), data, data + length);
  return CAIRO_STATUS_SUCCESS;
}

}  // namespace

TqxBitmap::TqxBitmap(int width, int height) { SetSize(width, height); }

void TqxBitmap::SetSize(int width, int height) {
  CheckSize(width, height);
  FWidth = width;
  FHeight = height;
  FPixels.assign(std::size_t(width) * std::size_t(height), 0);
}

void TqxBitmap::Clear(TAlphaColor color) { std::fill(FPixels.begin(), FPixels.end(), PremultiplyColor(color)); }

TAlphaColor TqxBitmap::GetPixel(int x, int y) const {
  if (x < 0 || y < 0 || x >= FWidth || y >= FHeight) return 0;
  return UnpremultiplyColor(FPixels[std::size_t(y) * FWidth + x]);
}

void TqxBitmap::SetPixel(int x, int y, TAlphaColor color) {
  if (x < 0 || y < 0 || x >= FWidth || y >= FHeight) return;
  FPixels[std::size_t(y) * FWidth + x] = PremultiplyColor(color);
}

std::unique_ptr<TqxBitmap> TqxBitmap::LoadFromMemory(const void* data, std::size_t size) {
  if (size == 0 || size > std::size_t(INT32_MAX)) throw Exception("Not an image: empty or too large");
  int width = 0, height = 0, channels = 0;
  const auto* bytes = static_cast<const stbi_uc*>(data);
  if (!stbi_info_from_memory(bytes, int(size), &width, &height, &channels))
    throw Exception(std::string("Not a supported image: ") + stbi_failure_reason());
  CheckSize(width, height);
  stbi_uc* rgba = stbi_load_from_memory(bytes, int(size), &width, &height, &channels, 4);
  if (rgba == nullptr) throw Exception(std::string("Image can't be decoded: ") + stbi_failure_reason());
  auto bitmap = std::make_unique<TqxBitmap>(width, height);
  for (std::size_t i = 0; i < std::size_t(width) * height; ++i) {
    const stbi_uc* p = rgba + i * 4;
    bitmap->FPixels[i] = PremultiplyColor((TAlphaColor(p[3]) << 24) | (TAlphaColor(p[0]) << 16) | (TAlphaColor(p[1]) << 8) | p[2]);
  }
  stbi_image_free(rgba);
  return bitmap;
}

std::unique_ptr<TqxBitmap> TqxBitmap::LoadFromFile(const std::string& fileName) {
  std::ifstream in(fileName, std::ios::binary);
  if (!in) throw Exception("Cannot open image file \"" + fileName + "\"");
  std::vector<char> data((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  try {
    return LoadFromMemory(data.data(), data.size());
  } catch (const Exception& e) {
    throw Exception("Cannot read image file \"" + fileName + "\": " + e.Message());
  }
}

std::vector<std::uint8_t> TqxBitmap::SaveToPngBytes() const {
  if (IsEmpty()) throw Exception("An empty bitmap can't be saved as PNG");
  cairo_surface_t* surface = cairo_image_surface_create_for_data(
      reinterpret_cast<unsigned char*>(const_cast<std::uint32_t*>(FPixels.data())), CAIRO_FORMAT_ARGB32,
      FWidth, FHeight, Stride());
  std::vector<std::uint8_t> out;
  const cairo_status_t status = cairo_surface_write_to_png_stream(surface, AppendToVector, &out);
  cairo_surface_destroy(surface);
  if (status != CAIRO_STATUS_SUCCESS) throw Exception(std::string("PNG encoding failed: ") + cairo_status_to_string(status));
  return out;
}

void TqxBitmap::SaveToFile(const std::string& fileName) const {
  const std::vector<std::uint8_t> png = SaveToPngBytes();
  std::ofstream out(fileName, std::ios::binary | std::ios::trunc);
  if (!out) throw Exception("Cannot create image file \"" + fileName + "\"");
  out.write(reinterpret_cast<const char*>(png.data()), std::streamsize(png.size()));
  if (!out.flush()) throw Exception("Cannot write image file \"" + fileName + "\"");
}

}  // namespace qx
