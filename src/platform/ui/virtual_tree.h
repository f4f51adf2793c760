#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/ui/ui_input.h"
#include "platform/ui/virtual_node.h"

namespace qx {

class TCustomImageList;
class TVirtualTree;

enum class TAlignment { taLeftJustify, taRightJustify, taCenter };

struct TVTColumn {
  std::string Text;
  int Width = 100;
  TAlignment Alignment = TAlignment::taLeftJustify;
  bool Editable = true;
};

struct TVTHeader {
  std::vector<TVTColumn> Columns;
  int Height = 24;
  int SortColumn = -1;
  TSortDirection SortDirection = TSortDirection::sdAscending;
};

// What shows a tree. It hears about changes once the tree is out of updates,
// and opens the in-place editor when the tree asks for it.
class IVirtualTreeView {
public:
  virtual ~IVirtualTreeView() = default;
  // Nodes came, went, moved or were re-sorted.
  virtual void TreeStructureChanged() = 0;
  // Selection, focus, expansion or cell content changed.
  virtual void TreeStateChanged() = 0;
  // Opens an editor on the cell; answers false if it can't.
  virtual bool TreeBeginEdit(TVirtualNode* node, int column) = 0;
  // Scrolls so the node's row shows.
  virtual void TreeScrollIntoView(TVirtualNode* node) { (void)node; }
  // Takes the keyboard focus.
  virtual void TreeSetFocus() {}
};

// A tree whose nodes carry data objects and whose cells are asked for through
// events. It keeps structure, selection, focus, expansion and sort order, and
// turns mouse, key, edit and drop input into those; a view only shows it.
class TVirtualTree {
public:
  TVirtualTree();
  TVirtualTree(const TVirtualTree&) = delete;
  TVirtualTree& operator=(const TVirtualTree&) = delete;
  ~TVirtualTree();

  // --- Options ---
  TVTHeader Header;
  int DefaultNodeHeight = 18;
  bool MultiSelect = false;
  bool RightClickSelect = false;
  bool FullRowSelect = false;
  // Callers keep the order themselves by calling Sort after each change; the
  // flag is kept for them to read.
  bool AutoSort = false;
  bool Editable = false;
  bool DragEnabled = false;
  bool AcceptFiles = false;
  // Vertical scroll position in pixels, kept by the view.
  int OffsetY = 0;
  TCustomImageList* Images = nullptr;  // not owned

  IVirtualTreeView* View() const { return FView; }
  void SetView(IVirtualTreeView* view) { FView = view; }

  // --- Events ---
  std::function<void(TVirtualTree*, TVirtualNode*, int column, std::string& text)> OnGetText;
  std::function<void(TVirtualTree*, TVirtualNode*, TVTImageKind, int column, bool& ghosted,
                     int& imageIndex)>
      OnGetImageIndex;
  std::function<void(TVirtualTree*, TVirtualNode*, TVirtualNode*, int column, int& result)>
      OnCompareNodes;
  std::function<void(TVirtualTree*, TVirtualNode*)> OnFreeNode;
  // The selection changed; node is nil when several changes were gathered.
  std::function<void(TVirtualTree*, TVirtualNode*)> OnChange;
  std::function<void(TVirtualTree*, TVirtualNode*, int column)> OnFocusChanged;
  std::function<void(TVirtualTree*, TVirtualNode*)> OnExpanded;
  std::function<void(TVirtualTree*, TVirtualNode*)> OnCollapsed;
  std::function<void(TVirtualTree*, TVirtualNode*, int column, bool& allowed)> OnEditing;
  std::function<void(TVirtualTree*, TVirtualNode*, int column, const std::string& text)> OnNewText;
  std::function<void(TVirtualTree*, TVirtualNode*, int column)> OnEdited;
  // source is this tree for a drag of its own nodes, nil for one from outside.
  std::function<void(TVirtualTree*, TVirtualTree* source, TShiftState, TDragState, TPoint,
                     TDropMode, TDragEffect& effect, bool& accept)>
      OnDragOver;
  std::function<void(TVirtualTree*, TVirtualTree* source, const TVTDragData&, TShiftState, TPoint,
                     TDragEffect& effect, TDropMode)>
      OnDragDrop;
  std::function<void(TVirtualTree*, int& key, TShiftState, bool& doDefault)> OnKeyAction;
  std::function<void(TVirtualTree*, TMouseButton, TShiftState, int x, int y)> OnMouseDown;

