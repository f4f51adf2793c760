#include "designer/frame_asset_manager.h"

#include <gtest/gtest.h>

#include "frames/register_frames.h"
#include "kinds/assets_editors_manager.h"
#include "platform/core/assets/asset_bitmap_set.h"
#include "platform/core/assets/asset_color.h"
#include "platform/core/assets/asset_file.h"
#include "platform/core/base/exception.h"
#include "platform/core/base/log.h"
#include "platform/host/filesystem/dproj_project.h"
#include "platform/host/ide_events_listener.h"
#include "../support/temp_folder.h"

namespace qx {
namespace {

namespace fs = std::filesystem;
using test::ReadText;
using test::WriteText;

// A project over a real .dproj whose deployment service and unit adding can
// be made to fail, and which counts how often it was marked modified.
class TFaultyProject : public IOTAProject {
public:
  explicit TFaultyProject(std::shared_ptr<TqxDprojProject> inner) : FInner(std::move(inner)) {}

  std::string GetFileName() const override { return FInner->GetFileName(); }
  TGUID GetProjectGUID() const override { return FInner->GetProjectGUID(); }
  std::string GetFrameworkType() const override { return FInner->GetFrameworkType(); }
  std::shared_ptr<IOTAModuleInfo> FindModuleInfo(const std::string& fileName) const override {
    return FInner->FindModuleInfo(fileName);
  }
  void AddFile(const std::string& fileName, bool isUnit) override {
    if (FFailAddFile) throw Exception("the project refuses the unit");
    FInner->AddFile(fileName, isUnit);
  }
  void MarkModified() override { ++FMarked; }
  int AddNotifier(std::shared_ptr<IOTAModuleNotifier> notifier) override { return FInner->AddNotifier(notifier); }
  void RemoveNotifier(int id) override { FInner->RemoveNotifier(id); }
  std::shared_ptr<IProjectDeployment> GetProjectDeployment() override {
    return FNoDeployment ? nullptr : FInner->GetProjectDeployment();
  }

  std::shared_ptr<TqxDprojProject> FInner;
  bool FFailAddFile = false;
  bool FNoDeployment = false;
  int FMarked = 0;
};

class FrameAssetManagerTest : public ::testing::Test {
protected:
  FrameAssetManagerTest() {
    RegisterAssetEditors();
    RegisterAssetEditorFrames();
    TqxLog::SetStderrEnabled(false);
    fs::copy_file(fs::path(QX_TEST_DATA_DIR) / "dproj" / "bare_lf.dproj", FFolder / "Bare.dproj");
    WriteText(FFolder / "in" / "notes.txt", "notes");
    FProject = std::make_shared<TFaultyProject>(TqxDprojProject::Open((FFolder / "Bare.dproj").string()));
    TqxIdeEventsListener::Instance().ProjectOpened(FProject);
    FDesigner.SetProject(FProject);
  }
  ~FrameAssetManagerTest() override {
    TqxIdeEventsListener::Instance().Finalize();
    TqxLog::SetStderrEnabled(true);
  }

  TqxAssetsManager& IdeManager() {
    return *TqxIdeEventsListener::Instance().FindAssetsManager(FProject->GetProjectGUID());
  }
  void AddEdits() {
    FDesigner.Model().AddColor("Colors\\Red", 0xFFFF0000);
    FDesigner.Model().AddEmptyFile("Docs\\Notes")->SetUri((FFolder / "in" / "notes.txt").string());
  }
  std::size_t DeploymentEntries() const { return FProject->FInner->Deployment()->Entries().size(); }
  fs::path Assets() const { return FFolder / "Assets"; }
  fs::path Unit() const { return FFolder / "Assets.Consts.pas"; }
  bool UnitIsInProject() const { return FProject->FInner->FindModuleInfo(Unit().string()) != nullptr; }

