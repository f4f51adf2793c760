#pragma once

#include "kinds/asset_editor.h"

namespace qx {

// A picture at several scales, saved as one PNG name per scale.
class TqxAssetEditorBitmapSet : public IQuorvexAssetEditor {
public:
  // The scales a dropped picture gets: its own file at the first, the others empty.
  static constexpr float kScales[] = {1.0f, 1.5f, 2.0f, 3.0f, 4.0f};

  TqxAssetEditorOptions GetOptions() const override { return {TqxAssetEditorOption::UniquePreview}; }
  // The base size, "W x H": the best bitmap's size divided by its scale;
  // empty when there is no bitmap.
  std::string GetAdditionalInfo(TqxAsset* AAsset) const override;
  // The best bitmap on a chess background, or the missing-image mark.
  std::unique_ptr<TqxBitmap> GeneratePreview(TqxAsset* AResource, TSize ASize) const override;
  int GetPreviewImageIndex() const override { return -1; }
  std::shared_ptr<TBaseAssetEditorFrame> CreateEditor(TqxAsset* AAsset) const override;
  // Each scale that has a bitmap becomes "<target id>@<scale text>x.png". A
  // file's bytes are copied as they are, a bitmap in memory is written as PNG.
  TqxFileNames SaveTo(TqxAsset* AAsset, const std::string& ARootPath) const override;
  // ".jpg", ".jpeg", ".png" and ".bmp" files.
  std::unique_ptr<TqxAsset> TryCreateAsset(const TqxAssetName& AAssetName,
                                           const std::string& AFileName) const override;

  // The scale times 10, truncated: 1.5 gives "15", 1.25 gives "12".
  static std::string ScaleText(float scale);
};

}  // namespace qx