  // --- Structure ---
  TVirtualNode* RootNode() const { return FRoot.get(); }
  void BeginUpdate();
  void EndUpdate();
  int UpdateCount() const { return FUpdateCount; }
  void Clear();
  // parent nil means the root. The tree takes the data.
  TVirtualNode* AddChild(TVirtualNode* parent, std::unique_ptr<TNodeDataBase> data = nullptr);
  TVirtualNode* InsertNode(TVirtualNode* target, TVTNodeAttachMode mode,
                           std::unique_ptr<TNodeDataBase> data = nullptr);
  // Deleting the root deletes all its children.
  void DeleteNode(TVirtualNode* node);
  void DeleteChildren(TVirtualNode* node);
  // A move into the node's own subtree does nothing. With childrenOnly the
  // node's children move and the node stays.
  void MoveTo(TVirtualNode* source, TVirtualNode* target, TVTNodeAttachMode mode,
              bool childrenOnly = false);

  template <class T>
  T* GetNodeData(const TVirtualNode* node) const {
    return node ? dynamic_cast<T*>(node->Data()) : nullptr;
  }

  // --- Navigation (nil arguments mean the root) ---
  TVirtualNode* GetFirstChild(const TVirtualNode* node) const;
  TVirtualNode* GetLastChild(const TVirtualNode* node) const;
  TVirtualNode* GetNextSibling(const TVirtualNode* node) const;
  TVirtualNode* GetPreviousSibling(const TVirtualNode* node) const;
  // nil for top-level nodes and the root.
  TVirtualNode* GetNodeParent(const TVirtualNode* node) const;
  int GetChildCount(const TVirtualNode* node) const;
  std::vector<TVirtualNode*> ChildNodes(const TVirtualNode* node) const;
  // Pre-order over the whole tree, root excluded.
  TVirtualNode* GetFirst() const { return GetFirstChild(nullptr); }
  TVirtualNode* GetNext(const TVirtualNode* node) const;
  bool HasAsParent(const TVirtualNode* node, const TVirtualNode* potentialParent) const;
  int TotalCount() const;

  // --- Visible rows: nodes whose ancestors are all expanded ---
  TVirtualNode* GetFirstVisible() const { return GetFirst(); }
  TVirtualNode* GetNextVisible(const TVirtualNode* node) const;
  TVirtualNode* GetPreviousVisible(const TVirtualNode* node) const;
  bool IsVisible(const TVirtualNode* node) const;
  int VisibleCount() const;
  // Row of the node among the visible ones, -1 if hidden.
  int VisibleIndex(const TVirtualNode* node) const;
  // Coordinates of the client area below the header; nil where no row is.
  TVirtualNode* GetNodeAt(int x, int y) const;
  TDropMode GetDropModeAt(int x, int y) const;

  // --- Selection and focus ---
  bool Selected(const TVirtualNode* node) const { return node && node->FSelected; }
  void SetSelected(TVirtualNode* node, bool value);
  void ClearSelection();
  int SelectedCount() const { return FSelectedCount; }
  // Tree order.
  std::vector<TVirtualNode*> SelectedNodes() const;
  // Tree order; with resolve, nodes lying under another selected node are left out.
  std::vector<TVirtualNode*> GetSortedSelection(bool resolve) const;
  TVirtualNode* FocusedNode() const { return FFocusedNode; }
  void SetFocusedNode(TVirtualNode* node);
  int FocusedColumn() const { return FFocusedColumn; }

