#include "package/assets_manager_view.h"

#include "designer/asset_tree.h"
#include "package_fixture.h"
#include "platform/host/ide_messages.h"
#include "platform/host/message_manager.h"

namespace qx::test {

namespace {

class AssetsManagerViewTest : public PackageTest {
protected:
  AssetsManagerViewTest() {
    InstallServices();
    Register();
  }

  std::shared_ptr<TqxDprojProject> OpenDemo(const std::string& folder = "Demo") {
    return Host->OpenProject(CopyDemo(folder).string());
  }
  // A colour added in the designer, not yet saved.
  void EditColour(TqxAssetsManagerView& view, const std::string& name) {
    view.Frame()->Model().AddColor(name, 0xFF336699);
    ASSERT_TRUE(view.Frame()->GetModified());
  }
  static std::string ConfigOf(const std::shared_ptr<TqxDprojProject>& project) {
    return ReadText(fs::path(project->GetFileName()).parent_path() / "Assets" / "config.json");
  }
};

}  // namespace

TEST_F(AssetsManagerViewTest, TheViewNamesItsProjectAndLoadsItsAssets) {
  const auto project = OpenDemo();
  ASSERT_TRUE(Wizard().OpenAction()->Execute());

  TqxAssetsManagerView* view = ActiveView();
  ASSERT_NE(view, nullptr);
  EXPECT_EQ(view->GetCaption(), "Assets Manager: Demo.dproj");
  EXPECT_EQ(view->GetViewIdentifier(), "Quorvex.Project.Designer.Assets." + (FRoot / "Demo" / "Demo").string());

  // The host's frame is the view's designer, loaded from the project's folder.
  ASSERT_NE(view->Frame(), nullptr);
  EXPECT_EQ(dynamic_cast<TFrameAssetManager*>(Views->FrameOf(view)), view->Frame());
  EXPECT_EQ(view->Frame()->Project(), project);
  EXPECT_GT(view->Frame()->GetAssetsManager().Count(), 0u);
  EXPECT_GE(view->ProjectNotifierId(), 0);
}

TEST_F(AssetsManagerViewTest, OpeningAgainBringsUpTheSameViewWithItsUnsavedState) {
  const auto demo = OpenDemo();
  OpenAssetsManagerDesigner("");
  TqxAssetsManagerView* first = ActiveView();
  ASSERT_NE(first, nullptr);
  EditColour(*first, "Unsaved");

  const auto other = Host->OpenProject(CopyProject("notes/notes_combined.dproj").string());
  OpenAssetsManagerDesigner("");
  TqxAssetsManagerView* second = ActiveView();
  EXPECT_NE(second, first);
  EXPECT_EQ(second->Frame()->GetAssetsManager().Count(), 0u);

  Host->SetActiveProject(demo);
  OpenAssetsManagerDesigner("Unsaved");
  EXPECT_EQ(ActiveView(), first);
  EXPECT_EQ(Views->Count(), 2u);
  EXPECT_EQ(ViewOf(other), second);
  EXPECT_TRUE(first->Frame()->GetAssetsManager().Contains("Unsaved"));
}

TEST_F(AssetsManagerViewTest, ClosingTheTabLeavesTheTableAndReopeningReadsTheDisk) {
  const auto demo = OpenDemo();
  OpenAssetsManagerDesigner("");
  auto* first = ActiveView();
  EditColour(*first, "Declined");
  const std::string diskBefore = ConfigOf(demo);

  Ui.Dialogs.AnswerMessage(mrCancel);
  EXPECT_FALSE(Views->CloseEditorView(first->shared_from_this()));
  EXPECT_EQ(ViewOf(demo), first);

  Ui.Dialogs.AnswerMessage(mrNo);
  EXPECT_TRUE(Views->CloseEditorView(first->shared_from_this()));
  EXPECT_EQ(ViewOf(demo), nullptr);
  EXPECT_EQ(ConfigOf(demo), diskBefore);
  // The project still holds the closed view as its notifier.
  EXPECT_GE(first->ProjectNotifierId(), 0);

  OpenAssetsManagerDesigner("");
  auto* second = ActiveView();
  ASSERT_NE(second, first);
  EXPECT_FALSE(second->Frame()->GetAssetsManager().Contains("Declined"));
  second->Frame()->ClearModified();

  // Both views hear the project go; the closed one doesn't take the open
  // one's entry with it, and the open one's tab closes.
  auto keepFirst = first->shared_from_this();
  Host->CloseProject(demo);
  EXPECT_EQ(keepFirst->ProjectNotifierId(), -1);
  EXPECT_TRUE(AssetsManagerViews().empty());
  EXPECT_EQ(Views->Count(), 0u);
  EXPECT_EQ(Ui.Dialogs.PendingAnswers(), 0);
}

TEST_F(AssetsManagerViewTest, AGoingProjectAsksOnceAndYesSavesWithoutDeployment) {
  const auto demo = OpenDemo();
  OpenAssetsManagerDesigner("");
  EditColour(*ActiveView(), "Kept");
  const TGUID guid = demo->GetProjectGUID();
  const std::string pendingBefore = demo->PendingText();

  std::vector<TGUID> released;
  const int subscription = TMessageManager::DefaultManager().SubscribeToMessage<TqxCanRemoveAssetsManager>(
      [&](const void*, const TMessageBase& message) {
        released.push_back(static_cast<const TqxCanRemoveAssetsManager&>(message).Value());
      });
  Ui.Dialogs.AnswerMessage(mrYes);
  Host->CloseProject(demo);
  TMessageManager::DefaultManager().Unsubscribe(subscription);

  ASSERT_EQ(Ui.Dialogs.Shown().size(), 1u);
  EXPECT_EQ(Ui.Dialogs.Shown()[0].Message, "The assets designer is closing. Would you like to save all changes?");
  EXPECT_NE(ConfigOf(demo).find("Kept"), std::string::npos);
  // Saved as for a going project: the deployment entries aren't rewritten.
  EXPECT_EQ(demo->PendingText(), pendingBefore);
  EXPECT_EQ(released, std::vector<TGUID>{guid});
  EXPECT_EQ(Views->Count(), 0u);
}

TEST_F(AssetsManagerViewTest, AGoingProjectAnsweredNoOrCancelSavesNothing) {
  const auto demo = OpenDemo();
  OpenAssetsManagerDesigner("");
  EditColour(*ActiveView(), "Dropped");
  const auto other = OpenDemo("Other");
  // The copy shares the example's GUID: its designer is the same view.
  EXPECT_EQ(ViewOf(other), ViewOf(demo));

  const auto notes = Host->OpenProject(CopyProject("notes/notes_combined.dproj").string());
  OpenAssetsManagerDesigner("");
  auto* notesView = ActiveView();
  notesView->Frame()->Model().AddColor("Pending", 0xFF000000);
  const std::string demoDisk = ConfigOf(demo);

  Ui.Dialogs.AnswerMessage(mrNo);
  Host->CloseProject(demo);
  EXPECT_EQ(ConfigOf(demo), demoDisk);
  EXPECT_EQ(Views->Count(), 1u);

  // Cancel can't keep a going project: the tab stays, but the view is out of
  // the table and no longer follows the project.
  Ui.Dialogs.AnswerMessage(mrCancel);
  auto keep = notesView->shared_from_this();
  Host->CloseProject(notes);
  EXPECT_EQ(Views->ActiveView(), notesView);
  EXPECT_EQ(ViewOf(notes), nullptr);
  EXPECT_EQ(notesView->ProjectNotifierId(), -1);
  EXPECT_FALSE(fs::exists(fs::path(notes->GetFileName()).parent_path() / "Assets" / "config.json"));
  EXPECT_EQ(Ui.Dialogs.PendingAnswers(), 0);
  notesView->Frame()->ClearModified();
}

}  // namespace qx::test
