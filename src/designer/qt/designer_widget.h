#pragma once

#include <QWidget>

class QSplitter;
class QToolBar;
class QToolButton;

namespace qx {

class TAction;
class TFrameAssetManager;
class TqxAssetsPane;
class TqxQtTreeView;

// Shows one designer document: the toolbar of its commands, the asset tree
// with its popup menu, and the views of the selection on the right, with a
// splitter between. Every click and key goes to the document's actions and
// tree; the widths the user drags go back to them, so the document saves
// them with its settings. Made after the document has loaded its project and
// settings, and deleted before the document goes.
class TqxDesignerWidget : public QWidget {
  Q_OBJECT
public:
  explicit TqxDesignerWidget(TFrameAssetManager& frame, QWidget* parent = nullptr);
  ~TqxDesignerWidget() override;

  TFrameAssetManager& Frame() const { return FFrame; }
  TqxQtTreeView* TreeView() const { return FTreeView; }
  TqxAssetsPane* Pane() const { return FPane; }
  QSplitter* Splitter() const { return FSplitter; }
  QToolBar* ToolBar() const { return FToolBar; }
  // The toolbar's button of the action, or nullptr.
  QToolButton* ButtonOf(const TAction* action) const;

signals:
  // The document's Modified flag turned on or off.
  void modifiedChanged(bool modified);

private:
  void CreateToolBar();
  void CreateShortcuts();
  void ConnectDocument();

  TFrameAssetManager& FFrame;
  QToolBar* FToolBar;
  QSplitter* FSplitter;
  TqxQtTreeView* FTreeView;
  TqxAssetsPane* FPane;
};

}  // namespace qx
