#include "kinds/asset_editor_svg.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <filesystem>
#include <sstream>

#include "kinds/asset_editor_frames.h"
#include "kinds/asset_previews.h"
#include "kinds/file_asset_editors.h"
#include "platform/core/assets/asset_svg.h"
#include "platform/core/base/file_io.h"
#include "platform/core/base/log.h"
#include "platform/core/graphics/bitmap.h"
#include "platform/core/vector/vector_document.h"
#include "platform/designtime/preview_builder.h"
#include "platform/designtime/svg_bitmap_generator.h"
#include "platform/designtime/svg_natural_size.h"
#include "vector/vector_bitmap_writer.h"
#include "vector/vector_reader_svg.h"

namespace qx {
namespace {

const char* const kLogTag = "AssetsDesigner";

TqxAssetSVG& Checked(TqxAsset* asset, const char* argument) {
  return AssetOfKind<TqxAssetSVG>(asset, argument, "TqxAssetSVG");
}

bool FileExists(const std::string& fileName) {
  std::error_code ec;
  return !fileName.empty() && std::filesystem::is_regular_file(fileName, ec);
}

}  // namespace

std::string TqxAssetEditorSVG::GetAdditionalInfo(TqxAsset* AAsset) const {
  const TSizeF& size = Checked(AAsset, "AAsset").Size();
  return Format("%.0f x %.0f", {size.Width, size.Height});
}

std::unique_ptr<TqxBitmap> TqxAssetEditorSVG::GeneratePreview(TqxAsset* AResource, TSize ASize) const {
  TqxAssetSVG& asset = Checked(AResource, "AResource");
  std::unique_ptr<TqxBitmap> picture;
  if (FileExists(asset.SVGUri())) {
    try {
      picture = GenerateBitmap(asset, ASize);
    } catch (const std::exception& e) {
      TqxLog::Error(kLogTag, "%s", {e.what()});
    }
  }
  return CreateImagePreview(picture.get(), ASize);
}

std::shared_ptr<TBaseAssetEditorFrame> TqxAssetEditorSVG::CreateEditor(TqxAsset* AAsset) const {
  return TqxAssetEditorFrames::Instance().Create(Checked(AAsset, "AAsset"));
}

TqxFileNames TqxAssetEditorSVG::SaveTo(TqxAsset* AAsset, const std::string& ARootPath) const {
  TqxAssetSVG& asset = Checked(AAsset, "AAsset");
  auto source = SaveSourceFile(asset, asset.SVGUri(), ARootPath);
  if (!source) return {};
  asset.SetSVGUri(source->Uri);

  const std::string vectorName = Format("%s%s", {asset.GetTargetId(), ".vector"});
  const std::string vectorFileName = source->Folder.FileName(vectorName);
  TqxVectorReaderSVG reader(asset.VectorDocument());
  reader.LoadFromFile(source->FileName);
  // Through the folder's writer rather than the document's own SaveToFile,
  // so that the file is replaced without following a link.
  std::ostringstream bytes;
  asset.VectorDocument().SaveToStream(bytes);
  source->Folder.Write(bytes.str(), vectorFileName);
  asset.SetVectorUri(source->Folder.Uri(vectorName));
  return {source->FileName, vectorFileName};
}

std::unique_ptr<TqxAsset> TqxAssetEditorSVG::TryCreateAsset(const TqxAssetName& AAssetName,
                                                            const std::string& AFileName) const {
  if (!HasExtension(AFileName, {".svg"})) return nullptr;
  auto asset = std::make_unique<TqxAssetSVG>(AAssetName);
  asset->SetSVGUri(AFileName);
  if (FileExists(AFileName)) {
    try {
      TSizeF size;
      if (TryGetSvgNaturalSize(TqxFileIO::ReadAll(AFileName), size)) asset->SetSize(size);
    } catch (const std::exception& e) {
      TqxLog::Warning(kLogTag, "Cannot read the size of \"%s\": %s", {AFileName, e.what()});
    }
  }
  return asset;
}

std::unique_ptr<TqxBitmap> TqxAssetEditorSVG::DrawAsset(const TqxAssetSVG& asset, TSize size) {
  TqxVectorDocument document;
  TqxVectorReaderSVG reader(document);
  reader.LoadFromFile(asset.SVGUri());
  TSizeF natural = document.Size;
  if (natural.Width <= 0 || natural.Height <= 0) natural = {document.ViewBox.Width(), document.ViewBox.Height()};
  if (natural.Width <= 0 || natural.Height <= 0) natural = {double(size.Width), double(size.Height)};
  // A vector drawing stays sharp at any size, so it may grow to fill the box.
  const TRectF place = FitPicture(natural, {double(size.Width), double(size.Height)}, true);
  const int width = std::max(1, int(std::lround(place.Width())));
  const int height = std::max(1, int(std::lround(place.Height())));
  return RenderVectorDocument(document, width, height);
}

}  // namespace qx
