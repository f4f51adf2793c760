#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>

#include "kinds/asset_editor.h"
#include "kinds/assets_editors_manager.h"
#include "../support/temp_folder.h"

namespace qx::test {

inline std::string DataFile(const std::string& relative) { return std::string(QX_TEST_DATA_DIR) + "/" + relative; }

// Every file under the folder, relative to it, `/` separated.
inline std::set<std::string> FilesUnder(const fs::path& folder) {
  std::set<std::string> files;
  if (!fs::exists(folder)) return files;
  for (const auto& entry : fs::recursive_directory_iterator(folder))
    if (!entry.is_directory()) files.insert(fs::relative(entry.path(), folder).generic_string());
  return files;
}

// A project folder with its Assets folder, a folder of sources to drop from,
// and a folder beside the project that nothing may touch.
class AssetsFolderTest : public ::testing::Test {
protected:
  AssetsFolderTest() {
    RegisterAssetEditors();
    fs::create_directories(FBase / "Project");
    fs::create_directories(FBase / "Sources");
    fs::create_directories(FBase / "Outside");
  }

  // A copy of a test data file among the sources, under another name if given.
  std::string Source(const std::string& dataFile, const std::string& name = {}) {
    const fs::path to = FBase / "Sources" / (name.empty() ? fs::path(dataFile).filename().string() : name);
    fs::copy_file(DataFile(dataFile), to, fs::copy_options::overwrite_existing);
    return to.string();
  }
  TqxFileNames Save(TqxAsset& asset) {
    return TqxAssetsEditorsManager::Instance().Editors(asset.GetType()).SaveTo(&asset, FRoot);
  }
  std::string InRoot(const std::string& relative) const { return (fs::path(FRoot) / relative).string(); }

  TTempFolder FTemp{"kinds"};
  fs::path FBase = FTemp.Path();
  std::string FRoot = (FBase / "Project" / "Assets").string();
};

}  // namespace qx::test
