#include <gtest/gtest.h>

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <filesystem>

#include "../../support/qt_test_app.h"
#include "frames/assets_view.h"
#include "frames/file_asset_frames.h"
#include "frames/qt/assets_view_widget.h"
#include "frames/qt/frame_widgets.h"
#include "frames/register_frames.h"
#include "kinds/assets_editors_manager.h"
#include "platform/core/assets/asset_color.h"
#include "platform/core/assets/asset_group.h"
#include "platform/core/assets/asset_lottie_animation.h"
#include "platform/designtime/color_picker.h"
#include "platform/designtime/qt/color_picker_widget.h"
#include "platform/ui/qt/qt_ui_services.h"

namespace qx::test {
namespace {

class AssetsViewWidgetTest : public ::testing::Test {
protected:
  void SetUp() override {
    EnsureApp();
    RegisterAssetEditors();
    RegisterAssetEditorFrames();
    Ui = std::make_unique<TqxQtUi>();
  }
  void TearDown() override { Ui.reset(); }

  void Screenshot(QWidget& widget, const char* name) {
    auto shots = std::filesystem::path(QX_BUILD_DIR) / "screenshots";
    std::filesystem::create_directories(shots);
    EXPECT_TRUE(widget.grab().save(QString::fromStdString((shots / name).string())));
  }

  std::unique_ptr<TqxQtUi> Ui;
};

TEST_F(AssetsViewWidgetTest, ShowsTheTilesAndEditsAColourThroughItsPopup) {
  TqxAssetColor any("Brand", 0, 0, 0xFFFF0000), android("Brand", 1, 0, 0x8000A000), ios("Brand", 2, 0, 0xFF2060C0);
  TqxAssetGroup group("Brand");
  for (TqxAsset* asset : {static_cast<TqxAsset*>(&ios), static_cast<TqxAsset*>(&android), static_cast<TqxAsset*>(&any)})
    group.Add(asset);
  TAssetsView view;
  view.SetGroup(&group);
  std::vector<TqxAsset*> updates;
  view.FOnNeedUpdatePreview = [&](TqxAsset* asset) { updates.push_back(asset); };

  TqxAssetsViewWidget widget(view);
  widget.resize(400, 50);
  widget.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&widget));
  ASSERT_EQ(widget.Tiles().size(), 3u);
  EXPECT_EQ(widget.AssetNameLabel()->text(), "Brand");
  EXPECT_EQ(widget.height(), view.Height());
  for (TqxResourceTileWidget* tile : widget.Tiles())
    EXPECT_EQ(tile->geometry(), QRect(tile->Tile().Left(), tile->Tile().Top(), tile->Tile().Width(),
                                      tile->Tile().Height()));
  const int oneRowHeight = widget.height();
  EXPECT_EQ(widget.Tiles()[0]->Tile().Top(), widget.Tiles()[2]->Tile().Top());

  // Narrower: the tiles flow into more rows and the widget grows.
  widget.resize(150, widget.height());
  QTest::qWait(10);
  EXPECT_GT(widget.height(), oneRowHeight);
  EXPECT_GT(widget.Tiles()[2]->y(), widget.Tiles()[0]->y());
  widget.resize(400, widget.height());
  QTest::qWait(10);
  Screenshot(widget, "frames_assets_view.png");

  QWidget* swatch = widget.Tiles()[0]->FrameWidget();
  QTest::mouseClick(swatch, Qt::LeftButton, {}, QPoint(40, 40));
  TqxPopupWindow* window = Ui->Popups.LastWindow();
  ASSERT_NE(window, nullptr);
  auto* picker = dynamic_cast<TqxColorPicker*>(window->Form());
  auto* pickerWidget = window->findChild<TqxColorPickerWidget*>();
  ASSERT_NE(pickerWidget, nullptr);
  EXPECT_EQ(pickerWidget->HexEdit()->text(), "#FF0000");

  pickerWidget->HexEdit()->setText("#800000FF");
  emit pickerWidget->HexEdit()->editingFinished();
  EXPECT_EQ(any.Color(), 0x800000FFu);
  EXPECT_EQ(updates, std::vector<TqxAsset*>{&any});
  QImage shown = swatch->grab().toImage();
  const QColor middle = shown.pixelColor(shown.width() * 40 / 80, shown.height() * 40 / 90);
  EXPECT_GT(middle.blue(), middle.red());  // blue over the light board

  // Bad text leaves the colour alone and says so.
  pickerWidget->HexEdit()->setText("#12");
  emit pickerWidget->HexEdit()->editingFinished();
  EXPECT_EQ(any.Color(), 0x800000FFu);
  EXPECT_FALSE(pickerWidget->findChild<QWidget*>("HexError")->isHidden());

  // With the box ticked the other variants follow.
  pickerWidget->ApplyToAllBox()->setChecked(true);
  pickerWidget->HexEdit()->setText("#00FF00");
  emit pickerWidget->HexEdit()->editingFinished();
  EXPECT_EQ(ios.Color(), 0xFF00FF00u);
  EXPECT_EQ(android.Color(), 0xFF00FF00u);
  Screenshot(*window, "frames_color_picker.png");

  EXPECT_TRUE(Ui->Popups.Close(picker));
  QTest::qWait(10);
  EXPECT_EQ(Ui->Popups.LastWindow(), nullptr);
}

TEST_F(AssetsViewWidgetTest, LottieFramePlaysItsAnimation) {
  TqxAssetLottieAnimation lottie("Spinner");
  lottie.SetUri(std::string(QX_TEST_DATA_DIR) + "/frames/spinner.json");
  TEditorLottieAnimation frame;
  frame.SetAsset(&lottie);
  ASSERT_TRUE(frame.AnimationVisible());
  TqxLottieFrameWidget widget(frame);
  widget.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&widget));
  QTest::qWait(150);
  EXPECT_GT(widget.CurrentFrame(), 0);
  // The square is red in the middle of the layer.
  const QImage shown = widget.grab().toImage();
  const QColor middle = shown.pixelColor(shown.width() / 2, shown.height() / 2);
  EXPECT_GT(middle.red(), 200);
}

}  // namespace
}  // namespace qx::test
