#include "frames/file_asset_frames.h"

#include "frames/file_asset_pickers.h"
#include "frames/lottie_animation_picker.h"
#include "platform/core/assets/asset_file.h"
#include "platform/core/assets/asset_font.h"
#include "platform/core/assets/asset_lottie_animation.h"
#include "platform/core/base/assert.h"
#include "platform/core/base/text.h"
#include "platform/core/graphics/bitmap.h"
#include "platform/core/graphics/canvas.h"
#include "platform/designtime/lottie_animation.h"
#include "platform/ui/image_list.h"

namespace qx {

namespace {

constexpr int kImageOtf = 0, kImageTtf = 1, kImageCustomFile = 2;

// A page with a folded corner and a coloured band; fonts carry an "A" on it.
TqxBitmap DrawFileImage(TAlphaColor band, bool letter) {
  TqxBitmap bitmap(64, 64);
  TqxCanvas canvas(bitmap);
  TqxStrokeStyle stroke;
  stroke.Width = 2;
  stroke.Join = TqxLineJoin::Round;
  const auto outline = TqxBrush::Solid(0xFF606060);
  canvas.FillPath("M14 4 H42 L52 14 V60 H14 Z", TqxCanvasFillRule::NonZero, TqxBrush::Solid(kColorWhite));
  canvas.FillRect({14, 48, 52, 60}, 0, 0, TqxBrush::Solid(band));
  canvas.StrokePath("M14 4 H42 L52 14 V60 H14 Z", outline, stroke);
  canvas.StrokePath("M42 4 V14 H52", outline, stroke);
  if (letter) {
    canvas.FillPath("M22 44 L31 18 H35 L44 44 H39 L37 38 H29 L27 44 Z M30.5 33 H35.5 L33 25 Z",
                    TqxCanvasFillRule::EvenOdd, TqxBrush::Solid(0xFF303030));
  } else {
    for (double y : {20.0, 28.0, 36.0}) canvas.DrawLine({20, y}, {46, y}, outline, stroke);
  }
  return bitmap;
}

template <class T>
T& AssetAs(TqxAsset* asset, const char* className) {
  TqxAssert::IsNotNil(asset, "FAsset");
  return *TqxAssert::IsClass<T>(asset, std::string("FAsset is not ") + className);
}

}  // namespace

const TCustomImageList& FileFrameImages() {
  static const std::unique_ptr<TCustomImageList> images = [] {
    auto list = std::make_unique<TCustomImageList>(64, 64);
    list->Add(DrawFileImage(0xFF2E7D32, true), "Font File OTF");
    list->Add(DrawFileImage(0xFF1565C0, true), "Font File TTF");
    list->Add(DrawFileImage(0xFF757575, false), "Custom File");
    return list;
  }();
  return *images;
}

std::string ExtensionTitle(const std::string& AUri) {
  const auto dot = AUri.rfind('.');
  return dot == std::string::npos ? AUri : AUri.substr(dot + 1);
}

std::string TEditorFont::GetTitle() const { return ExtensionTitle(AssetAs<TqxAssetFont>(FAsset, "TqxAssetFont").Uri()); }

int TEditorFont::ImageIndex() const {
  const std::string extension = GetTitle();
  if (SameText(extension, "ttf")) return kImageTtf;
  if (SameText(extension, "otf")) return kImageOtf;
  return -1;
}

void TEditorFont::DrawPreview(TqxCanvas& ACanvas, const TRectF& ARect) {
  if (const TqxBitmap* image = FileFrameImages().Get(ImageIndex())) DrawCentered(ACanvas, *image, ARect);
}

void TEditorFont::OpenEditor() {
  AssetAs<TqxAssetFont>(FAsset, "TqxAssetFont");
  auto picker = std::make_unique<TFontFilePicker>();
  picker->SetAsset(FAsset);
  picker->OnChange = [this](TFormBasePicker*) { Changed(); };
  ShowPicker(std::move(picker));
}

std::string TEditorFile::GetTitle() const { return ExtensionTitle(AssetAs<TqxAssetFile>(FAsset, "TqxAssetFile").Uri()); }

void TEditorFile::DrawPreview(TqxCanvas& ACanvas, const TRectF& ARect) {
  DrawCentered(ACanvas, *FileFrameImages().Get(kImageCustomFile), ARect);
}

void TEditorFile::OpenEditor() {
  AssetAs<TqxAssetFile>(FAsset, "TqxAssetFile");
  auto picker = std::make_unique<TCustomFilePicker>();
  picker->SetAsset(FAsset);
  picker->OnChange = [this](TFormBasePicker*) { Changed(); };
  ShowPicker(std::move(picker));
}

TEditorLottieAnimation::TEditorLottieAnimation() { SetBounds(0, 0, kSize, kSize); }
TEditorLottieAnimation::~TEditorLottieAnimation() = default;

void TEditorLottieAnimation::UpdatePreview() {
  const std::string uri = FAsset ? AssetAs<TqxAssetLottieAnimation>(FAsset, "TqxAssetLottieAnimation").Uri() : "";
  // A file that went or doesn't read leaves the empty box: the pane must show
  // the group's other variants whatever this one holds.
  FAnimation = uri.empty() ? nullptr : TqxLottieAnimation::TryLoadFromFile(uri);
  Repaint();
}

void TEditorLottieAnimation::OpenPicker() {
  auto picker = std::make_unique<TLottieAnimationPicker>();
  picker->SetAsset(FAsset);
  picker->OnChange = [this](TFormBasePicker*) { PickerChangedHandler(); };
  ShowPicker(std::move(picker));
}

void TEditorLottieAnimation::PickerChangedHandler() {
  UpdatePreview();
  // The designer learns of edits only through Changed; without it a new
  // animation would not mark the document modified.
  Changed();
}

}  // namespace qx
