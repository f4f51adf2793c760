#include "designer/asset_tree.h"

#include <gtest/gtest.h>

#include "designer/asset_views.h"
#include "designer_fixture.h"
#include "frames/assets_view.h"
#include "platform/core/assets/asset_bitmap_set.h"
#include "platform/core/assets/asset_color.h"
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
  EXPECT_THROW(Tree().GetAssetName(nullptr), EqxAssertError);

  EXPECT_EQ(Tree().GenerateNodeName("Red", Folder("Icons")), "Red-1");
  EXPECT_EQ(Tree().GenerateNodeName("red", Folder("Icons")), "red");
  EXPECT_EQ(Tree().GenerateNodeName("Red", Folder("Icons"), Node("Icons\\Red")), "Red");
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
  EXPECT_EQ(logo->GetBitmapInfos().size(), 5u) << "the missing scales are back";
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

TEST_F(InPlaceRenameTest, FoldersAndThemesRenameTheirMembersOnceTheEditHasEnded) {
  Model().AddThemeContainer("Dark");
  Model().AddColor("Dark\\Primary", 0);
  Edit(Node("Dark"), "Night");
  EXPECT_EQ(Names(), "Dark\\Primary Night") << "a theme's container is renamed at once";
  Ui.Queue.ProcessAll();
  EXPECT_EQ(Dump(), "Night<Primary>");

  Model().AddColor("Icons\\Red", 0);
  Model().AddColor("Icons\\Sub\\Blue", 0);
  Model().AddColor("Pics\\Green", 0);
  Select({Folder("Icons")});

  Edit(Folder("Icons"), "Pics");
  EXPECT_EQ(Dump(), "Icons{Sub{Blue} Red} Night<Primary> Pics{Green}") << "nothing moves before the queue runs";
  Ui.Queue.ProcessAll();
  EXPECT_EQ(Names(), "Night Night\\Primary Pics-1\\Red Pics-1\\Sub\\Blue Pics\\Green");
  EXPECT_EQ(Dump(), "Night<Primary> Pics{Green} Pics-1{Sub{Blue} Red}");
}

TEST_F(AssetTreeTest, SelectingByNameExpandsThePathOrDoesNothing) {
  Model().AddColor("Icons\\Sub\\Blue", 0);

  Tree().SetInitialAssetName("icons\\SUB\\blue");
  EXPECT_TRUE(VT().Selected(Node("Icons\\Sub\\Blue")));
  EXPECT_TRUE(VT().Expanded(Folder("Icons")));
  EXPECT_TRUE(VT().Expanded(Folder("Icons\\Sub")));

  VT().ClearSelection();
  Tree().SelectNode("icons\\sub\\blue", true);
  EXPECT_EQ(VT().SelectedCount(), 0) << "selecting by name is exact";
}

class AssetViewsTest : public DesignerTest {
protected:
  AssetViewsTest() {
    Views.FOnViewsChanged = [this] { ++Rebuilds; };
    Views.FOnViewRemoved = [this](TAssetsView& view) { Removed.push_back(view.AssetName()); };
  }
  std::vector<std::string> ShownNames() {
    std::vector<std::string> names;
    for (const auto& [node, view] : Views.Views()) names.push_back(view->AssetName());
    return names;
  }

  TqxAssetViews& Views = Frame.Views();
  int Rebuilds = 0;
  std::vector<std::string> Removed;
};

TEST_F(AssetViewsTest, ASelectionShowsOneViewPerAssetAndAFolderOnlyItsOwnAssets) {
  Model().AddColor("Icons\\Back", 0);
  Model().AddColor("Icons\\Arrows\\Up", 0);
  Model().AddColor("Icons\\Add", 0);
  Model().AddColor("Primary", 0);
  Rebuilds = 0;

  Select({Folder("Icons"), Node("Primary")});
  EXPECT_EQ(ShownNames(), (std::vector<std::string>{"Icons\\Add", "Icons\\Back", "Primary"}));
  EXPECT_GE(Rebuilds, 1);

  VT().ClearSelection();
  EXPECT_TRUE(Views.Views().empty());
}

TEST_F(AssetViewsTest, ViewsFollowRenamesDeletionsAndTheirOwnChanges) {
  TqxAssetColor* color = Model().AddColor("Primary", 0);
  Model().AddColor("Accent", 0);
  Select({Node("Primary"), Node("Accent")});
  Frame.ClearModified();

  // A tile's frame changed the colour: the tree's info column and the document follow.
  color->SetColor(0xFF336699);
  TAssetsView* primary = Views.ViewOf(Node("Primary"));
  ASSERT_EQ(primary->OrderedList().size(), 1u);
  primary->OrderedList()[0]->FOnNeedUpdatePreview(color);
  EXPECT_TRUE(Frame.GetModified());
  EXPECT_EQ(Tree().GetNodeData(Node("Primary"))->Size, "#336699");

  Model().Rename("Primary", "Brand");
  Model().RemovePath("Accent");
  EXPECT_EQ(Removed, std::vector<std::string>{"Accent"});
  EXPECT_EQ(ShownNames(), std::vector<std::string>{"Brand"});
}

}  // namespace
}  // namespace qx::test
