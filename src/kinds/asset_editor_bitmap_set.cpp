#include "kinds/asset_editor_bitmap_set.h"

#include <exception>

#include "kinds/asset_editor_frames.h"
#include "kinds/asset_folder.h"
#include "kinds/asset_previews.h"
#include "platform/core/assets/asset_bitmap_set.h"
#include "platform/core/base/log.h"
#include "platform/core/graphics/bitmap.h"

namespace qx {
namespace {

const char* const kLogTag = "AssetsDesigner";

TqxAssetBitmapSet& Checked(TqxAsset* asset, const char* argument) {
  return AssetOfKind<TqxAssetBitmapSet>(asset, argument, "TqxAssetBitmapSet");
}

// Writes one scale's picture to destination.
void SaveBitmap(TqxBitmapInfo& info, const TqxAssetFolder& folder, const std::string& destination,
                const std::string& rootPath) {
  switch (info.Source()) {
    case TqxBitmapInfo::TqxSource::File:
      // The bytes go as they are: a JPEG stays a JPEG under the .png name.
      if (info.Uri() != destination) folder.CopyIn(TqxAssetFolder::ResolveUri(info.Uri(), rootPath), destination);
      return;
    case TqxBitmapInfo::TqxSource::Memory: {
      const auto bytes = info.GetRawBitmap()->SaveToPngBytes();
      folder.Write(std::string_view(reinterpret_cast<const char*>(bytes.data()), bytes.size()), destination);
      return;
    }
  }
  TqxAssert::Fail(Format("Unknown value of %s: %d", {"TqxBitmapInfo.TqxSource", int(info.Source())}));
}

// Points the info at its saved file. Only the text changes: a bitmap held in
// memory stays held, as the info's source.
void SetSavedUri(TqxBitmapInfo& info, const std::string& uri) {
  if (info.Source() == TqxBitmapInfo::TqxSource::Memory) {
    auto bitmap = info.GetRawBitmap()->Clone();
    info.SetUri(uri);
    info.SetBitmap(std::move(bitmap));
  } else {
    info.SetUri(uri);
  }
}

}  // namespace

std::string TqxAssetEditorBitmapSet::ScaleText(float scale) {
  return IntToStr(Trunc(static_cast<double>(static_cast<long double>(scale) * 10)));
}

std::string TqxAssetEditorBitmapSet::GetAdditionalInfo(TqxAsset* AAsset) const {
  TqxAssetBitmapSet& set = Checked(AAsset, "AAsset");
  try {
    TqxBitmapInfo* info = set.FindBitmapInfo();
    TqxBitmap* bitmap = info != nullptr ? info->GetBitmap() : nullptr;
    if (bitmap == nullptr) return {};
    return Format("%d x %d", {Round(bitmap->Width() / info->Scale()), Round(bitmap->Height() / info->Scale())});
  } catch (const std::exception&) {
    return {};
  }
}

std::unique_ptr<TqxBitmap> TqxAssetEditorBitmapSet::GeneratePreview(TqxAsset* AResource, TSize ASize) const {
  return CreateImagePreview(Checked(AResource, "AResource").FindBitmap(), ASize);
}

std::shared_ptr<TBaseAssetEditorFrame> TqxAssetEditorBitmapSet::CreateEditor(TqxAsset* AAsset) const {
  return TqxAssetEditorFrames::Instance().Create(Checked(AAsset, "AAsset"));
}

TqxFileNames TqxAssetEditorBitmapSet::SaveTo(TqxAsset* AAsset, const std::string& ARootPath) const {
  TqxAssetBitmapSet& set = Checked(AAsset, "AAsset");
  if (set.IsEmpty()) return {};
  const TqxAssetFolder folder(set, ARootPath);
  folder.Force();
  TqxLog::Trace(kLogTag, "SaveTo: RelativePath=\"%s\", FullPath=\"%s\"", {folder.Relative(), folder.Full()});

  TqxFileNames result;
  for (TqxBitmapInfo* info : set.GetBitmapInfos()) {
    if (!info->HasBitmap()) continue;
    const std::string fileName = Format("%s@%sx.png", {set.GetTargetId(), ScaleText(info->Scale())});
    const std::string destination = folder.FileName(fileName);
    TqxLog::Trace(kLogTag, "- BitmapInfo.Uri=\"%s\", FullFileName=\"%s\"", {info->Uri(), destination});
    SaveBitmap(*info, folder, destination, ARootPath);
    result.push_back(destination);
    SetSavedUri(*info, folder.Uri(fileName));
  }
  return result;
}

std::unique_ptr<TqxAsset> TqxAssetEditorBitmapSet::TryCreateAsset(const TqxAssetName& AAssetName,
                                                                  const std::string& AFileName) const {
  if (!HasExtension(AFileName, {".jpg", ".jpeg", ".png", ".bmp"})) return nullptr;
  auto set = std::make_unique<TqxAssetBitmapSet>(AAssetName);
  set->Add(std::make_unique<TqxBitmapInfo>(AFileName, kScales[0]));
  for (std::size_t i = 1; i < std::size(kScales); ++i) set->Add(std::make_unique<TqxBitmapInfo>(kScales[i]));
  return set;
}

}  // namespace qx
