#include "platform/designtime/lottie_animation.h"

#include <rlottie.h>

#include <filesystem>

#include "platform/core/base/exception.h"
#include "platform/core/graphics/bitmap.h"

namespace qx {

TqxLottieAnimation::TqxLottieAnimation(std::unique_ptr<rlottie::Animation> animation)
    : FAnimation(std::move(animation)) {}
TqxLottieAnimation::~TqxLottieAnimation() = default;
TqxLottieAnimation::TqxLottieAnimation(TqxLottieAnimation&&) noexcept = default;
TqxLottieAnimation& TqxLottieAnimation::operator=(TqxLottieAnimation&&) noexcept = default;

std::unique_ptr<TqxLottieAnimation> TqxLottieAnimation::TryLoadFromFile(const std::string& AFileName) {
  std::error_code error;
  if (!std::filesystem::is_regular_file(AFileName, error)) return nullptr;
  // The cache would keep a file's first contents under its name for the
  // process's life; a file the user replaces must read anew.
  auto animation = rlottie::Animation::loadFromFile(AFileName, false);
  if (!animation) return nullptr;
  return std::unique_ptr<TqxLottieAnimation>(new TqxLottieAnimation(std::move(animation)));
}

TqxLottieAnimation TqxLottieAnimation::LoadFromFile(const std::string& AFileName) {
  auto animation = TryLoadFromFile(AFileName);
  if (!animation) throw Exception("Cannot open the Lottie animation \"" + AFileName + "\"");
  return std::move(*animation);
}

double TqxLottieAnimation::Duration() const { return FAnimation->duration(); }
std::size_t TqxLottieAnimation::TotalFrame() const { return FAnimation->totalFrame(); }
double TqxLottieAnimation::FrameRate() const { return FAnimation->frameRate(); }

int TqxLottieAnimation::Width() const {
  std::size_t width = 0, height = 0;
  FAnimation->size(width, height);
  return int(width);
}

int TqxLottieAnimation::Height() const {
  std::size_t width = 0, height = 0;
  FAnimation->size(width, height);
  return int(height);
}

void TqxLottieAnimation::RenderFrame(std::size_t AFrame, TqxBitmap& ABitmap) const {
  ABitmap.Clear();
  if (ABitmap.IsEmpty()) return;
  const std::size_t total = TotalFrame();
  // Both use premultiplied native-endian ARGB words with no row padding.
  rlottie::Surface surface(ABitmap.Pixels(), ABitmap.Width(), ABitmap.Height(), ABitmap.Stride());
  FAnimation->renderSync(total ? AFrame % total : 0, surface);
}

}  // namespace qx
