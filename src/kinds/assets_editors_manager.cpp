#include "kinds/assets_editors_manager.h"

#include <utility>

#include "kinds/asset_editor_bitmap_set.h"
#include "kinds/asset_editor_svg.h"
#include "kinds/config_only_asset_editors.h"
#include "kinds/file_asset_editors.h"
#include "platform/core/assets/asset_bitmap_set.h"
#include "platform/core/assets/asset_color.h"
#include "platform/core/assets/asset_file.h"
#include "platform/core/assets/asset_font.h"
#include "platform/core/assets/asset_lottie_animation.h"
#include "platform/core/assets/asset_style.h"
#include "platform/core/assets/asset_svg.h"
#include "platform/core/assets/asset_theme_container.h"
#include "platform/core/base/exception.h"
#include "platform/core/graphics/bitmap.h"
#include "platform/designtime/svg_bitmap_generator.h"

namespace qx {

TqxAssetsEditorsManager& TqxAssetsEditorsManager::Instance() {
  static TqxAssetsEditorsManager instance;
  return instance;
}

void TqxAssetsEditorsManager::Register(const TqxAssetType& AType, std::shared_ptr<IQuorvexAssetEditor> AEditor) {
  TqxAssert::IsNotNil(AEditor.get(), "AEditor");
  if (!FEditors.emplace(AType, AEditor).second) {
    throw Exception(Format("Duplicates not allowed: asset editor of type \"%s\"", {AType}));
  }
  FOrderedEditors.push_back(std::move(AEditor));
}

IQuorvexAssetEditor& TqxAssetsEditorsManager::Editors(const TqxAssetType& AType) const {
  auto found = FEditors.find(AType);
  if (found == FEditors.end()) throw Exception(Format("Item not found: asset editor of type \"%s\"", {AType}));
  return *found->second;
}

std::unique_ptr<TqxAsset> TqxAssetsEditorsManager::TryCreateAsset(const TqxAssetName& AAssetName,
                                                                  const std::string& AFileName) const {
  for (const auto& editor : FOrderedEditors) {
    if (auto asset = editor->TryCreateAsset(AAssetName, AFileName)) return asset;
  }
  return nullptr;
}

void RegisterAssetEditors(TqxAssetsEditorsManager& AManager) {
  AManager.Register(TqxAssetColor::kType, std::make_shared<TqxAssetEditorColor>());
  AManager.Register(TqxAssetBitmapSet::kType, std::make_shared<TqxAssetEditorBitmapSet>());
  AManager.Register(TqxAssetFont::kType, std::make_shared<TqxAssetEditorFont>());
  AManager.Register(TqxAssetLottieAnimation::kType, std::make_shared<TqxAssetEditorLottieAnimation>());
  AManager.Register(TqxAssetStyle::kType, std::make_shared<TqxAssetEditorStyle>());
  AManager.Register(TqxAssetSVG::kType, std::make_shared<TqxAssetEditorSVG>());
  AManager.Register(TqxAssetFile::kType, std::make_shared<TqxAssetEditorFile>());
  AManager.Register(TqxAssetThemeContainer::kType, std::make_shared<TqxAssetEditorThemeContainer>());
}

void RegisterAssetEditors() {
  TqxAssetsEditorsManager& manager = TqxAssetsEditorsManager::Instance();
  if (manager.OrderedEditors().empty()) RegisterAssetEditors(manager);
  if (!HasSvgBitmapGenerator()) SetSvgBitmapGenerator(&TqxAssetEditorSVG::DrawAsset);
}

}  // namespace qx
