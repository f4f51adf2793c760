#include "frames/qt/assets_view_widget.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QResizeEvent>

#include "frames/assets_view.h"
#include "frames/base_asset_editor_frame.h"
#include "frames/qt/frame_widgets.h"
#include "frames/qt/picker_widgets.h"
#include "frames/resource_group_view.h"

namespace qx {

TqxResourceTileWidget::TqxResourceTileWidget(TResourceGroupView& tile, QWidget* parent)
    : QWidget(parent), FTile(tile) {
  if (TBaseAssetEditorFrame* frame = tile.Editor()) {
    FFrameWidget = CreateFrameWidget(*frame, this);
    FFrameWidget->move(frame->Left(), frame->Top());
  }
  tile.OnBoundsChanged = [this] { FollowBounds(); };
  tile.OnRepaint = [this] { update(); };
  FollowBounds();
}

TqxResourceTileWidget::~TqxResourceTileWidget() {
  FTile.OnBoundsChanged = nullptr;
  FTile.OnRepaint = nullptr;
}

void TqxResourceTileWidget::FollowBounds() { setGeometry(FTile.Left(), FTile.Top(), FTile.Width(), FTile.Height()); }

void TqxResourceTileWidget::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  const TRect b = FTile.BraceBounds();
  // Down the left side, along the bottom, up the right side.
  painter.setPen(palette().color(QPalette::Dark));
  const QPoint points[] = {{b.Left, b.Top}, {b.Left, b.Bottom - 1}, {b.Right - 1, b.Bottom - 1}, {b.Right - 1, b.Top}};
  painter.drawPolyline(points, 4);
  const TRect n = FTile.TargetNameBounds();
  painter.setPen(palette().color(QPalette::WindowText));
  painter.drawText(QRect(n.Left, n.Top, n.Right - n.Left, n.Bottom - n.Top), Qt::AlignCenter,
                   QString::fromStdString(FTile.TargetName()));
}

TqxAssetsViewWidget::TqxAssetsViewWidget(TAssetsView& view, QWidget* parent)
    : QWidget(parent), FView(view), FContent(new QWidget(this)) {
  setObjectName("AssetsView");
  RegisterFramePopupWidgets();
  auto* header = new QWidget(this);
  header->setGeometry(0, 0, width(), TAssetsView::kHeaderHeight);
  header->setObjectName("pnHeader");
  auto* layout = new QHBoxLayout(header);
  layout->setContentsMargins(8, 0, 8, 0);
  FAssetName = new QLabel(header);
  QFont nameFont = FAssetName->font();
  nameFont.setPixelSize(14);
  FAssetName->setFont(nameFont);
  FAssetType = new QLabel(header);
  QFont typeFont = FAssetType->font();
  typeFont.setPixelSize(12);
  FAssetType->setFont(typeFont);
  FAssetType->setStyleSheet("color: gray;");
  layout->addWidget(FAssetName);
  layout->addStretch(1);
  layout->addWidget(FAssetType);

  for (TResourceGroupView* tile : view.OrderedList()) FTiles.push_back(new TqxResourceTileWidget(*tile, FContent));
  view.OnRepaint = [this] { FollowView(); };
  view.OnBoundsChanged = [this] { FollowView(); };
  view.SetHosted(true);
  FollowView();
}

TqxAssetsViewWidget::~TqxAssetsViewWidget() {
  FView.OnRepaint = nullptr;
  FView.OnBoundsChanged = nullptr;
  FView.SetHosted(false);
}

void TqxAssetsViewWidget::FollowView() {
  FAssetName->setText(QString::fromStdString(FView.AssetName()));
  FAssetType->setText(QString::fromStdString(FView.AssetType()));
  const TFrameThemed& content = FView.Content();
  FContent->setGeometry(content.Left(), content.Top(), content.Width(), content.Height());
  if (height() != FView.Height() && FView.Height() > 0) setFixedHeight(FView.Height());
  update();
}

QSize TqxAssetsViewWidget::sizeHint() const { return {std::max(FView.Width(), 200), FView.Height()}; }

void TqxAssetsViewWidget::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  if (auto* header = findChild<QWidget*>("pnHeader")) header->resize(width(), TAssetsView::kHeaderHeight);
  FView.SetWidth(width());
}

void TqxAssetsViewWidget::paintEvent(QPaintEvent*) {
  QPainter painter(this);
  painter.setPen(palette().color(QPalette::Mid));
  // TitleSplitter under the header.
  painter.drawLine(0, TAssetsView::kHeaderHeight, width(), TAssetsView::kHeaderHeight);
}

}  // namespace qx
