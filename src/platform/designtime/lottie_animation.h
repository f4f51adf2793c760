#pragma once

#include <cstddef>
#include <memory>
#include <string>

namespace rlottie {
class Animation;
}

namespace qx {

class TqxBitmap;

// A Lottie animation read from a file: its length and its frames as bitmaps.
class TqxLottieAnimation {
public:
  ~TqxLottieAnimation();
  TqxLottieAnimation(TqxLottieAnimation&&) noexcept;
  TqxLottieAnimation& operator=(TqxLottieAnimation&&) noexcept;

  // Raises Exception naming the file when it is missing or isn't a Lottie
  // animation.
  static TqxLottieAnimation LoadFromFile(const std::string& AFileName);
  // nullptr instead of raising.
  static std::unique_ptr<TqxLottieAnimation> TryLoadFromFile(const std::string& AFileName);

  // In seconds.
  double Duration() const;
  std::size_t TotalFrame() const;
  double FrameRate() const;
  int Width() const;
  int Height() const;

  // Draws the frame (wrapped into range) over the whole bitmap, keeping the
  // animation's aspect; the bitmap is cleared first.
  void RenderFrame(std::size_t AFrame, TqxBitmap& ABitmap) const;

private:
  explicit TqxLottieAnimation(std::unique_ptr<rlottie::Animation> animation);
  std::unique_ptr<rlottie::Animation> FAnimation;
};

}  // namespace qx
