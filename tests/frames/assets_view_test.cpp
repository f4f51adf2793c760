#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "frames/assets_view.h"
#include "frames/base_asset_editor_frame.h"
#include "frames/editor_color.h"
#include "frames_fixture.h"
#include "kinds/asset_editor_frames.h"
#include "platform/core/assets/asset_color.h"
#include "platform/core/assets/asset_font.h"
#include "platform/core/assets/asset_group.h"
#include "platform/core/assets/asset_theme_container.h"
#include "platform/core/base/exception.h"
#include "platform/core/graphics/bitmap.h"
#include "platform/core/graphics/color.h"
#include "platform/designtime/color_picker.h"

namespace qx::test {
namespace {

// Colour variants whose frames have the width a test asks for.
class AssetsViewTest : public FramesTest {
protected:
  void SetUp() override {
    FramesTest::SetUp();
    auto& frames = TqxAssetEditorFrames::Instance();
    frames.Register("color", [this](TqxAsset*) -> std::shared_ptr<TBaseAssetEditorFrame> {
      auto frame = std::make_shared<TBaseAssetEditorFrame>();
      frame->SetBounds(0, 0, FFrameWidth, FFrameHeight);
      return frame;
    });
  }
  void TearDown() override {
    TqxAssetEditorFrames::Instance().Clear();
    RegisterAssetEditorFrames();
    FramesTest::TearDown();
  }

  // count variants, tiles of tileWidth (the frame plus the tile's padding of 8 each side).
  void ShowTiles(int count, int tileWidth) {
    FFrameWidth = tileWidth - 16;
    for (int i = 0; i < count; ++i) {
      FAssets.push_back(std::make_unique<TqxAssetColor>("Tint", i % 3, i / 3, 0xFF000000));
      FGroup.Add(FAssets.back().get());
    }
    View.SetGroup(&FGroup);
  }
  std::vector<int> Lefts() const {
    std::vector<int> lefts;
    for (auto* tile : View.OrderedList()) lefts.push_back(tile->Left());
    return lefts;
  }
  std::vector<int> Tops() const {
    std::vector<int> tops;
    for (auto* tile : View.OrderedList()) tops.push_back(tile->Top());
    return tops;
  }

