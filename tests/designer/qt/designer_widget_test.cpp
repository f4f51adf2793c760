#include "designer/qt/designer_widget.h"

#include <gtest/gtest.h>

#include <QAction>
#include <QMenu>
#include <QApplication>
#include <QToolBar>
#include <QToolButton>

#include "designer/asset_tree.h"
#include "designer/designer_commands.h"
#include "designer/frame_asset_manager.h"
#include "frames/register_frames.h"
#include "kinds/assets_editors_manager.h"
#include "platform/core/graphics/bitmap.h"
#include "platform/ui/headless_ui.h"
#include "platform/ui/image_list.h"
#include "../../support/pixels.h"
#include "../../support/qt_test_app.h"

namespace qx::test {
namespace {

class DesignerWidgetTest : public ::testing::Test {
protected:
  DesignerWidgetTest() {
    EnsureApp();
    RegisterAssetEditors();
    RegisterAssetEditorFrames();
  }
  TqxHeadlessUi Ui;
  TFrameAssetManager Frame;
};

TEST_F(DesignerWidgetTest, EveryPictureTheDesignerNamesIsDrawn) {
  TqxDesignerWidget widget(Frame);
  for (TCustomImageList* images : {&Frame.Commands().ImageCollection, &Frame.Tree().il24x24}) {
    ASSERT_GT(images->Count(), 0);
    for (int i = 0; i < images->Count(); ++i)
      EXPECT_FALSE(IsBlank(*images->Get(i))) << images->Name(i);
  }
  // Every action with a picture shows it.
  for (int i = 0; i < Frame.Commands().ActionList.Count(); ++i) {
    TAction* action = Frame.Commands().ActionList.Actions(i);
    if (action->ImageIndex() < 0) continue;
    EXPECT_FALSE(IsBlank(*Frame.Commands().ImageCollection.Get(action->ImageIndex()))) << action->Name;
  }
}

TEST_F(DesignerWidgetTest, AHiddenActionKeepsNoPlaceOnTheToolBarUntilItIsShown) {
  TqxDesignerWidget widget(Frame);
  widget.resize(900, 500);
  widget.show();
  TqxDesignerCommands& commands = Frame.Commands();
  QToolButton* themes = widget.ButtonOf(commands.ActionGenerateThemeColors);
  ASSERT_NE(themes, nullptr);
  EXPECT_FALSE(themes->isVisible());

  commands.ActionGenerateThemeColors->SetVisible(true);
  QCoreApplication::processEvents();
  EXPECT_TRUE(themes->isVisible());
  // Its drop-down carries the theme commands.
  ASSERT_NE(themes->menu(), nullptr);
  EXPECT_EQ(themes->menu()->actions().size(), 2);
  commands.ActionAddColor->SetVisible(false);
  QCoreApplication::processEvents();
  EXPECT_FALSE(widget.ButtonOf(commands.ActionAddColor)->isVisible());
}

}  // namespace
}  // namespace qx::test
