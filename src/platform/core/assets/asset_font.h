#pragma once

#include "platform/core/assets/asset_with_file.h"

namespace qx {

// A font file (.ttf or .otf).
class TqxAssetFont : public TqxAssetWithFile {
public:
  static constexpr const char* kType = "font";

  explicit TqxAssetFont(TqxAssetName name, TqxPlatform platform = kPlatformAny,
                        TqxDeviceClass deviceClass = kDeviceClassAny)
      : TqxAssetWithFile(std::move(name), platform, deviceClass) {}

  TqxAssetType GetType() const override { return kType; }
  std::unique_ptr<TqxAsset> Clone(const TqxAssetName& newName) const override {
    return CloneWithFile<TqxAssetFont>(newName);
  }
};

}  // namespace qx
