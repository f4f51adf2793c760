#include "platform/core/assets/assets_manager_helper.h"

#include "platform/core/base/exception.h"
#include "platform/core/base/text.h"

namespace qx {

TqxAssetColor* TqxAssetsManagerHelper::AddColor(TqxAssetsManager& manager, const TqxAssetName& name,
                                                TAlphaColor color, bool replace) {
  if (!replace) {
    if (TqxAsset* existing = manager.FindExact(name, kPlatformAny, kDeviceClassAny)) {
      if (auto* existingColor = dynamic_cast<TqxAssetColor*>(existing)) return existingColor;
      throw Exception(Format("Asset \"%s\" exists and is not a colour", {name}));
    }
  }
  return manager.Add(std::make_unique<TqxAssetColor>(name, kPlatformAny, kDeviceClassAny, color));
}

}  // namespace qx
