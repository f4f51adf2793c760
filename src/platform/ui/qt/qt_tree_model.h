#pragma once

#include <QAbstractItemModel>
#include <QHash>
#include <QIcon>
#include <optional>

namespace qx {

class TVirtualTree;
class TVirtualNode;

// Presents a TVirtualTree to Qt's item views: rows are nodes, cells ask the
// tree's events. It holds no state of its own beyond an icon cache and the
// text of an edit on its way back to the tree.
class TqxQtTreeModel : public QAbstractItemModel {
  Q_OBJECT
public:
  explicit TqxQtTreeModel(TVirtualTree& tree, QObject* parent = nullptr);
  ~TqxQtTreeModel() override;

  TVirtualTree& Tree() const { return FTree; }
  TVirtualNode* NodeOf(const QModelIndex& index) const;
  QModelIndex IndexOf(TVirtualNode* node, int column = 0) const;
  // Every node may have come or gone: views drop all their indexes.
  void Reset();

  // The edit's text waits here until the editor has closed.
  std::optional<QString> TakePendingEdit();

  QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
  QModelIndex parent(const QModelIndex& index) const override;
  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;

private:
  QIcon Icon(int imageIndex) const;

  TVirtualTree& FTree;
  mutable QHash<int, QIcon> FIcons;
  int FImagesSubscription = 0;
  std::optional<QString> FPendingEdit;
};

}  // namespace qx
