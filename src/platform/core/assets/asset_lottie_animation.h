#pragma once

#include "platform/core/assets/asset_with_file.h"

namespace qx {

// A Lottie animation: a JSON file.
class TqxAssetLottieAnimation : public TqxAssetWithFile {
public:
  static constexpr const char* kType = "lottie-json";

  explicit TqxAssetLottieAnimation(TqxAssetName name, TqxPlatform platform = kPlatformAny,
                                   TqxDeviceClass deviceClass = kDeviceClassAny)
      : TqxAssetWithFile(std::move(name), platform, deviceClass) {}

  const std::string& GetFileName() const { return Uri(); }

  TqxAssetType GetType() const override { return kType; }
  std::unique_ptr<TqxAsset> Clone(const TqxAssetName& newName) const override {
    return CloneWithFile<TqxAssetLottieAnimation>(newName);
  }
};

}  // namespace qx
