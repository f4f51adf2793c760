#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "kinds/asset_editor.h"

namespace qx {

// Maps each kind's type string to its editor. The package's one registry is
// Instance(), filled by RegisterAssetEditors() and unchanged afterwards.
class TqxAssetsEditorsManager {
public:
  static TqxAssetsEditorsManager& Instance();

  // Raises Exception for a type registered before, and EqxAssertError for no editor.
  void Register(const TqxAssetType& AType, std::shared_ptr<IQuorvexAssetEditor> AEditor);

  // Raises Exception for a type that isn't registered.
  IQuorvexAssetEditor& Editors(const TqxAssetType& AType) const;
  // The editor of the asset's own type.
  IQuorvexAssetEditor& Editors(const TqxAsset& AAsset) const { return Editors(AAsset.GetType()); }
  bool Contains(const TqxAssetType& AType) const { return FEditors.count(AType) != 0; }
  // In registration order.
  const std::vector<std::shared_ptr<IQuorvexAssetEditor>>& OrderedEditors() const { return FOrderedEditors; }

  // The first asset an editor makes of the file, asking them in registration
  // order; nullptr when none takes it.
  std::unique_ptr<TqxAsset> TryCreateAsset(const TqxAssetName& AAssetName, const std::string& AFileName) const;

private:
  std::map<TqxAssetType, std::shared_ptr<IQuorvexAssetEditor>> FEditors;
  std::vector<std::shared_ptr<IQuorvexAssetEditor>> FOrderedEditors;
};

// Registers the eight kinds, in this order: "color", "bitmap-set", "font",
// "lottie-json", "style", "svg", "file", "theme-container"; the custom file,
// which takes any file, stands behind every kind that takes some. Also lets
// the design-time helpers draw SVG assets (GenerateBitmap). Called from the
// package's registration and the apps; a second call does nothing.
void RegisterAssetEditors();
// The same into another registry, which must be empty.
void RegisterAssetEditors(TqxAssetsEditorsManager& AManager);

}  // namespace qx
