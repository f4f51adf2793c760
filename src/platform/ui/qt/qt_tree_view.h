#pragma once

#include <QMimeData>
#include <QPoint>
#include <QTimer>
#include <QTreeView>
#include <memory>

#include "platform/ui/virtual_tree.h"

namespace qx {

class TMenuItem;
class TqxQtTreeModel;

// Shows a TVirtualTree. Mouse, keys, edits and drops go to the tree, and the
// tree's state comes back here to be painted; Qt's own selection and
// expansion only mirror it.
class TqxQtTreeView : public QTreeView, public IVirtualTreeView {
  Q_OBJECT
public:
  // The mime type of a drag of the tree's own nodes.
  static constexpr const char* kNodesMimeType = "application/x-qx-virtual-tree-nodes";

  explicit TqxQtTreeView(TVirtualTree& tree, QWidget* parent = nullptr);
  ~TqxQtTreeView() override;

  TVirtualTree& Tree() const { return FTree; }
  TqxQtTreeModel* Model() const { return FModel; }
  // Not owned; shown on a right click.
  void SetPopupMenu(TMenuItem* menu) { FPopupMenu = menu; }
  // What a drag of the selection carries.
  QMimeData* CreateDragMimeData() const;
  // Where the node's row is, in viewport coordinates.
  QRect NodeRect(TVirtualNode* node) const;

  void TreeStructureChanged() override;
  void TreeStateChanged() override;
  bool TreeBeginEdit(TVirtualNode* node, int column) override;
  void TreeScrollIntoView(TVirtualNode* node) override;
  void TreeSetFocus() override { setFocus(); }

protected:
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void contextMenuEvent(QContextMenuEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dragMoveEvent(QDragMoveEvent* event) override;
  void dragLeaveEvent(QDragLeaveEvent* event) override;
  void dropEvent(QDropEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;

private:
  // Answers whether the drag is one the tree may take, and from where.
  bool ReadDrag(const QMimeData* data, TVirtualTree*& source, TVTDragData& dragData) const;
  void SyncState();
  void ApplyHeader();
  bool OnBranchIndicator(const QPoint& pos, TVirtualNode* node) const;

  TVirtualTree& FTree;
  TqxQtTreeModel* FModel;
  TMenuItem* FPopupMenu = nullptr;
  QPoint FPressPos;
  bool FLeftPressed = false, FDragged = false, FSyncing = false;
  TVirtualNode* FSlowClickNode = nullptr;
  QTimer FEditTimer;
  // Where a drag over the tree would land, drawn over the rows.
  TVirtualNode* FDropNode = nullptr;
  TDropMode FDropMode = TDropMode::dmNowhere;
};

}  // namespace qx
