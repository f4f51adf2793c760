#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/core/assets/asset.h"
#include "platform/core/assets/assets_manager.h"
#include "platform/core/assets/bitmap_info.h"
#include "platform/host/project.h"
#include "platform/host/project_deployment.h"

namespace qx {

// Rewrites a project's deployment entries from its assets, so that the files
// of the assets folder reach Android and iOS devices. Entries are told from
// the user's own by their deployment class. Local names are relative to the
// project's folder and, like every name in a project file, use `\`.
class TqxAssetsDeployment {
public:
  static constexpr const char* kAssetsClass = "Quorvex_Assets";
  static constexpr const char* kAssetsConfigClass = "Quorvex_AssetsConfig";
  static constexpr const char* kConfigurations[] = {"Debug", "Release"};

  // A project without a deployment service is logged; AddToDeploy then fails
  // its assertion before anything changes.
  explicit TqxAssetsDeployment(const std::shared_ptr<IOTAProject>& project);

  // Drops every entry of the two classes, then enters the per-platform config
  // files and every asset file of the manager. Files aren't checked on disk:
  // this follows a save.
  void AddToDeploy(const TqxAssetsManager* assetsManager);
  // Enters one asset's files that exist on disk; kinds without files are ignored.
  void AddFiles(const TqxAsset* asset);
  // Removes the entries of one asset's files, whatever their class.
  void RemoveFiles(const TqxAsset* asset);

  // One file of an asset as it is deployed.
  struct TDeployedFile {
    std::string LocalName;
    std::string RemoteDir;
    std::string RemoteName;
  };
  // The files an asset deploys; bitmap infos without a picture give none.
  // assetsPath is the full path of the assets folder.
  static std::vector<TDeployedFile> GetDeployedFiles(const TqxAsset& asset, const std::string& assetsPath);
  // Joins with `\`; a rooted second part stands alone, an empty one is skipped.
  static std::string Combine(const std::string& path, const std::string& name);

private:
  std::shared_ptr<IOTAProject> LockProject() const;
  void RemoveAllAssetsFilesFromDeployment();
  void AddFile(const std::string& platform, const std::string& deploymentClass, const TDeployedFile& file);
  void AddAndroidFile(const std::string& deploymentClass, const TDeployedFile& file);
  void AddiOSFile(const std::string& deploymentClass, const TDeployedFile& file);
  void AddAssetFile(const TDeployedFile& file);

  std::weak_ptr<IOTAProject> FProject;
  std::shared_ptr<IProjectDeployment> FDeploymentManager;
};

// Rewrites the deployment of every project that opens with an IDE-wide
// assets manager. Registered once by the package; UnregisterAssetsDeployment
// ends it.
void RegisterAssetsDeployment();
void UnregisterAssetsDeployment();

}  // namespace qx
