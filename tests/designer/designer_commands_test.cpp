#include "designer/designer_commands.h"

#include <filesystem>

#include "designer_fixture.h"
#include "platform/core/assets/asset_color.h"
#include "platform/host/filesystem/dproj_project.h"
#include "platform/host/ide_events_listener.h"
#include "platform/host/ide_settings.h"
#include "../support/temp_folder.h"

namespace qx::test {
namespace {

namespace fs = std::filesystem;

class DesignerCommandsTest : public DesignerTest {
protected:
  void Run(TAction* action) { ASSERT_TRUE(action->Execute()) << action->Name; }
  // What the idle pass leaves enabled among the selection-dependent actions.
  std::string Enabled() {
    Commands().ActionList.UpdateActions();
    std::string text;
    for (TAction* action : {Commands().ActionCopyName, Commands().ActionCloneAsset, Commands().ActionDelete,
                            Commands().ActionSave, Commands().ActionConvertFolderToThemeContainer})
      if (action->Enabled()) text += (text.empty() ? "" : " ") + action->Name.substr(6);
    return text;
  }
};

TEST_F(DesignerCommandsTest, AddedAssetsGoToTheSelectedFolderOrThemeWithFreeNames) {
  auto& c = Commands();
  Run(c.ActionAddColor);
  Run(c.ActionAddColor);
  EXPECT_TRUE(VT().Selected(Node("Color-1")));

  Model().AddColor("Icons\\Red", 0);
  Select({Node("Icons\\Red")});
  Run(c.ActionAddBitmapSet);
  EXPECT_TRUE(VT().Selected(Node("Icons\\Image")));
  Select({Node("Color")});
  Run(c.ActionAddSVG);
  EXPECT_NE(Node("SVG"), nullptr) << "a top-level asset alone adds at the top level";

  Model().AddThemeContainer("P\\Dark");
  Model().AddColor("P\\Dark\\Primary", 0);
  Select({Node("P\\Dark")});
  Run(c.ActionAddFont);
  EXPECT_NE(Node("P\\Dark\\Font"), nullptr) << "a theme takes new assets";
  Select({Node("P\\Dark\\Primary")});
  Run(c.ActionAddTheme);
  EXPECT_NE(Node("P\\Theme"), nullptr) << "a theme never goes into a theme";
}

TEST_F(DesignerCommandsTest, FoldersAreTheTreesAloneUntilConvertedToThemes) {
  auto& c = Commands();
  Run(c.ActionAddFolder);
  Run(c.ActionAddFolder);
  EXPECT_EQ(Dump(), "New Folder{New Folder{}}");
  EXPECT_EQ(Names(), "");

  Model().AddColor("Pal\\Red", 0);
  Model().AddColor("Pal\\Sub\\Blue", 0);
  Select({Folder("Pal")});
  Run(c.ActionConvertFolderToThemeContainer);
  EXPECT_EQ(Dump(), "New Folder{New Folder{}} Pal<Sub{Blue} Red>");
  EXPECT_EQ(Names(), "Pal Pal\\Red Pal\\Sub\\Blue");

}

TEST_F(DesignerCommandsTest, DeleteAsksFirstAndRemovesEverythingUnderTheSelection) {
  Model().AddThemeContainer("Dark");
  Model().AddColor("Dark\\Primary", 0);
  Model().AddColor("Icons\\Sub\\Blue", 0);
  Model().AddColor("Icons\\Red", 0);
  Model().AddColor("Keep", 0);
  TVirtualNode* empty = Tree().AddFolderNode(nullptr, "Empty");
  Select({Node("Dark"), Folder("Icons"), empty});

  Ui.Dialogs.AnswerMessage(mrNo);
  Ui.Dialogs.AnswerMessage(mrCancel);
  Run(Commands().ActionDelete);
  VT().DoKeyDown(VK_DELETE, 0);
  EXPECT_EQ(Names(), "Dark Dark\\Primary Icons\\Red Icons\\Sub\\Blue Keep");
  EXPECT_EQ(Ui.Dialogs.Shown().size(), 2u);

  Ui.Dialogs.AnswerMessage(mrYes);
  Run(Commands().ActionDelete);
  EXPECT_EQ(Names(), "Keep");
  EXPECT_EQ(Dump(), "Keep");
}

TEST_F(DesignerCommandsTest, SelectionDecidesWhichActionsAreEnabled) {
  Model().AddThemeContainer("Dark");
  Model().AddColor("Dark\\Inner\\Primary", 0);
  Model().AddColor("Icons\\Red", 0);
  Frame.ClearModified();

  Select({});
  EXPECT_EQ(Enabled(), "");
  Select({Node("Icons\\Red")});
  EXPECT_EQ(Enabled(), "CopyName CloneAsset Delete");
  Select({Node("Dark")});
  EXPECT_EQ(Enabled(), "CopyName Delete");
  Select({Folder("Icons")});
  EXPECT_EQ(Enabled(), "Delete ConvertFolderToThemeContainer");
  Select({Folder("Dark\\Inner")});
  EXPECT_EQ(Enabled(), "Delete") << "no theme inside a theme";
  Select({Node("Icons\\Red"), Node("Dark")});
  Frame.MarkModified();
  EXPECT_EQ(Enabled(), "Delete Save");
}

TEST_F(DesignerCommandsTest, CloneAndCopyNameWorkOnTheFocusedNode) {
  Model().AddColor("Icons\\Red", 0xFFFF0000);
  Select({Node("Icons\\Red")});

  Run(Commands().ActionCopyName);
  EXPECT_EQ(Ui.Clipboard.GetText(), "Icons\\Red");
  Run(Commands().ActionCloneAsset);
  EXPECT_EQ(VT().SelectedNodes(), std::vector<TVirtualNode*>{Node("Icons\\Red-1")});
}

// A designer over a real project in a temporary folder.
class DesignerDocumentTest : public DesignerCommandsTest {
protected:
  DesignerDocumentTest() {
    fs::copy_file(fs::path(QX_TEST_DATA_DIR) / "dproj" / "bare_lf.dproj", Project / "Bare.dproj");
    TqxIdeSettings::SetInstanceFileName((Project / "settings.json").string());
    DProj = TqxDprojProject::Open((Project / "Bare.dproj").string());
    TqxIdeEventsListener::Instance().ProjectOpened(DProj);
    Frame.SetProject(DProj);
  }
  ~DesignerDocumentTest() override {
    TqxIdeEventsListener::Instance().Finalize();
    TqxIdeSettings::SetInstanceFileName("");
  }

