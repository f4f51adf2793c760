#pragma once

#include <memory>
#include <vector>

#include "platform/core/assets/asset.h"
#include "platform/core/assets/bitmap_info.h"

namespace qx {

class TqxBitmap;

// A picture at several scales. The set owns its infos, in ascending scale.
class TqxAssetBitmapSet : public TqxAsset {
public:
  static constexpr const char* kType = "bitmap-set";

  explicit TqxAssetBitmapSet(TqxAssetName name, TqxPlatform platform = kPlatformAny,
                             TqxDeviceClass deviceClass = kDeviceClassAny);
  ~TqxAssetBitmapSet() override;

  // Takes the info; one of the same scale is replaced. Returns the info.
  TqxBitmapInfo* Add(std::unique_ptr<TqxBitmapInfo> info);
  bool Contains(float scale) const;
  std::vector<TqxBitmapInfo*> GetBitmapInfos() const;
  TqxBitmapInfo* GetBitmapInfo(float scale) const;

  // The info that best shows the set at a scale: that scale's own, else the
  // nearest larger one, else the nearest smaller one; only infos with a bitmap
  // count. nullptr when no info has one.
  TqxBitmapInfo* FindBitmapInfo(float scale = 1.0f) const;
  // The bitmap of the best info, in the same order, skipping files that can't
  // be read.
  TqxBitmap* FindBitmap(float scale = 1.0f) const;

  // Insets given at scale 1, set on every info multiplied by its scale.
  void SetCapInsets(const TRect& insetsAtScale1);
  void SetTintColor(TAlphaColor color);

  TqxAssetType GetType() const override { return kType; }
  // A set without infos has nothing to save; one with empty infos still has
  // its folder.
  bool IsEmpty() const override { return FInfos.empty(); }
  std::unique_ptr<TqxAsset> Clone(const TqxAssetName& newName) const override;

  static bool SameScale(float a, float b);

private:
  std::vector<TqxBitmapInfo*> InfosByPreference(float scale) const;

  std::vector<std::unique_ptr<TqxBitmapInfo>> FInfos;
};

}  // namespace qx
