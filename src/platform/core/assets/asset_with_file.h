#pragma once

#include <string>

#include "platform/core/assets/asset.h"

namespace qx {

// Base of the kinds whose content is one file at `Uri`: a full path while the
// designer works on it, relative to the assets folder in the config files.
class TqxAssetWithFile : public TqxAsset {
public:
  using TqxAsset::TqxAsset;

  const std::string& Uri() const { return FUri; }
  void SetUri(std::string uri) { FUri = std::move(uri); }

  bool IsEmpty() const override { return FUri.empty(); }

protected:
  template <class T>
  std::unique_ptr<T> CloneWithFile(const TqxAssetName& newName) const {
    auto clone = std::make_unique<T>(newName, Platform(), DeviceClass());
    clone->SetUri(FUri);
    return clone;
  }

private:
  std::string FUri;
};

}  // namespace qx
