#include "designer/assets_folder_writer.h"

#include <algorithm>

#include <gtest/gtest.h>

#include "platform/core/assets/asset_color.h"
#include "platform/core/assets/asset_file.h"
#include "platform/core/assets/assets_factory.h"
#include "platform/core/assets/assets_manager.h"
#include "platform/core/base/exception.h"
#include "platform/core/base/log.h"
#include "../support/temp_folder.h"

namespace qx {
namespace {

namespace fs = std::filesystem;
using test::ListTree;
using test::ReadText;
using test::WriteText;
using Tree = std::set<std::string>;

// Saves a custom file the way the kinds do, into a folder named after the
// asset; an asset whose name starts with "Broken" fails.
std::vector<std::string> SaveFileAsset(TqxAsset& asset, const std::string& root) {
  if (asset.Name().rfind("Broken", 0) == 0) throw Exception("disk full");
  auto* file = dynamic_cast<TqxAssetFile*>(&asset);
  if (file == nullptr || file->Uri().empty()) return {};
  std::string relative = asset.Name();
  std::replace(relative.begin(), relative.end(), '\\', '/');
  const fs::path folder = fs::path(root) / relative;
  const fs::path target = folder / ("default" + fs::path(file->Uri()).extension().string());
  fs::create_directories(folder);
  if (fs::path(file->Uri()) != target) fs::copy_file(file->Uri(), target, fs::copy_options::overwrite_existing);
  file->SetUri(asset.Name() + "\\" + target.filename().string());
  return {target.string()};
}

class AssetsFolderWriterTest : public ::testing::Test {
protected:
  AssetsFolderWriterTest() {
    FSink = TqxLog::AddSink([this](TqxLogLevel, const std::string&, const std::string& text) {
      FLog += text + "\n";
    });
    TqxLog::SetStderrEnabled(false);
  }
  ~AssetsFolderWriterTest() override {
    TqxLog::RemoveSink(FSink);
    TqxLog::SetStderrEnabled(true);
  }

  TqxAssetFile* AddFile(const std::string& name, const fs::path& source) {
    auto asset = std::make_unique<TqxAssetFile>(name);
    asset->SetUri(source.string());
    return FManager.Add(std::move(asset));
  }
  void Save() { TqxAssetsFolderWriter(FManager, SaveFileAsset).SaveToFile(Config().string()); }
  fs::path Assets() const { return FProject / "Assets"; }
  fs::path Config() const { return Assets() / "config.json"; }

