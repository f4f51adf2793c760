#include "platform/ui/qt/qt_tree_view.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QDrag>
#include <QHeaderView>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QUrl>

#include "platform/ui/image_list.h"
#include "platform/ui/qt/qt_actions.h"
#include "platform/ui/qt/qt_input.h"
#include "platform/ui/qt/qt_tree_model.h"

namespace qx {

TqxQtTreeView::TqxQtTreeView(TVirtualTree& tree, QWidget* parent)
    : QTreeView(parent), FTree(tree), FModel(new TqxQtTreeModel(tree, this)) {
  setModel(FModel);
  setUniformRowHeights(true);
  setItemsExpandable(false);  // expansion is the tree's; Qt only shows it
  setSelectionMode(QAbstractItemView::ExtendedSelection);
  setSelectionBehavior(QAbstractItemView::SelectRows);
  setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
  setEditTriggers(QAbstractItemView::NoEditTriggers);
  setAcceptDrops(true);
  setDropIndicatorShown(true);
  if (tree.Images) setIconSize(QSize(tree.Images->Width(), tree.Images->Height()));
  ApplyHeader();
  connect(verticalScrollBar(), &QScrollBar::valueChanged, this, [this](int value) { FTree.OffsetY = value; });
  connect(header(), &QHeaderView::sectionResized, this, [this](int section, int, int size) {
    if (section < static_cast<int>(FTree.Header.Columns.size())) FTree.Header.Columns[section].Width = size;
  });
  FEditTimer.setSingleShot(true);
  connect(&FEditTimer, &QTimer::timeout, this, [this] {
    if (FSlowClickNode && FTree.FocusedNode() == FSlowClickNode) FTree.EditNode(FSlowClickNode, 0);
    FSlowClickNode = nullptr;
  });
  FTree.SetView(this);
  SyncState();
}

TqxQtTreeView::~TqxQtTreeView() {
  if (FTree.View() == this) FTree.SetView(nullptr);
}

void TqxQtTreeView::ApplyHeader() {
  header()->setStretchLastSection(false);
  header()->setFixedHeight(FTree.Header.Height);
  for (int i = 0; i < static_cast<int>(FTree.Header.Columns.size()); ++i) {
    header()->resizeSection(i, FTree.Header.Columns[i].Width);
  }
}

// ------------------------------------------------------------ tree to view

void TqxQtTreeView::TreeStructureChanged() {
  FSlowClickNode = nullptr;
  FDropNode = nullptr;
  FModel->Reset();
  SyncState();
}

void TqxQtTreeView::TreeStateChanged() { SyncState(); }

void TqxQtTreeView::SyncState() {
  FSyncing = true;
  QItemSelection selection;
  for (auto* node = FTree.GetFirst(); node; node = FTree.GetNext(node)) {
    QModelIndex index = FModel->IndexOf(node);
    if (isExpanded(index) != FTree.Expanded(node)) setExpanded(index, FTree.Expanded(node));
    if (FTree.Selected(node))
      selection.select(index, FModel->IndexOf(node, FModel->columnCount() - 1));
  }
  selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
  selectionModel()->setCurrentIndex(FModel->IndexOf(FTree.FocusedNode()), QItemSelectionModel::NoUpdate);
  viewport()->update();
  FSyncing = false;
}

bool TqxQtTreeView::TreeBeginEdit(TVirtualNode* node, int column) {
  QModelIndex index = FModel->IndexOf(node, column);
  if (!index.isValid()) return false;
  scrollTo(index);
  edit(index);
  return state() == QAbstractItemView::EditingState;
}

void TqxQtTreeView::TreeScrollIntoView(TVirtualNode* node) { scrollTo(FModel->IndexOf(node)); }

void TqxQtTreeView::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
  QTreeView::closeEditor(editor, hint);
  if (auto text = FModel->TakePendingEdit()) {
    std::string value = text->toStdString();
    QMetaObject::invokeMethod(this, [this, value] { FTree.EndEditNode(value); }, Qt::QueuedConnection);
  } else {
    FTree.CancelEditNode();
  }
}

