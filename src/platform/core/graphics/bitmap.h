#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "platform/core/base/types.h"

namespace qx {

// A raster image in memory. Pixels are Cairo's ARGB32: native-endian 32-bit
// words, premultiplied alpha, rows of Width() words with no padding.
class TqxBitmap {
public:
  TqxBitmap() = default;
  TqxBitmap(int width, int height);  // transparent

  int Width() const { return FWidth; }
  int Height() const { return FHeight; }
  bool IsEmpty() const { return FWidth == 0 || FHeight == 0; }
  TSizeF Size() const { return {double(FWidth), double(FHeight)}; }
  // Resizes and clears to transparent.
  void SetSize(int width, int height);
  void Clear(TAlphaColor color = 0);

  std::uint32_t* Pixels() { return FPixels.data(); }
  const std::uint32_t* Pixels() const { return FPixels.data(); }
  int Stride() const { return FWidth * 4; }

  // Straight (not premultiplied) colours.
  TAlphaColor GetPixel(int x, int y) const;
  void SetPixel(int x, int y, TAlphaColor color);

  // PNG, JPEG or BMP. Raises Exception naming the file when it can't be read.
  static std::unique_ptr<TqxBitmap> LoadFromFile(const std::string& fileName);
  static std::unique_ptr<TqxBitmap> LoadFromMemory(const void* data, std::size_t size);
  // PNG. Raises Exception naming the file when it can't be written.
  void SaveToFile(const std::string& fileName) const;
  std::vector<std::uint8_t> SaveToPngBytes() const;

  std::unique_ptr<TqxBitmap> Clone() const { return std::make_unique<TqxBitmap>(*this); }
  bool operator==(const TqxBitmap& other) const = default;

  // Largest side accepted from a file or a caller; larger images are refused.
  static constexpr int kMaxSide = 32768;

private:
  int FWidth = 0;
  int FHeight = 0;
  std::vector<std::uint32_t> FPixels;
};

}  // namespace qx
