#include "platform/core/assets/assets_manager.h"

#include <algorithm>

#include "platform/core/assets/asset_comparer.h"
#include "platform/core/assets/asset_targets.h"
#include "platform/core/assets/asset_theme_container.h"
#include "platform/core/base/assert.h"
#include "platform/core/base/text.h"

namespace qx {

namespace {

TqxAssetsManager* gCurrent = nullptr;
TqxPlatform gCurrentPlatform = kPlatformAny;
TqxDeviceClass gCurrentDeviceClass = kDeviceClassAny;

}  // namespace

bool TqxAssetsManager::TNameLess::operator()(const TqxAssetName& a, const TqxAssetName& b) const {
  const int byText = CompareText(a, b);
  return byText != 0 ? byText < 0 : CompareStr(a, b) < 0;
}

TqxAssetsManager::TqxAssetsManager() = default;

TqxAssetsManager::~TqxAssetsManager() {
  if (gCurrent == this) gCurrent = nullptr;
}

void TqxAssetsManager::AddAsset(std::unique_ptr<TqxAsset> asset) {
  TqxAssert::IsNotNil(asset.get(), "AAsset");
  const std::string id = asset->GetId();
  TVariants& variants = FAssets[asset->Name()];
  auto same = std::find_if(variants.begin(), variants.end(), [&](const auto& v) { return v->GetId() == id; });
  FIds[id] = asset.get();
  if (same != variants.end()) {
    *same = std::move(asset);
    return;
  }
  auto place = std::upper_bound(variants.begin(), variants.end(), asset,
                                [](const auto& a, const auto& b) { return TqxAssetComparer::Compare(*a, *b) < 0; });
  variants.insert(place, std::move(asset));
}

bool TqxAssetsManager::Remove(const TqxAssetName& name) {
  auto it = FAssets.find(name);
  if (it == FAssets.end()) return false;
  for (const auto& asset : it->second) FIds.erase(asset->GetId());
  FAssets.erase(it);
  return true;
}

bool TqxAssetsManager::Remove(const TqxAsset* asset) {
  if (asset == nullptr) return false;
  auto it = FAssets.find(asset->Name());
  if (it == FAssets.end()) return false;
  TVariants& variants = it->second;
  auto found = std::find_if(variants.begin(), variants.end(), [&](const auto& v) { return v.get() == asset; });
  if (found == variants.end()) return false;
  FIds.erase(asset->GetId());
  variants.erase(found);
  if (variants.empty()) FAssets.erase(it);
  return true;
}

bool TqxAssetsManager::Rename(const TqxAssetName& oldName, const TqxAssetName& newName) {
  if (newName.empty() || Contains(newName)) return false;
  auto node = FAssets.extract(oldName);
  if (node.empty()) return false;
  for (const auto& asset : node.mapped()) {
    FIds.erase(asset->GetId());
    asset->SetName(newName);
    FIds[asset->GetId()] = asset.get();
  }
  node.key() = newName;
  FAssets.insert(std::move(node));
  return true;
}

bool TqxAssetsManager::Contains(const TqxAssetName& name) const { return FAssets.contains(name); }

void TqxAssetsManager::Clear() {
  FIds.clear();
  FAssets.clear();
}

std::vector<TqxAsset*> TqxAssetsManager::GetAssets(const TqxAssetNamePredicate& predicate) const {
  std::vector<TqxAsset*> result;
  for (const auto& [name, variants] : FAssets) {
    if (predicate && !predicate(name)) continue;
    for (const auto& asset : variants) result.push_back(asset.get());
  }
  return result;
}

std::vector<TqxAssetName> TqxAssetsManager::GetAssetsNames(const TqxAssetNamePredicate& predicate) const {
  std::vector<TqxAssetName> result;
  for (const auto& entry : FAssets) {
    if (!predicate || predicate(entry.first)) result.push_back(entry.first);
  }
  return result;
}

std::vector<TqxAssetGroup> TqxAssetsManager::GetGroupedAssets() const {
  std::vector<TqxAssetGroup> result;
  result.reserve(FAssets.size());
  for (const auto& [name, variants] : FAssets) {
    TqxAssetGroup& group = result.emplace_back(name);
    for (const auto& asset : variants) group.Add(asset.get());
  }
  return result;
}

std::vector<TqxAssetName> TqxAssetsManager::GetThemesNames() const {
  std::vector<TqxAssetName> result;
  for (const auto& [name, variants] : FAssets) {
    const bool isTheme = std::any_of(variants.begin(), variants.end(), [](const auto& asset) {
      return dynamic_cast<const TqxAssetThemeContainer*>(asset.get()) != nullptr;
    });
    if (isTheme) result.push_back(name);
  }
  return result;
}

TqxAsset* TqxAssetsManager::FindById(const std::string& id) const {
  auto it = FIds.find(id);
  return it == FIds.end() ? nullptr : it->second;
}

std::vector<std::string> TqxAssetsManager::FallbackIds(const TqxAssetName& name, TqxPlatform platform,
                                                       TqxDeviceClass deviceClass) {
  std::vector<std::string> ids;
  for (auto [p, d] : {std::pair{platform, deviceClass}, std::pair{platform, kDeviceClassAny},
                      std::pair{kPlatformAny, deviceClass}, std::pair{kPlatformAny, kDeviceClassAny}}) {
    std::string id = TqxAsset::GenerateId(name, p, d);
    if (std::find(ids.begin(), ids.end(), id) == ids.end()) ids.push_back(std::move(id));
  }
  return ids;
}

TqxAssetsManager* TqxAssetsManager::GetCurrent() { return gCurrent; }
void TqxAssetsManager::SetCurrent(TqxAssetsManager* manager) { gCurrent = manager; }
TqxPlatform TqxAssetsManager::CurrentPlatform() { return gCurrentPlatform; }
TqxDeviceClass TqxAssetsManager::CurrentDeviceClass() { return gCurrentDeviceClass; }

void TqxAssetsManager::SetCurrentPlatform(TqxPlatform platform) {
  TqxAssert::IsTrue(TqxAssetTargets::IsValidPlatform(platform), "APlatform");
  gCurrentPlatform = platform;
}

void TqxAssetsManager::SetCurrentDeviceClass(TqxDeviceClass deviceClass) {
  TqxAssert::IsTrue(TqxAssetTargets::IsValidDeviceClass(deviceClass), "ADeviceClass");
  gCurrentDeviceClass = deviceClass;
}

}  // namespace qx
