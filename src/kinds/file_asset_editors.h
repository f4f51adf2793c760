#pragma once

#include <optional>

#include "kinds/asset_editor.h"
#include "kinds/asset_folder.h"

namespace qx {

class TqxAssetWithFile;

// What saving an asset's source file left: the file's full name, its URI
// relative to the assets folder, and the folder it lies in.
struct TqxSavedSourceFile {
  std::string FileName;
  std::string Uri;
  TqxAssetFolder Folder;
};

// Copies the asset's source file at uri into the asset's folder as the target
// id plus the source's extension. Nothing, when the asset is empty or no file
// is at uri.
std::optional<TqxSavedSourceFile> SaveSourceFile(const TqxAsset& asset, const std::string& uri,
                                                 const std::string& rootPath);

// The kinds whose content is one file at Uri: font, custom file, Lottie
// animation, style. They have no picture of their own.
class TqxAssetEditorWithFile : public IQuorvexAssetEditor {
public:
  TqxAssetEditorOptions GetOptions() const override { return {}; }
  // The extension of Uri, upper case, without its point.
  std::string GetAdditionalInfo(TqxAsset* AAsset) const override;
  std::unique_ptr<TqxBitmap> GeneratePreview(TqxAsset* AResource, TSize ASize) const override;
  std::shared_ptr<TBaseAssetEditorFrame> CreateEditor(TqxAsset* AAsset) const override;
  TqxFileNames SaveTo(TqxAsset* AAsset, const std::string& ARootPath) const override;

protected:
  virtual TqxAssetWithFile& Checked(TqxAsset* asset, const char* argument) const = 0;
};

// ".otf" and ".ttf" files.
class TqxAssetEditorFont : public TqxAssetEditorWithFile {
public:
  int GetPreviewImageIndex() const override { return 1; }
  std::unique_ptr<TqxAsset> TryCreateAsset(const TqxAssetName& AAssetName,
                                           const std::string& AFileName) const override;

protected:
  TqxAssetWithFile& Checked(TqxAsset* asset, const char* argument) const override;
};

// Any file; it stands last among the kinds that take files, so a dropped
// file always becomes an asset.
class TqxAssetEditorFile : public TqxAssetEditorWithFile {
public:
  int GetPreviewImageIndex() const override { return 2; }
  std::unique_ptr<TqxAsset> TryCreateAsset(const TqxAssetName& AAssetName,
                                           const std::string& AFileName) const override;

protected:
  TqxAssetWithFile& Checked(TqxAsset* asset, const char* argument) const override;
};

// A dropped JSON file is never taken as an animation: it becomes a custom file.
class TqxAssetEditorLottieAnimation : public TqxAssetEditorWithFile {
public:
  int GetPreviewImageIndex() const override { return 3; }
  std::unique_ptr<TqxAsset> TryCreateAsset(const TqxAssetName&, const std::string&) const override {
    return nullptr;
  }

protected:
  TqxAssetWithFile& Checked(TqxAsset* asset, const char* argument) const override;
};

// Nor is it taken as a style.
class TqxAssetEditorStyle : public TqxAssetEditorWithFile {
public:
  // The class the style is for, or "None".
  std::string GetAdditionalInfo(TqxAsset* AAsset) const override;
  int GetPreviewImageIndex() const override { return 4; }
  std::unique_ptr<TqxAsset> TryCreateAsset(const TqxAssetName&, const std::string&) const override {
    return nullptr;
  }

protected:
  TqxAssetWithFile& Checked(TqxAsset* asset, const char* argument) const override;
};

}  // namespace qx
