#pragma once

#include <memory>
#include <vector>

#include "platform/core/assets/asset.h"

namespace qx {

// The variants of one name. Items are borrowed from a manager, except those
// given with Adopt, which the group owns until Release hands them on (the way
// new variants travel to a manager together).
class TqxAssetGroup {
public:
  explicit TqxAssetGroup(TqxAssetName name) : FName(std::move(name)) {}

  const TqxAssetName& Name() const { return FName; }
  // After its variants were renamed.
  void SetName(TqxAssetName name) { FName = std::move(name); }
  const std::vector<TqxAsset*>& Items() const& { return FItems; }
  std::vector<TqxAsset*>& Items() & { return FItems; }
  // By value on a temporary group, so `for (auto* a : model.GetAssets(n).Items())` is safe.
  std::vector<TqxAsset*> Items() && { return std::move(FItems); }

  void Add(TqxAsset* asset) { FItems.push_back(asset); }
  TqxAsset* Adopt(std::unique_ptr<TqxAsset> asset) {
    FItems.push_back(asset.get());
    FOwned.push_back(std::move(asset));
    return FItems.back();
  }
  // Gives up ownership of an adopted item, which stays listed; nullptr for an
  // item the group doesn't own.
  std::unique_ptr<TqxAsset> Release(TqxAsset* asset) {
    for (auto& owned : FOwned) {
      if (owned.get() == asset) return std::move(owned);
    }
    return nullptr;
  }

private:
  TqxAssetName FName;
  std::vector<TqxAsset*> FItems;
  std::vector<std::unique_ptr<TqxAsset>> FOwned;
};

}  // namespace qx
