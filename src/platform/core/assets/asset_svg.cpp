#include "platform/core/assets/asset_svg.h"

#include <fstream>
#include <sstream>

#include "platform/core/base/exception.h"
#include "platform/core/base/text.h"
#include "platform/core/vector/vector_document.h"

namespace qx {

TqxAssetSVG::TqxAssetSVG(TqxAssetName name, TqxPlatform platform, TqxDeviceClass deviceClass)
    : TqxAsset(std::move(name), platform, deviceClass), FVectorDocument(std::make_unique<TqxVectorDocument>()) {}

TqxAssetSVG::~TqxAssetSVG() = default;

std::string TqxAssetSVG::GetSVGContent() const {
  std::ifstream file(FSVGUri, std::ios::binary);
  if (FSVGUri.empty() || !file) throw Exception(Format("Cannot read SVG file: \"%s\"", {FSVGUri}));
  std::ostringstream text;
  text << file.rdbuf();
  return text.str();
}

std::unique_ptr<TqxAsset> TqxAssetSVG::Clone(const TqxAssetName& newName) const {
  auto clone = std::make_unique<TqxAssetSVG>(newName, Platform(), DeviceClass());
  clone->FSVGUri = FSVGUri;
  clone->FVectorUri = FVectorUri;
  clone->FSize = FSize;
  clone->FVectorDocument->Size = FVectorDocument->Size;
  clone->FVectorDocument->ViewBox = FVectorDocument->ViewBox;
  clone->FVectorDocument->AddCopiesFrom(FVectorDocument->Commands);
  return clone;
}

}  // namespace qx
