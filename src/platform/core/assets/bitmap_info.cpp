#include "platform/core/assets/bitmap_info.h"

#include <utility>

#include "platform/core/base/exception.h"
#include "platform/core/base/log.h"
#include "platform/core/graphics/bitmap.h"

namespace qx {

TqxBitmapInfo::TqxBitmapInfo(float scale) : FScale(scale) {}

TqxBitmapInfo::TqxBitmapInfo(std::string uri, float scale) : FScale(scale), FUri(std::move(uri)) {}

TqxBitmapInfo::~TqxBitmapInfo() = default;

bool TqxBitmapInfo::HasBitmap() const {
  return FSource == TqxSource::Memory ? FBitmap != nullptr : !FUri.empty();
}

TqxBitmap* TqxBitmapInfo::GetBitmap() {
  if (FBitmap || FSource == TqxSource::Memory || FUri.empty() || FLoadFailed) return FBitmap.get();
  try {
    FBitmap = TqxBitmap::LoadFromFile(FUri);
  } catch (const std::exception& e) {
    // Remembered, so that a missing file doesn't fill the log on every repaint.
    FLoadFailed = true;
    TqxLog::Warning("Assets", "Cannot load bitmap: uri=\"%s\", e=\"%s\"", {FUri, std::string(e.what())});
  }
  return FBitmap.get();
}

void TqxBitmapInfo::SetBitmap(std::unique_ptr<TqxBitmap> bitmap) {
  FBitmap = std::move(bitmap);
  FSource = TqxSource::Memory;
  FLoadFailed = false;
}

void TqxBitmapInfo::SetUri(std::string uri) {
  FUri = std::move(uri);
  FSource = TqxSource::File;
  FBitmap.reset();
  FLoadFailed = false;
}

std::unique_ptr<TqxBitmapInfo> TqxBitmapInfo::Clone() const {
  auto clone = std::make_unique<TqxBitmapInfo>(FUri, FScale);
  clone->FSource = FSource;
  clone->FCapInsets = FCapInsets;
  clone->FTintColor = FTintColor;
  clone->FLoadFailed = FLoadFailed;
  if (FBitmap) clone->FBitmap = FBitmap->Clone();
  return clone;
}

}  // namespace qx