  // --- Expansion ---
  bool Expanded(const TVirtualNode* node) const { return node && node->FExpanded; }
  // A node without children stays collapsed.
  void SetExpanded(TVirtualNode* node, bool value);
  void FullExpand(TVirtualNode* node = nullptr);
  // Expands the node's ancestors and has the view scroll to it.
  void ScrollIntoView(TVirtualNode* node);
  // Gives the view the keyboard focus.
  void SetFocus() {
    if (FView) FView->TreeSetFocus();
  }

  // --- Sorting ---
  // Sorts the children of node (nil: the root) and, recursively, theirs.
  void Sort(TVirtualNode* node, int column, TSortDirection direction);
  void SortTree(int column, TSortDirection direction) { Sort(nullptr, column, direction); }

  // --- Cells ---
  std::string GetText(TVirtualNode* node, int column);
  int GetImageIndex(TVirtualNode* node, TVTImageKind kind, int column);
  // Tells the view a cell's content changed.
  void InvalidateNode(TVirtualNode* node);

  // --- In-place editing ---
  bool CanEdit(TVirtualNode* node, int column);
  // Asks OnEditing and, if allowed, has the view open an editor.
  bool EditNode(TVirtualNode* node, int column);
  bool IsEditing() const { return FEditNode != nullptr; }
  TVirtualNode* EditedNode() const { return FEditNode; }
  // The editor committed: OnNewText, then OnEdited.
  void EndEditNode(const std::string& text);
  void CancelEditNode();

  // --- Input, forwarded by the view ---
  void DoMouseDown(TMouseButton button, TShiftState shift, int x, int y);
  void DoMouseUp(TMouseButton button, TShiftState shift, int x, int y, bool dragged);
  void DoKeyDown(int key, TShiftState shift);
  bool DoDragOver(TVirtualTree* source, TShiftState shift, TDragState state, TPoint pt,
                  TDragEffect& effect);
  void DoDragDrop(TVirtualTree* source, const TVTDragData& data, TShiftState shift, TPoint pt,
                  TDragEffect& effect);
  // Valid inside OnDragDrop and OnDragOver.
  TVirtualNode* DropTargetNode() const { return FDropTargetNode; }
  TDropMode LastDropMode() const { return FDropMode; }

private:
  int Compare(TVirtualNode* a, TVirtualNode* b, int column, TSortDirection direction);
  void SortChildren(TVirtualNode* node, int column, TSortDirection direction);
  std::unique_ptr<TVirtualNode> Detach(TVirtualNode* node);
  void Attach(std::unique_ptr<TVirtualNode> node, TVirtualNode* target, TVTNodeAttachMode mode);
  void FreeSubtree(TVirtualNode* node, bool& selectionChanged);
  static void Reindex(TVirtualNode* parent);
  TVirtualNode* Resolve(const TVirtualNode* node) const;
  void SelectRange(TVirtualNode* from, TVirtualNode* to);
  void Change(TVirtualNode* node);
  void StructureChanged();
  void StateChanged();

  std::unique_ptr<TVirtualNode> FRoot;
  IVirtualTreeView* FView = nullptr;
  int FUpdateCount = 0;
  bool FChangePending = false, FStructurePending = false, FStatePending = false;
  int FSelectedCount = 0;
  TVirtualNode* FFocusedNode = nullptr;
  int FFocusedColumn = 0;
  TVirtualNode* FEditNode = nullptr;
  int FEditColumn = -1;
  TVirtualNode* FDropTargetNode = nullptr;
  TDropMode FDropMode = TDropMode::dmNowhere;
  TVirtualNode* FPressedSelectedNode = nullptr;
};

// Keeps a tree in an update for the lifetime of the guard, also through exceptions.
class TVTUpdateGuard {
public:
  explicit TVTUpdateGuard(TVirtualTree& tree) : FTree(tree) { FTree.BeginUpdate(); }
  ~TVTUpdateGuard() { FTree.EndUpdate(); }
  TVTUpdateGuard(const TVTUpdateGuard&) = delete;
  TVTUpdateGuard& operator=(const TVTUpdateGuard&) = delete;

private:
  TVirtualTree& FTree;
};

}  // namespace qx
