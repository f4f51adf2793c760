#pragma once

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

#include "platform/core/assets/asset.h"
#include "platform/core/base/assert.h"
#include "platform/core/base/text.h"
#include "platform/core/base/types.h"

namespace qx {

class TqxBitmap;
// The edit frames of the designer's right-hand pane; they live in a layer
// above the kinds.
class TBaseAssetEditorFrame;

enum class TqxAssetEditorOption : std::uint8_t {
  UniquePreview,   // the asset has a picture of its own, from GeneratePreview
  AssetContainer,  // the asset's tree node is a container node (a theme)
};

// A set of TqxAssetEditorOption.
class TqxAssetEditorOptions {
public:
  constexpr TqxAssetEditorOptions() = default;
  constexpr TqxAssetEditorOptions(std::initializer_list<TqxAssetEditorOption> options) {
    for (auto option : options) FBits |= Bit(option);
  }
  constexpr bool Contains(TqxAssetEditorOption option) const { return (FBits & Bit(option)) != 0; }
  constexpr bool IsEmpty() const { return FBits == 0; }
  bool operator==(const TqxAssetEditorOptions&) const = default;

private:
  static constexpr std::uint8_t Bit(TqxAssetEditorOption option) { return std::uint8_t(1u << unsigned(option)); }
  std::uint8_t FBits = 0;
};

// Full names of the files an asset has under the assets folder.
using TqxFileNames = std::vector<std::string>;

// Everything that differs between the kinds of asset. One stateless object
// per kind lives in TqxAssetsEditorsManager. Operations that take an asset
// raise EqxAssertError for nullptr or an asset of another kind.
class IQuorvexAssetEditor {
public:
  virtual ~IQuorvexAssetEditor() = default;

  virtual TqxAssetEditorOptions GetOptions() const = 0;
  // The size text of the asset's tree node.
  virtual std::string GetAdditionalInfo(TqxAsset* AAsset) const = 0;
  // A new picture of the asset, or nullptr.
  virtual std::unique_ptr<TqxBitmap> GeneratePreview(TqxAsset* AResource, TSize ASize) const = 0;
  // Index of the tree's stock image for assets without a picture of their own; -1 for none.
  virtual int GetPreviewImageIndex() const = 0;
  // A new edit frame, or nullptr when the kind has none. Shared because the
  // frame's class is complete only in its own layer, where the deleter is fixed.
  virtual std::shared_ptr<TBaseAssetEditorFrame> CreateEditor(TqxAsset* AAsset) const = 0;
  // Writes the asset's files under ARootPath, the assets folder, and points
  // the asset's URIs at them (relative, `\` separated). Returns every file the
  // asset now has there.
  virtual TqxFileNames SaveTo(TqxAsset* AAsset, const std::string& ARootPath) const = 0;
  // A new asset of this kind for the file, or nullptr when the kind doesn't take it.
  virtual std::unique_ptr<TqxAsset> TryCreateAsset(const TqxAssetName& AAssetName,
                                                   const std::string& AFileName) const = 0;
};

// The asset as its kind's class, after the checks every operation makes.
template <class T>
T& AssetOfKind(TqxAsset* asset, const char* argument, const char* className) {
  TqxAssert::IsNotNil(asset, argument);
  return *TqxAssert::IsClass<T>(asset, Format("%s is not %s", {argument, className}));
}

// The extension of a file name with its point, as it is written, or empty.
// Both `/` and `\` end a folder part.
std::string ExtractFileExt(const std::string& fileName);
// Whether the lower-cased extension of the file name is one of the given.
bool HasExtension(const std::string& fileName, std::initializer_list<const char*> extensions);

}  // namespace qx
