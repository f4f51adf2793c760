#pragma once

#include <string>

#include "platform/core/assets/assets_factory.h"

namespace qx {

class TqxAssetsManager;

// The text of an assets config file for the manager's assets. URIs are stored
// relative to the folder of fileName. platforms, when given, keeps only the
// variants of those platforms.
class TqxAssetsConfigWriter {
public:
  static std::string Write(const TqxAssetsManager& manager, const std::string& fileName,
                           const TqxPlatforms* platforms, const TqxWritingOptions& options);

  // "#AARRGGBB", upper case.
  static std::string ColorText(TAlphaColor color);
  // The URI a bitmap held in memory gets when its set is saved:
  // R\T@SSx.png, relative to the assets folder.
  static std::string InMemoryBitmapUri(const class TqxAsset& set, float scale);
};

}  // namespace qx
