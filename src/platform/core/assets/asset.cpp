#include "platform/core/assets/asset.h"

#include <utility>

#include "platform/core/assets/asset_name_helper.h"
#include "platform/core/assets/asset_targets.h"
#include "platform/core/base/assert.h"
#include "platform/core/base/text.h"

namespace qx {

TqxAsset::TqxAsset(TqxAssetName name, TqxPlatform platform, TqxDeviceClass deviceClass)
    : FName(std::move(name)), FPlatform(platform), FDeviceClass(deviceClass) {
  TqxAssert::IsTrue(TqxAssetTargets::IsValidPlatform(platform), Format("APlatform = %d", {platform}));
  TqxAssert::IsTrue(TqxAssetTargets::IsValidDeviceClass(deviceClass),
                    Format("ADeviceClass = %d", {deviceClass}));
}

std::string TqxAsset::GetShortName() const { return TqxAssetNameHelper::ShortName(FName); }

std::string TqxAsset::GetRelativePath() const {
  std::string path = TqxAssetNameHelper::Path(FName);
  if (!path.empty()) path.pop_back();
  return path;
}

std::string TqxAsset::GetTargetId() const { return TqxAssetTargets::TargetId(FPlatform, FDeviceClass); }

std::string TqxAsset::GetTargetDeviceDisplayName() const {
  return TqxAssetTargets::TargetDisplayName(FPlatform, FDeviceClass);
}

std::string TqxAsset::ToString() const {
  return Format("%s \"%s\" [%s]", {GetType(), FName, GetTargetId()});
}

std::string TqxAsset::GenerateId(const TqxAssetName& name, TqxPlatform platform, TqxDeviceClass deviceClass) {
  // The two numbers close the id, so a name containing the separator can't
  // make two variants collide.
  return Format("%s|%d|%d", {name, platform, deviceClass});
}

}  // namespace qx
