#include <gtest/gtest.h>

#include "tree_fixture.h"

namespace qx::test {
namespace {

struct TRecordingView : IVirtualTreeView {
  void TreeStructureChanged() override {}
  void TreeStateChanged() override {}
  bool TreeBeginEdit(TVirtualNode* node, int column) override {
    edits.emplace_back(node, column);
    return opens;
  }
  std::vector<std::pair<TVirtualNode*, int>> edits;
  bool opens = true;
};

class VirtualTreeEditDrop : public ::testing::Test, public TTreeFixture {
protected:
  void SetUp() override {
    folder = Add(nullptr, "folder", true);
    asset = Add(nullptr, "asset");
    Tree.SetView(&view);
  }
  void TearDown() override { Tree.SetView(nullptr); }
  TVirtualNode *folder, *asset;
  TRecordingView view;
};

TEST_F(VirtualTreeEditDrop, EditingAsksTheEventAndTheViewAndCommitsNewText) {
  std::vector<std::string> log;
  Tree.OnEditing = [&](TVirtualTree*, TVirtualNode* n, int, bool& allowed) { allowed = n != folder; };
  Tree.OnNewText = [&](TVirtualTree* t, TVirtualNode* n, int column, const std::string& text) {
    EXPECT_FALSE(t->IsEditing());
    log.push_back(Caption(n) + "->" + text + "@" + std::to_string(column));
    t->GetNodeData<TTextData>(n)->Caption = text;
  };
  Tree.OnEdited = [&](TVirtualTree*, TVirtualNode* n, int) { log.push_back("edited " + Caption(n)); };

  EXPECT_FALSE(Tree.EditNode(asset, 1));  // the info column is read-only
  EXPECT_FALSE(Tree.EditNode(folder, 0));  // refused by the event
  EXPECT_TRUE(Tree.EditNode(asset, 0));
  EXPECT_FALSE(Tree.EditNode(asset, 0));  // one edit at a time
  EXPECT_EQ(Tree.EditedNode(), asset);
  Tree.EndEditNode("renamed");
  EXPECT_EQ(log, (std::vector<std::string>{"asset->renamed@0", "edited renamed"}));
  EXPECT_EQ(view.edits.size(), 1u);

  Tree.EditNode(asset, 0);
  Tree.CancelEditNode();
  Tree.EndEditNode("ignored");
  EXPECT_EQ(log.size(), 2u);

  view.opens = false;  // a view that can't edit leaves no edit behind
  EXPECT_FALSE(Tree.EditNode(asset, 0));
  EXPECT_FALSE(Tree.IsEditing());
  Tree.Editable = false;
  EXPECT_FALSE(Tree.CanEdit(asset, 0));
}

TEST_F(VirtualTreeEditDrop, F2EditsTheFocusedNodeAndDeletingItEndsTheEdit) {
  Tree.SetFocusedNode(asset);
  Tree.DoKeyDown(VK_F2, 0);
  ASSERT_TRUE(Tree.IsEditing());
  Tree.DeleteNode(asset);
  EXPECT_FALSE(Tree.IsEditing());
}

TEST_F(VirtualTreeEditDrop, DropsSeeTheTargetNodeModeAndSource) {
  Tree.DefaultNodeHeight = 32;
  struct TDrop {
    TVirtualTree* source;
    TVirtualNode* target;
    TDropMode mode;
    std::vector<std::string> files;
  };
  std::vector<TDrop> drops;
  Tree.OnDragDrop = [&](TVirtualTree* t, TVirtualTree* source, const TVTDragData& data, TShiftState,
                        TPoint, TDragEffect& effect, TDropMode mode) {
    drops.push_back({source, t->DropTargetNode(), mode, data.HasFormat(CF_HDROP) ? data.FileNames
                                                                               : std::vector<std::string>{}});
    effect = TDragEffect::deMove;
  };
  TDragEffect effect = TDragEffect::deNone;
  EXPECT_FALSE(Tree.DoDragOver(&Tree, 0, TDragState::dsDragMove, {5, 5}, effect));  // no handler
  Tree.OnDragOver = [](TVirtualTree*, TVirtualTree*, TShiftState, TDragState, TPoint, TDropMode,
                       TDragEffect&, bool& accept) { accept = true; };
  EXPECT_TRUE(Tree.DoDragOver(&Tree, 0, TDragState::dsDragMove, {5, 5}, effect));

  Tree.DoDragDrop(&Tree, {}, 0, {5, 48}, effect);
  Tree.DoDragDrop(nullptr, TVTDragData::Files({"/tmp/x.png"}), 0, {5, 2}, effect);
  Tree.DoDragDrop(nullptr, TVTDragData::Files({"/tmp/y"}), 0, {5, 500}, effect);
  ASSERT_EQ(drops.size(), 3u);
  EXPECT_EQ(drops[0].source, &Tree);
  EXPECT_EQ(drops[0].target, asset);
  EXPECT_EQ(drops[0].mode, TDropMode::dmOnNode);
  EXPECT_EQ(drops[1].target, folder);
  EXPECT_EQ(drops[1].mode, TDropMode::dmAbove);
  EXPECT_EQ(drops[1].files, std::vector<std::string>{"/tmp/x.png"});
  EXPECT_EQ(drops[2].target, nullptr);
  EXPECT_EQ(drops[2].mode, TDropMode::dmNowhere);
  EXPECT_EQ(effect, TDragEffect::deMove);
  EXPECT_EQ(Tree.DropTargetNode(), nullptr);  // only valid during the drop
}

}  // namespace
}  // namespace qx::test
