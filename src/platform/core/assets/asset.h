#pragma once

#include <memory>
#include <string>

#include "platform/core/base/types.h"

namespace qx {

// The string that names a kind of asset: "color", "bitmap-set", "font",
// "lottie-json", "style", "svg", "file", "theme-container".
using TqxAssetType = std::string;

class TqxAssetsManager;

// One variant of an asset name, for one platform and one device class.
// The manager owns its assets and is the only one that renames them.
class TqxAsset {
public:
  // Raises EqxAssertError for a platform or device class out of range.
  TqxAsset(TqxAssetName name, TqxPlatform platform, TqxDeviceClass deviceClass);
  virtual ~TqxAsset() = default;
  TqxAsset(const TqxAsset&) = delete;
  TqxAsset& operator=(const TqxAsset&) = delete;

  const TqxAssetName& Name() const { return FName; }
  TqxPlatform Platform() const { return FPlatform; }
  TqxDeviceClass DeviceClass() const { return FDeviceClass; }

  virtual TqxAssetType GetType() const = 0;
  // True when the asset has nothing to save to the assets folder.
  virtual bool IsEmpty() const = 0;
  // A deep copy under another name, same platform and device class.
  virtual std::unique_ptr<TqxAsset> Clone(const TqxAssetName& newName) const = 0;

  // The last part of the name.
  std::string GetShortName() const;
  // The folder part of the name without its closing `\`; empty at top level.
  std::string GetRelativePath() const;
  // The platform and device class as a token, e.g. "default", "android-phone-small".
  std::string GetTargetId() const;
  // The platform and device class for people, e.g. "Android Phone Small".
  std::string GetTargetDeviceDisplayName() const;
  // The manager's key of this variant.
  std::string GetId() const { return GenerateId(FName, FPlatform, FDeviceClass); }
  virtual std::string ToString() const;

  // The key of the variant (name, platform, device class). Two variants have
  // the same id exactly when all three are equal; names compare case-sensitively.
  static std::string GenerateId(const TqxAssetName& name, TqxPlatform platform, TqxDeviceClass deviceClass);

private:
  friend class TqxAssetsManager;
  void SetName(TqxAssetName name) { FName = std::move(name); }

  TqxAssetName FName;
  TqxPlatform FPlatform;
  TqxDeviceClass FDeviceClass;
};

}  // namespace qx
