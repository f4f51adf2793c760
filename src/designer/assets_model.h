#pragma once

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/core/assets/asset_group.h"
#include "platform/core/assets/assets_manager.h"

namespace qx {

class TqxAsset;
class TqxAssetBitmapSet;
class TqxAssetColor;
class TqxAssetFile;
class TqxAssetFont;
class TqxAssetLottieAnimation;
class TqxAssetStyle;
class TqxAssetSVG;

// Deleting is raised after the asset has left the manager.
enum class TqxAssetOperation { Added, Deleting, Renamed };

using TqxAssetRenamedEvent = std::function<void(const TqxAssetName& oldName, const TqxAssetName& newName)>;
using TqxAssetChangedEvent = std::function<void(const TqxAssetName& name, TqxAssetOperation operation)>;

// The scales a new bitmap set gets, in this order.
inline constexpr std::array<float, 5> kBitmapScales = {1.0f, 1.5f, 2.0f, 3.0f, 4.0f};

// The designer's private copy of a project's assets. Every change to the set
// of assets goes through here and is reported by the two events, so that the
// tree follows without being called. Operations that take a name act on all
// of its variants. A folder is no asset: it is the common prefix of names,
// and a path that denotes one ends in `\`.
class TqxAssetsModel {
public:
  TqxAssetsModel();
  ~TqxAssetsModel();
  TqxAssetsModel(const TqxAssetsModel&) = delete;
  TqxAssetsModel& operator=(const TqxAssetsModel&) = delete;

  TqxAssetsManager& GetAssetsManager() { return *FAssetsManager; }
  const TqxAssetsManager& GetAssetsManager() const { return *FAssetsManager; }

  // The add operations take names as given: callers clear them with
  // GenerateAssetName first. New empty assets are for any platform and device.
  void AddAsset(std::unique_ptr<TqxAsset> asset);
  // Moves the group's items, which it must own, into the manager in list
  // order; one event, with the group's name.
  void AddGroup(TqxAssetGroup& group);
  void AddThemeContainer(const TqxAssetName& name);
  TqxAssetColor* AddColor(const TqxAssetName& name, TAlphaColor color);
  // With an empty info for each scale of kBitmapScales.
  TqxAssetBitmapSet* AddEmptyBitmapSet(const TqxAssetName& name);
  TqxAssetFont* AddEmptyFont(const TqxAssetName& name);
  TqxAssetFile* AddEmptyFile(const TqxAssetName& name);
  TqxAssetStyle* AddEmptyStyle(const TqxAssetName& name);
  TqxAssetLottieAnimation* AddEmptyLottieAnimation(const TqxAssetName& name);
  TqxAssetSVG* AddEmptySVG(const TqxAssetName& name);

  void Remove(const TqxAssetName& name);
  void Removes(const std::vector<TqxAssetName>& names);
  // A folder path (ending in `\`) removes every name under it; any other path
  // removes that one name, so a theme container goes without its members.
  // An empty path raises EqxAssertError.
  void RemovePath(const TqxAssetName& path);

  // Renames every variant. A taken new name gets a suffix as GenerateAssetName
  // gives one, so listeners must take the name from the events: renamed
  // first, then changed.
  void Rename(const TqxAssetName& oldName, const TqxAssetName& newName);
  // Renames each name that starts with the old prefix (case-sensitively), one
  // by one through Rename. A theme's container name has no closing `\`, so
  // renaming a theme is Rename of the container and RenamePath of its folder.
  void RenamePath(const TqxAssetName& oldPathName, const TqxAssetName& newPathName);

  // The name itself when free, else the first free "name-1", "name-2", ...
  // The suffix goes on the whole name: "A-1" becomes "A-1-1".
  TqxAssetName GenerateAssetName(const TqxAssetName& name) const;
  // The variants of a name; the assets stay the manager's.
  TqxAssetGroup GetAssets(const TqxAssetName& name) const;
  // Clones every variant under one new unique name; returns the last clone,
  // or nullptr when the name has no asset.
  TqxAsset* Copy(const TqxAssetName& name);

  // Replaces the contents by the config file when it exists (links followed);
  // otherwise the manager stays as it was. No event.
  void LoadFromFile(const std::string& configFileName);
  // Writes the assets folder beside the config file: each asset's files by
  // its kind's SaveTo, the three config files, then removes what no asset
  // listed (TqxAssetsFolderWriter). A failing asset is logged and skipped. No event.
  void SaveToFile(const std::string& configFileName);
  // Drops each colour variant that says no more than the more general
  // variant of its name would. No event.
  void CleanUp();

  TqxAssetRenamedEvent FOnAssetRenamed;
  TqxAssetChangedEvent FOnAssetChanged;

protected:
  void DoChanged(const TqxAssetName& name, TqxAssetOperation operation);
  void DoAssetRenamed(const TqxAssetName& oldName, const TqxAssetName& newName);

private:
  template <class T>
  T* AddNew(const TqxAssetName& name);
  TqxAssetName FirstFreeSuffixed(const TqxAssetName& name) const;
  void CleanUpColor(const TqxAssetName& name);

  std::unique_ptr<TqxAssetsManager> FAssetsManager;
};

}  // namespace qx
