#include "frames/lottie_animation_picker.h"

#include <cmath>
#include <filesystem>

#include "platform/core/assets/asset_with_file.h"
#include "platform/core/base/text.h"
#include "platform/designtime/lottie_animation.h"

namespace qx {

std::string DurationToString(double AValue) {
  const double seconds = std::trunc(AValue);
  // A hair over, so that 0.29 s, stored as 0.28999..., still reads "0:29".
  const double hundredths = std::trunc((AValue - seconds) * 100 + 1e-9);
  return Format("%d:%.2d", {std::int64_t(seconds), std::int64_t(hundredths)});
}

TLottieAnimationPicker::TLottieAnimationPicker() : TFilePickerBase(401, 304, "actLoad", "actSave", "actClear") {
  FTranslator.Add("Длительность", "Duration");
}

TLottieAnimationPicker::~TLottieAnimationPicker() = default;

void TLottieAnimationPicker::SetAsset(TqxAsset* AAsset) {
  TFilePickerBase::SetAsset(AAsset);
  ReloadPreview();
  UpdateActions();
}

void TLottieAnimationPicker::ReloadPreview() {
  const std::string uri = FAsset ? FAsset->Uri() : std::string();
  std::error_code error;
  // A file deleted behind the designer's back shows like no file, so that
  // the picker still opens and can clear it.
  if (uri.empty() || !std::filesystem::exists(uri, error)) {
    FAnimation.reset();
    FDecorationDashed = true;
    FDurationText = "-";
  } else {
    FAnimation = std::make_unique<TqxLottieAnimation>(TqxLottieAnimation::LoadFromFile(uri));
    FDecorationDashed = false;
    FDurationText = DurationToString(FAnimation->Duration());
  }
}

bool TLottieAnimationPicker::CanSave() const {
  std::error_code error;
  return FAsset && !FAsset->Uri().empty() && std::filesystem::is_regular_file(FAsset->Uri(), error);
}

}  // namespace qx
