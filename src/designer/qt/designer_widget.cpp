#include "designer/qt/designer_widget.h"

#include <QAction>
#include <QKeySequence>
#include <QShortcut>
#include <QSizePolicy>
#include <QSplitter>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>

#include "designer/asset_tree.h"
#include "designer/designer_commands.h"
#include "designer/frame_asset_manager.h"
#include "designer/qt/assets_pane.h"
#include "designer/qt/designer_icons.h"
#include "platform/ui/qt/qt_actions.h"
#include "platform/ui/qt/qt_tree_view.h"

namespace qx {
namespace {
constexpr int kMinimumTreeWidth = 200;
}

TqxDesignerWidget::TqxDesignerWidget(TFrameAssetManager& frame, QWidget* parent)
    : QWidget(parent), FFrame(frame) {
  setObjectName("FrameAssetManager");
  TqxAssetTree& tree = frame.Tree();
  PaintDesignerIcons(frame.Commands().ImageCollection);
  PaintDesignerIcons(tree.il24x24);

  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  CreateToolBar();
  layout->addWidget(FToolBar);

  FSplitter = new QSplitter(Qt::Horizontal, this);
  FSplitter->setChildrenCollapsible(false);
  FTreeView = new TqxQtTreeView(tree.VTResources, FSplitter);
  FTreeView->setObjectName("VTResources");
  FTreeView->setMinimumWidth(kMinimumTreeWidth);
  FTreeView->SetPopupMenu(&frame.Commands().pmTreeView);
  FPane = new TqxAssetsPane(frame.Views(), FSplitter);
  FSplitter->addWidget(FTreeView);
  FSplitter->addWidget(FPane);
  FSplitter->setStretchFactor(0, 0);
  FSplitter->setStretchFactor(1, 1);
  // The kept width is the rows' width, which the columns fill; the view's
  // frame comes on top, so that a fresh tree needs no horizontal scroll bar.
  FSplitter->setSizes({tree.TreeWidth + 2 * FTreeView->frameWidth(), 1000});
  layout->addWidget(FSplitter, 1);

  CreateShortcuts();
  ConnectDocument();
}

TqxDesignerWidget::~TqxDesignerWidget() {
  FFrame.FOnModifiedChanged = nullptr;
}

void TqxDesignerWidget::CreateToolBar() {
  TqxDesignerCommands& commands = FFrame.Commands();
  FToolBar = new QToolBar(this);
  FToolBar->setObjectName("ToolBar");
  FToolBar->setIconSize(QSize(24, 24));
  for (const TqxToolButton& entry : commands.ToolBar) {
    if (entry.IsSeparator()) {
      FToolBar->addSeparator();
    } else {
      auto* button = CreateToolButton(*entry.Action, &commands.ImageCollection, entry.DropDown, FToolBar);
      button->setObjectName(QString::fromStdString(entry.Action->Name));
      // A hidden action keeps no place on the bar, drop-down included.
      QAction* place = FToolBar->addWidget(button);
      QAction* shown = button->defaultAction();
      place->setVisible(shown->isVisible());
      connect(shown, &QAction::changed, place, [place, shown] { place->setVisible(shown->isVisible()); });
    }
  }
  auto* spacer = new QWidget(FToolBar);
  spacer->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
  FToolBar->addWidget(spacer);
  auto* save = CreateToolButton(*commands.ActionSave, &commands.ImageCollection, nullptr, FToolBar);
  save->setObjectName(QString::fromStdString(commands.ActionSave->Name));
  save->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  FToolBar->addWidget(save);
}

QToolButton* TqxDesignerWidget::ButtonOf(const TAction* action) const {
  return action ? FToolBar->findChild<QToolButton*>(QString::fromStdString(action->Name)) : nullptr;
}

void TqxDesignerWidget::CreateShortcuts() {
  // Delete and F2 are the tree's own keys; saving works wherever the focus is
  // inside the designer.
  auto* save = new QShortcut(QKeySequence::Save, this);
  save->setContext(Qt::WidgetWithChildrenShortcut);
  TAction* action = FFrame.Commands().ActionSave;
  connect(save, &QShortcut::activated, this, [this, action] {
    FFrame.Commands().ActionListUpdate();
    action->Execute();
  });
}

void TqxDesignerWidget::ConnectDocument() {
  FFrame.FOnModifiedChanged = [this] { emit modifiedChanged(FFrame.GetModified()); };
  connect(FSplitter, &QSplitter::splitterMoved, this,
          [this] { FFrame.Tree().TreeWidth = FSplitter->sizes().value(0) - 2 * FTreeView->frameWidth(); });
}

}  // namespace qx
