#pragma once

#include <functional>
#include <map>
#include <memory>

#include "platform/core/assets/asset.h"

namespace qx {

class TBaseAssetEditorFrame;

// Makes the edit frame of one asset; nullptr when it has none.
using TqxEditorFrameFactory = std::function<std::shared_ptr<TBaseAssetEditorFrame>(TqxAsset* AAsset)>;

// The frames live in a layer above the kinds, so each kind's CreateEditor asks
// this registry for the frame of its type. The frames layer fills Instance()
// through RegisterAssetEditorFrames(), called from the package's registration
// and the apps; until then every kind answers nullptr.
class TqxAssetEditorFrames {
public:
  static TqxAssetEditorFrames& Instance();

  // Replaces a factory registered before for the type.
  void Register(const TqxAssetType& AType, TqxEditorFrameFactory AFactory);
  bool Contains(const TqxAssetType& AType) const { return FFactories.count(AType) != 0; }
  // nullptr for a type without a factory.
  std::shared_ptr<TBaseAssetEditorFrame> Create(TqxAsset& AAsset) const;
  void Clear() { FFactories.clear(); }

private:
  std::map<TqxAssetType, TqxEditorFrameFactory> FFactories;
};

}  // namespace qx
