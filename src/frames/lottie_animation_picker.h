#pragma once

#include <memory>
#include <string>

#include "frames/file_asset_pickers.h"

namespace qx {

class TqxLottieAnimation;

// "%d:%.2d" of the whole seconds and the hundredths: 3.25 reads "3:25".
std::string DurationToString(double AValue);

// Picks the file of a Lottie animation and plays it, 401 x 304: a 270 x 270
// animation inside a frame that is dashed while there is no file, and the
// animation's duration.
class TLottieAnimationPicker : public TFilePickerBase {
public:
  static constexpr int kAnimationSize = 270;

  TLottieAnimationPicker();
  ~TLottieAnimationPicker() override;

  void SetAsset(TqxAsset* AAsset) override;
  // Reads the animation at the asset's file again. A file that exists and
  // isn't an animation raises Exception.
  void ReloadPreview();

  // lottieAnimation's source; nullptr when there is none.
  const TqxLottieAnimation* Animation() const { return FAnimation.get(); }
  bool DecorationDashed() const { return FDecorationDashed; }
  const std::string& DurationText() const { return FDurationText; }
  std::string DurationTitle() const { return Translate("Длительность"); }

protected:
  void UriChanged() override { ReloadPreview(); }
  // Only a file that is still there can be copied.
  bool CanSave() const override;

private:
  std::unique_ptr<TqxLottieAnimation> FAnimation;
  bool FDecorationDashed = true;
  std::string FDurationText = "0:00";
};

}  // namespace qx
