#include "frames/asset_tile_frame.h"

#include "kinds/assets_editors_manager.h"
#include "platform/core/graphics/bitmap.h"
#include "platform/core/graphics/canvas.h"

namespace qx {

TEditorAssetTile::TEditorAssetTile() = default;
TEditorAssetTile::~TEditorAssetTile() = default;

std::string TEditorAssetTile::GetTitle() const { return FAsset ? FAsset->GetShortName() : std::string(); }

void TEditorAssetTile::UpdatePreview() {
  FPreview.reset();
  auto& editors = TqxAssetsEditorsManager::Instance();
  if (FAsset && !FAsset->IsEmpty() && editors.Contains(FAsset->GetType()))
    FPreview = editors.Editors(*FAsset).GeneratePreview(FAsset, {kPreviewSize, kPreviewSize});
  TBaseEditorSinglePreview::UpdatePreview();
}

void TEditorAssetTile::DrawPreview(TqxCanvas& ACanvas, const TRectF& ARect) {
  if (FPreview) DrawCentered(ACanvas, *FPreview, ARect);
}

}  // namespace qx
