#pragma once

#include "platform/core/assets/asset.h"

namespace qx {

// Marks a theme: the assets whose names start with its name and `\` are the
// theme's members. It has no content of its own.
class TqxAssetThemeContainer : public TqxAsset {
public:
  static constexpr const char* kType = "theme-container";

  explicit TqxAssetThemeContainer(TqxAssetName name, TqxPlatform platform = kPlatformAny,
                                  TqxDeviceClass deviceClass = kDeviceClassAny)
      : TqxAsset(std::move(name), platform, deviceClass) {}

  TqxAssetType GetType() const override { return kType; }
  bool IsEmpty() const override { return false; }
  std::unique_ptr<TqxAsset> Clone(const TqxAssetName& newName) const override {
    return std::make_unique<TqxAssetThemeContainer>(newName, Platform(), DeviceClass());
  }
};

}  // namespace qx
