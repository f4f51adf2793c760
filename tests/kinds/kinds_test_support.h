#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <set>
#include <string>

#include "kinds/asset_editor.h"
#include "kinds/assets_editors_manager.h"

namespace qx::test {

namespace fs = std::filesystem;

inline std::string DataFile(const std::string& relative) { return std::string(QX_TEST_DATA_DIR) + "/" + relative; }

inline std::string ReadBytes(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

inline void WriteBytes(const fs::path& file, const std::string& bytes) {
  std::ofstream(file, std::ios::binary) << bytes;
}

// Every file under the folder, relative to it, `/` separated.
inline std::set<std::string> FilesUnder(const fs::path& folder) {
  std::set<std::string> files;
  if (!fs::exists(folder)) return files;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    if (!entry.is_directory()) files.insert(fs::relative(entry.path(), folder).generic_string());
  }
  return files;
}

// A project folder with its Assets folder, a folder of sources to drop from,
// and a folder beside the project that nothing may touch.
class AssetsFolderTest : public ::testing::Test {
protected:
  void SetUp() override {
    RegisterAssetEditors();
    FBase = fs::temp_directory_path() / ("qx_kinds_test_" + std::to_string(std::random_device{}()));
    fs::create_directories(FBase / "Project");
    fs::create_directories(FBase / "Sources");
    fs::create_directories(FBase / "Outside");
    FRoot = (FBase / "Project" / "Assets").string();
  }
  void TearDown() override {
    std::error_code ec;
    fs::remove_all(FBase, ec);
  }

  // A copy of a test data file among the sources, under another name if given.
  std::string Source(const std::string& dataFile, const std::string& name = {}) {
    const fs::path to = FBase / "Sources" / (name.empty() ? fs::path(dataFile).filename().string() : name);
    fs::copy_file(DataFile(dataFile), to, fs::copy_options::overwrite_existing);
    return to.string();
  }
  static IQuorvexAssetEditor& Editor(const TqxAssetType& type) {
    return TqxAssetsEditorsManager::Instance().Editors(type);
  }
  TqxFileNames Save(TqxAsset& asset) { return Editor(asset.GetType()).SaveTo(&asset, FRoot); }
  std::string InRoot(const std::string& relative) const { return (fs::path(FRoot) / relative).string(); }

  fs::path FBase;
  std::string FRoot;
};

}  // namespace qx::test
