#include "studio_ide.h"

#include "designer/designer_commands.h"
#include "designer/frame_asset_manager.h"
#include "package/assets_manager_view.h"
#include "platform/host/ide_services.h"
#include "platform/ui/headless_ui.h"
#include "studio_fixture.h"

namespace qx::test {
namespace {

TEST_F(StudioTest, RecentProjectsKeepTheNewestFirstWithinCapacityAcrossRuns) {
  TqxIdeSettings settings((FRoot / "recent.json").string());
  {
    TqxRecentProjects recent(settings);
    EXPECT_TRUE(recent.Items().empty());
    for (int i = 0; i < 10; ++i) recent.Add((FRoot / ("p" + std::to_string(i) + ".dproj")).string());
    // Opening one again moves it up instead of listing it twice; a relative
    // name counts as the same file.
    const fs::path previous = fs::current_path();
    fs::current_path(FRoot);
    recent.Add("p5.dproj");
    fs::current_path(previous);
    ASSERT_EQ(recent.Items().size(), TqxRecentProjects::Capacity);
    EXPECT_EQ(recent.Items()[0], (FRoot / "p5.dproj").string());
    EXPECT_EQ(recent.Items().back(), (FRoot / "p2.dproj").string());
    recent.Remove((FRoot / "p9.dproj").string());
  }
  TqxIdeSettings reread((FRoot / "recent.json").string());
  TqxRecentProjects recent(reread);
  ASSERT_EQ(recent.Items().size(), TqxRecentProjects::Capacity - 1);
  EXPECT_EQ(recent.Items()[1], (FRoot / "p8.dproj").string());

  // Whatever else stands under the key costs only the list.
  reread.SetString(TqxRecentProjects::kSettingsKey, "[\"a.dproj\", 3, \"a.dproj\", \"\"]");
  EXPECT_EQ(TqxRecentProjects(reread).Items(), std::vector<std::string>{"a.dproj"});
}

class StudioIdeTest : public StudioTest {
protected:
  StudioIdeTest() : Settings((FRoot / "ide.json").string()), Ide(Settings) { Ide.Start(); }
  ~StudioIdeTest() override {
    ForgetChanges();
    Ide.Shutdown();
  }

  // Nothing may ask while the test's projects go.
  void ForgetChanges() {
    for (auto& [guid, view] : AssetsManagerViews())
      if (view->Frame() != nullptr) view->Frame()->ClearModified();
  }
  // A second project: a copy of the example under a GUID of its own.
  fs::path CopyDemoAsAnotherProject(const std::string& folder) {
    const fs::path project = CopyDemo(folder);
    std::string text = ReadText(project);
    const std::string guid = "6F3B8E2A-4C1D-4B7E-9A52-1D0E7C3F8B94";
    text.replace(text.find(guid), guid.size(), "0A1B2C3D-4E5F-4A6B-8C7D-9E0F1A2B3C4D");
    std::ofstream(project, std::ios::binary) << text;
    return project;
  }

  TMenuItem& ProjectMenu() { return *Ide.MainMenu.Find("ProjectMenu"); }
  TMenuItem* PackageItem() {
    TMenuItem& menu = ProjectMenu();
    const int at = menu.IndexOf(Ide.MainMenu.Find(TqxStudioIde::kProjectResourcesItem));
    return at + 1 < menu.Count() ? menu.Items(at + 1) : nullptr;
  }
  TFrameAssetManager* Designer() {
    auto* view = dynamic_cast<TqxAssetsManagerView*>(Ide.Views().ActiveView());
    return view ? view->Frame() : nullptr;
  }

  TqxHeadlessUi Ui;
  TqxIdeSettings Settings;
  TqxStudioIde Ide;
};

TEST_F(StudioIdeTest, ThePackagesItemStandsBehindTheResourcesItemAndOpensTheActiveProjectsDesigner) {
  TMenuItem* item = PackageItem();
  ASSERT_NE(item, nullptr);
  ASSERT_NE(item->Action(), nullptr);
  // No project: the item is not there for the user.
  item->Action()->Update();
  EXPECT_FALSE(item->Visible());

  const auto first = Ide.OpenProject(CopyDemo("One").string());
  const auto second = Ide.OpenProject(CopyDemoAsAnotherProject("Two").string());
  ASSERT_TRUE(first && second);
  EXPECT_EQ(Ide.Host().GetActiveProject(), second);
  item->Action()->Update();
  EXPECT_TRUE(item->Visible());

  item->Click();
  ASSERT_NE(Designer(), nullptr);
  EXPECT_EQ(Designer()->Project(), second);
  Ide.SetActiveProject(first);
  item->Click();
  item->Click();
  EXPECT_EQ(Ide.Views().Count(), 2u);
  EXPECT_EQ(Designer()->Project(), first);

  ASSERT_EQ(Ide.ProjectEntries().size(), 2u);
  EXPECT_TRUE(Ide.ProjectEntries()[0].Active);

  // The package unloads with the IDE, and its item leaves the menu first.
  ForgetChanges();
  Ide.Shutdown();
  EXPECT_EQ(ProjectMenu().Count(), 1);
  EXPECT_TRUE(TqxIdeServices::Instance().Wizards().empty());
}

TEST_F(StudioIdeTest, OpeningReportsABadFileAndFillsTheRecentMenu) {
  std::ofstream(FRoot / "broken.dproj") << "<Project";
  Ui.Dialogs.AnswerMessage(mrOk);
  EXPECT_EQ(Ide.OpenProject((FRoot / "broken.dproj").string()), nullptr);
  EXPECT_EQ(Ui.Dialogs.Shown().size(), 1u);
  EXPECT_EQ(Ide.LogLines().back().Level, TqxLogLevel::Error);

  TMenuItem* recent = Ide.MainMenu.Find("FileRecentItem");
  ASSERT_EQ(recent->Count(), 1);
  EXPECT_FALSE(recent->Items(0)->Enabled());

  // Open Project... goes through the file dialog.
  const fs::path demo = CopyDemo("Demo");
  Ui.Dialogs.AnswerOpenFile({demo.string()});
  Ide.ActionOpenProject->Execute();
  ASSERT_EQ(Ide.Host().Projects().size(), 1u);
  ASSERT_EQ(recent->Count(), 1);
  EXPECT_EQ(recent->Items(0)->Caption(), demo.string());

  // A click on a recent project reopens it once the click is over.
  Ide.CloseProject(Ide.Host().GetActiveProject());
  recent->Items(0)->Click();
  EXPECT_TRUE(Ide.Host().Projects().empty());
  Ui.Queue.ProcessAll();
  EXPECT_EQ(Ide.Host().Projects().size(), 1u);
}

}  // namespace
}  // namespace qx::test
