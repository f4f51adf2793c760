#include <gtest/gtest.h>

#include "platform/ui/action_list.h"
#include "platform/ui/image_list.h"
#include "platform/ui/menu_item.h"

namespace qx::test {
namespace {

TEST(Action, IdlePassesRunUpdatesAndExecuteRespectsTheResult) {
  bool canRun = false;
  int runs = 0;
  auto list = std::make_unique<TActionList>();
  auto* save = list->Add("ActionSave");
  save->OnUpdate = [&](TAction* a) { a->SetEnabled(canRun); };
  save->OnExecute = [&](TAction*) { ++runs; };
  auto* other = list->Add("ActionOther");
  int listUpdates = 0;
  list->OnUpdate = [&](TAction* a, bool& handled) {
    ++listUpdates;
    handled = a == other;  // the list's handler takes care of this one
    if (handled) a->SetVisible(false);
  };

  TqxIdle::Instance().DoIdle();
  EXPECT_FALSE(save->Enabled());
  EXPECT_FALSE(other->Visible());
  EXPECT_EQ(listUpdates, 2);
  EXPECT_FALSE(save->Execute());

  // Execute refreshes the state first: a click between idle passes sees the truth.
  canRun = true;
  EXPECT_TRUE(save->Execute());
  EXPECT_EQ(runs, 1);

  list.reset();  // a freed list no longer takes part in idle passes
  TqxIdle::Instance().DoIdle();
  EXPECT_EQ(listUpdates, 2);
}

TEST(Action, SubscribersHearOnlyRealChanges) {
  TAction action("ActionAddColor");
  int changes = 0;
  int id = action.Subscribe([&] { ++changes; });
  action.SetCaption("Add color");
  action.SetCaption("Add color");
  action.SetEnabled(true);  // already enabled
  action.SetEnabled(false);
  EXPECT_EQ(changes, 2);
  action.Unsubscribe(id);
  action.SetVisible(false);
  EXPECT_EQ(changes, 2);
}

TEST(MenuItem, ItemsShowTheirActionAndFindNamedItems) {
  TAction action("OpenAction");
  action.SetCaption("Quorvex Assets Manager");
  action.SetImageIndex(2);
  int runs = 0;
  action.OnExecute = [&](TAction*) { ++runs; };

  TMenuItem menu;
  TCustomImageList images(16, 16);
  menu.Images = &images;
  auto* project = menu.Add(std::make_unique<TMenuItem>("Project"));
  auto* resources = project->Add(std::make_unique<TMenuItem>("Resources and Images..."));
  resources->Name = "ProjectViewResourcesItem";
  auto* item = project->Insert(project->IndexOf(resources) + 1, std::make_unique<TMenuItem>());
  item->SetAction(&action);

  EXPECT_EQ(menu.Find("ProjectViewResourcesItem"), resources);
  EXPECT_EQ(project->Items(1)->Caption(), "Quorvex Assets Manager");
  EXPECT_EQ(item->GetImages(), &images);  // the menu's, inherited
  action.SetEnabled(false);
  EXPECT_FALSE(item->Enabled());
  item->Click();
  action.SetEnabled(true);
  item->Click();
  EXPECT_EQ(runs, 1);

  EXPECT_EQ(project->Remove(item)->Parent(), nullptr);
  EXPECT_EQ(project->Remove(item), nullptr);
}

}  // namespace
}  // namespace qx::test
