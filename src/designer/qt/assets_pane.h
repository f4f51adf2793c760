#pragma once

#include <QScrollArea>
#include <map>

class QVBoxLayout;

namespace qx {

class TqxAssetTree;
class TVirtualNode;

// The designer's right-hand side: one view for each node the tree's selection
// shows, stacked top to bottom in a scroll area. It follows the tree: a new
// selection rebuilds the stack, a rename retitles a view, a deleted node takes
// its view along.
class TqxAssetsPane : public QScrollArea {
  Q_OBJECT
public:
  explicit TqxAssetsPane(TqxAssetTree& tree, QWidget* parent = nullptr);

  void Rebuild();
  void RefreshTitle(TVirtualNode* node);
  void RemoveView(TVirtualNode* node);

  int ViewCount() const { return static_cast<int>(FViews.size()); }
  // The view shown for the node, or nullptr.
  QWidget* ViewOf(TVirtualNode* node) const;

protected:
  // The wheel moves the stack by a tenth of its delta, as the tree's
  // neighbour in the designer always has.
  void wheelEvent(QWheelEvent* event) override;

private:
  QWidget* CreateView(TVirtualNode* node);
  QString TitleOf(TVirtualNode* node) const;

  TqxAssetTree& FTree;
  QWidget* FContent;
  QVBoxLayout* FLayout;
  std::map<TVirtualNode*, QWidget*> FViews;
};

}  // namespace qx
