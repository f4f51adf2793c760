#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>

#include "platform/ui/action.h"
#include "platform/ui/action_list.h"
#include "platform/ui/menu_item.h"
#include "platform/ui/qt/qt_actions.h"
#include "platform/ui/qt/qt_ui_services.h"
#include "platform/ui/ui_services.h"
#include "../../../support/qt_test_app.h"

namespace qx::test {
namespace {

TEST(QtActions, QActionFollowsTheActionAndRunsIt) {
  EnsureApp();
  auto action = std::make_unique<TAction>("ActionSave");
  action->SetCaption("Save");
  bool modified = false;
  int runs = 0;
  action->OnUpdate = [&](TAction* a) { a->SetEnabled(modified); };
  action->OnExecute = [&](TAction*) { ++runs; };
  QObject owner;
  QAction* qaction = CreateQAction(*action, nullptr, &owner);
  EXPECT_EQ(qaction->text(), "Save");

  TqxIdle::Instance().DoIdle();  // the binding takes part in idle passes
  EXPECT_FALSE(qaction->isEnabled());
  modified = true;
  TqxIdle::Instance().DoIdle();
  EXPECT_TRUE(qaction->isEnabled());
  qaction->trigger();
  EXPECT_EQ(runs, 1);
  action->SetCaption("Сохранить");  // changes reach the QAction, in UTF-8
  EXPECT_EQ(qaction->text(), "Сохранить");

  action.reset();  // the action goes first: the QAction stays harmless
  qaction->trigger();
  TqxIdle::Instance().DoIdle();
  delete qaction;
}

TEST(QtActions, MenusShowLinesSubmenusAndActions) {
  EnsureApp();
  TActionList list;
  auto* add = list.Add("ActionAddColor");
  add->SetCaption("Add color");
  TMenuItem popup;
  popup.AddAction(add);
  popup.AddLine();
  auto* sub = popup.Add(std::make_unique<TMenuItem>("More"));
  sub->AddAction(add);
  QMenu menu;
  FillQMenu(&menu, popup);
  ASSERT_EQ(menu.actions().size(), 3);
  EXPECT_TRUE(menu.actions()[1]->isSeparator());
  ASSERT_NE(menu.actions()[2]->menu(), nullptr);
  EXPECT_EQ(menu.actions()[2]->menu()->actions().size(), 1);

  QWidget bar;
  QToolButton* button = CreateToolButton(*add, nullptr, sub, &bar);
  EXPECT_EQ(button->defaultAction()->text(), "Add color");
  EXPECT_EQ(button->popupMode(), QToolButton::MenuButtonPopup);
}

TEST(QtServices, QueueAndTimersRunOnTheEventLoop) {
  EnsureApp();
  TqxQtUi ui;
  std::vector<std::string> order;
  TThread::ForceQueue(nullptr, [&] { order.push_back("queued"); });
  order.push_back("now");
  QCoreApplication::processEvents();
  EXPECT_EQ(order, (std::vector<std::string>{"now", "queued"}));

  TTimer timer;
  int ticks = 0;
  timer.SetInterval(20);
  timer.OnTimer = [&](TTimer* t) {
    ++ticks;
    t->SetEnabled(false);
  };
  timer.SetEnabled(true);
  EXPECT_TRUE(QTest::qWaitFor([&] { return ticks > 0; }, 2000));
  QTest::qWait(60);
  EXPECT_EQ(ticks, 1);

  TqxUiServices::Instance().Clipboard()->SetText("Colors\\Primary");
  EXPECT_EQ(TqxUiServices::Instance().Clipboard()->GetText(), "Colors\\Primary");
}

}  // namespace
}  // namespace qx::test
