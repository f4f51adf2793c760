#include "designer/qt/assets_pane.h"

#include <QLabel>
#include <QScrollBar>
#include <QVBoxLayout>
#include <QWheelEvent>

#include "designer/asset_tree.h"

namespace qx {

TqxAssetsPane::TqxAssetsPane(TqxAssetTree& tree, QWidget* parent)
    : QScrollArea(parent), FTree(tree), FContent(new QWidget), FLayout(new QVBoxLayout(FContent)) {
  setObjectName("ImageSetPanel");
  setWidgetResizable(true);
  setFrameShape(QFrame::NoFrame);
  FLayout->setContentsMargins(8, 8, 8, 8);
  FLayout->setSpacing(8);
  FLayout->addStretch(1);
  setWidget(FContent);
}

QWidget* TqxAssetsPane::ViewOf(TVirtualNode* node) const {
  auto it = FViews.find(node);
  return it == FViews.end() ? nullptr : it->second;
}

QString TqxAssetsPane::TitleOf(TVirtualNode* node) const {
  const TqxNodeData* data = FTree.GetNodeData(node);
  QString title = QString::fromStdString(FTree.GetAssetName(node));
  if (data != nullptr && !data->Size.empty()) title += "   " + QString::fromStdString(data->Size);
  return title;
}

QWidget* TqxAssetsPane::CreateView(TVirtualNode* node) {
  auto* label = new QLabel(TitleOf(node), FContent);
  label->setFrameShape(QFrame::StyledPanel);
  label->setMargin(8);
  return label;
}

void TqxAssetsPane::Rebuild() {
  // The views are heavy: build the stack hidden, show it once.
  FContent->setUpdatesEnabled(false);
  for (auto& [node, view] : FViews) delete view;
  FViews.clear();
  int row = 0;
  for (TVirtualNode* node : FTree.SelectedViews()) {
    QWidget* view = CreateView(node);
    FViews[node] = view;
    FLayout->insertWidget(row++, view);
  }
  FContent->setUpdatesEnabled(true);
  verticalScrollBar()->setValue(0);
}

void TqxAssetsPane::RefreshTitle(TVirtualNode* node) {
  if (auto* label = qobject_cast<QLabel*>(ViewOf(node))) label->setText(TitleOf(node));
}

void TqxAssetsPane::RemoveView(TVirtualNode* node) {
  auto it = FViews.find(node);
  if (it == FViews.end()) return;
  delete it->second;
  FViews.erase(it);
}

void TqxAssetsPane::wheelEvent(QWheelEvent* event) {
  QScrollBar* bar = verticalScrollBar();
  bar->setValue(bar->value() - event->angleDelta().y() / 10);
  event->accept();
}

}  // namespace qx
