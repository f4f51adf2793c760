#include <gtest/gtest.h>

#include "frames/assets_view.h"
#include "frames/editor_color.h"
#include "frames_fixture.h"
#include "platform/core/assets/asset_color.h"
#include "platform/core/assets/asset_group.h"
#include "platform/core/graphics/bitmap.h"
#include "platform/core/graphics/color.h"
#include "platform/designtime/color_picker.h"

namespace qx::test {
namespace {

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

  // The same asset again changes nothing.
  repaints = 0;
  frame.SetAsset(&red);
  EXPECT_EQ(repaints, 0);

  TqxBitmap box(64, 64);
  frame.PaintPreview(box);
  EXPECT_EQ(box.GetPixel(32, 32), 0xFFFF0000u);
  EXPECT_EQ(box.GetPixel(0, 32), 0xFF808080u);  // outline

  // Half-transparent blue: the chessboard's two greys show through.
  TqxAssetColor glass("Glass", 0, 0, 0x800000FF);
  frame.SetAsset(&glass);
  EXPECT_EQ(frame.Title(), "#800000FF");
  EXPECT_NE(frame.Hint().find("A: 128 (#80)"), std::string::npos);
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
  EXPECT_EQ(picker->Color(), 0xFF336699u);
  EXPECT_EQ(picker->HexText(), "#336699");

  EXPECT_TRUE(picker->SetHexText(" #80ff0000 "));
  EXPECT_EQ(color.Color(), 0x80FF0000u);
  EXPECT_EQ(frame.Title(), "#80FF0000");
  EXPECT_EQ(frame.Preview()->GetPixel(32, 32) >> 24, 0xFFu);  // blended over the opaque board

  for (const char* bad : {"", "#12345", "red", "#GG0000", "FF0000", "#1234567890"}) {
    EXPECT_FALSE(picker->SetHexText(bad)) << bad;
    EXPECT_FALSE(picker->HexError().empty()) << bad;
  }
  EXPECT_EQ(color.Color(), 0x80FF0000u);
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

TEST_F(ColorFrameTest, ApplyToAllVariantsReachesEveryColourOfTheGroup) {
  TqxAssetColor any("Brand", 0, 0, 0xFF000000), android("Brand", 1, 0, 0xFF111111),
      ios("Brand", 2, 0, 0xFF222222);
  TqxAssetGroup group("Brand");
  group.Add(&ios);
  group.Add(&any);
  group.Add(&android);
  TAssetsView view;
  view.SetGroup(&group);
  std::vector<TqxAsset*> updates;
  view.FOnNeedUpdatePreview = [&](TqxAsset* asset) { updates.push_back(asset); };

  auto* androidFrame = static_cast<TEditorColor*>(view.OrderedList()[1]->Editor());
  androidFrame->OpenEditor();
  auto* picker = Ui.Popups.CurrentAs<TqxColorPicker>();
  ASSERT_NE(picker, nullptr);
  picker->SetHexText("#00FF00");  // without the box only the edited variant changes
  EXPECT_EQ(any.Color(), 0xFF000000u);
  picker->SetApplyToAll(true);
  picker->SetHexText("#0000FF");
  EXPECT_EQ(any.Color(), 0xFF0000FFu);
  EXPECT_EQ(android.Color(), 0xFF0000FFu);
  EXPECT_EQ(ios.Color(), 0xFF0000FFu);
  EXPECT_EQ(view.OrderedList()[2]->Editor()->Hint().substr(0, 12), "R: 0 (#00)\r\n");
  EXPECT_EQ(static_cast<TBaseEditorSinglePreview*>(view.OrderedList()[0]->Editor())->Title(), "#0000FF");
  EXPECT_EQ(updates, (std::vector<TqxAsset*>{&android, &android}));
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
