#pragma once

#include <functional>
#include <memory>

#include "frames/base_asset_editor_frame.h"
#include "platform/core/base/types.h"

namespace qx {

class TqxAssetColor;
class TqxColorPicker;

using TNeedApplyColorEvent = std::function<void(TqxAssetColor* AColor)>;

// The frame of a colour: a swatch over a chessboard, so transparency shows,
// with the channels in its hint. A click opens the colour picker, whose
// "apply to all variants" box asks, through FOnNeedApplyColor, that the other
// variants take the colour too.
class TEditorColor : public TBaseEditorSinglePreview {
public:
  TEditorColor();
  ~TEditorColor() override;

  void UpdatePreview() override;
  void Changed() override;
  std::string GetTitle() const override;
  void DrawPreview(TqxCanvas& ACanvas, const TRectF& ARect) override;
  void OpenEditor() override;

  // The rendered swatch, of the preview box's size; nullptr before the first
  // preview.
  const TqxBitmap* Preview() const { return FPreview.get(); }

  TNeedApplyColorEvent FOnNeedApplyColor;

  // The 48 x 48 chessboard behind every swatch, shared by all colour frames.
  static const TqxBitmap& Background();

private:
  TqxAssetColor& ColorAsset() const;
  void GenerateColorBitmap(TAlphaColor AColor);
  void ColorChanged();

  TqxColorPicker* FPicker = nullptr;
  std::unique_ptr<TqxBitmap> FPreview;
};

}  // namespace qx
