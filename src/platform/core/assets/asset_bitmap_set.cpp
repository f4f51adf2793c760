#include "platform/core/assets/asset_bitmap_set.h"

#include <algorithm>
#include <cmath>

#include "platform/core/base/assert.h"
#include "platform/core/base/text.h"
#include "platform/core/graphics/bitmap.h"

namespace qx {

TqxAssetBitmapSet::TqxAssetBitmapSet(TqxAssetName name, TqxPlatform platform, TqxDeviceClass deviceClass)
    : TqxAsset(std::move(name), platform, deviceClass) {}

TqxAssetBitmapSet::~TqxAssetBitmapSet() = default;

bool TqxAssetBitmapSet::SameScale(float a, float b) { return std::fabs(a - b) < 1e-4f; }

TqxBitmapInfo* TqxAssetBitmapSet::Add(std::unique_ptr<TqxBitmapInfo> info) {
  TqxAssert::IsNotNil(info.get(), "AInfo");
  const float scale = info->Scale();
  auto it = std::find_if(FInfos.begin(), FInfos.end(), [&](const auto& i) { return i->Scale() >= scale - 1e-4f; });
  if (it != FInfos.end() && SameScale((*it)->Scale(), scale)) {
    *it = std::move(info);
  } else {
    it = FInfos.insert(it, std::move(info));
  }
  return it->get();
}

bool TqxAssetBitmapSet::Contains(float scale) const { return GetBitmapInfo(scale) != nullptr; }

std::vector<TqxBitmapInfo*> TqxAssetBitmapSet::GetBitmapInfos() const {
  std::vector<TqxBitmapInfo*> result;
  for (const auto& info : FInfos) result.push_back(info.get());
  return result;
}

TqxBitmapInfo* TqxAssetBitmapSet::GetBitmapInfo(float scale) const {
  for (const auto& info : FInfos) {
    if (SameScale(info->Scale(), scale)) return info.get();
  }
  return nullptr;
}

std::vector<TqxBitmapInfo*> TqxAssetBitmapSet::InfosByPreference(float scale) const {
  // A larger picture scaled down looks better than a smaller one scaled up.
  std::vector<TqxBitmapInfo*> larger, smaller;
  for (const auto& info : FInfos) {
    if (!info->HasBitmap()) continue;
    (info->Scale() >= scale - 1e-4f ? larger : smaller).push_back(info.get());
  }
  std::reverse(smaller.begin(), smaller.end());
  larger.insert(larger.end(), smaller.begin(), smaller.end());
  return larger;
}

TqxBitmapInfo* TqxAssetBitmapSet::FindBitmapInfo(float scale) const {
  const auto infos = InfosByPreference(scale);
  return infos.empty() ? nullptr : infos.front();
}

TqxBitmap* TqxAssetBitmapSet::FindBitmap(float scale) const {
  for (TqxBitmapInfo* info : InfosByPreference(scale)) {
    if (TqxBitmap* bitmap = info->GetBitmap()) return bitmap;
  }
  return nullptr;
}

void TqxAssetBitmapSet::SetCapInsets(const TRect& insetsAtScale1) {
  for (const auto& info : FInfos) {
    const double s = info->Scale();
    info->SetCapInsets({static_cast<int>(Round(insetsAtScale1.Left * s)), static_cast<int>(Round(insetsAtScale1.Top * s)),
                        static_cast<int>(Round(insetsAtScale1.Right * s)),
                        static_cast<int>(Round(insetsAtScale1.Bottom * s))});
  }
}

void TqxAssetBitmapSet::SetTintColor(TAlphaColor color) {
  for (const auto& info : FInfos) info->SetTintColor(color);
}

std::unique_ptr<TqxAsset> TqxAssetBitmapSet::Clone(const TqxAssetName& newName) const {
  auto clone = std::make_unique<TqxAssetBitmapSet>(newName, Platform(), DeviceClass());
  for (const auto& info : FInfos) clone->FInfos.push_back(info->Clone());
  return clone;
}

}  // namespace qx
