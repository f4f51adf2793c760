#include "platform/ui/virtual_tree.h"

#include <algorithm>

#include "platform/core/base/assert.h"

namespace qx {

TVirtualTree::TVirtualTree() : FRoot(std::make_unique<TVirtualNode>()) { FRoot->FExpanded = true; }

// The nodes own their data, so the tree goes without events: whoever handles
// them may already be half destroyed.
TVirtualTree::~TVirtualTree() = default;

// ---------------------------------------------------------------- updates

void TVirtualTree::BeginUpdate() { ++FUpdateCount; }

void TVirtualTree::EndUpdate() {
  if (FUpdateCount == 0) return;
  if (--FUpdateCount > 0) return;
  if (FStructurePending) {
    FStructurePending = FStatePending = false;
    if (FView) FView->TreeStructureChanged();
  }
  if (FStatePending) {
    FStatePending = false;
    if (FView) FView->TreeStateChanged();
  }
  if (FChangePending) {
    FChangePending = false;
    if (OnChange) OnChange(this, nullptr);
  }
}

void TVirtualTree::Change(TVirtualNode* node) {
  StateChanged();
  if (FUpdateCount > 0) {
    FChangePending = true;
  } else if (OnChange) {
    OnChange(this, node);
  }
}

void TVirtualTree::StructureChanged() {
  if (FUpdateCount > 0) {
    FStructurePending = true;
  } else if (FView) {
    FView->TreeStructureChanged();
  }
}

void TVirtualTree::StateChanged() {
  if (FUpdateCount > 0) {
    FStatePending = true;
  } else if (FView) {
    FView->TreeStateChanged();
  }
}

// ---------------------------------------------------------------- structure

TVirtualNode* TVirtualTree::Resolve(const TVirtualNode* node) const {
  return node ? const_cast<TVirtualNode*>(node) : FRoot.get();
}

void TVirtualTree::Reindex(TVirtualNode* parent) {
  for (size_t i = 0; i < parent->FChildren.size(); ++i)
    parent->FChildren[i]->FIndex = static_cast<int>(i);
}

void TVirtualTree::Clear() { DeleteChildren(FRoot.get()); }

TVirtualNode* TVirtualTree::AddChild(TVirtualNode* parent, std::unique_ptr<TNodeDataBase> data) {
  return InsertNode(parent, TVTNodeAttachMode::amAddChildLast, std::move(data));
}

TVirtualNode* TVirtualTree::InsertNode(TVirtualNode* target, TVTNodeAttachMode mode,
                                       std::unique_ptr<TNodeDataBase> data) {
  auto node = std::make_unique<TVirtualNode>();
  node->FData = std::move(data);
  auto* raw = node.get();
  Attach(std::move(node), target, mode);
  StructureChanged();
  return raw;
}

void TVirtualTree::Attach(std::unique_ptr<TVirtualNode> node, TVirtualNode* target,
                          TVTNodeAttachMode mode) {
  target = Resolve(target);
  if (target == FRoot.get() && (mode == TVTNodeAttachMode::amInsertBefore ||
                                mode == TVTNodeAttachMode::amInsertAfter ||
                                mode == TVTNodeAttachMode::amNoWhere))
    mode = TVTNodeAttachMode::amAddChildLast;
  TVirtualNode* parent = target;
  size_t at = 0;
  switch (mode) {
    case TVTNodeAttachMode::amInsertBefore:
      parent = target->Parent;
      at = static_cast<size_t>(target->FIndex);
      break;
    case TVTNodeAttachMode::amInsertAfter:
      parent = target->Parent;
      at = static_cast<size_t>(target->FIndex) + 1;
      break;
    case TVTNodeAttachMode::amAddChildFirst:
      at = 0;
      break;
    default:
      at = target->FChildren.size();
      break;
  }
  node->Parent = parent;
  parent->FChildren.insert(parent->FChildren.begin() + static_cast<long>(at), std::move(node));
  Reindex(parent);
}

std::unique_ptr<TVirtualNode> TVirtualTree::Detach(TVirtualNode* node) {
  TVirtualNode* parent = node->Parent;
  auto owned = std::move(parent->FChildren[node->FIndex]);
  parent->FChildren.erase(parent->FChildren.begin() + node->FIndex);
  Reindex(parent);
  // An expanded node that has lost its last child shows as collapsed.
  if (parent != FRoot.get() && parent->FChildren.empty()) parent->FExpanded = false;
  owned->Parent = nullptr;
  return owned;
}

void TVirtualTree::FreeSubtree(TVirtualNode* node, bool& selectionChanged) {
  for (auto& child : node->FChildren) FreeSubtree(child.get(), selectionChanged);
  if (node->FSelected) {
    node->FSelected = false;
    --FSelectedCount;
    selectionChanged = true;
  }
  if (FFocusedNode == node) FFocusedNode = nullptr;
  if (FEditNode == node) FEditNode = nullptr;
  if (FDropTargetNode == node) FDropTargetNode = nullptr;
  if (FPressedSelectedNode == node) FPressedSelectedNode = nullptr;
  if (OnFreeNode) OnFreeNode(this, node);
}

void TVirtualTree::DeleteNode(TVirtualNode* node) {
  TqxAssert::IsNotNil(node, "Node");
  if (node == FRoot.get()) {
    DeleteChildren(node);
    return;
  }
  bool selectionChanged = false;
  FreeSubtree(node, selectionChanged);
  Detach(node);  // the returned owner frees the subtree here
  StructureChanged();
  if (selectionChanged) Change(nullptr);
}

void TVirtualTree::DeleteChildren(TVirtualNode* node) {
  node = Resolve(node);
  if (node->FChildren.empty()) return;
  bool selectionChanged = false;
  for (auto& child : node->FChildren) FreeSubtree(child.get(), selectionChanged);
  node->FChildren.clear();
  if (node != FRoot.get()) node->FExpanded = false;
  StructureChanged();
  if (selectionChanged) Change(nullptr);
}

void TVirtualTree::MoveTo(TVirtualNode* source, TVirtualNode* target, TVTNodeAttachMode mode,
                          bool childrenOnly) {
  TqxAssert::IsNotNil(source, "Source");
  target = Resolve(target);
  if (childrenOnly) {
    if (target == source || HasAsParent(target, source)) return;
    // Each child goes in turn; inserting before/after keeps their order.
    auto children = ChildNodes(source);
    TVirtualNode* anchor = target;
    TVTNodeAttachMode anchorMode = mode;
    for (auto* child : children) {
      Attach(Detach(child), anchor, anchorMode);
      if (anchorMode == TVTNodeAttachMode::amInsertBefore) continue;
      if (anchorMode == TVTNodeAttachMode::amAddChildFirst ||
          anchorMode == TVTNodeAttachMode::amInsertAfter) {
        anchor = child;
        anchorMode = TVTNodeAttachMode::amInsertAfter;
      }
    }
    StructureChanged();
    return;
  }
  if (source == FRoot.get() || target == source || HasAsParent(target, source)) return;
  Attach(Detach(source), target, mode);
  StructureChanged();
}

// ---------------------------------------------------------------- navigation

TVirtualNode* TVirtualTree::GetFirstChild(const TVirtualNode* node) const {
  auto* n = Resolve(node);
  return n->FChildren.empty() ? nullptr : n->FChildren.front().get();
}

TVirtualNode* TVirtualTree::GetLastChild(const TVirtualNode* node) const {
  auto* n = Resolve(node);
  return n->FChildren.empty() ? nullptr : n->FChildren.back().get();
}

TVirtualNode* TVirtualTree::GetNextSibling(const TVirtualNode* node) const {
  if (!node || !node->Parent) return nullptr;
  int next = node->FIndex + 1;
  return next < node->Parent->ChildCount() ? node->Parent->Child(next) : nullptr;
}

TVirtualNode* TVirtualTree::GetPreviousSibling(const TVirtualNode* node) const {
  if (!node || !node->Parent || node->FIndex == 0) return nullptr;
  return node->Parent->Child(node->FIndex - 1);
}

TVirtualNode* TVirtualTree::GetNodeParent(const TVirtualNode* node) const {
  if (!node || node->Parent == FRoot.get()) return nullptr;
  return node->Parent;
}

int TVirtualTree::GetChildCount(const TVirtualNode* node) const { return Resolve(node)->ChildCount(); }

std::vector<TVirtualNode*> TVirtualTree::ChildNodes(const TVirtualNode* node) const {
  std::vector<TVirtualNode*> result;
  for (auto& child : Resolve(node)->FChildren) result.push_back(child.get());
  return result;
}

TVirtualNode* TVirtualTree::GetNext(const TVirtualNode* node) const {
  if (!node) return nullptr;
  if (!node->FChildren.empty()) return node->FChildren.front().get();
  for (const TVirtualNode* n = node; n && n != FRoot.get(); n = n->Parent)
    if (auto* sibling = GetNextSibling(n)) return sibling;
  return nullptr;
}

bool TVirtualTree::HasAsParent(const TVirtualNode* node, const TVirtualNode* potentialParent) const {
  if (!node || !potentialParent) return false;
  for (auto* n = node->Parent; n; n = n->Parent)
    if (n == potentialParent) return true;
  return false;
}

int TVirtualTree::TotalCount() const {
  int count = 0;
  for (auto* n = GetFirst(); n; n = GetNext(n)) ++count;
  return count;
}

bool TVirtualTree::IsVisible(const TVirtualNode* node) const {
  if (!node || node == FRoot.get()) return false;
  for (auto* n = node->Parent; n && n != FRoot.get(); n = n->Parent)
    if (!n->FExpanded) return false;
  return true;
}

TVirtualNode* TVirtualTree::GetNextVisible(const TVirtualNode* node) const {
  if (!node) return nullptr;
  if (node->FExpanded && !node->FChildren.empty()) return node->FChildren.front().get();
  for (const TVirtualNode* n = node; n && n != FRoot.get(); n = n->Parent)
    if (auto* sibling = GetNextSibling(n)) return sibling;
  return nullptr;
}

TVirtualNode* TVirtualTree::GetPreviousVisible(const TVirtualNode* node) const {
  if (!node) return nullptr;
  auto* prev = GetPreviousSibling(node);
  if (!prev) return GetNodeParent(node);
  while (prev->FExpanded && !prev->FChildren.empty()) prev = prev->FChildren.back().get();
  return prev;
}

int TVirtualTree::VisibleCount() const {
  int count = 0;
  for (auto* n = GetFirstVisible(); n; n = GetNextVisible(n)) ++count;
  return count;
}

int TVirtualTree::VisibleIndex(const TVirtualNode* node) const {
  int row = 0;
  for (auto* n = GetFirstVisible(); n; n = GetNextVisible(n), ++row)
    if (n == node) return row;
  return -1;
}

TVirtualNode* TVirtualTree::GetNodeAt(int x, int y) const {
  if (x < 0 || y < 0 || DefaultNodeHeight <= 0) return nullptr;
  int row = (y + OffsetY) / DefaultNodeHeight;
  auto* n = GetFirstVisible();
  for (; n && row > 0; --row) n = GetNextVisible(n);
  return n;
}

TDropMode TVirtualTree::GetDropModeAt(int x, int y) const {
  if (!GetNodeAt(x, y)) return TDropMode::dmNowhere;
  int inRow = (y + OffsetY) % DefaultNodeHeight;
  if (inRow < DefaultNodeHeight / 4) return TDropMode::dmAbove;
  if (inRow >= DefaultNodeHeight - DefaultNodeHeight / 4) return TDropMode::dmBelow;
  return TDropMode::dmOnNode;
}

// ---------------------------------------------------------------- selection, focus, expansion

void TVirtualTree::SetSelected(TVirtualNode* node, bool value) {
  if (!node || node == FRoot.get() || node->FSelected == value) return;
  if (value && !MultiSelect && FSelectedCount > 0) {
    BeginUpdate();
    ClearSelection();
    node->FSelected = true;
    ++FSelectedCount;
    Change(node);
    EndUpdate();
    return;
  }
  node->FSelected = value;
  FSelectedCount += value ? 1 : -1;
  Change(node);
}

void TVirtualTree::ClearSelection() {
  if (FSelectedCount == 0) return;
  for (auto* n = GetFirst(); n; n = GetNext(n)) n->FSelected = false;
  FSelectedCount = 0;
  Change(nullptr);
}

std::vector<TVirtualNode*> TVirtualTree::SelectedNodes() const { return GetSortedSelection(false); }

std::vector<TVirtualNode*> TVirtualTree::GetSortedSelection(bool resolve) const {
  std::vector<TVirtualNode*> result;
  if (FSelectedCount == 0) return result;
  for (auto* n = GetFirst(); n; n = GetNext(n)) {
    if (!n->FSelected) continue;
    if (resolve) {
      bool underSelected = false;
      for (auto* p = n->Parent; p && p != FRoot.get(); p = p->Parent)
        if (p->FSelected) underSelected = true;
      if (underSelected) continue;
    }
    result.push_back(n);
  }
  return result;
}

void TVirtualTree::SetFocusedNode(TVirtualNode* node) {
  if (node == FRoot.get()) node = nullptr;
  if (FFocusedNode == node) return;
  FFocusedNode = node;
  StateChanged();
  if (OnFocusChanged) OnFocusChanged(this, node, FFocusedColumn);
}

void TVirtualTree::SetExpanded(TVirtualNode* node, bool value) {
  if (!node || node == FRoot.get() || node->FExpanded == value) return;
  if (value && node->FChildren.empty()) return;
  node->FExpanded = value;
  StateChanged();
  if (value && OnExpanded) OnExpanded(this, node);
  if (!value && OnCollapsed) OnCollapsed(this, node);
}

void TVirtualTree::FullExpand(TVirtualNode* node) {
  BeginUpdate();
  for (auto* child : ChildNodes(node)) {
    SetExpanded(child, true);
    FullExpand(child);
  }
  EndUpdate();
}

void TVirtualTree::ScrollIntoView(TVirtualNode* node) {
  if (!node || node == FRoot.get()) return;
  BeginUpdate();
  for (auto* p = GetNodeParent(node); p; p = GetNodeParent(p)) SetExpanded(p, true);
  EndUpdate();
  if (FView) FView->TreeScrollIntoView(node);
}

// ---------------------------------------------------------------- sorting and cells

int TVirtualTree::Compare(TVirtualNode* a, TVirtualNode* b, int column, TSortDirection direction) {
  int result = 0;
  if (OnCompareNodes) OnCompareNodes(this, a, b, column, result);
  return direction == TSortDirection::sdDescending ? -result : result;
}

void TVirtualTree::SortChildren(TVirtualNode* node, int column, TSortDirection direction) {
  // Stable, so nodes the compare event calls equal keep their order.
  std::stable_sort(node->FChildren.begin(), node->FChildren.end(),
                   [&](const std::unique_ptr<TVirtualNode>& a, const std::unique_ptr<TVirtualNode>& b) {
                     return Compare(a.get(), b.get(), column, direction) < 0;
                   });
  Reindex(node);
  for (auto& child : node->FChildren) SortChildren(child.get(), column, direction);
}

void TVirtualTree::Sort(TVirtualNode* node, int column, TSortDirection direction) {
  SortChildren(Resolve(node), column, direction);
  StructureChanged();
}

std::string TVirtualTree::GetText(TVirtualNode* node, int column) {
  std::string text;
  if (node && node != FRoot.get() && OnGetText) OnGetText(this, node, column, text);
  return text;
}

int TVirtualTree::GetImageIndex(TVirtualNode* node, TVTImageKind kind, int column) {
  int index = -1;
  bool ghosted = false;
  if (node && node != FRoot.get() && OnGetImageIndex)
    OnGetImageIndex(this, node, kind, column, ghosted, index);
  return index;
}

void TVirtualTree::InvalidateNode(TVirtualNode*) { StateChanged(); }

}  // namespace qx
