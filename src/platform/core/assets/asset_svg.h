#pragma once

#include <memory>
#include <string>

#include "platform/core/assets/asset.h"

namespace qx {

class TqxVectorDocument;

// An SVG image: the source file at SVGUri, and the vector document compiled
// from it, written on save to the .vector file at VectorUri. Size is the
// image's natural size.
class TqxAssetSVG : public TqxAsset {
public:
  static constexpr const char* kType = "svg";

  explicit TqxAssetSVG(TqxAssetName name, TqxPlatform platform = kPlatformAny,
                       TqxDeviceClass deviceClass = kDeviceClassAny);
  ~TqxAssetSVG() override;

  const std::string& SVGUri() const { return FSVGUri; }
  void SetSVGUri(std::string uri) { FSVGUri = std::move(uri); }
  const std::string& VectorUri() const { return FVectorUri; }
  void SetVectorUri(std::string uri) { FVectorUri = std::move(uri); }
  const TSizeF& Size() const { return FSize; }
  void SetSize(const TSizeF& size) { FSize = size; }

  TqxVectorDocument& VectorDocument() { return *FVectorDocument; }
  const TqxVectorDocument& VectorDocument() const { return *FVectorDocument; }

  const std::string& GetSVGFileName() const { return FSVGUri; }
  // The whole text of the file at SVGUri. Raises Exception naming the file
  // when it can't be read.
  std::string GetSVGContent() const;

  TqxAssetType GetType() const override { return kType; }
  bool IsEmpty() const override { return FSVGUri.empty(); }
  std::unique_ptr<TqxAsset> Clone(const TqxAssetName& newName) const override;

private:
  std::string FSVGUri;
  std::string FVectorUri;
  TSizeF FSize;
  std::unique_ptr<TqxVectorDocument> FVectorDocument;
};

}  // namespace qx
