#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <unordered_set>
#include <vector>

namespace qx {

class TqxAsset;
class TqxAssetsManager;

// Writes a project's assets folder from a manager, in this order: a backup of
// config.json, every asset's files, config.json and the per-platform
// config-android.json and config-ios.json, then the removal of every file that
// no asset listed and of folders left empty.
//
// Assets whose names aren't valid (a `..` part, a `/`, ...) stop the save
// before anything is written. Nothing outside the folder of the assets folder (the project's folder) is
// written or deleted: an assets folder that leads elsewhere through a link is
// refused before anything is written, the walk over old files never enters a
// linked folder, and a link is deleted as a link, never its target.
class TqxAssetsFolderWriter {
public:
  // Writes one asset's files under the assets folder and returns their full
  // names; raises for that asset alone.
  using TSaveAssetFiles = std::function<std::vector<std::string>(TqxAsset& asset, const std::string& rootPath)>;

  TqxAssetsFolderWriter(TqxAssetsManager& manager, TSaveAssetFiles saveAssetFiles);

  // A failure in one asset's files is logged and the save goes on; a failure
  // of a config file, of the folder itself or of removing an empty folder
  // raises Exception and ends the save where it stands.
  void SaveToFile(const std::string& configFileName);

  // "config-android.json" beside "config.json": the config file's name up to
  // its last point, then the suffix.
  static std::string SiblingConfigFileName(const std::string& configFileName, const std::string& suffix);
  static constexpr const char* kBackupFileName = "config.backup.json";
  static constexpr const char* kLogTag = "AssetsDesigner";

private:
  using TPath = std::filesystem::path;

  void CheckNames() const;
  void CheckFolderStaysInProject() const;
  void MakeBackup(const std::string& configFileName) const;
  std::vector<TPath> ListOldFiles() const;
  void SaveAssetFiles();
  void WriteConfigFiles(const std::string& configFileName);
  void WriteConfig(const std::string& fileName, const std::function<void()>& write);
  void DeleteUnlistedFiles(const std::vector<TPath>& oldFiles) const;
  void DeleteEmptyFolders(const TPath& folder) const;
  void Protect(const TqxAsset& asset);
  bool IsProtected(const TPath& file) const;
  bool IsInsideFolder(const TPath& file) const;
  std::string Key(const TPath& file) const;

  TqxAssetsManager& FManager;
  TSaveAssetFiles FSaveAssetFiles;
  TPath FFolder;
  std::unordered_set<std::string> FSaved;  // keys of the files the save wrote
  std::vector<TPath> FProtectedFolders;
  std::unordered_set<std::string> FProtectedFiles;
};

// The files an asset refers to by its URIs, as they stand (full paths after a
// load, relative to the assets folder after a save).
std::vector<std::string> GetAssetUris(const TqxAsset& asset);

}  // namespace qx
