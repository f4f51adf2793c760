#pragma once

#include <QWidget>
#include <vector>

class QLabel;

namespace qx {

class TAssetsView;
class TResourceGroupView;

// One tile: the frame's widget, the brace under it and the target's name.
class TqxResourceTileWidget : public QWidget {
  Q_OBJECT
public:
  TqxResourceTileWidget(TResourceGroupView& tile, QWidget* parent = nullptr);
  ~TqxResourceTileWidget() override;

  TResourceGroupView& Tile() const { return FTile; }
  QWidget* FrameWidget() const { return FFrameWidget; }

protected:
  void paintEvent(QPaintEvent* event) override;

private:
  void FollowBounds();
  TResourceGroupView& FTile;
  QWidget* FFrameWidget = nullptr;
};

// Shows a TAssetsView: the header with the group's name and kind, and the
// tiles where the view lays them out. Its width drives the layout; its height
// follows the view, so it sits in a vertical layout or scroll area as is.
//
// Use (the designer's right-hand pane): make a TAssetsView, SetGroup, set its
// FOnNeedUpdatePreview, then `new TqxAssetsViewWidget(view, parent)` and add
// the widget to the pane's layout. The view must outlive the widget. After a
// rename call view.RefreshTitle(); the header follows. Popup pickers of the
// frames open through the installed Qt popup service (TqxQtUi).
class TqxAssetsViewWidget : public QWidget {
  Q_OBJECT
public:
  TqxAssetsViewWidget(TAssetsView& view, QWidget* parent = nullptr);
  ~TqxAssetsViewWidget() override;

  TAssetsView& View() const { return FView; }
  const std::vector<TqxResourceTileWidget*>& Tiles() const { return FTiles; }
  QLabel* AssetNameLabel() const { return FAssetName; }
  QLabel* AssetTypeLabel() const { return FAssetType; }

  QSize sizeHint() const override;

protected:
  void resizeEvent(QResizeEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

private:
  void FollowView();
  TAssetsView& FView;
  QWidget* FContent;
  QLabel *FAssetName, *FAssetType;
  std::vector<TqxResourceTileWidget*> FTiles;
};

}  // namespace qx
