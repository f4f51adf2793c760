#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/core/assets/asset.h"
#include "platform/core/assets/asset_group.h"

namespace qx {

using TqxAssetNamePredicate = std::function<bool(const TqxAssetName&)>;

// Owns the assets of one project, keyed by TqxAsset::GenerateId. Operations
// that take a name act on all of that name's variants. Names compare
// case-sensitively; lists come in name order (ignoring case, then by case),
// and the variants of a name in TqxAssetComparer order.
class TqxAssetsManager {
public:
  TqxAssetsManager();
  ~TqxAssetsManager();
  TqxAssetsManager(const TqxAssetsManager&) = delete;
  TqxAssetsManager& operator=(const TqxAssetsManager&) = delete;

  // Takes the asset; one with the same id is replaced (and freed). Returns it.
  template <class T>
  T* Add(std::unique_ptr<T> asset) {
    T* raw = asset.get();
    AddAsset(std::unique_ptr<TqxAsset>(std::move(asset)));
    return raw;
  }
  // Frees every variant of the name; false when there was none.
  bool Remove(const TqxAssetName& name);
  // Frees this one variant; false when the manager doesn't hold it.
  bool Remove(const TqxAsset* asset);
  // Renames every variant. False, with nothing changed, when no asset has the
  // old name, or the new name is empty or taken (also by the old name itself).
  bool Rename(const TqxAssetName& oldName, const TqxAssetName& newName);
  bool Contains(const TqxAssetName& name) const;
  void Clear();
  bool IsEmpty() const { return FAssets.empty(); }
  // The number of variants.
  size_t Count() const { return FIds.size(); }

  std::vector<TqxAsset*> GetAllAssets() const { return GetAssets(); }
  // Variants whose name passes the predicate (all without one).
  std::vector<TqxAsset*> GetAssets(const TqxAssetNamePredicate& predicate = nullptr) const;
  // Each name once.
  std::vector<TqxAssetName> GetAssetsNames(const TqxAssetNamePredicate& predicate = nullptr) const;
  // One group for each name, listing its variants; the assets stay here.
  std::vector<TqxAssetGroup> GetGroupedAssets() const;
  // The names of the theme containers.
  std::vector<TqxAssetName> GetThemesNames() const;

  // The variant a running app on that platform and device class uses: the
  // first that exists, and is a T, of (platform, device class), (platform,
  // any), (any, device class), (any, any). A variant of another class is
  // passed over. nullptr when none fits.
  template <class T = TqxAsset>
  T* Find(const TqxAssetName& name, TqxPlatform platform, TqxDeviceClass deviceClass) const {
    for (const std::string& id : FallbackIds(name, platform, deviceClass)) {
      if (auto* asset = dynamic_cast<T*>(FindById(id))) return asset;
    }
    return nullptr;
  }
  // The same for CurrentPlatform and CurrentDeviceClass.
  template <class T = TqxAsset>
  T* Find(const TqxAssetName& name) const {
    return Find<T>(name, CurrentPlatform(), CurrentDeviceClass());
  }
  // Exactly that variant, without fallback.
  TqxAsset* FindById(const std::string& id) const;
  TqxAsset* FindExact(const TqxAssetName& name, TqxPlatform platform, TqxDeviceClass deviceClass) const {
    return FindById(TqxAsset::GenerateId(name, platform, deviceClass));
  }

  // The manager the property editors read: the active project's, or nullptr.
  // Borrowed; a manager that is destroyed stops being current.
  static TqxAssetsManager* GetCurrent();
  static void SetCurrent(TqxAssetsManager* manager);
  // The target that Find without platform and device class looks up; any by default.
  static TqxPlatform CurrentPlatform();
  static void SetCurrentPlatform(TqxPlatform platform);
  static TqxDeviceClass CurrentDeviceClass();
  static void SetCurrentDeviceClass(TqxDeviceClass deviceClass);

private:
  struct TNameLess {
    bool operator()(const TqxAssetName& a, const TqxAssetName& b) const;
  };
  using TVariants = std::vector<std::unique_ptr<TqxAsset>>;

  void AddAsset(std::unique_ptr<TqxAsset> asset);
  static std::vector<std::string> FallbackIds(const TqxAssetName& name, TqxPlatform platform,
                                              TqxDeviceClass deviceClass);

  std::map<TqxAssetName, TVariants, TNameLess> FAssets;
  std::unordered_map<std::string, TqxAsset*> FIds;
};

}  // namespace qx
