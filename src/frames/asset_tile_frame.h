#pragma once

#include <memory>
#include <string>

#include "frames/base_asset_editor_frame.h"

namespace qx {

// A frame that shows an asset's name and its kind's preview, with no editor:
// it stands for kinds whose own frames aren't there yet (bitmap sets, SVG
// images, styles).
class TEditorAssetTile : public TBaseEditorSinglePreview {
public:
  TEditorAssetTile();
  ~TEditorAssetTile() override;

  std::string GetTitle() const override;
  void UpdatePreview() override;
  void DrawPreview(TqxCanvas& ACanvas, const TRectF& ARect) override;

private:
  std::unique_ptr<TqxBitmap> FPreview;
};

}  // namespace qx
