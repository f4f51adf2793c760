#pragma once

#include "kinds/asset_editor.h"

namespace qx {

class TqxAssetSVG;
class TqxBitmap;

// An SVG image: the one kind compiled on saving. Beside the SVG source its
// folder gets "<target id>.vector", the vector document the app draws.
class TqxAssetEditorSVG : public IQuorvexAssetEditor {
public:
  TqxAssetEditorOptions GetOptions() const override { return {TqxAssetEditorOption::UniquePreview}; }
  // The natural size, "W x H" rounded to whole pixels.
  std::string GetAdditionalInfo(TqxAsset* AAsset) const override;
  // The drawing on a chess background, or the missing-image mark.
  std::unique_ptr<TqxBitmap> GeneratePreview(TqxAsset* AResource, TSize ASize) const override;
  int GetPreviewImageIndex() const override { return -1; }
  std::shared_ptr<TBaseAssetEditorFrame> CreateEditor(TqxAsset* AAsset) const override;
  // The source copied as for the file kinds, then compiled beside it. Returns
  // both names. Errors of the reader pass on; the copied source stays.
  TqxFileNames SaveTo(TqxAsset* AAsset, const std::string& ARootPath) const override;
  // ".svg" files; the natural size is read when the file is there.
  std::unique_ptr<TqxAsset> TryCreateAsset(const TqxAssetName& AAssetName,
                                           const std::string& AFileName) const override;

  // The asset's SVG file read into a new document and drawn as large as fits
  // the size. What GenerateBitmap calls once the editors are registered.
  static std::unique_ptr<TqxBitmap> DrawAsset(const TqxAssetSVG& asset, TSize size);
};

}  // namespace qx
