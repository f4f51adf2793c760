#include "frames/editor_color.h"

#include "platform/core/assets/asset_color.h"
#include "platform/core/base/assert.h"
#include "platform/core/base/text.h"
#include "platform/core/graphics/bitmap.h"
#include "platform/core/graphics/canvas.h"
#include "platform/core/graphics/color.h"
#include "platform/designtime/chess_background.h"
#include "platform/designtime/color_picker.h"

namespace qx {

namespace {

std::string Channel(const char* name, std::uint8_t value) {
  return Format("%s: %d (#%.2x)", {name, int(value), int(value)});
}

}  // namespace

TEditorColor::TEditorColor() = default;
TEditorColor::~TEditorColor() = default;

const TqxBitmap& TEditorColor::Background() {
  static const std::unique_ptr<TqxBitmap> background =
      CreateChessBackground({48, 48}, 8, LightGridColors.First, LightGridColors.Second);
  return *background;
}

TqxAssetColor& TEditorColor::ColorAsset() const {
  TqxAssert::IsNotNil(FAsset, "FAsset");
  return *TqxAssert::IsClass<TqxAssetColor>(FAsset, "FAsset is not TqxAssetColor");
}

std::string TEditorColor::GetTitle() const { return TAlphaColorHelper::ToDisplayString(ColorAsset().Color()); }

void TEditorColor::UpdatePreview() {
  TBaseEditorSinglePreview::UpdatePreview();
  if (!FAsset) return;
  const TAlphaColor color = ColorAsset().Color();
  SetHint(Channel("R", RedOf(color)) + "\r\n" + Channel("G", GreenOf(color)) + "\r\n" +
          Channel("B", BlueOf(color)) + "\r\n" + Channel("A", AlphaOf(color)));
  GenerateColorBitmap(color);
}

void TEditorColor::GenerateColorBitmap(TAlphaColor AColor) {
  auto bitmap = std::make_unique<TqxBitmap>(kPreviewSize, kPreviewSize);
  {
    TqxCanvas canvas(*bitmap);
    const TRectF bounds{0, 0, double(kPreviewSize), double(kPreviewSize)};
    canvas.DrawBitmap(Background(), bounds, 1);
    // Half a pixel in, so the one-pixel outline falls on whole pixels.
    const TRectF r{bounds.Left + 0.5, bounds.Top + 0.5, bounds.Right - 0.5, bounds.Bottom - 0.5};
    canvas.FillRect(r, 3, 3, TqxBrush::Solid(AColor), 1);
    canvas.StrokeRect(r, 0, 0, TqxBrush::Solid(0xFF808080), TqxStrokeStyle{}, 1);
  }
  FPreview = std::move(bitmap);
}

void TEditorColor::DrawPreview(TqxCanvas& ACanvas, const TRectF& ARect) {
  if (FPreview) DrawCentered(ACanvas, *FPreview, ARect);
}

void TEditorColor::OpenEditor() {
  auto picker = std::make_unique<TqxColorPicker>();
  picker->SetColor(ColorAsset().Color());
  picker->OnChange = [this](TFormBasePicker*) { ColorChanged(); };
  FPicker = ShowPicker(std::move(picker));
}

void TEditorColor::ColorChanged() {
  ColorAsset().SetColor(FPicker->Color());
  Changed();
  if (FOnNeedApplyColor && FPicker->ApplyToAll()) FOnNeedApplyColor(&ColorAsset());
}

void TEditorColor::Changed() {
  TBaseEditorSinglePreview::Changed();
  GenerateColorBitmap(ColorAsset().Color());
  Repaint();
}

}  // namespace qx
