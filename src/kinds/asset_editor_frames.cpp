#include "kinds/asset_editor_frames.h"

namespace qx {

TqxAssetEditorFrames& TqxAssetEditorFrames::Instance() {
  static TqxAssetEditorFrames instance;
  return instance;
}

void TqxAssetEditorFrames::Register(const TqxAssetType& AType, TqxEditorFrameFactory AFactory) {
  FFactories[AType] = std::move(AFactory);
}

std::shared_ptr<TBaseAssetEditorFrame> TqxAssetEditorFrames::Create(TqxAsset& AAsset) const {
  auto it = FFactories.find(AAsset.GetType());
  return it == FFactories.end() ? nullptr : it->second(&AAsset);
}

}  // namespace qx