QRect TqxQtTreeView::NodeRect(TVirtualNode* node) const {
  QRect rect = visualRect(FModel->IndexOf(node));
  rect.setLeft(0);
  return rect;
}

// ------------------------------------------------------------ mouse and keys

bool TqxQtTreeView::OnBranchIndicator(const QPoint& pos, TVirtualNode* node) const {
  if (!node || node->ChildCount() == 0) return false;
  QRect rect = visualRect(FModel->IndexOf(node));
  return pos.x() < rect.left() && pos.x() >= rect.left() - indentation();
}

void TqxQtTreeView::mousePressEvent(QMouseEvent* event) {
  setFocus();
  QPoint pos = event->position().toPoint();
  FPressPos = pos;
  FDragged = false;
  FLeftPressed = event->button() == Qt::LeftButton;
  TVirtualNode* node = FTree.GetNodeAt(pos.x(), pos.y());
  if (FLeftPressed && OnBranchIndicator(pos, node)) {
    FLeftPressed = false;
    FTree.SetExpanded(node, !FTree.Expanded(node));
    return;
  }
  // A click on the focused, only selected node asks for an edit, as in the IDE.
  bool slowClick = FLeftPressed && node && node == FTree.FocusedNode() && FTree.Selected(node) &&
                   FTree.SelectedCount() == 1 && event->modifiers() == Qt::NoModifier;
  FTree.DoMouseDown(ToMouseButton(event->button()), ToShiftState(event->modifiers()), pos.x(), pos.y());
  FSlowClickNode = slowClick && columnAt(pos.x()) == 0 ? node : nullptr;
}

void TqxQtTreeView::mouseMoveEvent(QMouseEvent* event) {
  if (!FLeftPressed || FDragged || !FTree.DragEnabled || FTree.SelectedCount() == 0) return;
  if ((event->position().toPoint() - FPressPos).manhattanLength() < QApplication::startDragDistance()) return;
  FDragged = true;
  FSlowClickNode = nullptr;
  auto* drag = new QDrag(this);
  drag->setMimeData(CreateDragMimeData());
  drag->exec(Qt::MoveAction);
}

void TqxQtTreeView::mouseReleaseEvent(QMouseEvent* event) {
  QPoint pos = event->position().toPoint();
  FTree.DoMouseUp(ToMouseButton(event->button()), ToShiftState(event->modifiers()), pos.x(), pos.y(),
                  FDragged);
  FLeftPressed = false;
  if (FSlowClickNode && !FDragged) FEditTimer.start(QApplication::doubleClickInterval());
}

void TqxQtTreeView::mouseDoubleClickEvent(QMouseEvent* event) {
  FEditTimer.stop();
  FSlowClickNode = nullptr;
  QPoint pos = event->position().toPoint();
  if (auto* node = FTree.GetNodeAt(pos.x(), pos.y())) FTree.SetExpanded(node, !FTree.Expanded(node));
}

void TqxQtTreeView::keyPressEvent(QKeyEvent* event) {
  int key = ToVirtualKey(event->key());
  if (key == 0) {
    event->ignore();
    return;
  }
  FTree.DoKeyDown(key, ToShiftState(event->modifiers()));
  if (auto* focused = FTree.FocusedNode()) scrollTo(FModel->IndexOf(focused));
}

void TqxQtTreeView::contextMenuEvent(QContextMenuEvent* event) {
  if (!FPopupMenu) return;
  QMenu menu(this);
  FillQMenu(&menu, *FPopupMenu);
  menu.exec(event->globalPos());
}

// ------------------------------------------------------------ drag and drop

