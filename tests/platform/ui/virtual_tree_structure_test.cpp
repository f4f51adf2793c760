#include <gtest/gtest.h>

#include "platform/core/base/exception.h"
#include "tree_fixture.h"

namespace qx::test {
namespace {

using Mode = TVTNodeAttachMode;

class VirtualTreeStructure : public ::testing::Test, public TTreeFixture {};

TEST_F(VirtualTreeStructure, InsertModesPlaceNodesRelativeToTheTarget) {
  auto* b = Add(nullptr, "b");
  Tree.InsertNode(b, Mode::amInsertBefore, std::make_unique<TTextData>("a", false));
  Tree.InsertNode(b, Mode::amInsertAfter, std::make_unique<TTextData>("c", false));
  Tree.InsertNode(b, Mode::amAddChildLast, std::make_unique<TTextData>("b2", false));
  Tree.InsertNode(b, Mode::amAddChildFirst, std::make_unique<TTextData>("b1", false));
  // Before or after the root itself means the end of the top level.
  Tree.InsertNode(nullptr, Mode::amInsertBefore, std::make_unique<TTextData>("d", false));
  EXPECT_EQ(Children(nullptr), "a b c d");
  EXPECT_EQ(Children(b), "b1 b2");
  EXPECT_EQ(Tree.GetNodeParent(b), nullptr);
  EXPECT_EQ(Tree.GetNodeParent(Tree.GetFirstChild(b)), b);
  EXPECT_EQ(Tree.GetNextSibling(Tree.GetFirstChild(b)), Tree.GetLastChild(b));
  EXPECT_EQ(Tree.GetPreviousSibling(Tree.GetFirstChild(nullptr)), nullptr);
  EXPECT_EQ(Tree.TotalCount(), 6);
  EXPECT_EQ(Tree.GetNodeData<TTextData>(Tree.RootNode()), nullptr);
}

TEST_F(VirtualTreeStructure, MoveToKeepsStateAndRefusesToMoveIntoItself) {
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
  EXPECT_EQ(Children(b), "a1");
  EXPECT_EQ(Children(a1), "a2");
  EXPECT_TRUE(Tree.Selected(a1));
  EXPECT_TRUE(Tree.Expanded(a1));
  // A parent that lost its last child no longer counts as expanded.
  EXPECT_FALSE(Tree.Expanded(a));
  EXPECT_TRUE(Tree.HasAsParent(a2, b));

  Tree.MoveTo(a2, nullptr, Mode::amAddChildFirst);
  EXPECT_EQ(Children(nullptr), "a2 a b");
}

TEST_F(VirtualTreeStructure, MoveChildrenOnlyKeepsTheirOrderAndLeavesTheNode) {
  auto* folder = Add(nullptr, "folder", true);
  for (auto name : {"x", "y", "z"}) Add(folder, name);
  auto* theme = Add(nullptr, "theme", true);
  Add(theme, "t");
  Tree.MoveTo(folder, theme, Mode::amAddChildLast, true);
  EXPECT_EQ(Children(theme), "t x y z");
  EXPECT_EQ(Tree.GetChildCount(folder), 0);

  auto* other = Add(nullptr, "other", true);
  Tree.MoveTo(theme, Tree.GetFirstChild(theme), Mode::amInsertAfter, true);  // target inside: refused
  Tree.MoveTo(theme, other, Mode::amAddChildFirst, true);
  EXPECT_EQ(Children(other), "t x y z");
}

TEST_F(VirtualTreeStructure, DeleteFreesSubtreeChildrenFirstAndDropsSelectionAndFocus) {
  std::vector<std::string> freed;
  int changes = 0;
  Tree.OnFreeNode = [&](TVirtualTree*, TVirtualNode* n) { freed.push_back(Caption(n)); };
  Tree.OnChange = [&](TVirtualTree*, TVirtualNode*) { ++changes; };
  auto* a = Add(nullptr, "a", true);
  auto* a1 = Add(a, "a1");
  Add(a, "a2");
  auto* b = Add(nullptr, "b");
  Tree.SetSelected(a1, true);
  Tree.SetSelected(b, true);
  Tree.SetFocusedNode(a1);
  changes = 0;

  Tree.DeleteNode(a);
  EXPECT_EQ(freed, (std::vector<std::string>{"a1", "a2", "a"}));
  EXPECT_EQ(Tree.SelectedCount(), 1);
  EXPECT_EQ(Tree.FocusedNode(), nullptr);
  EXPECT_EQ(changes, 1);
  EXPECT_THROW(Tree.DeleteNode(nullptr), EqxAssertError);

  Tree.DeleteNode(Tree.RootNode());  // the root stays, its children go
  EXPECT_EQ(Tree.TotalCount(), 0);
  EXPECT_EQ(Tree.SelectedCount(), 0);
  EXPECT_EQ(changes, 2);
}

TEST_F(VirtualTreeStructure, SortUsesTheCompareEventThroughTheWholeTree) {
  auto* top = Add(nullptr, "a");
  Add(nullptr, "B");
  Add(nullptr, "A", true);  // a folder and an asset of one name: the folder first
  auto* folder = Add(nullptr, "Z", true);
  Add(folder, "b");
  Add(folder, "C");
  Add(folder, "a", true);
  Tree.Sort(nullptr, 0, TSortDirection::sdAscending);
  EXPECT_EQ(Children(nullptr), "A Z B a");  // ordinal: upper case first
  EXPECT_EQ(Children(folder), "a C b");
  EXPECT_EQ(top->Index(), 3);

  Tree.Sort(folder, 0, TSortDirection::sdDescending);
  EXPECT_EQ(Children(folder), "b C a");
  EXPECT_EQ(Children(nullptr), "A Z B a");  // only the given node's subtree
}

TEST_F(VirtualTreeStructure, SortKeepsTheOrderOfEqualNodes) {
  Tree.OnCompareNodes = nullptr;  // no opinion: every pair is equal
  for (auto name : {"c", "a", "b"}) Add(nullptr, name);
  Tree.SortTree(0, TSortDirection::sdAscending);
  EXPECT_EQ(Children(nullptr), "c a b");
}

TEST_F(VirtualTreeStructure, UpdatesNestAndGatherChangesIntoOne) {
  struct TView : IVirtualTreeView {
    int structure = 0, state = 0;
    void TreeStructureChanged() override { ++structure; }
    void TreeStateChanged() override { ++state; }
    bool TreeBeginEdit(TVirtualNode*, int) override { return true; }
  } view;
  Tree.SetView(&view);
  std::vector<TVirtualNode*> changed;
  Tree.OnChange = [&](TVirtualTree*, TVirtualNode* n) { changed.push_back(n); };

  Tree.BeginUpdate();
  Tree.BeginUpdate();
  auto* a = Add(nullptr, "a");
  auto* b = Add(nullptr, "b");
  Tree.SetSelected(a, true);
  Tree.SetSelected(b, true);
  Tree.EndUpdate();
  EXPECT_EQ(Tree.UpdateCount(), 1);
  EXPECT_TRUE(changed.empty());
  EXPECT_EQ(view.structure, 0);
  Tree.EndUpdate();
  EXPECT_EQ(changed, std::vector<TVirtualNode*>{nullptr});
  EXPECT_EQ(view.structure, 1);

  Tree.EndUpdate();  // unbalanced: ignored
  EXPECT_EQ(Tree.UpdateCount(), 0);
  Tree.SetSelected(a, false);  // outside an update the node is told at once
  EXPECT_EQ(changed.back(), a);
  {
    TVTUpdateGuard guard(Tree);
    EXPECT_EQ(Tree.UpdateCount(), 1);
  }
  EXPECT_EQ(Tree.UpdateCount(), 0);
  Tree.SetView(nullptr);
}

}  // namespace
}  // namespace qx::test
