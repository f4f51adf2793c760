#include "kinds/config_only_asset_editors.h"

#include "kinds/asset_editor_frames.h"
#include "kinds/asset_previews.h"
#include "platform/core/assets/asset_color.h"
#include "platform/core/assets/asset_theme_container.h"
#include "platform/core/graphics/bitmap.h"
#include "platform/core/graphics/color.h"

namespace qx {
namespace {

TqxAssetColor& Checked(TqxAsset* asset, const char* argument) {
  return AssetOfKind<TqxAssetColor>(asset, argument, "TqxAssetColor");
}

}  // namespace

std::string TqxAssetEditorColor::GetAdditionalInfo(TqxAsset* AAsset) const {
  return TAlphaColorHelper::ToDisplayString(Checked(AAsset, "AAsset").Color());
}

std::unique_ptr<TqxBitmap> TqxAssetEditorColor::GeneratePreview(TqxAsset* AResource, TSize ASize) const {
  return CreateColorSwatch(Checked(AResource, "AResource").Color(), ASize);
}

std::shared_ptr<TBaseAssetEditorFrame> TqxAssetEditorColor::CreateEditor(TqxAsset* AAsset) const {
  return TqxAssetEditorFrames::Instance().Create(Checked(AAsset, "AAsset"));
}

TqxFileNames TqxAssetEditorColor::SaveTo(TqxAsset* AAsset, const std::string&) const {
  Checked(AAsset, "AAsset");
  return {};
}

std::unique_ptr<TqxAsset> TqxAssetEditorColor::TryCreateAsset(const TqxAssetName&, const std::string&) const {
  return nullptr;
}

std::unique_ptr<TqxBitmap> TqxAssetEditorThemeContainer::GeneratePreview(TqxAsset*, TSize) const {
  return nullptr;
}

std::unique_ptr<TqxAsset> TqxAssetEditorThemeContainer::TryCreateAsset(const TqxAssetName&,
                                                                       const std::string&) const {
  return nullptr;
}

}  // namespace qx
