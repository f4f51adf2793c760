#include "generators/assets_deployment.h"

#include <filesystem>
#include <system_error>

#include "platform/core/assets/asset_bitmap_set.h"
#include "platform/core/assets/asset_file.h"
#include "platform/core/assets/asset_font.h"
#include "platform/core/assets/asset_lottie_animation.h"
#include "platform/core/assets/asset_svg.h"
#include "platform/core/base/assert.h"
#include "platform/core/base/log.h"
#include "platform/core/base/text.h"
#include "platform/host/ide_events_listener.h"
#include "platform/host/ide_messages.h"
#include "platform/host/message_manager.h"
#include "platform/host/supported_platforms.h"

namespace fs = std::filesystem;

namespace qx {
namespace {

constexpr const char* kLogTag = "AssetsDesigner";
constexpr const char* kAssetsFolder = "Assets";

bool IsSeparator(char c) { return c == '\\' || c == '/'; }

std::string Backslashed(std::string text) {
  for (char& c : text)
    if (c == '/') c = '\\';
  return text;
}

// The extension with its point, or "" when the last part has none.
std::string ExtractFileExt(const std::string& fileName) {
  const std::size_t dot = fileName.rfind('.');
  if (dot == std::string::npos) return {};
  const std::size_t separator = fileName.find_last_of("\\/");
  if (separator != std::string::npos && separator > dot) return {};
  return fileName.substr(dot);
}

// The scale times ten, truncated: 1.5 gives "15".
std::string ScaleText(float scale) {
  return std::to_string(static_cast<std::int64_t>(static_cast<long double>(scale) * 10));
}

std::string ProjectDir(const IOTAProject& project) {
  return fs::path(project.GetFileName()).parent_path().lexically_normal().string();
}

std::string AssetsPath(const IOTAProject& project) { return (fs::path(ProjectDir(project)) / kAssetsFolder).string(); }

// A bitmap's file relative to the assets folder: a full path inside the folder
// loses the folder's path and the separator behind it.
std::string RelativeToAssets(const std::string& uri, const std::string& assetsPath) {
  if (uri.size() > assetsPath.size() && StartsText(assetsPath, uri) && IsSeparator(uri[assetsPath.size()]))
    return uri.substr(assetsPath.size() + 1);
  return uri;
}

bool LocalFileExists(const std::string& projectDir, const std::string& localName) {
  std::string relative = localName;
  for (char& c : relative)
    if (c == '\\') c = '/';
  std::error_code error;
  return fs::is_regular_file(fs::path(projectDir) / relative, error);
}

// Fonts, custom files, Lottie animations and SVG images deploy one file each,
// named by the target id, in the asset's folder.
TqxAssetsDeployment::TDeployedFile SingleFile(const TqxAsset& asset, const std::string& extension,
                                              const std::string& remoteDir) {
  const std::string fileName = Format("%s%s", {asset.GetTargetId(), extension});
  return {TqxAssetsDeployment::Combine(TqxAssetsDeployment::Combine(kAssetsFolder, asset.Name()), fileName),
          remoteDir, fileName};
}

std::string AssetRemoteDir(const TqxAsset& asset) {
  return TqxAssetsDeployment::Combine(TqxAssetsDeployment::Combine("assets", asset.GetRelativePath()),
                                      asset.GetShortName());
}

}  // namespace

TqxAssetsDeployment::TqxAssetsDeployment(const std::shared_ptr<IOTAProject>& project) {
  TqxAssert::IsNotNil(project.get(), "AProject");
  FProject = project;
  if (!Supports(project, FDeploymentManager))
    TqxLog::Error(kLogTag, "Не могу задеплоить файлы изображений. Сервис деплоя не доступен");
}

std::shared_ptr<IOTAProject> TqxAssetsDeployment::LockProject() const {
  std::shared_ptr<IOTAProject> project = FProject.lock();
  TqxAssert::IsNotNil(project.get(), "FProject");
  return project;
}

std::string TqxAssetsDeployment::Combine(const std::string& path, const std::string& name) {
  if (name.empty()) return Backslashed(path);
  if (path.empty() || IsSeparator(name.front())) return Backslashed(name);
  std::string result = Backslashed(path);
  if (!IsSeparator(result.back())) result += '\\';
  return result + Backslashed(name);
}

std::vector<TqxAssetsDeployment::TDeployedFile> TqxAssetsDeployment::GetDeployedFiles(const TqxAsset& asset,
                                                                                  const std::string& assetsPath) {
  if (const auto* font = dynamic_cast<const TqxAssetFont*>(&asset))
    return {SingleFile(asset, ExtractFileExt(font->Uri()), Combine("assets\\fonts", asset.Name()))};
  if (const auto* file = dynamic_cast<const TqxAssetWithFile*>(&asset)) {
    if (dynamic_cast<const TqxAssetFile*>(&asset) || dynamic_cast<const TqxAssetLottieAnimation*>(&asset))
      return {SingleFile(asset, ExtractFileExt(file->Uri()), AssetRemoteDir(asset))};
    return {};
  }
  if (const auto* svg = dynamic_cast<const TqxAssetSVG*>(&asset))
    return {SingleFile(asset, ExtractFileExt(svg->VectorUri()), AssetRemoteDir(asset))};
  std::vector<TDeployedFile> files;
  if (const auto* bitmapSet = dynamic_cast<const TqxAssetBitmapSet*>(&asset)) {
    for (const TqxBitmapInfo* info : bitmapSet->GetBitmapInfos()) {
      if (info->Uri().empty()) continue;
      const std::string localName = Combine(kAssetsFolder, RelativeToAssets(info->Uri(), assetsPath));
      files.push_back({localName, AssetRemoteDir(asset),
                       Format("%s@%sx%s", {asset.GetTargetId(), ScaleText(info->Scale()), ExtractFileExt(localName)})});
    }
  }
  return files;
}

void TqxAssetsDeployment::AddToDeploy(const TqxAssetsManager* assetsManager) {
  const std::shared_ptr<IOTAProject> project = LockProject();
  TqxAssert::IsNotNil(assetsManager, "AAssetsManager");
  const std::string assetsPath = AssetsPath(*project);
  RemoveAllAssetsFilesFromDeployment();
  AddAndroidFile(kAssetsConfigClass, {"Assets\\config-android.json", "assets", "config.json"});
  AddiOSFile(kAssetsConfigClass, {"Assets\\config-ios.json", "assets", "config.json"});
  for (const TqxAsset* asset : assetsManager->GetAllAssets()) {
    for (const TDeployedFile& file : GetDeployedFiles(*asset, assetsPath)) AddAssetFile(file);
  }
}

void TqxAssetsDeployment::AddFiles(const TqxAsset* asset) {
  const std::shared_ptr<IOTAProject> project = LockProject();
  TqxAssert::IsNotNil(asset, "AAsset");
  const std::string projectDir = ProjectDir(*project);
  for (const TDeployedFile& file : GetDeployedFiles(*asset, AssetsPath(*project))) {
    if (LocalFileExists(projectDir, file.LocalName)) AddAssetFile(file);
  }
}

void TqxAssetsDeployment::RemoveFiles(const TqxAsset* asset) {
  const std::shared_ptr<IOTAProject> project = LockProject();
  TqxAssert::IsNotNil(asset, "AAsset");
  TqxAssert::IsNotNil(FDeploymentManager.get(), "FDeploymentManager");
  for (const TDeployedFile& file : GetDeployedFiles(*asset, AssetsPath(*project))) {
    if (file.LocalName.empty()) continue;
    for (const std::string& platform : QuorvexSupportedPlatforms) {
      for (const char* configuration : kConfigurations)
        FDeploymentManager->RemoveFile(configuration, platform, file.LocalName);
    }
  }
}

void TqxAssetsDeployment::RemoveAllAssetsFilesFromDeployment() {
  TqxAssert::IsNotNil(FDeploymentManager.get(), "FDeploymentManager");
  FDeploymentManager->RemoveFilesOfClass(kAssetsClass);
  FDeploymentManager->RemoveFilesOfClass(kAssetsConfigClass);
}

void TqxAssetsDeployment::AddFile(const std::string& platform, const std::string& deploymentClass,
                                  const TDeployedFile& file) {
  TqxAssert::IsNotNil(FDeploymentManager.get(), "FDeploymentManager");
  for (const char* configuration : kConfigurations) {
    std::shared_ptr<IProjectDeploymentFile> entry = FDeploymentManager->CreateFile(configuration, platform, file.LocalName);
    entry->SetDeploymentClass(deploymentClass);
    entry->SetConfiguration(configuration);
    entry->SetEnabled(platform, true);
    // Copy the file as it is.
    entry->SetOperation(platform, 0);
    entry->SetRemoteDir(platform, file.RemoteDir);
    entry->SetRemoteName(platform, file.RemoteName);
  }
}

void TqxAssetsDeployment::AddAndroidFile(const std::string& deploymentClass, const TDeployedFile& file) {
  for (const std::string& platform : QuorvexSupportedAndroidPlatforms) AddFile(platform, deploymentClass, file);
}

void TqxAssetsDeployment::AddiOSFile(const std::string& deploymentClass, const TDeployedFile& file) {
  for (const std::string& platform : QuorvexSupportediOSPlatforms) AddFile(platform, deploymentClass, file);
}

void TqxAssetsDeployment::AddAssetFile(const TDeployedFile& file) {
  AddAndroidFile(kAssetsClass, file);
  AddiOSFile(kAssetsClass, file);
}

namespace {

int gProjectOpenedSubscription = -1;

void ProjectOpened(const TMessageBase& message) {
  const auto* opened = TqxAssert::IsClass<const TqxProjectOpenedMessage>(&message, "TqxProjectOpenedMessage");
  const std::shared_ptr<IOTAProject>& project = opened->Value();
  if (!project) return;
  TqxAssetsManager* manager = TqxIdeEventsListener::Instance().FindAssetsManager(project->GetProjectGUID());
  if (manager == nullptr) return;
  TqxAssetsDeployment deployment(project);
  deployment.AddToDeploy(manager);
}

}  // namespace

void RegisterAssetsDeployment() {
  if (gProjectOpenedSubscription >= 0) return;
  gProjectOpenedSubscription = TMessageManager::DefaultManager().SubscribeToMessage<TqxProjectOpenedMessage>(
      [](const void*, const TMessageBase& message) { ProjectOpened(message); });
}

void UnregisterAssetsDeployment() {
  if (gProjectOpenedSubscription < 0) return;
  TMessageManager::DefaultManager().Unsubscribe(gProjectOpenedSubscription);
  gProjectOpenedSubscription = -1;
}

}  // namespace qx
