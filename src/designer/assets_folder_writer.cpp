#include "designer/assets_folder_writer.h"

#include <algorithm>
#include <system_error>

#include "platform/core/assets/asset.h"
#include "platform/core/assets/asset_bitmap_set.h"
#include "platform/core/assets/asset_name_helper.h"
#include "platform/core/assets/asset_svg.h"
#include "platform/core/assets/asset_with_file.h"
#include "platform/core/assets/assets_factory.h"
#include "platform/core/assets/assets_manager.h"
#include "platform/core/base/exception.h"
#include "platform/core/base/file_io.h"
#include "platform/core/base/log.h"
#include "platform/core/base/text.h"

namespace qx {
namespace fs = std::filesystem;

namespace {

// Asset names and stored URIs separate folders by `\` on every platform.
std::string WithSlashes(std::string text) {
  std::replace(text.begin(), text.end(), '\\', '/');
  return text;
}

bool StartsWithFolder(const std::string& key, const std::string& folderKey) {
  return key.size() > folderKey.size() && key.compare(0, folderKey.size(), folderKey) == 0 &&
         key[folderKey.size()] == '/';
}

// A write through a temporary name must not follow a link someone left there.
void DropLinkAt(const fs::path& path) {
  std::error_code ec;
  if (fs::is_symlink(fs::symlink_status(path, ec))) fs::remove(path, ec);
}

}  // namespace

std::vector<std::string> GetAssetUris(const TqxAsset& asset) {
  std::vector<std::string> uris;
  if (auto* withFile = dynamic_cast<const TqxAssetWithFile*>(&asset)) {
    uris.push_back(withFile->Uri());
  } else if (auto* svg = dynamic_cast<const TqxAssetSVG*>(&asset)) {
    uris.push_back(svg->SVGUri());
    uris.push_back(svg->VectorUri());
  } else if (auto* bitmapSet = dynamic_cast<const TqxAssetBitmapSet*>(&asset)) {
    for (const TqxBitmapInfo* info : bitmapSet->GetBitmapInfos()) uris.push_back(info->Uri());
  }
  std::erase_if(uris, [](const std::string& uri) { return uri.empty(); });
  return uris;
}

TqxAssetsFolderWriter::TqxAssetsFolderWriter(TqxAssetsManager& manager, TSaveAssetFiles saveAssetFiles)
    : FManager(manager), FSaveAssetFiles(std::move(saveAssetFiles)) {}

std::string TqxAssetsFolderWriter::SiblingConfigFileName(const std::string& configFileName,
                                                         const std::string& suffix) {
  const fs::path path(configFileName);
  return (path.parent_path() / (path.stem().string() + suffix)).string();
}

void TqxAssetsFolderWriter::SaveToFile(const std::string& configFileName) {
  CheckNames();
  FFolder = fs::absolute(fs::path(configFileName)).parent_path().lexically_normal();
  FSaved.clear();
  FProtectedFolders.clear();
  FProtectedFiles.clear();

  std::error_code ec;
  fs::create_directories(FFolder, ec);
  if (ec) {
    throw Exception(Format("Cannot create the assets folder \"%s\": %s", {FFolder.string(), ec.message()}));
  }
  CheckFolderStaysInProject();
  MakeBackup(configFileName);
  const std::vector<TPath> oldFiles = ListOldFiles();
  SaveAssetFiles();
  WriteConfigFiles(configFileName);
  DeleteUnlistedFiles(oldFiles);
  DeleteEmptyFolders(FFolder);
}

// A name that could lead out of the folder, or that the config could not be
// read back with, stops the save before anything is written.
void TqxAssetsFolderWriter::CheckNames() const {
  for (const TqxAssetName& name : FManager.GetAssetsNames()) {
    if (!TqxAssetNameHelper::IsValid(name)) {
      throw Exception(Format("Cannot save the assets: the asset \"%s\" has a name that is not valid (an empty, "
                             "\".\" or \"..\" part, or one of / : * ? \" < > |); rename it first",
                             {name}));
    }
  }
}

void TqxAssetsFolderWriter::CheckFolderStaysInProject() const {
  std::error_code ec;
  const TPath project = fs::weakly_canonical(FFolder.parent_path(), ec);
  const TPath folder = fs::weakly_canonical(FFolder, ec);
  const TPath relative = folder.lexically_relative(project);
  if (ec || relative.empty() || *relative.begin() == ".." || relative == ".") {
    throw Exception(Format("The assets folder \"%s\" leads outside the project's folder (to \"%s\"); nothing was saved",
                           {FFolder.string(), folder.string()}));
  }
}

void TqxAssetsFolderWriter::MakeBackup(const std::string& configFileName) const {
  std::error_code ec;
  if (!fs::is_regular_file(configFileName, ec)) return;
  const TPath backup = FFolder / kBackupFileName;
  DropLinkAt(TqxFileIO::TemporaryNameFor(backup.string()));
  TqxFileIO::WriteAtomically(backup.string(), TqxFileIO::ReadAll(configFileName));
}

std::vector<TqxAssetsFolderWriter::TPath> TqxAssetsFolderWriter::ListOldFiles() const {
  std::vector<TPath> files;
  std::error_code ec;
  // Linked folders are not entered: their files are not the project's.
  for (fs::recursive_directory_iterator it(FFolder, ec), end; !ec && it != end; it.increment(ec)) {
    if (!fs::is_directory(it->symlink_status(ec))) files.push_back(it->path());
  }
  if (ec) throw Exception(Format("Cannot list the assets folder \"%s\": %s", {FFolder.string(), ec.message()}));
  return files;
}

void TqxAssetsFolderWriter::SaveAssetFiles() {
  const std::string root = FFolder.string();
  for (TqxAsset* asset : FManager.GetAllAssets()) {
    try {
      for (const std::string& fileName : FSaveAssetFiles(*asset, root)) {
        const TPath file = fs::path(fileName).is_absolute() ? fs::path(fileName) : FFolder / fileName;
        if (IsInsideFolder(file)) FSaved.insert(Key(file));
      }
    } catch (const std::exception& e) {
      TqxLog::Error(kLogTag, "Cannot save asset's files on disk: Asset=%s, Message=\"%s\"",
                    {asset->ToString(), std::string(e.what())});
      Protect(*asset);
    }
  }
}

void TqxAssetsFolderWriter::WriteConfigFiles(const std::string& configFileName) {
  WriteConfig(configFileName, [&] {
    TqxAssetsFactory::SaveConfigToFile(FManager, configFileName, TqxWritingOptions::Default());
  });
  const std::pair<const char*, TqxPlatform> platforms[] = {{"-android.json", kPlatformAndroid},
                                                           {"-ios.json", kPlatformIOS}};
  for (const auto& [suffix, platform] : platforms) {
    const std::string fileName = SiblingConfigFileName(configFileName, suffix);
    WriteConfig(fileName, [&] {
      TqxAssetsFactory::SaveConfigToFile(FManager, fileName, TqxPlatforms{kPlatformAny, platform},
                                         TqxWritingOptions(true, platform, false));
    });
  }
}

void TqxAssetsFolderWriter::WriteConfig(const std::string& fileName, const std::function<void()>& write) {
  DropLinkAt(TqxFileIO::TemporaryNameFor(fileName));
  write();
  FSaved.insert(Key(fs::absolute(fileName)));
}

void TqxAssetsFolderWriter::DeleteUnlistedFiles(const std::vector<TPath>& oldFiles) const {
  for (const TPath& file : oldFiles) {
    if (FSaved.count(Key(file)) != 0 || IsProtected(file)) continue;
    std::error_code ec;
    // remove deletes a link itself, never what it points to.
    fs::remove(file, ec);
    if (ec) {
      TqxLog::Warning(kLogTag, "Cannot delete file, which is not a part of assets now: fileName=\"%s\", error=\"%s\"",
                      {file.string(), ec.message()});
    }
  }
}

void TqxAssetsFolderWriter::DeleteEmptyFolders(const TPath& folder) const {
  std::vector<TPath> subfolders;
  std::error_code ec;
  for (fs::directory_iterator it(folder, ec), end; !ec && it != end; it.increment(ec)) {
    if (fs::is_directory(it->symlink_status(ec))) subfolders.push_back(it->path());
  }
  for (const TPath& subfolder : subfolders) {
    DeleteEmptyFolders(subfolder);
    if (fs::is_empty(subfolder, ec) && !ec) fs::remove(subfolder, ec);
    if (ec) {
      throw Exception(Format("Cannot delete the empty folder \"%s\": %s", {subfolder.string(), ec.message()}));
    }
  }
}

// The files of an asset whose save failed stay, wherever they lie in the
// folder, so that its next save can still find them.
void TqxAssetsFolderWriter::Protect(const TqxAsset& asset) {
  FProtectedFolders.push_back(FFolder / WithSlashes(asset.Name()));
  for (const std::string& uri : GetAssetUris(asset)) {
    const TPath file(WithSlashes(uri));
    FProtectedFiles.insert(Key(file.is_absolute() ? file : FFolder / file));
  }
}

bool TqxAssetsFolderWriter::IsProtected(const TPath& file) const {
  const std::string key = Key(file);
  if (FProtectedFiles.count(key) != 0) return true;
  return std::any_of(FProtectedFolders.begin(), FProtectedFolders.end(), [&](const TPath& folder) {
    const std::string folderKey = Key(folder);
    // A link on the way to the folder keeps it reachable.
    return key == folderKey || StartsWithFolder(key, folderKey) || StartsWithFolder(folderKey, key);
  });
}

bool TqxAssetsFolderWriter::IsInsideFolder(const TPath& file) const {
  return StartsWithFolder(file.lexically_normal().generic_string(), FFolder.generic_string());
}

std::string TqxAssetsFolderWriter::Key(const TPath& file) const {
  return LowerCase(file.lexically_normal().generic_string());
}

}  // namespace qx