  fs::path Config() const { return Project / "Assets" / "config.json"; }

  TTempFolder Project{"designer"};
  std::shared_ptr<IOTAProject> DProj;
};

TEST_F(DesignerDocumentTest, SaveKeepsSelectionAndExpansionOverTheReload) {
  Model().AddColor("Icons\\Red", 0);
  Model().AddColor("Icons\\Sub\\Blue", 0);
  Model().AddColor("Other\\Deep\\Green", 0);
  Tree().AddFolderNode(Folder("Icons"), "Empty");
  VT().SetExpanded(Folder("Icons"), true);
  VT().SetExpanded(Folder("Icons\\Sub"), true);
  VT().SetExpanded(Folder("Other"), false);
  Select({Node("Icons\\Sub\\Blue"), Folder("Icons\\Empty")});

  Run(Commands().ActionSave);

  EXPECT_TRUE(fs::exists(Config()));
  EXPECT_EQ(Dump(), "Icons{Sub{Blue} Red} Other{Deep{Green}}") << "the empty folder goes with the reload";
  EXPECT_TRUE(VT().Expanded(Folder("Icons\\Sub")));
  EXPECT_FALSE(VT().Expanded(Folder("Other")));
  EXPECT_EQ(VT().SelectedNodes(), std::vector<TVirtualNode*>{Node("Icons\\Sub\\Blue")});
  EXPECT_EQ(Enabled(), "CopyName CloneAsset Delete") << "saved: nothing to save";
}

TEST_F(DesignerDocumentTest, ClosingQuestionSavesDiscardsOrStays) {
  Frame.Tree().TreeWidth = 300;
  EXPECT_TRUE(Frame.CloseQuery(false, this)) << "an unmodified designer closes without a question";
  EXPECT_TRUE(Ui.Dialogs.Shown().empty());
  EXPECT_EQ(TqxIdeSettings::Instance().GetIntegerValue(TIntegerField::AssetsTreeWidth), 300);

  Model().AddColor("Red", 0);
  Ui.Dialogs.AnswerMessage(mrCancel);
  VT().Header.Columns[1].Width = 120;
  EXPECT_FALSE(Frame.CloseQuery(false, this));
  EXPECT_EQ(TqxIdeSettings::Instance().GetIntegerValue(TIntegerField::AssetsTreeSecondColumnWidth), 120)
      << "the widths are kept whatever the answer";
  Ui.Dialogs.AnswerMessage(mrNo);
  EXPECT_TRUE(Frame.CloseQuery(false, this));
  EXPECT_FALSE(fs::exists(Config()));
  Ui.Dialogs.AnswerMessage(mrYes);
  EXPECT_TRUE(Frame.CloseQuery(true, this));
  EXPECT_TRUE(fs::exists(Config()));

  TFrameAssetManager fresh;
  fresh.LoadUISettings();
  EXPECT_EQ(fresh.Tree().TreeWidth, 300);
  EXPECT_EQ(fresh.Tree().VTResources.Header.Columns[1].Width, 120);
}

}  // namespace
}  // namespace qx::test
