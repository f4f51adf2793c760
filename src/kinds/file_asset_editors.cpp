#include "kinds/file_asset_editors.h"
#include "kinds/asset_editor_frames.h"

#include <filesystem>

#include "platform/core/assets/asset_file.h"
#include "platform/core/assets/asset_font.h"
#include "platform/core/assets/asset_lottie_animation.h"
#include "platform/core/assets/asset_style.h"
#include "platform/core/graphics/bitmap.h"

namespace qx {

std::optional<TqxSavedSourceFile> SaveSourceFile(const TqxAsset& asset, const std::string& uri,
                                                 const std::string& rootPath) {
  if (asset.IsEmpty()) return std::nullopt;
  const std::string source = TqxAssetFolder::ResolveUri(uri, rootPath);
  std::error_code ec;
  if (!std::filesystem::is_regular_file(source, ec)) return std::nullopt;

  TqxAssetFolder folder(asset, rootPath);
  folder.Force();
  const std::string fileName = Format("%s%s", {asset.GetTargetId(), ExtractFileExt(source)});
  const std::string destination = folder.FileName(fileName);
  // The file system, not the text, tells whether source and destination are
  // one file: names differ in case only on case-insensitive disks.
  folder.CopyIn(source, destination);
  return TqxSavedSourceFile{destination, folder.Uri(fileName), folder};
}

std::string TqxAssetEditorWithFile::GetAdditionalInfo(TqxAsset* AAsset) const {
  const std::string extension = ExtractFileExt(Checked(AAsset, "AAsset").Uri());
  return extension.empty() ? std::string() : UpperCase(extension.substr(1));
}

std::unique_ptr<TqxBitmap> TqxAssetEditorWithFile::GeneratePreview(TqxAsset* AResource, TSize) const {
  Checked(AResource, "AResource");
  return nullptr;
}

std::shared_ptr<TBaseAssetEditorFrame> TqxAssetEditorWithFile::CreateEditor(TqxAsset* AAsset) const {
  return TqxAssetEditorFrames::Instance().Create(Checked(AAsset, "AAsset"));
}

TqxFileNames TqxAssetEditorWithFile::SaveTo(TqxAsset* AAsset, const std::string& ARootPath) const {
  TqxAssetWithFile& asset = Checked(AAsset, "AAsset");
  auto saved = SaveSourceFile(asset, asset.Uri(), ARootPath);
  if (!saved) return {};
  asset.SetUri(saved->Uri);
  return {saved->FileName};
}

std::unique_ptr<TqxAsset> TqxAssetEditorFont::TryCreateAsset(const TqxAssetName& AAssetName,
                                                             const std::string& AFileName) const {
  if (!HasExtension(AFileName, {".otf", ".ttf"})) return nullptr;
  auto asset = std::make_unique<TqxAssetFont>(AAssetName);
  asset->SetUri(AFileName);
  return asset;
}

TqxAssetWithFile& TqxAssetEditorFont::Checked(TqxAsset* asset, const char* argument) const {
  return AssetOfKind<TqxAssetFont>(asset, argument, "TqxAssetFont");
}

std::unique_ptr<TqxAsset> TqxAssetEditorFile::TryCreateAsset(const TqxAssetName& AAssetName,
                                                             const std::string& AFileName) const {
  auto asset = std::make_unique<TqxAssetFile>(AAssetName);
  asset->SetUri(AFileName);
  return asset;
}

TqxAssetWithFile& TqxAssetEditorFile::Checked(TqxAsset* asset, const char* argument) const {
  return AssetOfKind<TqxAssetFile>(asset, argument, "TqxAssetFile");
}

TqxAssetWithFile& TqxAssetEditorLottieAnimation::Checked(TqxAsset* asset, const char* argument) const {
  return AssetOfKind<TqxAssetLottieAnimation>(asset, argument, "TqxAssetLottieAnimation");
}

std::string TqxAssetEditorStyle::GetAdditionalInfo(TqxAsset* AAsset) const {
  const std::string className = static_cast<TqxAssetStyle&>(Checked(AAsset, "AAsset")).GetStyleClass();
  return className.empty() ? std::string("None") : className;
}

TqxAssetWithFile& TqxAssetEditorStyle::Checked(TqxAsset* asset, const char* argument) const {
  return AssetOfKind<TqxAssetStyle>(asset, argument, "TqxAssetStyle");
}

}  // namespace qx
