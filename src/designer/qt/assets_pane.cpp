#include "designer/qt/assets_pane.h"

#include <QScrollBar>
#include <QVBoxLayout>
#include <QWheelEvent>

#include "designer/asset_views.h"
#include "frames/assets_view.h"
#include "frames/qt/assets_view_widget.h"

namespace qx {

TqxAssetsPane::TqxAssetsPane(TqxAssetViews& views, QWidget* parent)
    : QScrollArea(parent), FViews(views), FContent(new QWidget), FLayout(new QVBoxLayout(FContent)) {
  setObjectName("ImageSetPanel");
  setWidgetResizable(true);
  setFrameShape(QFrame::NoFrame);
  FLayout->setContentsMargins(8, 8, 8, 8);
  FLayout->setSpacing(8);
  FLayout->addStretch(1);
  setWidget(FContent);
  views.FOnViewsChanged = [this] { Rebuild(); };
  views.FOnViewRemoved = [this](TAssetsView& view) { RemoveView(view); };
  Rebuild();
}

TqxAssetsPane::~TqxAssetsPane() {
  FViews.FOnViewsChanged = nullptr;
  FViews.FOnViewRemoved = nullptr;
}

QWidget* TqxAssetsPane::WidgetOf(const TAssetsView* view) const {
  auto it = FWidgets.find(view);
  return it == FWidgets.end() ? nullptr : it->second;
}

QWidget* TqxAssetsPane::CreateWidget(TAssetsView& view) { return new TqxAssetsViewWidget(view, FContent); }

void TqxAssetsPane::Rebuild() {
  // The views are heavy: build the stack hidden, show it once.
  FContent->setUpdatesEnabled(false);
  for (auto& [view, widget] : FWidgets) delete widget;
  FWidgets.clear();
  int row = 0;
  for (const auto& [node, view] : FViews.Views()) {
    QWidget* widget = CreateWidget(*view);
    FWidgets[view.get()] = widget;
    FLayout->insertWidget(row++, widget);
  }
  FContent->setUpdatesEnabled(true);
  verticalScrollBar()->setValue(0);
}

void TqxAssetsPane::RemoveView(TAssetsView& view) {
  auto it = FWidgets.find(&view);
  if (it == FWidgets.end()) return;
  delete it->second;
  FWidgets.erase(it);
}

void TqxAssetsPane::wheelEvent(QWheelEvent* event) {
  QScrollBar* bar = verticalScrollBar();
  bar->setValue(bar->value() - event->angleDelta().y() / 10);
  event->accept();
}

}  // namespace qx