  test::TTempFolder FFolder{"frame"};
  std::shared_ptr<TFaultyProject> FProject;
  TFrameAssetManager FDesigner;
};

TEST_F(FrameAssetManagerTest, ACompleteSaveReachesTheDiskTheIdeWideManagerTheDeploymentAndTheUnit) {
  AddEdits();
  FDesigner.Save(false);
  // The local manager reads the disk again: URIs are full paths into the folder.
  auto* notes = FDesigner.GetAssetsManager().FindExact("Docs\\Notes", 0, 0);
  EXPECT_EQ(static_cast<TqxAssetFile*>(notes)->Uri(), (Assets() / "Docs/Notes/default.txt").string());
  EXPECT_TRUE(IdeManager().Contains("Colors\\Red"));
  EXPECT_GT(DeploymentEntries(), 0u);
  EXPECT_EQ(FProject->FMarked, 1);
  EXPECT_TRUE(UnitIsInProject());
  EXPECT_NE(ReadText(Unit()).find("NOTES"), std::string::npos);
  // Only the save command clears the flag.
  EXPECT_TRUE(FDesigner.GetModified());
}

TEST_F(FrameAssetManagerTest, AFailureBeforeTheConfigIsWrittenLeavesTheIdeWideManagerEmptyAndNothingElse) {
  FDesigner.Model().AddColor("Colors\\Red", 0xFFFF0000);
  FDesigner.Save(false);
  const int marked = FProject->FMarked;
  fs::remove(Unit());
  FDesigner.Model().AddColor("Colors\\Blue", 0xFF0000FF);

  // An unwritable config file.
  fs::create_directories(Assets() / "config-android.json.tmp");
  EXPECT_THROW(FDesigner.Save(false), Exception);
  EXPECT_TRUE(fs::exists(Assets() / "config.backup.json"));
  EXPECT_TRUE(IdeManager().IsEmpty());
  EXPECT_TRUE(FDesigner.GetAssetsManager().Contains("Colors\\Blue"));
  EXPECT_EQ(FProject->FMarked, marked);
  EXPECT_FALSE(fs::exists(Unit()));

}

TEST_F(FrameAssetManagerTest, AMissingDeploymentServiceStopsTheSaveAfterTheFolderIsWritten) {
  AddEdits();
  FProject->FNoDeployment = true;
  EXPECT_THROW(FDesigner.Save(false), EqxAssertError);
  EXPECT_TRUE(fs::exists(Assets() / "Docs/Notes/default.txt"));
  EXPECT_TRUE(IdeManager().IsEmpty());
  EXPECT_EQ(FProject->FMarked, 0);
  EXPECT_FALSE(fs::exists(Unit()));
}

TEST_F(FrameAssetManagerTest, TheUnitThatCannotBeAddedOrWrittenFailsOnlyWhatFollowsIt) {
  AddEdits();
  FProject->FFailAddFile = true;
  FDesigner.Save(false);
  EXPECT_TRUE(fs::exists(Unit()));
  EXPECT_FALSE(UnitIsInProject());

  fs::remove(Unit());
  fs::create_directories(Unit());
  EXPECT_THROW(FDesigner.Save(false), Exception);
  EXPECT_TRUE(IdeManager().Contains("Docs\\Notes"));
  EXPECT_EQ(FProject->FMarked, 2);
}

TEST_F(FrameAssetManagerTest, OnlyTheFolderNodesOfALoadMarkTheDocumentModified) {
  // At top level: the load drops the redundant Android variant and gives the
  // set its missing scales, and neither is an edit.
  WriteText(Assets() / "config.json",
            R"({"format": "quorvex-assets-config", "version": 1, "platforms": ["any", "android", "ios"],
                "assets": [{"name": "Accent", "kind": "color", "variants": [
                              {"platform": "any", "deviceClass": "any", "color": "#FF2196F3"},
                              {"platform": "android", "deviceClass": "any", "color": "#FF2196F3"}]},
                           {"name": "Logo", "kind": "bitmap-set", "variants": [
                              {"platform": "any", "deviceClass": "any", "bitmaps": [{"scale": 1.0, "uri": ""}]}]}]})");
  FDesigner.Load();
  EXPECT_EQ(FDesigner.GetAssetsManager().Count(), 2u);
  EXPECT_FALSE(FDesigner.GetModified());

  // The example keeps its assets in folders: the nodes made for them mark it,
  // as the first load of any such project does.
  test::TTempFolder demo("demo");
  fs::copy(fs::path(QX_SOURCE_DIR) / "examples" / "Demo", demo.Path(), fs::copy_options::recursive);
  TFrameAssetManager designer;
  bool markedWhileLoading = false;
  designer.FOnModifiedChanged = [&] { markedWhileLoading = designer.State().Contains(TqxState::Loading); };
  designer.SetProject(TqxDprojProject::Open((demo / "Demo.dproj").string()));
  EXPECT_TRUE(designer.GetModified());
  EXPECT_TRUE(markedWhileLoading);
}

}  // namespace
}  // namespace qx

