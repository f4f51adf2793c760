#pragma once

#include <QScrollArea>
#include <map>

class QVBoxLayout;

namespace qx {

class TAssetsView;
class TqxAssetViews;

// The designer's right-hand side: the document's asset views stacked top to
// bottom in a scroll area. It follows them: a new selection rebuilds the
// stack, a deleted asset takes its view along; each widget follows its own
// view's title.
class TqxAssetsPane : public QScrollArea {
  Q_OBJECT
public:
  explicit TqxAssetsPane(TqxAssetViews& views, QWidget* parent = nullptr);
  ~TqxAssetsPane() override;

  void Rebuild();
  void RemoveView(TAssetsView& view);

  int ViewCount() const { return static_cast<int>(FWidgets.size()); }
  // The widget that shows the view, or nullptr.
  QWidget* WidgetOf(const TAssetsView* view) const;

protected:
  // The wheel moves the stack by a tenth of its delta, as the tree's
  // neighbour in the designer always has.
  void wheelEvent(QWheelEvent* event) override;

private:
  QWidget* CreateWidget(TAssetsView& view);

  TqxAssetViews& FViews;
  QWidget* FContent;
  QVBoxLayout* FLayout;
  std::map<const TAssetsView*, QWidget*> FWidgets;
};

}  // namespace qx
