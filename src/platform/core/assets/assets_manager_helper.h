#pragma once

#include "platform/core/assets/asset_color.h"
#include "platform/core/assets/assets_manager.h"

namespace qx {

class TqxAssetsManagerHelper {
public:
  // Adds a colour for any platform and device class and returns it. When that
  // variant exists: with replace, it gives way to the new colour; without, it
  // is returned unchanged if it is a colour, and Exception is raised if it is
  // of another kind.
  static TqxAssetColor* AddColor(TqxAssetsManager& manager, const TqxAssetName& name, TAlphaColor color,
                                 bool replace);
};

}  // namespace qx
