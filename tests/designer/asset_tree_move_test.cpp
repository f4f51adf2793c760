#include <filesystem>

#include "designer_fixture.h"
#include "platform/core/assets/asset.h"
#include "../support/temp_folder.h"

namespace qx::test {
namespace {

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