QMimeData* TqxQtTreeView::CreateDragMimeData() const {
  auto* data = new QMimeData;
  // The tree's address tells a drag of these nodes from one of another tree.
  data->setData(kNodesMimeType, QByteArray::number(reinterpret_cast<quintptr>(&FTree)));
  return data;
}

bool TqxQtTreeView::ReadDrag(const QMimeData* data, TVirtualTree*& source, TVTDragData& dragData) const {
  source = nullptr;
  dragData = {};
  if (data->hasFormat(kNodesMimeType)) {
    if (data->data(kNodesMimeType).toULongLong() != reinterpret_cast<quintptr>(&FTree)) return false;
    source = &FTree;
    return FTree.DragEnabled;
  }
  if (!FTree.AcceptFiles || !data->hasUrls()) return false;
  std::vector<std::string> files;
  for (const QUrl& url : data->urls())
    if (url.isLocalFile()) files.push_back(url.toLocalFile().toStdString());
  if (files.empty()) return false;
  dragData = TVTDragData::Files(std::move(files));
  return true;
}

void TqxQtTreeView::dragEnterEvent(QDragEnterEvent* event) {
  TVirtualTree* source;
  TVTDragData data;
  if (ReadDrag(event->mimeData(), source, data)) {
    event->acceptProposedAction();
  } else {
    event->ignore();
  }
}

void TqxQtTreeView::dragMoveEvent(QDragMoveEvent* event) {
  TVirtualTree* source;
  TVTDragData data;
  if (!ReadDrag(event->mimeData(), source, data)) {
    event->ignore();
    return;
  }
  QPoint pos = event->position().toPoint();
  TDragEffect effect = source ? TDragEffect::deMove : TDragEffect::deCopy;
  bool accept = FTree.DoDragOver(source, ToShiftState(event->modifiers()), TDragState::dsDragMove,
                                 {pos.x(), pos.y()}, effect);
  FDropNode = accept ? FTree.GetNodeAt(pos.x(), pos.y()) : nullptr;
  FDropMode = FTree.GetDropModeAt(pos.x(), pos.y());
  viewport()->update();
  if (accept) {
    event->setDropAction(source ? Qt::MoveAction : Qt::CopyAction);
    event->accept();
  } else {
    event->ignore();
  }
}

void TqxQtTreeView::dragLeaveEvent(QDragLeaveEvent* event) {
  FDropNode = nullptr;
  viewport()->update();
  event->accept();
}

void TqxQtTreeView::paintEvent(QPaintEvent* event) {
  QTreeView::paintEvent(event);
  if (!FDropNode) return;
  QPainter painter(viewport());
  painter.setPen(QPen(palette().highlight().color(), 2));
  QRect row = NodeRect(FDropNode);
  row.setRight(viewport()->width() - 1);
  if (FDropMode == TDropMode::dmAbove) {
    painter.drawLine(row.topLeft(), row.topRight());
  } else if (FDropMode == TDropMode::dmBelow) {
    painter.drawLine(row.bottomLeft(), row.bottomRight());
  } else {
    painter.drawRect(row.adjusted(1, 1, -1, -1));
  }
}

void TqxQtTreeView::dropEvent(QDropEvent* event) {
  TVirtualTree* source;
  TVTDragData data;
  FDropNode = nullptr;
  viewport()->update();
  if (!ReadDrag(event->mimeData(), source, data)) {
    event->ignore();
    return;
  }
  QPoint pos = event->position().toPoint();
  TDragEffect effect = source ? TDragEffect::deMove : TDragEffect::deCopy;
  if (!source) activateWindow();  // files come from another window: come to the front
  FTree.DoDragDrop(source, data, ToShiftState(event->modifiers()), {pos.x(), pos.y()}, effect);
  // Qt must not remove rows itself: the tree has already done what the drop means.
  event->setDropAction(effect == TDragEffect::deMove ? Qt::MoveAction : Qt::CopyAction);
  event->accept();
}

}  // namespace qx
