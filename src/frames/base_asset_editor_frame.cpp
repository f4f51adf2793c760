#include "frames/base_asset_editor_frame.h"

#include "platform/core/assets/asset.h"
#include "platform/core/graphics/bitmap.h"
#include "platform/core/graphics/canvas.h"
#include "platform/ui/popup_service.h"

namespace qx {

TBaseAssetEditorFrame::~TBaseAssetEditorFrame() {
  if (auto* picker = OpenPicker()) {
    picker->OnChange = nullptr;
    DismissPopup(picker);
  }
}

void TBaseAssetEditorFrame::SetAsset(TqxAsset* Value) {
  if (Value == FAsset) return;
  FAsset = Value;
  AssetChanged();
}

void TBaseAssetEditorFrame::AssetChanged() { UpdatePreview(); }

void TBaseAssetEditorFrame::Changed() {
  if (FOnChanged) FOnChanged(FAsset);
}

void TBaseAssetEditorFrame::ScaleForPPI(int) {
  // Widgets scale with the screen; the frame only redraws its preview.
  UpdatePreview();
}

TBaseEditorSinglePreview::TBaseEditorSinglePreview() { SetBounds(0, 0, kWidth, kHeight); }

std::string TBaseEditorSinglePreview::GetTitle() const { return FAsset ? FAsset->ToString() : std::string(); }

void TBaseEditorSinglePreview::DrawPreview(TqxCanvas&, const TRectF&) {}

void TBaseEditorSinglePreview::Changed() {
  TBaseAssetEditorFrame::Changed();
  UpdatePreview();
}

void TBaseEditorSinglePreview::UpdatePreview() {
  FTitle = FAsset && FAsset->IsEmpty() ? "Empty" : GetTitle();
  Repaint();
}

void TBaseEditorSinglePreview::PaintPreview(TqxBitmap& ABitmap) {
  TqxCanvas canvas(ABitmap);
  const TRectF rect{0, 0, double(ABitmap.Width()), double(ABitmap.Height())};
  if (FAsset && FAsset->IsEmpty()) {
    TqxStrokeStyle dashed;
    dashed.Dashes = {3, 3};
    canvas.StrokeRect({0.5, 0.5, rect.Right - 0.5, rect.Bottom - 0.5}, 0, 0, TqxBrush::Solid(0xFF808080), dashed);
  } else {
    DrawPreview(canvas, rect);
  }
}

void TBaseEditorSinglePreview::DrawCentered(TqxCanvas& ACanvas, const TqxBitmap& ABitmap, const TRectF& ARect) {
  const int x = (int(ARect.Width()) - ABitmap.Width()) / 2;
  const int y = (int(ARect.Height()) - ABitmap.Height()) / 2;
  const double left = ARect.Left + x, top = ARect.Top + y;
  ACanvas.DrawBitmap(ABitmap, {left, top, left + ABitmap.Width(), top + ABitmap.Height()}, 1,
                     TqxImageFilter::Nearest);
}

}  // namespace qx
