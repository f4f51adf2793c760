#include "designer/assets_model.h"

#include <array>
#include <filesystem>

#include "designer/assets_folder_writer.h"
#include "kinds/assets_editors_manager.h"
#include "platform/core/assets/asset_bitmap_set.h"
#include "platform/core/assets/asset_color.h"
#include "platform/core/assets/asset_file.h"
#include "platform/core/assets/asset_font.h"
#include "platform/core/assets/asset_lottie_animation.h"
#include "platform/core/assets/asset_style.h"
#include "platform/core/assets/asset_svg.h"
#include "platform/core/assets/asset_theme_container.h"
#include "platform/core/assets/assets_factory.h"
#include "platform/core/assets/assets_manager_helper.h"
#include "platform/core/base/assert.h"
#include "platform/core/base/text.h"

namespace qx {

TqxAssetsModel::TqxAssetsModel() : FAssetsManager(std::make_unique<TqxAssetsManager>()) {}

TqxAssetsModel::~TqxAssetsModel() = default;

void TqxAssetsModel::DoChanged(const TqxAssetName& name, TqxAssetOperation operation) {
  if (FOnAssetChanged) FOnAssetChanged(name, operation);
}

void TqxAssetsModel::DoAssetRenamed(const TqxAssetName& oldName, const TqxAssetName& newName) {
  if (FOnAssetRenamed) FOnAssetRenamed(oldName, newName);
}

// --- Adding ---

void TqxAssetsModel::AddAsset(std::unique_ptr<TqxAsset> asset) {
  TqxAssert::IsNotNil(asset.get(), "AAsset");
  const TqxAssetName name = asset->Name();
  FAssetsManager->Add(std::move(asset));
  DoChanged(name, TqxAssetOperation::Added);
}

void TqxAssetsModel::AddGroup(TqxAssetGroup& group) {
  for (TqxAsset* item : group.Items()) {
    std::unique_ptr<TqxAsset> owned = group.Release(item);
    TqxAssert::IsNotNil(owned.get(), "AGroup.Items");
    FAssetsManager->Add(std::move(owned));
  }
  DoChanged(group.Name(), TqxAssetOperation::Added);
}

template <class T>
T* TqxAssetsModel::AddNew(const TqxAssetName& name) {
  auto asset = std::make_unique<T>(name, kPlatformAny, kDeviceClassAny);
  T* result = asset.get();
  AddAsset(std::move(asset));
  return result;
}

void TqxAssetsModel::AddThemeContainer(const TqxAssetName& name) { AddNew<TqxAssetThemeContainer>(name); }

TqxAssetColor* TqxAssetsModel::AddColor(const TqxAssetName& name, TAlphaColor color) {
  TqxAssetColor* asset = TqxAssetsManagerHelper::AddColor(*FAssetsManager, name, color, true);
  DoChanged(name, TqxAssetOperation::Added);
  return asset;
}

TqxAssetBitmapSet* TqxAssetsModel::AddEmptyBitmapSet(const TqxAssetName& name) {
  auto asset = std::make_unique<TqxAssetBitmapSet>(name, kPlatformAny, kDeviceClassAny);
  for (float scale : kBitmapScales) asset->Add(std::make_unique<TqxBitmapInfo>(scale));
  TqxAssetBitmapSet* result = asset.get();
  AddAsset(std::move(asset));
  return result;
}

TqxAssetFont* TqxAssetsModel::AddEmptyFont(const TqxAssetName& name) { return AddNew<TqxAssetFont>(name); }
TqxAssetFile* TqxAssetsModel::AddEmptyFile(const TqxAssetName& name) { return AddNew<TqxAssetFile>(name); }
TqxAssetStyle* TqxAssetsModel::AddEmptyStyle(const TqxAssetName& name) { return AddNew<TqxAssetStyle>(name); }
TqxAssetSVG* TqxAssetsModel::AddEmptySVG(const TqxAssetName& name) { return AddNew<TqxAssetSVG>(name); }

TqxAssetLottieAnimation* TqxAssetsModel::AddEmptyLottieAnimation(const TqxAssetName& name) {
  return AddNew<TqxAssetLottieAnimation>(name);
}

// --- Removing ---

void TqxAssetsModel::Remove(const TqxAssetName& name) {
  FAssetsManager->Remove(name);
  DoChanged(name, TqxAssetOperation::Deleting);
}

void TqxAssetsModel::Removes(const std::vector<TqxAssetName>& names) {
  for (const TqxAssetName& name : names) Remove(name);
}

void TqxAssetsModel::RemovePath(const TqxAssetName& path) {
  TqxAssert::IsFalse(path.empty(), "APath");
  const bool isFolder = path.back() == '\\';
  const auto names = FAssetsManager->GetAssetsNames([&](const TqxAssetName& name) {
    return isFolder ? StartsStr(path, name) : name == path;
  });
  for (const TqxAssetName& name : names) Remove(name);
}

// --- Renaming ---

TqxAssetName TqxAssetsModel::FirstFreeSuffixed(const TqxAssetName& name) const {
  for (int i = 1;; ++i) {
    TqxAssetName candidate = Format("%s-%d", {name, i});
    if (!FAssetsManager->Contains(candidate)) return candidate;
  }
}

TqxAssetName TqxAssetsModel::GenerateAssetName(const TqxAssetName& name) const {
  return FAssetsManager->Contains(name) ? FirstFreeSuffixed(name) : name;
}

void TqxAssetsModel::Rename(const TqxAssetName& oldName, const TqxAssetName& newName) {
  if (oldName == newName) return;
  const TqxAssetName target = GenerateAssetName(newName);
  if (!FAssetsManager->Rename(oldName, target)) return;
  DoAssetRenamed(oldName, target);
  DoChanged(target, TqxAssetOperation::Renamed);
}

void TqxAssetsModel::RenamePath(const TqxAssetName& oldPathName, const TqxAssetName& newPathName) {
  if (oldPathName == newPathName) return;
  const auto names = FAssetsManager->GetAssetsNames(
      [&](const TqxAssetName& name) { return StartsStr(oldPathName, name); });
  for (const TqxAssetName& name : names) Rename(name, newPathName + name.substr(oldPathName.size()));
}

// --- Reading ---

TqxAssetGroup TqxAssetsModel::GetAssets(const TqxAssetName& name) const {
  TqxAssetGroup group(name);
  for (TqxAsset* asset : FAssetsManager->GetAssets([&](const TqxAssetName& n) { return n == name; })) {
    group.Add(asset);
  }
  return group;
}

TqxAsset* TqxAssetsModel::Copy(const TqxAssetName& name) {
  const TqxAssetName target = GenerateAssetName(name);
  TqxAsset* last = nullptr;
  for (TqxAsset* asset : FAssetsManager->GetAssets([&](const TqxAssetName& n) { return n == name; })) {
    last = FAssetsManager->Add(asset->Clone(target));
  }
  if (last != nullptr) DoChanged(target, TqxAssetOperation::Added);
  return last;
}

void TqxAssetsModel::LoadFromFile(const std::string& configFileName) {
  std::error_code error;
  if (!std::filesystem::exists(configFileName, error)) return;
  TqxAssetsFactory::LoadFromFile(*FAssetsManager, configFileName);
}

void TqxAssetsModel::SaveToFile(const std::string& configFileName) {
  TqxAssetsFolderWriter writer(*FAssetsManager, [](TqxAsset& asset, const std::string& rootPath) {
    return TqxAssetsEditorsManager::Instance().Editors(asset).SaveTo(&asset, rootPath);
  });
  writer.SaveToFile(configFileName);
}

// --- Colour variants ---

void TqxAssetsModel::CleanUp() {
  for (const TqxAssetName& name : FAssetsManager->GetAssetsNames()) CleanUpColor(name);
}

void TqxAssetsModel::CleanUpColor(const TqxAssetName& name) {
  // Only colours take part: another kind under the name counts as absent.
  auto find = [&](TqxPlatform platform, TqxDeviceClass deviceClass) {
    return dynamic_cast<TqxAssetColor*>(FAssetsManager->FindById(TqxAsset::GenerateId(name, platform, deviceClass)));
  };
  // What each device class shows without a platform variant.
  std::array<TAlphaColor, kDeviceClassCount> shown{};
  const TqxAssetColor* general = find(kPlatformAny, kDeviceClassAny);
  shown.fill(general != nullptr ? general->Color() : 0);

  for (TqxDeviceClass d = 1; d < kDeviceClassCount; ++d) {
    TqxAssetColor* variant = find(kPlatformAny, d);
    if (variant == nullptr) continue;
    if (variant->Color() == shown[0]) {
      FAssetsManager->Remove(variant);
    } else {
      shown[d] = variant->Color();
    }
  }
  for (TqxPlatform p : {kPlatformAndroid, kPlatformIOS}) {
    for (TqxDeviceClass d = 0; d < kDeviceClassCount; ++d) {
      TqxAssetColor* variant = find(p, d);
      if (variant != nullptr && variant->Color() == shown[d]) FAssetsManager->Remove(variant);
    }
  }
}

}  // namespace qx
