#include <gtest/gtest.h>

#include "platform/core/base/exception.h"
#include "platform/core/base/text.h"
#include "platform/ui/virtual_tree.h"

namespace qx::test {
namespace {

using Mode = TVTNodeAttachMode;

// A node payload like the designer's: a caption, and whether it groups others.
struct TTextData : TNodeDataBase {
  TTextData(std::string caption, bool folder) : Caption(std::move(caption)), Folder(folder) {}
  std::string Caption;
  bool Folder;
};

struct TRecordingView : IVirtualTreeView {
  void TreeStructureChanged() override { ++structure; }
  void TreeStateChanged() override {}
  bool TreeBeginEdit(TVirtualNode*, int) override {
    ++edits;
    return opens;
  }
  int structure = 0, edits = 0;
  bool opens = true;
};

// A tree set up as the asset tree is: two columns with a read-only second,
// rows of 32 pixels, folders before the rest, then ordinal order of captions.
class VirtualTree : public ::testing::Test {
protected:
  VirtualTree() {
    Tree.Header.Columns = {{"Name", 162, TAlignment::taLeftJustify, true},
                           {"Info", 85, TAlignment::taCenter, false}};
    Tree.DefaultNodeHeight = 32;
    Tree.MultiSelect = Tree.Editable = true;
    Tree.OnGetText = [](TVirtualTree* t, TVirtualNode* n, int column, std::string& text) {
      if (column == 0) text = t->GetNodeData<TTextData>(n)->Caption;
    };
    Tree.OnCompareNodes = [](TVirtualTree* t, TVirtualNode* a, TVirtualNode* b, int, int& result) {
      auto *da = t->GetNodeData<TTextData>(a), *db = t->GetNodeData<TTextData>(b);
      result = da->Folder != db->Folder ? (da->Folder ? -1 : 1) : CompareStr(da->Caption, db->Caption);
    };
  }
  TVirtualNode* Add(TVirtualNode* parent, const std::string& caption, bool folder = false) {
    return Tree.AddChild(parent, std::make_unique<TTextData>(caption, folder));
  }
  std::string Captions(const std::vector<TVirtualNode*>& nodes) {
    std::string out;
    for (auto* n : nodes) out += (out.empty() ? "" : " ") + Tree.GetText(n, 0);
    return out;
  }
  std::string Children(TVirtualNode* node) { return Captions(Tree.ChildNodes(node)); }

