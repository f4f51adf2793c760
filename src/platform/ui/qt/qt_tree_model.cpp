#include "platform/ui/qt/qt_tree_model.h"

#include "platform/ui/image_list.h"
#include "platform/ui/qt/qt_bitmap.h"
#include "platform/ui/virtual_tree.h"

namespace qx {

TqxQtTreeModel::TqxQtTreeModel(TVirtualTree& tree, QObject* parent)
    : QAbstractItemModel(parent), FTree(tree) {
  if (FTree.Images) FImagesSubscription = FTree.Images->Subscribe([this] { FIcons.clear(); });
}

TqxQtTreeModel::~TqxQtTreeModel() {
  if (FTree.Images && FImagesSubscription) FTree.Images->Unsubscribe(FImagesSubscription);
}

TVirtualNode* TqxQtTreeModel::NodeOf(const QModelIndex& index) const {
  return index.isValid() ? static_cast<TVirtualNode*>(index.internalPointer()) : nullptr;
}

QModelIndex TqxQtTreeModel::IndexOf(TVirtualNode* node, int column) const {
  if (!node || node == FTree.RootNode()) return {};
  return createIndex(node->Index(), column, node);
}

void TqxQtTreeModel::Reset() {
  beginResetModel();
  FIcons.clear();
  endResetModel();
}

std::optional<QString> TqxQtTreeModel::TakePendingEdit() {
  auto text = FPendingEdit;
  FPendingEdit.reset();
  return text;
}

QModelIndex TqxQtTreeModel::index(int row, int column, const QModelIndex& parent) const {
  TVirtualNode* node = parent.isValid() ? NodeOf(parent) : FTree.RootNode();
  if (row < 0 || row >= node->ChildCount() || column < 0 || column >= columnCount()) return {};
  return createIndex(row, column, node->Child(row));
}

QModelIndex TqxQtTreeModel::parent(const QModelIndex& index) const {
  TVirtualNode* node = NodeOf(index);
  if (!node || node->Parent == FTree.RootNode() || !node->Parent) return {};
  return IndexOf(node->Parent);
}

int TqxQtTreeModel::rowCount(const QModelIndex& parent) const {
  if (parent.column() > 0) return 0;
  TVirtualNode* node = parent.isValid() ? NodeOf(parent) : FTree.RootNode();
  return node->ChildCount();
}

int TqxQtTreeModel::columnCount(const QModelIndex&) const {
  return static_cast<int>(FTree.Header.Columns.size());
}

QIcon TqxQtTreeModel::Icon(int imageIndex) const {
  if (imageIndex < 0) return {};
  auto it = FIcons.find(imageIndex);
  if (it == FIcons.end()) it = FIcons.insert(imageIndex, ImageListIcon(FTree.Images, imageIndex));
  return *it;
}

QVariant TqxQtTreeModel::data(const QModelIndex& index, int role) const {
  TVirtualNode* node = NodeOf(index);
  if (!node) return {};
  switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole:
      return QString::fromStdString(FTree.GetText(node, index.column()));
    case Qt::DecorationRole: {
      auto kind = FTree.Selected(node) ? TVTImageKind::ikSelected : TVTImageKind::ikNormal;
      QIcon icon = Icon(FTree.GetImageIndex(node, kind, index.column()));
      return icon.isNull() ? QVariant() : QVariant(icon);
    }
    case Qt::TextAlignmentRole: {
      auto alignment = FTree.Header.Columns.at(index.column()).Alignment;
      int horizontal = alignment == TAlignment::taCenter         ? Qt::AlignHCenter
                       : alignment == TAlignment::taRightJustify ? Qt::AlignRight
                                                                 : Qt::AlignLeft;
      return QVariant(horizontal | Qt::AlignVCenter);
    }
    case Qt::SizeHintRole:
      return QSize(-1, FTree.DefaultNodeHeight);
    default:
      return {};
  }
}

QVariant TqxQtTreeModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) return {};
  if (role == Qt::DisplayRole) return QString::fromStdString(FTree.Header.Columns[section].Text);
  if (role == Qt::TextAlignmentRole && FTree.Header.Columns[section].Alignment == TAlignment::taCenter)
    return QVariant(Qt::AlignCenter);
  return {};
}

Qt::ItemFlags TqxQtTreeModel::flags(const QModelIndex& index) const {
  TVirtualNode* node = NodeOf(index);
  if (!node) return Qt::ItemIsDropEnabled;
  Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsDropEnabled;
  if (FTree.DragEnabled) flags |= Qt::ItemIsDragEnabled;
  if (FTree.CanEdit(node, index.column())) flags |= Qt::ItemIsEditable;
  return flags;
}

bool TqxQtTreeModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  // The tree hears of the text once the editor is closed: its handlers may
  // rebuild the rows under the editor's feet.
  if (role != Qt::EditRole || NodeOf(index) != FTree.EditedNode()) return false;
  FPendingEdit = value.toString();
  return true;
}

}  // namespace qx
