// Mouse, keyboard, in-place editing and drops of TVirtualTree: the views
// forward raw input here, and the rules of what it does to the tree live here.
#include "platform/ui/virtual_tree.h"

namespace qx {

// ---------------------------------------------------------------- editing

bool TVirtualTree::CanEdit(TVirtualNode* node, int column) {
  if (!Editable || !node || node == RootNode()) return false;
  if (column < 0 || column >= static_cast<int>(Header.Columns.size())) return false;
  return Header.Columns[column].Editable;
}

bool TVirtualTree::EditNode(TVirtualNode* node, int column) {
  if (IsEditing() || !CanEdit(node, column)) return false;
  bool allowed = true;
  if (OnEditing) OnEditing(this, node, column, allowed);
  if (!allowed) return false;
  FEditNode = node;
  FEditColumn = column;
  if (FView && !FView->TreeBeginEdit(node, column)) {
    FEditNode = nullptr;
    return false;
  }
  return true;
}

void TVirtualTree::EndEditNode(const std::string& text) {
  if (!FEditNode) return;
  TVirtualNode* node = FEditNode;
  int column = FEditColumn;
  // The edit is over before the handlers run, so they may start another or
  // delete the node.
  FEditNode = nullptr;
  if (OnNewText) OnNewText(this, node, column, text);
  if (OnEdited) OnEdited(this, node, column);
  StateChanged();
}

void TVirtualTree::CancelEditNode() { FEditNode = nullptr; }

// ---------------------------------------------------------------- mouse

void TVirtualTree::SelectRange(TVirtualNode* from, TVirtualNode* to) {
  int a = VisibleIndex(from), b = VisibleIndex(to);
  if (a < 0 || b < 0) return;
  if (a > b) std::swap(from, to);
  BeginUpdate();
  ClearSelection();
  for (auto* n = from; n; n = GetNextVisible(n)) {
    SetSelected(n, true);
    if (n == to) break;
  }
  EndUpdate();
}

void TVirtualTree::DoMouseDown(TMouseButton button, TShiftState shift, int x, int y) {
  if (OnMouseDown) OnMouseDown(this, button, shift, x, y);
  TVirtualNode* node = GetNodeAt(x, y);
  FPressedSelectedNode = nullptr;
  if (!node) return;
  if (button == TMouseButton::mbRight) {
    if (!RightClickSelect) return;
    if (!Selected(node)) {
      BeginUpdate();
      ClearSelection();
      SetSelected(node, true);
      EndUpdate();
    }
    SetFocusedNode(node);
    return;
  }
  if (button != TMouseButton::mbLeft) return;
  BeginUpdate();
  if ((shift & ssCtrl) && MultiSelect) {
    SetSelected(node, !Selected(node));
  } else if ((shift & ssShift) && MultiSelect && FFocusedNode) {
    SelectRange(FFocusedNode, node);
  } else if (Selected(node)) {
    // Keeps a multiple selection for a drag; the release narrows it.
    FPressedSelectedNode = node;
  } else {
    ClearSelection();
    SetSelected(node, true);
  }
  if (!(shift & ssShift)) SetFocusedNode(node);
  EndUpdate();
}

void TVirtualTree::DoMouseUp(TMouseButton button, TShiftState, int x, int y, bool dragged) {
  TVirtualNode* node = FPressedSelectedNode;
  FPressedSelectedNode = nullptr;
  if (button != TMouseButton::mbLeft || dragged || !node || GetNodeAt(x, y) != node) return;
  if (FSelectedCount <= 1) return;
  BeginUpdate();
  ClearSelection();
  SetSelected(node, true);
  EndUpdate();
}

// ---------------------------------------------------------------- keyboard

void TVirtualTree::DoKeyDown(int key, TShiftState shift) {
  bool doDefault = true;
  if (OnKeyAction) OnKeyAction(this, key, shift, doDefault);
  if (!doDefault) return;
  TVirtualNode* focused = FFocusedNode;
  TVirtualNode* target = nullptr;
  switch (key) {
    case VK_UP:
      target = focused ? GetPreviousVisible(focused) : GetFirstVisible();
      break;
    case VK_DOWN:
      target = focused ? GetNextVisible(focused) : GetFirstVisible();
      break;
    case VK_HOME:
      target = GetFirstVisible();
      break;
    case VK_END:
      for (auto* n = GetFirstVisible(); n; n = GetNextVisible(n)) target = n;
      break;
    case VK_LEFT:
      if (!focused) return;
      if (Expanded(focused)) {
        SetExpanded(focused, false);
        return;
      }
      target = GetNodeParent(focused);
      break;
    case VK_RIGHT:
      if (!focused) return;
      if (!Expanded(focused) && focused->ChildCount() > 0) {
        SetExpanded(focused, true);
        return;
      }
      target = GetFirstChild(focused);
      break;
    case VK_F2:
      if (focused) EditNode(focused, FFocusedColumn);
      return;
    default:
      return;
  }
  if (!target) return;
  BeginUpdate();
  if ((shift & ssShift) && MultiSelect && focused) {
    SelectRange(focused, target);
  } else {
    ClearSelection();
    SetSelected(target, true);
  }
  SetFocusedNode(target);
  EndUpdate();
}

// ---------------------------------------------------------------- drag and drop

bool TVirtualTree::DoDragOver(TVirtualTree* source, TShiftState shift, TDragState state, TPoint pt,
                              TDragEffect& effect) {
  FDropTargetNode = GetNodeAt(pt.X, pt.Y);
  FDropMode = GetDropModeAt(pt.X, pt.Y);
  bool accept = false;
  if (OnDragOver) OnDragOver(this, source, shift, state, pt, FDropMode, effect, accept);
  if (state == TDragState::dsDragLeave) FDropTargetNode = nullptr;
  return accept;
}

void TVirtualTree::DoDragDrop(TVirtualTree* source, const TVTDragData& data, TShiftState shift,
                              TPoint pt, TDragEffect& effect) {
  FDropTargetNode = GetNodeAt(pt.X, pt.Y);
  FDropMode = GetDropModeAt(pt.X, pt.Y);
  if (OnDragDrop) OnDragDrop(this, source, data, shift, pt, effect, FDropMode);
  FDropTargetNode = nullptr;
  FDropMode = TDropMode::dmNowhere;
}

}  // namespace qx
