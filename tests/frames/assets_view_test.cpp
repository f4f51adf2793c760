#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "frames/assets_view.h"
#include "frames/base_asset_editor_frame.h"
#include "frames_fixture.h"
#include "kinds/asset_editor_frames.h"
#include "platform/core/assets/asset_color.h"
#include "platform/core/assets/asset_font.h"
#include "platform/core/assets/asset_group.h"
#include "platform/core/assets/asset_theme_container.h"
#include "platform/core/base/exception.h"

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
  EXPECT_EQ(tile.TargetName(), FAssets[0]->GetTargetDeviceDisplayName());
  EXPECT_EQ(tile.BraceBounds().Bottom, tile.TargetNameBounds().Top);
  EXPECT_EQ(tile.BraceBounds().Top, tile.Editor()->Top() + tile.Editor()->Height());
  View.SetWidth(200);
  View.Realign();
  EXPECT_EQ(Lefts(), std::vector<int>{56});  // alone, centred
}

TEST_F(AssetsViewTest, FlowLayoutCentresEachRow) {
  // 96 + 8 twice is 216, above 200: a row each, at 8 + 48.
  ShowTiles(2, 96);
  View.SetWidth(200);
  View.Realign();
  EXPECT_EQ(Lefts(), (std::vector<int>{56, 56}));
  const int rowStep = View.OrderedList()[1]->Height() + 8;
  EXPECT_EQ(Tops(), (std::vector<int>{8, 8 + rowStep}));
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
  std::vector<TqxAsset*> shown;
  for (auto* tile : View.OrderedList()) shown.push_back(tile->Asset());
  EXPECT_EQ(shown, (std::vector<TqxAsset*>{&any, &android, &phone, &ios}));
  EXPECT_EQ(View.Group()->Items(), shown);  // the group itself took the order
  EXPECT_EQ(View.AssetName(), "Fonts\\Body");
  EXPECT_EQ(View.AssetType(), "font");
  EXPECT_EQ(View.OrderedList()[1]->TargetName(), android.GetTargetDeviceDisplayName());

  // An edit in any frame reaches the view's listener with its asset.
  std::vector<TqxAsset*> updates;
  View.FOnNeedUpdatePreview = [&](TqxAsset* asset) { updates.push_back(asset); };
  View.OrderedList()[2]->Editor()->Changed();
  EXPECT_EQ(updates, std::vector<TqxAsset*>{&phone});
}

TEST_F(AssetsViewTest, RefreshTitleReadsTheFirstVariantsName) {
  // A rename replaces the variants; the view follows with RefreshTitle.
  ShowTiles(2, 96);
  EXPECT_EQ(View.AssetName(), "Tint");
  auto renamed = std::make_unique<TqxAssetColor>("Colors\\Shade", 0, 0, 0);
  FGroup.Items()[0] = renamed.get();
  View.RefreshTitle();
  EXPECT_EQ(View.AssetName(), "Colors\\Shade");
  EXPECT_EQ(FGroup.Name(), "Colors\\Shade");
}

TEST_F(AssetsViewTest, RefusesAssetsWithoutFrames) {
  TResourceGroupView tile;
  EXPECT_THROW(tile.SetAsset(nullptr), EqxAssertError);
  TqxAssetThemeContainer theme("Dark");
  EXPECT_THROW(tile.SetAsset(&theme), EqxAssertError);
  TAssetsView view;
  EXPECT_THROW(view.SetGroup(static_cast<TqxAssetGroup*>(nullptr)), EqxAssertError);
  EXPECT_THROW(view.MatchToContent(), EqxAssertError);
}

}  // namespace
}  // namespace qx::test