  TVirtualTree Tree;
};

// a with its children a1 and a2, then b; a expanded.
class VirtualTreeRows : public VirtualTree {
protected:
  VirtualTreeRows() {
    a = Add(nullptr, "a", true);
    a1 = Add(a, "a1");
    a2 = Add(a, "a2");
    b = Add(nullptr, "b");
    Tree.SetExpanded(a, true);
  }
  static int RowY(int row) { return row * 32 + 16; }
  TVirtualNode *a, *a1, *a2, *b;
};

TEST_F(VirtualTree, MoveToKeepsStateAndRefusesToMoveIntoItself) {
  auto* a = Add(nullptr, "a", true);
  auto* a1 = Add(a, "a1", true);
  auto* a2 = Add(a1, "a2");
  auto* b = Add(nullptr, "b", true);
  Tree.SetExpanded(a, true);
  Tree.SetExpanded(a1, true);
  Tree.SetSelected(a1, true);

  Tree.MoveTo(a, a2, Mode::amAddChildLast);  // into its own grandchild
  Tree.MoveTo(a, a, Mode::amInsertAfter);
  EXPECT_EQ(Children(nullptr), "a b");
  EXPECT_EQ(Children(a), "a1");

  Tree.MoveTo(a1, b, Mode::amAddChildLast);
  EXPECT_EQ(Children(a1), "a2");
  EXPECT_TRUE(Tree.Selected(a1));
  EXPECT_TRUE(Tree.Expanded(a1));
  // A parent that lost its last child no longer counts as expanded.
  EXPECT_FALSE(Tree.Expanded(a));

  // Children only: their order is kept and the node stays; not into themselves.
  Add(a, "x");
  Add(a, "y");
  Tree.MoveTo(a, b, Mode::amAddChildLast, true);
  EXPECT_EQ(Children(b), "a1 x y");
  EXPECT_EQ(Tree.GetChildCount(a), 0);
  Tree.MoveTo(b, a1, Mode::amInsertAfter, true);
  EXPECT_EQ(Children(b), "a1 x y");
}

TEST_F(VirtualTree, SortGoesThroughTheWholeTreeAndKeepsTheOrderOfEqualNodes) {
  Add(nullptr, "b");
  auto* folder = Add(nullptr, "Z", true);
  Add(folder, "b");
  Add(folder, "C");
  Add(folder, "a", true);
  Tree.SortTree(0, TSortDirection::sdAscending);
  EXPECT_EQ(Children(nullptr), "Z b");
  EXPECT_EQ(Children(folder), "a C b");  // ordinal: upper case first

  Tree.OnCompareNodes = nullptr;  // no opinion: every pair is equal
  Add(folder, "B");
  Tree.SortTree(0, TSortDirection::sdAscending);
  EXPECT_EQ(Children(folder), "a C b B");
}

TEST_F(VirtualTree, UpdatesNestAndGatherChangesIntoOne) {
  TRecordingView view;
  Tree.SetView(&view);
  std::vector<TVirtualNode*> changed;
  Tree.OnChange = [&](TVirtualTree*, TVirtualNode* n) { changed.push_back(n); };

  Tree.BeginUpdate();
  Tree.BeginUpdate();
  auto* a = Add(nullptr, "a");
  Tree.SetSelected(a, true);
  Tree.SetSelected(Add(nullptr, "b"), true);
  Tree.EndUpdate();
  EXPECT_TRUE(changed.empty());
  EXPECT_EQ(view.structure, 0);
  Tree.EndUpdate();
  EXPECT_EQ(changed, std::vector<TVirtualNode*>{nullptr});
  EXPECT_EQ(view.structure, 1);

  Tree.EndUpdate();  // unbalanced: ignored
  Tree.SetSelected(a, false);  // outside an update the node is told at once
  EXPECT_EQ(changed.back(), a);
  Tree.SetView(nullptr);
}

TEST_F(VirtualTreeRows, DeleteFreesSubtreeChildrenFirstAndDropsSelectionAndFocus) {
  std::vector<std::string> freed;
  int changes = 0;
  Tree.OnFreeNode = [&](TVirtualTree* t, TVirtualNode* n) { freed.push_back(t->GetText(n, 0)); };
  Tree.SetSelected(a1, true);
  Tree.SetSelected(b, true);
  Tree.SetFocusedNode(a1);
  Tree.OnChange = [&](TVirtualTree*, TVirtualNode*) { ++changes; };

  Tree.DeleteNode(a);
  EXPECT_EQ(freed, (std::vector<std::string>{"a1", "a2", "a"}));
  EXPECT_EQ(Tree.SelectedCount(), 1);
  EXPECT_EQ(Tree.FocusedNode(), nullptr);
  EXPECT_EQ(changes, 1);
  EXPECT_THROW(Tree.DeleteNode(nullptr), EqxAssertError);

  Tree.DeleteNode(Tree.RootNode());  // the root stays, its children go
  EXPECT_EQ(Tree.SelectedCount(), 0);
}

TEST_F(VirtualTreeRows, SelectionOrderAndSingleSelect) {
  Tree.SetSelected(b, true);
  Tree.SetSelected(a2, true);
  Tree.SetSelected(a, true);
  EXPECT_EQ(Captions(Tree.GetSortedSelection(false)), "a a2 b");
  EXPECT_EQ(Captions(Tree.GetSortedSelection(true)), "a b");  // nested nodes resolved
  Tree.MultiSelect = false;
  Tree.SetSelected(a1, true);
  EXPECT_EQ(Captions(Tree.SelectedNodes()), "a1");
  Tree.SetSelected(Tree.RootNode(), true);
  EXPECT_EQ(Tree.SelectedCount(), 1);
}

TEST_F(VirtualTreeRows, ExpansionDecidesWhatIsVisibleAndWhereNodesAre) {
  EXPECT_EQ(Tree.GetNodeAt(5, 31), a);
  EXPECT_EQ(Tree.GetNodeAt(5, 32), a1);
  EXPECT_EQ(Tree.GetNodeAt(5, RowY(4)), nullptr);
  Tree.OffsetY = 40;  // scrolled down past the first row and a bit
  EXPECT_EQ(Tree.GetNodeAt(5, 0), a1);
  Tree.OffsetY = 0;

  Tree.SetExpanded(a, false);
  EXPECT_FALSE(Tree.IsVisible(a1));
  EXPECT_EQ(Tree.GetNodeAt(5, RowY(1)), b);
  Tree.ScrollIntoView(a2);  // shows the row by opening its ancestors
  EXPECT_TRUE(Tree.IsVisible(a2));

  EXPECT_EQ(Tree.GetDropModeAt(5, 30), TDropMode::dmBelow);
}

TEST_F(VirtualTreeRows, ClicksSelectToggleAndExtend) {
  std::vector<TVirtualNode*> focusChanges;
  Tree.OnFocusChanged = [&](TVirtualTree*, TVirtualNode* n, int) { focusChanges.push_back(n); };
  Tree.DoMouseDown(TMouseButton::mbLeft, 0, 5, RowY(1));
  Tree.DoMouseDown(TMouseButton::mbLeft, ssCtrl, 5, RowY(3));
  EXPECT_EQ(Captions(Tree.SelectedNodes()), "a1 b");
  Tree.DoMouseDown(TMouseButton::mbLeft, ssCtrl, 5, RowY(1));
  EXPECT_EQ(Captions(Tree.SelectedNodes()), "b");
  Tree.DoMouseDown(TMouseButton::mbLeft, ssShift, 5, RowY(0));  // from the focused a1 up to a
  EXPECT_EQ(Captions(Tree.SelectedNodes()), "a a1");
  EXPECT_EQ(Tree.FocusedNode(), a1);

  // A press on a selected node keeps the selection for a drag; a release
  // without one narrows it to that node.
  Tree.DoMouseDown(TMouseButton::mbLeft, 0, 5, RowY(0));
  Tree.DoMouseUp(TMouseButton::mbLeft, 0, 5, RowY(0), true);
  EXPECT_EQ(Tree.SelectedCount(), 2);
  Tree.DoMouseDown(TMouseButton::mbLeft, 0, 5, RowY(0));
  Tree.DoMouseUp(TMouseButton::mbLeft, 0, 5, RowY(0), false);
  EXPECT_EQ(Captions(Tree.SelectedNodes()), "a");
  EXPECT_EQ(focusChanges, (std::vector<TVirtualNode*>{a1, b, a1, a}));

  // The right button selects only when asked; the press event comes first.
  int presses = 0;
  Tree.OnMouseDown = [&](TVirtualTree*, TMouseButton, TShiftState, int, int) { ++presses; };
  Tree.DoMouseDown(TMouseButton::mbRight, 0, 5, RowY(3));
  EXPECT_EQ(Captions(Tree.SelectedNodes()), "a");
  Tree.RightClickSelect = true;
  Tree.DoMouseDown(TMouseButton::mbRight, 0, 5, RowY(3));
  EXPECT_EQ(Captions(Tree.SelectedNodes()), "b");
  EXPECT_EQ(presses, 2);
}

TEST_F(VirtualTreeRows, KeysMoveFocusUnlessTheKeyActionTakesThem) {
  Tree.DoKeyDown(VK_DOWN, 0);
  Tree.DoKeyDown(VK_DOWN, 0);
  Tree.DoKeyDown(VK_DOWN, ssShift);
  EXPECT_EQ(Captions(Tree.SelectedNodes()), "a1 a2");
  Tree.DoKeyDown(VK_LEFT, 0);  // from a leaf to its parent
  Tree.DoKeyDown(VK_LEFT, 0);  // collapses
  EXPECT_FALSE(Tree.Expanded(a));
  Tree.DoKeyDown(VK_END, 0);
  EXPECT_EQ(Captions(Tree.SelectedNodes()), "b");

  Tree.OnKeyAction = [&](TVirtualTree*, int& key, TShiftState, bool& doDefault) { doDefault = key != VK_UP; };
  Tree.DoKeyDown(VK_UP, 0);
  EXPECT_EQ(Tree.FocusedNode(), b);
}

TEST_F(VirtualTreeRows, EditingAsksTheEventAndTheViewAndCommitsNewText) {
  TRecordingView view;
  Tree.SetView(&view);
  std::vector<std::string> log;
  Tree.OnEditing = [&](TVirtualTree*, TVirtualNode* n, int, bool& allowed) { allowed = n != a; };
  Tree.OnNewText = [&](TVirtualTree* t, TVirtualNode* n, int column, const std::string& text) {
    EXPECT_FALSE(t->IsEditing());
    log.push_back(t->GetText(n, 0) + "->" + text + "@" + std::to_string(column));
  };
  Tree.OnEdited = [&](TVirtualTree*, TVirtualNode*, int) { log.push_back("edited"); };

  EXPECT_FALSE(Tree.EditNode(b, 1));  // the info column is read-only
  EXPECT_FALSE(Tree.EditNode(a, 0));  // refused by the event
  EXPECT_TRUE(Tree.EditNode(b, 0));
  Tree.EndEditNode("renamed");
  EXPECT_EQ(log, (std::vector<std::string>{"b->renamed@0", "edited"}));
  EXPECT_EQ(view.edits, 1);

  Tree.EditNode(b, 0);
  Tree.CancelEditNode();
  Tree.EndEditNode("ignored");
  EXPECT_EQ(log.size(), 2u);

  // F2 edits the focused node, and deleting it ends the edit.
  Tree.SetFocusedNode(b);
  Tree.DoKeyDown(VK_F2, 0);
  ASSERT_TRUE(Tree.IsEditing());
  Tree.DeleteNode(b);
  EXPECT_FALSE(Tree.IsEditing());

  view.opens = false;  // a view that can't edit leaves no edit behind
  EXPECT_FALSE(Tree.EditNode(a1, 0));
  EXPECT_FALSE(Tree.IsEditing());
  Tree.SetView(nullptr);
}

TEST_F(VirtualTreeRows, DropsSeeTheTargetNodeModeAndSource) {
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

  Tree.DoDragDrop(&Tree, {}, 0, {5, RowY(3)}, effect);
  Tree.DoDragDrop(nullptr, TVTDragData::Files({"/tmp/x.png"}), 0, {5, 2}, effect);
  Tree.DoDragDrop(nullptr, TVTDragData::Files({"/tmp/y"}), 0, {5, 500}, effect);
  ASSERT_EQ(drops.size(), 3u);
  EXPECT_EQ(drops[0].source, &Tree);
  EXPECT_EQ(drops[0].target, b);
  EXPECT_EQ(drops[0].mode, TDropMode::dmOnNode);
  EXPECT_EQ(drops[1].mode, TDropMode::dmAbove);
  EXPECT_EQ(drops[1].files, std::vector<std::string>{"/tmp/x.png"});
  EXPECT_EQ(drops[2].target, nullptr);
  EXPECT_EQ(effect, TDragEffect::deMove);
  EXPECT_EQ(Tree.DropTargetNode(), nullptr);  // only valid during the drop
}

}  // namespace
}  // namespace qx::test
