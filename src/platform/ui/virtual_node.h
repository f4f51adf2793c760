#pragma once

#include <memory>
#include <vector>

namespace qx {

// What a node carries. The tree owns it and frees it with the node, after
// OnFreeNode has seen it.
class TNodeDataBase {
public:
  virtual ~TNodeDataBase() = default;
};

// Where a node goes relative to a target node.
enum class TVTNodeAttachMode { amNoWhere, amInsertBefore, amInsertAfter, amAddChildFirst, amAddChildLast };

enum class TSortDirection { sdAscending, sdDescending };

enum class TVTImageKind { ikNormal, ikSelected, ikState, ikOverlay };

// One node of a virtual tree. Nodes are made and freed by the tree only; other
// code holds plain pointers that stay valid until the node is deleted.
class TVirtualNode {
public:
  TVirtualNode* Parent = nullptr;  // the tree's root node for top-level nodes
  TNodeDataBase* Data() const { return FData.get(); }
  int Index() const { return FIndex; }
  int ChildCount() const { return static_cast<int>(FChildren.size()); }
  TVirtualNode* Child(int index) const { return FChildren.at(index).get(); }
  bool Selected() const { return FSelected; }
  bool Expanded() const { return FExpanded; }

private:
  friend class TVirtualTree;
  std::unique_ptr<TNodeDataBase> FData;
  std::vector<std::unique_ptr<TVirtualNode>> FChildren;
  int FIndex = 0;
  bool FSelected = false;
  bool FExpanded = false;
};

}  // namespace qx
