#pragma once

#include <string>

#include "platform/core/assets/asset_with_file.h"

namespace qx {

// A style: a JSON file with "className" (the control class it styles) and
// "properties".
class TqxAssetStyle : public TqxAssetWithFile {
public:
  static constexpr const char* kType = "style";

  explicit TqxAssetStyle(TqxAssetName name, TqxPlatform platform = kPlatformAny,
                         TqxDeviceClass deviceClass = kDeviceClassAny)
      : TqxAssetWithFile(std::move(name), platform, deviceClass) {}

  // The class name as set on the asset; empty when only the file tells it.
  const std::string& TargetClassName() const { return FTargetClassName; }
  void SetTargetClassName(std::string className) { FTargetClassName = std::move(className); }

  // The class the style is for: the target class name when set, otherwise the
  // "className" of the file at Uri; empty when neither tells it, also when the
  // file is missing or isn't a JSON object.
  std::string GetStyleClass() const;

  TqxAssetType GetType() const override { return kType; }
  std::unique_ptr<TqxAsset> Clone(const TqxAssetName& newName) const override;

private:
  std::string FTargetClassName;
};

}  // namespace qx
