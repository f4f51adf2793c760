#include <gtest/gtest.h>

#include "tree_fixture.h"

namespace qx::test {
namespace {

// Rows of 32 pixels; a, its children a1 and a2, then b, with a expanded.
class VirtualTreeSelection : public ::testing::Test, public TTreeFixture {
protected:
  void SetUp() override {
    a = Add(nullptr, "a", true);
    a1 = Add(a, "a1");
    a2 = Add(a, "a2");
    b = Add(nullptr, "b");
    Tree.SetExpanded(a, true);
  }
  int RowY(int row) { return row * 32 + 16; }
  TVirtualNode *a, *a1, *a2, *b;
};

TEST_F(VirtualTreeSelection, SingleSelectReplacesMultiSelectAdds) {
  Tree.MultiSelect = false;
  Tree.SetSelected(a1, true);
  Tree.SetSelected(b, true);
  EXPECT_EQ(Captions(Tree.SelectedNodes()), "b");
  Tree.MultiSelect = true;
  Tree.SetSelected(a1, true);
  EXPECT_EQ(Captions(Tree.SelectedNodes()), "a1 b");
  Tree.ClearSelection();
  EXPECT_EQ(Tree.SelectedCount(), 0);
  Tree.SetSelected(Tree.RootNode(), true);
  EXPECT_EQ(Tree.SelectedCount(), 0);
}

TEST_F(VirtualTreeSelection, SortedSelectionIsInTreeOrderAndResolvesNestedNodes) {
  Tree.SetSelected(b, true);
  Tree.SetSelected(a2, true);
  Tree.SetSelected(a, true);
  EXPECT_EQ(Captions(Tree.GetSortedSelection(false)), "a a2 b");
  EXPECT_EQ(Captions(Tree.GetSortedSelection(true)), "a b");
}

TEST_F(VirtualTreeSelection, ExpansionNeedsChildrenAndDecidesWhatIsVisible) {
  Tree.SetExpanded(b, true);
  EXPECT_FALSE(Tree.Expanded(b));
  EXPECT_EQ(Tree.VisibleCount(), 4);
  EXPECT_TRUE(Tree.IsVisible(a2));
  int collapsed = 0;
  Tree.OnCollapsed = [&](TVirtualTree*, TVirtualNode*) { ++collapsed; };
  Tree.SetExpanded(a, false);
  EXPECT_EQ(collapsed, 1);
  EXPECT_FALSE(Tree.IsVisible(a1));
  EXPECT_EQ(Tree.VisibleIndex(b), 1);
  EXPECT_EQ(Tree.VisibleIndex(a2), -1);
  Tree.FullExpand();
  EXPECT_EQ(Tree.VisibleCount(), 4);
  Tree.SetExpanded(a, false);
  Tree.ScrollIntoView(a2);  // shows the row by opening its ancestors
  EXPECT_TRUE(Tree.IsVisible(a2));
}

TEST_F(VirtualTreeSelection, NodeAtPointFollowsRowsScrollAndExpansion) {
  EXPECT_EQ(Tree.GetNodeAt(5, 0), a);
  EXPECT_EQ(Tree.GetNodeAt(5, 31), a);
  EXPECT_EQ(Tree.GetNodeAt(5, 32), a1);
  EXPECT_EQ(Tree.GetNodeAt(5, RowY(3)), b);
  EXPECT_EQ(Tree.GetNodeAt(5, RowY(4)), nullptr);
  EXPECT_EQ(Tree.GetNodeAt(-1, 5), nullptr);
  Tree.OffsetY = 40;  // scrolled down past the first row and a bit
  EXPECT_EQ(Tree.GetNodeAt(5, 0), a1);
  Tree.OffsetY = 0;
  Tree.SetExpanded(a, false);
  EXPECT_EQ(Tree.GetNodeAt(5, RowY(1)), b);

  EXPECT_EQ(Tree.GetDropModeAt(5, 2), TDropMode::dmAbove);
  EXPECT_EQ(Tree.GetDropModeAt(5, 16), TDropMode::dmOnNode);
  EXPECT_EQ(Tree.GetDropModeAt(5, 30), TDropMode::dmBelow);
  EXPECT_EQ(Tree.GetDropModeAt(5, 200), TDropMode::dmNowhere);
}

TEST_F(VirtualTreeSelection, ClicksSelectToggleAndExtend) {
  std::vector<TVirtualNode*> focusChanges;
  Tree.OnFocusChanged = [&](TVirtualTree*, TVirtualNode* n, int) { focusChanges.push_back(n); };
  Tree.DoMouseDown(TMouseButton::mbLeft, 0, 5, RowY(1));
  EXPECT_EQ(Captions(Tree.SelectedNodes()), "a1");
  EXPECT_EQ(Tree.FocusedNode(), a1);
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
  EXPECT_EQ(Tree.SelectedCount(), 2);
  Tree.DoMouseUp(TMouseButton::mbLeft, 0, 5, RowY(0), true);
  EXPECT_EQ(Tree.SelectedCount(), 2);
  Tree.DoMouseDown(TMouseButton::mbLeft, 0, 5, RowY(0));
  Tree.DoMouseUp(TMouseButton::mbLeft, 0, 5, RowY(0), false);
  EXPECT_EQ(Captions(Tree.SelectedNodes()), "a");
  EXPECT_EQ(focusChanges, (std::vector<TVirtualNode*>{a1, b, a1, a}));
}

TEST_F(VirtualTreeSelection, RightClickSelectsOnlyWhenAskedAndMouseDownEventComesFirst) {
  std::vector<int> pressesAt;
  Tree.OnMouseDown = [&](TVirtualTree* t, TMouseButton, TShiftState, int, int y) {
    pressesAt.push_back(y);
    if (!t->GetNodeAt(0, y)) t->ClearSelection();
  };
  Tree.SetSelected(b, true);
  Tree.DoMouseDown(TMouseButton::mbRight, 0, 5, RowY(1));
  EXPECT_EQ(Captions(Tree.SelectedNodes()), "b");
  Tree.RightClickSelect = true;
  Tree.DoMouseDown(TMouseButton::mbRight, 0, 5, RowY(1));
  EXPECT_EQ(Captions(Tree.SelectedNodes()), "a1");
  Tree.DoMouseDown(TMouseButton::mbLeft, 0, 5, RowY(9));
  EXPECT_EQ(Tree.SelectedCount(), 0);
  EXPECT_EQ(pressesAt.size(), 3u);
}

TEST_F(VirtualTreeSelection, KeysMoveFocusUnlessTheKeyActionTakesThem) {
  Tree.DoKeyDown(VK_DOWN, 0);
  EXPECT_EQ(Tree.FocusedNode(), a);
  Tree.DoKeyDown(VK_DOWN, 0);
  Tree.DoKeyDown(VK_DOWN, ssShift);
  EXPECT_EQ(Captions(Tree.SelectedNodes()), "a1 a2");
  Tree.DoKeyDown(VK_LEFT, 0);  // from a leaf to its parent
  EXPECT_EQ(Tree.FocusedNode(), a);
  Tree.DoKeyDown(VK_LEFT, 0);  // collapses
  EXPECT_FALSE(Tree.Expanded(a));
  Tree.DoKeyDown(VK_END, 0);
  EXPECT_EQ(Captions(Tree.SelectedNodes()), "b");

  int deletes = 0;
  Tree.OnKeyAction = [&](TVirtualTree* t, int& key, TShiftState, bool& doDefault) {
    if (key == VK_DELETE && t->SelectedCount() > 0) ++deletes;
    if (key == VK_UP) doDefault = false;
  };
  Tree.DoKeyDown(VK_DELETE, 0);
  Tree.DoKeyDown(VK_UP, 0);
  EXPECT_EQ(deletes, 1);
  EXPECT_EQ(Tree.FocusedNode(), b);
}

}  // namespace
}  // namespace qx::test
