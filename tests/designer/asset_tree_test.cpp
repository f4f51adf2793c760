#include "designer/asset_tree.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "../support/temp_folder.h"
#include "designer/asset_views.h"
#include "designer_fixture.h"
#include "frames/assets_view.h"
#include "platform/core/assets/asset.h"
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

namespace fs = std::filesystem;

class AssetTreeMoveTest : public DesignerTest {
protected:
  void Move(std::initializer_list<TVirtualNode*> nodes, TVirtualNode* target,
            TVTNodeAttachMode mode = TVTNodeAttachMode::amAddChildLast) {
    Tree().MoveNodesToNewParent(nodes, target, mode);
  }
};

TEST_F(AssetTreeMoveTest, AssetsMoveIntoTheFolderAtOrAboveTheTarget) {
  Model().AddColor("Red", 0);
  Model().AddColor("Icons\\Red", 0);
  Model().AddColor("Icons\\Blue", 0);
  Model().AddColor("Green", 0);

  Move({Node("Red"), Node("Green")}, Node("Icons\\Blue"), TVTNodeAttachMode::amInsertAfter);
  EXPECT_EQ(Dump(), "Icons{Blue Green Red Red-1}");

  // A drag of the selection onto the first row, the folder.
  Model().AddColor("Pink", 0);
  Select({Node("Pink")});
  TDragEffect effect = TDragEffect::deCopy;
  VT().DoDragDrop(&VT(), TVTDragData{}, 0, TPoint{5, VT().DefaultNodeHeight / 2}, effect);
  EXPECT_EQ(effect, TDragEffect::deMove);
  EXPECT_NE(Node("Icons\\Pink"), nullptr);

  // Dropped where it already is: the name stays and nothing is renamed.
  const std::string before = Names();
  Move({Node("Icons\\Green")}, Folder("Icons"));
  EXPECT_EQ(Names(), before);
}

TEST_F(AssetTreeMoveTest, FoldersMoveByRenamingTheirAssetsButNeverIntoThemselves) {
  Model().AddColor("A\\B\\x", 0);
  Model().AddColor("C\\y", 0);

  Move({Folder("A")}, Folder("A\\B"));
  EXPECT_EQ(Names(), "A\\B\\x C\\y");
  Move({Folder("A")}, Node("C\\y"));
  EXPECT_EQ(Names(), "C\\A\\B\\x C\\y");

  // An empty folder is the tree's alone: it moves as a node, with a free caption.
  TVirtualNode* empty = Tree().AddFolderNode(nullptr, "y");
  Move({empty}, Folder("C"));
  EXPECT_EQ(Tree().GetAssetName(empty), "C\\y-1");
  EXPECT_TRUE(VT().Expanded(Folder("C")));
}

TEST_F(AssetTreeMoveTest, ThemesLandBesideTheNearestPlainFolderAndTakeTheirMembers) {
  Model().AddThemeContainer("P\\T1");
  Model().AddColor("P\\T1\\Sub\\x", 0);
  Model().AddThemeContainer("T2");
  Model().AddColor("T2\\c", 0);
  Model().AddThemeContainer("T3");
  Model().AddColor("T3\\Inner\\z", 0);

  Move({Node("T2")}, Folder("P\\T1\\Sub"));
  EXPECT_EQ(Names(), "P\\T1 P\\T1\\Sub\\x P\\T2 P\\T2\\c T3 T3\\Inner\\z");
  EXPECT_EQ(Dump(Folder("P")), "T1<Sub{x}> T2<c>");

  // Inside a theme with no plain folder above it: to the top level.
  Move({Node("P\\T2")}, Folder("T3\\Inner"));
  EXPECT_EQ(Names(), "P\\T1 P\\T1\\Sub\\x T2 T2\\c T3 T3\\Inner\\z");
}

class AssetTreeDropTest : public AssetTreeMoveTest {
protected:
  AssetTreeDropTest() {
    const fs::path data = fs::path(QX_TEST_DATA_DIR) / "assets";
    fs::copy_file(data / "red_4x2.png", Files / "red.png");
    fs::copy_file(data / "circle.svg", Files / "circle.svg");
    WriteText(Files / "notes.txt", "notes");
    WriteText(Files / "pack" / "inner" / "blue.png", ReadText(data / "blue_8x4.png"));
    WriteText(Files / "pack" / "readme.txt", "read me");
    WriteText(Files / "other" / "more.txt", "more");
  }
  std::string TypeOf(const TqxAssetName& name) {
    auto items = Model().GetAssets(name).Items();
    return items.empty() ? "" : items.front()->GetType();
  }

  TTempFolder Files{"drop"};
};

TEST_F(AssetTreeDropTest, DroppedFilesBecomeAssetsOfTheirKindInTheFolderUnderThePoint) {
  Model().AddColor("Icons\\red", 0);
  Select({Node("Icons\\red")});

  // Below the last row: the folder of the selection takes the files.
  TDragEffect effect = TDragEffect::deCopy;
  VT().DoDragDrop(nullptr,
                  TVTDragData::Files({(Files / "red.png").string(), (Files / "circle.svg").string(),
                                      (Files / "notes.txt").string(), (Files / "missing.png").string()}),
                  0, TPoint{5, 100000}, effect);

  EXPECT_EQ(Names(), "Icons\\circle Icons\\notes Icons\\red Icons\\red-1");
  EXPECT_EQ(TypeOf("Icons\\red-1"), "bitmap-set");
  EXPECT_EQ(TypeOf("Icons\\circle"), "svg");
}

TEST_F(AssetTreeDropTest, FoldersGoToTheImporterFirstAndOtherwiseAddEveryFileSingly) {
  std::vector<std::pair<std::string, bool>> offered;
  Tree().FLoadFromMaterialIOFolder = [&](TVirtualNode*, const std::string& folder, bool multiple,
                                         int&) -> TVirtualNode* {
    offered.emplace_back(fs::path(folder).filename().string(), multiple);
    return nullptr;
  };

  Tree().DropFiles({(Files / "pack").string(), (Files / "other").string()}, nullptr);
  EXPECT_EQ(offered, (std::vector<std::pair<std::string, bool>>{{"pack", true}, {"other", true}}));
  EXPECT_EQ(Names(), "blue more readme");
  EXPECT_EQ(TypeOf("blue"), "bitmap-set");

  // A folder the importer knows adds nothing singly.
  Tree().FLoadFromMaterialIOFolder = [&](TVirtualNode*, const std::string&, bool multiple,
                                         int&) -> TVirtualNode* {
    EXPECT_FALSE(multiple);
    return Node("blue");
  };
  Tree().DropFiles({(Files / "pack").string(), (Files / "notes.txt").string()}, nullptr);
  EXPECT_EQ(Names(), "blue more notes readme");
}

}  // namespace
}  // namespace qx::test