  test::TTempFolder FProject{"writer"};
  TqxAssetsManager FManager;
  std::string FLog;
  int FSink;
};

TEST_F(AssetsFolderWriterTest, FirstSaveMakesTheFolderAndASecondSaveRemovesWhatNoAssetLists) {
  WriteText(FProject / "in" / "notes.txt", "notes");
  FManager.Add(std::make_unique<TqxAssetColor>("Colors\\Red", 0, 0, 0xFFFF0000));
  AddFile("Docs\\Notes", FProject / "in" / "notes.txt");

  Save();
  const Tree saved = {"Docs/", "Docs/Notes/", "Docs/Notes/default.txt", "config-android.json",
                      "config-ios.json", "config.json"};
  EXPECT_EQ(ListTree(Assets()), saved);
  EXPECT_EQ(ReadText(Assets() / "Docs/Notes/default.txt"), "notes");

  // Files laid in by hand, folders left empty, and a nested stale file go; the
  // backup made at the start goes too.
  WriteText(Assets() / "stray.txt", "x");
  WriteText(Assets() / "Old/Deep/stale.png", "x");
  fs::create_directories(Assets() / "Empty/Nested");
  FManager.Clear();
  TqxAssetsFactory::LoadFromFile(FManager, Config().string());
  Save();
  EXPECT_EQ(ListTree(Assets()), saved);
}

TEST_F(AssetsFolderWriterTest, AnAssetThatFailsIsLoggedAndKeepsItsFilesWhileTheOthersAreSaved) {
  WriteText(FProject / "in" / "a.txt", "a");
  AddFile("Good", FProject / "in" / "a.txt");
  // A renamed asset whose save fails still points at its files under the old name.
  WriteText(Assets() / "Old/default.txt", "old");
  WriteText(Assets() / "Broken/default.txt", "kept");
  AddFile("Broken", Assets() / "Broken/default.txt");
  AddFile("BrokenRenamed", Assets() / "Old/default.txt");

  Save();
  EXPECT_NE(FLog.find("Cannot save asset's files on disk: Asset="), std::string::npos);
  EXPECT_NE(FLog.find("Message=\"disk full\""), std::string::npos);
  EXPECT_EQ(ReadText(Assets() / "Good/default.txt"), "a");
  EXPECT_EQ(ReadText(Assets() / "Broken/default.txt"), "kept");
  EXPECT_EQ(ReadText(Assets() / "Old/default.txt"), "old");
  EXPECT_FALSE(fs::exists(Assets() / TqxAssetsFolderWriter::kBackupFileName));
}

TEST_F(AssetsFolderWriterTest, AConfigFileThatCannotBeWrittenLeavesTheBackupAndCleansNothing) {
  FManager.Add(std::make_unique<TqxAssetColor>("Red", 0, 0, 0xFFFF0000));
  Save();
  const std::string before = ReadText(Config());
  WriteText(Assets() / "stray.txt", "x");
  FManager.Add(std::make_unique<TqxAssetColor>("Blue", 0, 0, 0xFF0000FF));
  // A folder where the iOS file's temporary file goes makes its write fail.
  fs::create_directories(Assets() / "config-ios.json.tmp");

  EXPECT_THROW(Save(), Exception);
  EXPECT_EQ(ReadText(Assets() / TqxAssetsFolderWriter::kBackupFileName), before);
  EXPECT_NE(ReadText(Config()), before);
  EXPECT_TRUE(fs::exists(Assets() / "stray.txt"));
}

TEST_F(AssetsFolderWriterTest, AnAssetsFolderThatCannotBeMadeStopsTheSaveBeforeAnyWrite) {
  WriteText(Assets(), "a file where the folder should be");
  FManager.Add(std::make_unique<TqxAssetColor>("Red", 0, 0, 0xFFFF0000));
  try {
    Save();
    FAIL() << "no exception";
  } catch (const Exception& e) {
    EXPECT_NE(std::string(e.what()).find(Assets().string()), std::string::npos) << e.what();
  }
  EXPECT_EQ(ListTree(FProject.Path()), Tree{"Assets"});
}

TEST_F(AssetsFolderWriterTest, LinksAreNeverFollowedOutOfTheProject) {
  test::TTempFolder outside("outside");
  WriteText(outside / "keep/file.txt", "outside");
  WriteText(outside / "single.txt", "single");
  fs::create_directories(Assets());
  fs::create_directory_symlink(outside / "keep", Assets() / "Linked");
  fs::create_symlink(outside / "single.txt", Assets() / "stray.txt");
  fs::create_symlink(outside / "tmp.txt", Assets() / "config.json.tmp");
  FManager.Add(std::make_unique<TqxAssetColor>("Red", 0, 0, 0xFFFF0000));

  Save();
  // The links, which no asset lists, are gone as links; what they led to stays.
  EXPECT_EQ(ListTree(Assets()), (Tree{"config-android.json", "config-ios.json", "config.json"}));
  EXPECT_EQ(ListTree(outside.Path()), (Tree{"keep/", "keep/file.txt", "single.txt"}));

  // An assets folder that is itself a link out of the project is refused.
  fs::remove_all(Assets());
  fs::create_directory_symlink(outside.Path(), Assets());
  EXPECT_THROW(Save(), Exception);
  EXPECT_EQ(ListTree(outside.Path()), (Tree{"keep/", "keep/file.txt", "single.txt"}));
}

}  // namespace
}  // namespace qx
