#pragma once

#include <QAction>
#include <QMenu>
#include <QToolButton>

namespace qx {

class TAction;
class TCustomImageList;
class TMenuItem;

// A QAction that shows a TAction: caption, hint, image, enabled, visible and
// checked follow it, idle passes run its OnUpdate, and triggering executes it.
// The binding ends quietly when either side goes first.
QAction* CreateQAction(TAction& action, const TCustomImageList* images, QObject* parent);

// Fills the menu with the item's children: lines, submenus and actions.
void FillQMenu(QMenu* menu, TMenuItem& item);

// A toolbar button for the action; with a drop-down, its arrow opens that menu.
QToolButton* CreateToolButton(TAction& action, const TCustomImageList* images, TMenuItem* dropDown,
                              QWidget* parent);

// Runs the application's idle passes whenever Qt's event loop is about to wait.
// One per application, made after the QApplication.
class TqxQtIdlePump : public QObject {
  Q_OBJECT
public:
  explicit TqxQtIdlePump(QObject* parent = nullptr);
};

}  // namespace qx
