#pragma once

#include "platform/core/assets/asset.h"

namespace qx {

// A colour; it lives in the config files alone.
class TqxAssetColor : public TqxAsset {
public:
  static constexpr const char* kType = "color";

  TqxAssetColor(TqxAssetName name, TqxPlatform platform, TqxDeviceClass deviceClass, TAlphaColor color = 0)
      : TqxAsset(std::move(name), platform, deviceClass), FColor(color) {}

  TAlphaColor Color() const { return FColor; }
  void SetColor(TAlphaColor color) { FColor = color; }

  TqxAssetType GetType() const override { return kType; }
  bool IsEmpty() const override { return false; }
  std::unique_ptr<TqxAsset> Clone(const TqxAssetName& newName) const override {
    return std::make_unique<TqxAssetColor>(newName, Platform(), DeviceClass(), FColor);
  }

private:
  TAlphaColor FColor;
};

}  // namespace qx
