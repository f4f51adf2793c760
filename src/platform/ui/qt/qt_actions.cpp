#include "platform/ui/qt/qt_actions.h"

#include <QAbstractEventDispatcher>
#include <QCoreApplication>
#include <QPointer>

#include "platform/ui/action.h"
#include "platform/ui/action_list.h"
#include "platform/ui/menu_item.h"
#include "platform/ui/qt/qt_bitmap.h"

namespace qx {

namespace {

void Show(QAction* qaction, const TAction& action, const TCustomImageList* images) {
  qaction->setText(QString::fromStdString(action.Caption()));
  qaction->setToolTip(QString::fromStdString(action.Hint().empty() ? action.Caption() : action.Hint()));
  qaction->setStatusTip(QString::fromStdString(action.Hint()));
  qaction->setEnabled(action.Enabled());
  qaction->setVisible(action.Visible());
  qaction->setChecked(action.Checked());
  qaction->setIcon(ImageListIcon(images, action.ImageIndex()));
}

}  // namespace

QAction* CreateQAction(TAction& action, const TCustomImageList* images, QObject* parent) {
  auto* qaction = new QAction(parent);
  qaction->setObjectName(QString::fromStdString(action.Name));
  Show(qaction, action, images);
  std::weak_ptr<const void> alive = action.Lifetime();
  TAction* target = &action;
  QPointer<QAction> guard(qaction);
  int changeId = action.Subscribe([guard, target, images] {
    if (guard) Show(guard, *target, images);
  });
  int idleId = TqxIdle::Instance().Subscribe([alive, target] {
    if (!alive.expired()) target->Update();
  });
  QObject::connect(qaction, &QAction::triggered, qaction, [alive, target] {
    if (!alive.expired()) target->Execute();
  });
  QObject::connect(qaction, &QObject::destroyed, [alive, target, changeId, idleId] {
    TqxIdle::Instance().Unsubscribe(idleId);
    if (!alive.expired()) target->Unsubscribe(changeId);
  });
  return qaction;
}

void FillQMenu(QMenu* menu, TMenuItem& item) {
  const TCustomImageList* images = item.GetImages();
  for (int i = 0; i < item.Count(); ++i) {
    TMenuItem* child = item.Items(i);
    if (child->IsLine()) {
      menu->addSeparator();
    } else if (child->Count() > 0) {
      FillQMenu(menu->addMenu(QString::fromStdString(child->Caption())), *child);
    } else if (child->Action()) {
      menu->addAction(CreateQAction(*child->Action(), images, menu));
    } else {
      QAction* qaction = menu->addAction(QString::fromStdString(child->Caption()));
      qaction->setEnabled(child->Enabled());
      qaction->setVisible(child->Visible());
      qaction->setIcon(ImageListIcon(images, child->ImageIndex()));
      QObject::connect(qaction, &QAction::triggered, qaction, [child] { child->Click(); });
    }
  }
}

QToolButton* CreateToolButton(TAction& action, const TCustomImageList* images, TMenuItem* dropDown,
                              QWidget* parent) {
  auto* button = new QToolButton(parent);
  button->setDefaultAction(CreateQAction(action, images, button));
  button->setToolButtonStyle(Qt::ToolButtonIconOnly);
  if (dropDown) {
    auto* menu = new QMenu(button);
    FillQMenu(menu, *dropDown);
    button->setMenu(menu);
    button->setPopupMode(QToolButton::MenuButtonPopup);
  }
  return button;
}

TqxQtIdlePump::TqxQtIdlePump(QObject* parent) : QObject(parent) {
  auto* dispatcher = QAbstractEventDispatcher::instance();
  if (!dispatcher) return;
  // Actions only notify on real changes, so a pass that changes nothing posts
  // nothing and the loop goes to sleep.
  connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, this, [] { TqxIdle::Instance().DoIdle(); });
}

}  // namespace qx