  int FFrameWidth = 80, FFrameHeight = 90;
  std::vector<std::unique_ptr<TqxAsset>> FAssets;
  TqxAssetGroup FGroup{"Tint"};
  TAssetsView View;
};

TEST_F(AssetsViewTest, TilesWrapTheirFrame) {
  ShowTiles(1, 96);
  const TResourceGroupView& tile = *View.OrderedList()[0];
  EXPECT_EQ(tile.Width(), 96);
  EXPECT_EQ(tile.Height(), 90 + TResourceGroupView::kBraceHeight + TResourceGroupView::kTargetNameHeight);
  EXPECT_EQ(tile.Editor()->Left(), 8);
  EXPECT_EQ(tile.BraceBounds().Top, tile.Editor()->Top() + tile.Editor()->Height());
  View.SetWidth(200);
  View.Realign();
  EXPECT_EQ(Lefts(), std::vector<int>{56});  // alone, centred
}

TEST_F(AssetsViewTest, FourNarrowTilesFillARowExactly) {
  ShowTiles(5, 40);
  View.SetWidth(200);
  View.Realign();
  // 8 + 4 * 48 = 200 is not above the width; the fifth opens a row, centred alone.
  EXPECT_EQ(Lefts(), (std::vector<int>{12, 60, 108, 156, 84}));
  EXPECT_EQ(Tops()[3], 8);
  EXPECT_EQ(Tops()[4], 8 + View.OrderedList()[4]->Height() + 8);
  View.MatchToContent();
  EXPECT_EQ(View.Height(), Tops()[4] + View.OrderedList()[4]->Height() + 30);
}

TEST_F(AssetsViewTest, HostedViewReflowsAndFitsItsHeightOnResize) {
  ShowTiles(4, 96);
  View.SetWidth(500);  // not hosted: nothing moves yet
  EXPECT_EQ(Lefts(), (std::vector<int>{0, 0, 0, 0}));
  View.SetHosted(true);
  View.SetWidth(440);
  const int tileHeight = View.OrderedList()[0]->Height();
  EXPECT_EQ(Lefts(), (std::vector<int>{20, 124, 228, 332}));
  EXPECT_EQ(View.Height(), 30 + 8 + tileHeight);
  EXPECT_EQ(View.Content().Width(), 440);

  View.SetWidth(220);
  EXPECT_EQ(Lefts(), (std::vector<int>{14, 118, 14, 118}));
  EXPECT_EQ(Tops(), (std::vector<int>{8, 8, 16 + tileHeight, 16 + tileHeight}));
  EXPECT_EQ(View.Height(), 30 + 8 + 2 * tileHeight + 8);

  View.DisableAlign();
  View.SetWidth(600);
  EXPECT_EQ(Lefts(), (std::vector<int>{14, 118, 14, 118}));
  View.EnableAlign();
}

TEST_F(AssetsViewTest, SetGroupOrdersVariantsAndTitlesTheView) {
  // Android phone, iOS, any: any first, then by platform, then device class.
  TqxAssetFont phone("Fonts\\Body", 1, 1), ios("Fonts\\Body", 2, 0), any("Fonts\\Body", 0, 0),
      android("Fonts\\Body", 1, 0);
  TqxAssetGroup group("Fonts\\Body");
  for (TqxAsset* asset : {static_cast<TqxAsset*>(&phone), static_cast<TqxAsset*>(&ios),
                          static_cast<TqxAsset*>(&any), static_cast<TqxAsset*>(&android)})
    group.Add(asset);
  View.SetGroup(std::move(group));
  EXPECT_EQ(View.Group()->Items(), (std::vector<TqxAsset*>{&any, &android, &phone, &ios}));
  EXPECT_EQ(View.OrderedList()[1]->Asset(), &android);

  // An edit in any frame reaches the view's listener with its asset.
  std::vector<TqxAsset*> updates;
  View.FOnNeedUpdatePreview = [&](TqxAsset* asset) { updates.push_back(asset); };
  View.OrderedList()[2]->Editor()->Changed();
  EXPECT_EQ(updates, std::vector<TqxAsset*>{&phone});
}

using ColorFrameTest = FramesTest;

TEST_F(ColorFrameTest, ShowsTitleHintAndSwatchOfItsColour) {
  TqxAssetColor red("Red", 0, 0, 0xFFFF0000);
  TEditorColor frame;
  int repaints = 0;
  frame.OnRepaint = [&] { ++repaints; };
  frame.SetAsset(&red);
  EXPECT_EQ(frame.Title(), "#FF0000");
  EXPECT_EQ(frame.Hint(), "R: 255 (#FF)\r\nG: 0 (#00)\r\nB: 0 (#00)\r\nA: 255 (#FF)");
  EXPECT_GT(repaints, 0);

  TqxBitmap box(64, 64);
  frame.PaintPreview(box);
  EXPECT_EQ(box.GetPixel(32, 32), 0xFFFF0000u);

  // Half-transparent blue: the chessboard's two greys show through.
  TqxAssetColor glass("Glass", 0, 0, 0x800000FF);
  frame.SetAsset(&glass);
  EXPECT_EQ(frame.Title(), "#800000FF");
  frame.PaintPreview(box);
  const TAlphaColor onWhite = box.GetPixel(4, 4), onGrey = box.GetPixel(12, 4);
  EXPECT_EQ(AlphaOf(onWhite), 255);
  EXPECT_NE(onWhite, onGrey);
  EXPECT_GT(BlueOf(onWhite), RedOf(onWhite));
}

TEST_F(ColorFrameTest, PickerEditsTheAssetAndReportsEachEdit) {
  TqxAssetColor color("Accent", 0, 0, 0xFF336699);
  TEditorColor frame;
  frame.SetAsset(&color);
  std::vector<TqxAsset*> changes;
  frame.FOnChanged = [&](TqxAsset* asset) { changes.push_back(asset); };

  frame.OpenEditor();
  auto* picker = Ui.Popups.CurrentAs<TqxColorPicker>();
  ASSERT_NE(picker, nullptr);
  EXPECT_EQ(Ui.Popups.AnchorOf(picker), &frame);
  EXPECT_EQ(picker->HexText(), "#336699");

  EXPECT_TRUE(picker->SetHexText(" #80ff0000 "));
  EXPECT_EQ(frame.Title(), "#80FF0000");
  EXPECT_EQ(frame.Preview()->GetPixel(32, 32) >> 24, 0xFFu);  // blended over the opaque board
  for (const char* bad : {"", "#12345", "FF0000"}) EXPECT_FALSE(picker->SetHexText(bad)) << bad;
  EXPECT_EQ(changes.size(), 1u);

  picker->SetAlpha(255);
  picker->SetHue(120);  // red turns green at the same saturation and value
  EXPECT_EQ(color.Color(), 0xFF00FF00u);
  picker->SetSaturationValue(0, 0.5);
  EXPECT_EQ(color.Color(), 0xFF808080u);
  EXPECT_TRUE(picker->HexError().empty());
  EXPECT_EQ(changes, std::vector<TqxAsset*>(4, &color));

  // A grey colour keeps the hue the user chose.
  picker->SetColor(0xFF404040);
  EXPECT_DOUBLE_EQ(picker->Hue(), 120);
  EXPECT_TRUE(picker->Close());
  EXPECT_EQ(Ui.Popups.Count(), 0);
  EXPECT_EQ(frame.OpenPicker(), nullptr);
}

TEST_F(ColorFrameTest, FrameThatGoesClosesItsPicker) {
  TqxAssetColor color("Accent", 0, 0, 0xFF336699);
  auto frame = std::make_unique<TEditorColor>();
  frame->SetAsset(&color);
  frame->OpenEditor();
  ASSERT_EQ(Ui.Popups.Count(), 1);
  frame.reset();
  EXPECT_EQ(Ui.Popups.Count(), 0);
}

}  // namespace
}  // namespace qx::test
