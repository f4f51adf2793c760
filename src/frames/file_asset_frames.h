#pragma once

#include <memory>
#include <string>

#include "frames/base_asset_editor_frame.h"

namespace qx {

class TCustomImageList;
class TqxLottieAnimation;

// The 64 x 64 pictures of the file frames: 0 "Font File OTF",
// 1 "Font File TTF", 2 "Custom File".
const TCustomImageList& FileFrameImages();

// A font: its file's extension as the title, the OTF or TTF picture.
class TEditorFont : public TBaseEditorSinglePreview {
public:
  std::string GetTitle() const override;
  void DrawPreview(TqxCanvas& ACanvas, const TRectF& ARect) override;
  void OpenEditor() override;
  // The picture the preview shows, -1 for none.
  int ImageIndex() const;
};

// A custom file: its extension as the title, one picture for any file.
class TEditorFile : public TBaseEditorSinglePreview {
public:
  std::string GetTitle() const override;
  void DrawPreview(TqxCanvas& ACanvas, const TRectF& ARect) override;
  void OpenEditor() override;
};

// A Lottie animation, 104 x 104: the animation over a dashed box while there
// is a file, the dashed box alone otherwise. A click opens the picker.
class TEditorLottieAnimation : public TBaseAssetEditorFrame {
public:
  static constexpr int kSize = 104, kLayerSize = 88;

  TEditorLottieAnimation();
  ~TEditorLottieAnimation() override;

  static TRect LayerBounds() { return {8, 8, 8 + kLayerSize, 8 + kLayerSize}; }

  void UpdatePreview() override;
  void OpenPicker();

  // lottieAnimation: shown exactly when the asset has a file that reads.
  bool AnimationVisible() const { return FAnimation != nullptr; }
  const TqxLottieAnimation* Animation() const { return FAnimation.get(); }

private:
  void PickerChangedHandler();

  std::unique_ptr<TqxLottieAnimation> FAnimation;
};

// The text of the file name behind its last "."; the whole text without one.
std::string ExtensionTitle(const std::string& AUri);

}  // namespace qx
