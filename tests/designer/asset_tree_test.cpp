#include "designer/asset_tree.h"

#include "designer_fixture.h"
#include "platform/core/assets/asset_bitmap_set.h"
#include "platform/core/assets/bitmap_info.h"
#include "platform/core/base/exception.h"

namespace qx::test {
namespace {

using AssetTreeTest = DesignerTest;

TEST_F(AssetTreeTest, FoldersAndThemesStandBeforeAssetsAndCaptionsSortOrdinally) {
  Model().AddColor("a", 0);
  Model().AddColor("B", 0);
  Model().AddColor("A", 0);
  Model().AddColor("A\\x", 0);
  Model().AddThemeContainer("Z");
  Model().AddColor("_", 0);
  EXPECT_EQ(Dump(), "A{x} Z<> A B _ a");

  std::string text;
  VT().OnGetText(&VT(), Node("A"), 1, text);
  EXPECT_EQ(text, "#00000000") << "the info column shows the kind's additional text";
  EXPECT_THROW(VT().OnGetText(&VT(), Node("A"), 2, text), EqxAssertError);
}

TEST_F(AssetTreeTest, PathsMatchFoldersIgnoringCaseWhileFindsAreExact) {
  Model().AddColor("Icons\\Red", 0);
  Model().AddColor("icons\\Blue", 0);
  EXPECT_EQ(Dump(), "Icons{Blue Red}");

  EXPECT_EQ(Node("icons\\Blue"), nullptr);
  TVirtualNode* blue = Node("Icons\\Blue");
  ASSERT_NE(blue, nullptr);
  // The name of a node comes from where it stands.
  EXPECT_EQ(Tree().GetAssetName(blue), "Icons\\Blue");
  EXPECT_EQ(Tree().GetPathForNode(blue), "Icons\\Blue\\");
  EXPECT_EQ(Node("Icons"), nullptr) << "the last part names an asset, not a folder";
  EXPECT_EQ(Tree().GetPathForNode(nullptr), "");
  EXPECT_THROW(Tree().GetAssetName(nullptr), EqxAssertError);
  EXPECT_THROW(Tree().GetNodeData(nullptr), EqxAssertError);

  TVirtualNode* icons = Folder("Icons");
  TVirtualNode* red = Node("Icons\\Red");
  EXPECT_EQ(Tree().GenerateNodeName("Red", icons), "Red-1");
  EXPECT_EQ(Tree().GenerateNodeName("red", icons), "red");
  EXPECT_EQ(Tree().GenerateNodeName("Red", icons, red), "Red");
  EXPECT_EQ(Tree().GenerateNodeName("Icons", nullptr), "Icons-1");
}

TEST_F(AssetTreeTest, LoadPutsThemesFirstSoMembersJoinThemAndRestoresBitmapScales) {
  Model().AddColor("Dark\\Primary", 0);
  Model().AddThemeContainer("Dark");
  auto set = std::make_unique<TqxAssetBitmapSet>("Logo");
  set->Add(std::make_unique<TqxBitmapInfo>(2.0f));
  auto* logo = set.get();
  Model().AddAsset(std::move(set));
  // Added member first, the theme stands beside a folder of the same name.
  EXPECT_EQ(Dump(), "Dark{Primary} Dark<> Logo");
  // The manager's order, which ignores case, is not the tree's.
  Model().AddColor("a", 0);
  Model().AddColor("Zeta\\x", 0);

  Frame.Load();
  EXPECT_EQ(Dump(), "Dark<Primary> Zeta{x} Logo a");
  EXPECT_EQ(logo->GetBitmapInfos().size(), 5u);
  EXPECT_EQ(Tree().il24x24.Count(), TqxAssetTree::kStockImageCount + 4) << "previews of the colours and the set";
  Frame.Load();
  EXPECT_EQ(Tree().il24x24.Count(), TqxAssetTree::kStockImageCount + 4) << "a reload drops the earlier previews";
}

TEST_F(AssetTreeTest, ModelEventsMoveAndDropNodes) {
  Model().AddThemeContainer("Dark");
  Model().AddColor("Dark\\Primary", 0);
  Model().AddColor("Icons\\Red", 0);

  Model().RemovePath("Dark");
  EXPECT_EQ(Dump(), "Dark<Primary> Icons{Red}") << "a theme with members keeps its node";
  Model().Rename("Icons\\Red", "Other\\Deep\\Red");
  EXPECT_EQ(Dump(), "Dark<Primary> Other{Deep{Red}}") << "the emptied folder goes";
  Model().RemovePath("Dark\\");
  EXPECT_EQ(Dump(), "Dark<> Other{Deep{Red}}");
}

TEST_F(AssetTreeTest, SelectionShowsAssetsDirectlyInSelectedFolders) {
  Model().AddColor("Icons\\Red", 0);
  Model().AddColor("Icons\\Sub\\Blue", 0);
  Model().AddColor("Green", 0);
  int rebuilds = 0;
  Tree().FOnSelectedViewsChanged = [&] { ++rebuilds; };

  Select({Folder("Icons"), Node("Green")});
  EXPECT_EQ(Tree().SelectedViews(), (std::vector<TVirtualNode*>{Node("Icons\\Red"), Node("Green")}));
  EXPECT_GT(rebuilds, 0);

  std::vector<TVirtualNode*> removed;
  Tree().FOnViewRemoved = [&](TVirtualNode* node) { removed.push_back(node); };
  TVirtualNode* red = Node("Icons\\Red");
  Model().Remove("Icons\\Red");
  EXPECT_EQ(removed, std::vector<TVirtualNode*>{red});
}

class InPlaceRenameTest : public DesignerTest {
protected:
  void Edit(TVirtualNode* node, const std::string& text) { VT().OnNewText(&VT(), node, 0, text); }
};

TEST_F(InPlaceRenameTest, AssetTakesAFreeCaptionAmongItsSiblings) {
  Model().AddColor("Icons\\Red", 0);
  Model().AddColor("Icons\\Blue", 0);
  Model().AddColor("Blue", 0);

  Edit(Node("Icons\\Red"), " Blue ");
  EXPECT_EQ(Names(), "Blue Icons\\Blue Icons\\Blue-1");
  EXPECT_EQ(Dump(), "Icons{Blue Blue-1} Blue");

  Edit(Node("Icons\\Blue-1"), "Blue-1");
  Edit(Node("Icons\\Blue-1"), "   ");
  Edit(Node("Icons\\Blue-1"), "bad:name");
  EXPECT_EQ(Names(), "Blue Icons\\Blue Icons\\Blue-1") << "same, empty and invalid texts change nothing";
  EXPECT_EQ(Ui.Queue.Count(), 0);
}

TEST_F(InPlaceRenameTest, FolderRenamesItsAssetsOnceTheEditHasEnded) {
  Model().AddColor("Icons\\Red", 0);
  Model().AddColor("Icons\\Sub\\Blue", 0);
  Model().AddColor("Pics\\Green", 0);
  Select({Folder("Icons")});

  Edit(Folder("Icons"), "Pics");
  EXPECT_EQ(Dump(), "Icons{Sub{Blue} Red} Pics{Green}") << "nothing moves before the queue runs";
  Ui.Queue.ProcessAll();
  EXPECT_EQ(Names(), "Pics-1\\Red Pics-1\\Sub\\Blue Pics\\Green");
  EXPECT_EQ(Dump(), "Pics{Green} Pics-1{Sub{Blue} Red}");
}

TEST_F(InPlaceRenameTest, ThemeRenamesItsContainerAtOnceAndItsMembersLater) {
  Model().AddThemeContainer("Dark");
  Model().AddColor("Dark\\Primary", 0);

  Edit(Node("Dark"), "Night");
  EXPECT_EQ(Names(), "Dark\\Primary Night");
  Ui.Queue.ProcessAll();
  EXPECT_EQ(Names(), "Night Night\\Primary");
  EXPECT_EQ(Dump(), "Night<Primary>");
}

TEST_F(AssetTreeTest, SelectingByNameExpandsThePathOrDoesNothing) {
  Model().AddColor("Icons\\Sub\\Blue", 0);

  Tree().SetInitialAssetName("icons\\SUB\\blue");
  EXPECT_TRUE(VT().Selected(Node("Icons\\Sub\\Blue")));
  EXPECT_TRUE(VT().Expanded(Folder("Icons")));
  EXPECT_TRUE(VT().Expanded(Folder("Icons\\Sub")));

  VT().ClearSelection();
  Tree().SetInitialAssetName("Icons\\Missing");
  EXPECT_EQ(VT().SelectedCount(), 0);
  Tree().SelectNode("icons\\sub\\blue", true);
  EXPECT_EQ(VT().SelectedCount(), 0) << "selecting by name is exact";
}

}  // namespace
}  // namespace qx::test
