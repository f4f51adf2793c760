#include "frames/register_frames.h"

#include "frames/asset_tile_frame.h"
#include "frames/editor_color.h"
#include "frames/file_asset_frames.h"
#include "kinds/asset_editor_frames.h"

namespace qx {

namespace {

template <class T>
TqxEditorFrameFactory FactoryOf() {
  return [](TqxAsset*) -> std::shared_ptr<TBaseAssetEditorFrame> { return std::make_shared<T>(); };
}

}  // namespace

void RegisterAssetEditorFrames() {
  auto& frames = TqxAssetEditorFrames::Instance();
  if (frames.Contains("color")) return;
  frames.Register("color", FactoryOf<TEditorColor>());
  frames.Register("font", FactoryOf<TEditorFont>());
  frames.Register("file", FactoryOf<TEditorFile>());
  frames.Register("lottie-json", FactoryOf<TEditorLottieAnimation>());
  frames.Register("bitmap-set", FactoryOf<TEditorAssetTile>());
  frames.Register("svg", FactoryOf<TEditorAssetTile>());
  frames.Register("style", FactoryOf<TEditorAssetTile>());
}

}  // namespace qx
