#pragma once

#include "kinds/asset_editor.h"

namespace qx {

// The two kinds whose content lives in the config files alone: they save no
// files.

// A colour.
class TqxAssetEditorColor : public IQuorvexAssetEditor {
public:
  TqxAssetEditorOptions GetOptions() const override { return {TqxAssetEditorOption::UniquePreview}; }
  // The colour as "#RRGGBB" or "#AARRGGBB".
  std::string GetAdditionalInfo(TqxAsset* AAsset) const override;
  // A swatch of the colour over a chess background.
  std::unique_ptr<TqxBitmap> GeneratePreview(TqxAsset* AResource, TSize ASize) const override;
  int GetPreviewImageIndex() const override { return -1; }
  std::shared_ptr<TBaseAssetEditorFrame> CreateEditor(TqxAsset* AAsset) const override;
  TqxFileNames SaveTo(TqxAsset* AAsset, const std::string& ARootPath) const override;
  // A dropped file is never a colour.
  std::unique_ptr<TqxAsset> TryCreateAsset(const TqxAssetName& AAssetName,
                                           const std::string& AFileName) const override;
};

// A theme's container: its members are the assets under its name.
class TqxAssetEditorThemeContainer : public IQuorvexAssetEditor {
public:
  TqxAssetEditorOptions GetOptions() const override { return {TqxAssetEditorOption::AssetContainer}; }
  std::string GetAdditionalInfo(TqxAsset*) const override { return {}; }
  std::unique_ptr<TqxBitmap> GeneratePreview(TqxAsset*, TSize) const override;
  int GetPreviewImageIndex() const override { return 4; }
  // None: callers must not open a frame for a theme.
  std::shared_ptr<TBaseAssetEditorFrame> CreateEditor(TqxAsset*) const override { return nullptr; }
  TqxFileNames SaveTo(TqxAsset*, const std::string&) const override { return {}; }
  std::unique_ptr<TqxAsset> TryCreateAsset(const TqxAssetName&, const std::string&) const override;
};

}  // namespace qx
