#pragma once

#include "designer/frame_asset_manager.h"
#include "platform/host/editor_view.h"

namespace qx {

// The assets designer as the IDE's tab frame: the host makes it from the
// view's GetFrameClass and owns it; the view and the window reach the
// designer document through it.
class TqxAssetsManagerFrame : public TCustomFrame, public TFrameAssetManager {
public:
  TqxAssetsManagerFrame() = default;
};

}  // namespace qx
