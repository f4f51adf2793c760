#pragma once

#include <functional>
#include <memory>
#include <string>

#include "platform/designtime/form_base_picker.h"
#include "platform/designtime/frame_themed.h"

namespace qx {

class TqxAsset;
class TqxBitmap;
class TqxCanvas;

using TOnAssetChangedEvent = std::function<void(TqxAsset* AAsset)>;

// Base of the frames that show one asset in the designer's right-hand pane.
// A frame edits its asset in place (through a popup picker) and reports each
// edit through FOnChanged, which its host passes on to the designer.
class TBaseAssetEditorFrame : public TFrameThemed {
public:
  TBaseAssetEditorFrame() = default;
  ~TBaseAssetEditorFrame() override;

  TqxAsset* Asset() const { return FAsset; }
  // Binds the frame; the same asset again does nothing.
  void SetAsset(TqxAsset* Value);

  virtual void AssetChanged();
  // An edit happened: tells the host.
  virtual void Changed();
  virtual void UpdatePreview() {}
  void ScaleForPPI(int ANewPPI);

  TOnAssetChangedEvent FOnChanged;

  // The picker this frame opened, while it is open.
  TFormBasePicker* OpenPicker() const { return FPickerLife.expired() ? nullptr : FPicker; }

protected:
  // Shows the picker as a popup at this frame. When the frame goes first, the
  // picker is closed with it, so it never calls back into a dead frame.
  template <class T>
  T* ShowPicker(std::unique_ptr<T> APicker) {
    T* picker = TFormBasePicker::ShowAsPopup(std::move(APicker), *this);
    FPicker = picker;
    FPickerLife = picker->Lifetime();
    return picker;
  }

  TqxAsset* FAsset = nullptr;

private:
  TFormBasePicker* FPicker = nullptr;
  std::weak_ptr<const void> FPickerLife;
};

// A frame of one preview box over a title line, 80 x 90.
class TBaseEditorSinglePreview : public TBaseAssetEditorFrame {
public:
  static constexpr int kWidth = 80, kHeight = 90, kPreviewSize = 64, kTitleHeight = 12;

  TBaseEditorSinglePreview();

  // The box and the title line in the frame's coordinates.
  static TRect PreviewBounds() { return {8, 8, 8 + kPreviewSize, 8 + kPreviewSize}; }
  static TRect TitleBounds() { return {0, kHeight - kTitleHeight, kWidth, kHeight}; }
  const std::string& Title() const { return FTitle; }

  // A click on the box.
  virtual void OpenEditor() {}
  virtual std::string GetTitle() const;
  virtual void DrawPreview(TqxCanvas& ACanvas, const TRectF& ARect);

  void Changed() override;
  void UpdatePreview() override;

  // The box's picture: a dashed outline for an empty asset, DrawPreview otherwise.
  void PaintPreview(TqxBitmap& ABitmap);

protected:
  // Draws the bitmap unscaled in the middle of the rectangle.
  static void DrawCentered(TqxCanvas& ACanvas, const TqxBitmap& ABitmap, const TRectF& ARect);

private:
  std::string FTitle;
};

}  // namespace qx
