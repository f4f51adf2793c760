#include "frames/assets_view.h"

#include <algorithm>

#include "platform/core/assets/asset_color.h"
#include "platform/core/assets/asset_comparer.h"
#include "platform/core/assets/asset_group.h"
#include "platform/core/base/assert.h"

namespace qx {

TAssetsView::TAssetsView() {
  FContent = InsertChild(std::make_unique<TFrameThemed>());
  FContent->Padding = {16, 8, 16, 8};
  FContent->SetTop(kHeaderHeight + kSplitterHeight);
}

TAssetsView::~TAssetsView() = default;

void TAssetsView::SetGroup(TqxAssetGroup&& Value) {
  // The tiles borrow the group's assets, not the group, so the old one may go.
  auto group = std::make_unique<TqxAssetGroup>(std::move(Value));
  SetGroup(group.get());
  FOwnedGroup = std::move(group);
}

void TAssetsView::SetGroup(TqxAssetGroup* Value) {
  TqxAssert::IsNotNil(Value, "Value");
  FGroup = Value;
  DisableAlign();
  FOrderedList.clear();
  FContent->ClearChildren();
  auto& items = FGroup->Items();
  std::stable_sort(items.begin(), items.end(), TqxAssetComparer());
  for (TqxAsset* asset : items) {
    auto tile = std::make_unique<TResourceGroupView>();
    tile->SetAsset(asset);
    tile->FOnNeedUpdatePreview = [this](TqxAsset* changed) { NeedUpdatePreviewHandler(changed); };
    tile->FOnNeedApplyColor = [this](TqxAssetColor* color) { NeedApplyColorsHandler(color); };
    FOrderedList.push_back(FContent->InsertChild(std::move(tile)));
  }
  FAssetType = items.empty() ? std::string() : items.front()->GetType();
  RefreshTitle();
  EnableAlign();
}

void TAssetsView::RefreshTitle() {
  if (!FGroup) return;
  if (!FGroup->Items().empty()) FGroup->SetName(FGroup->Items().front()->Name());
  FAssetName = FGroup->Name();
  Repaint();
}

void TAssetsView::Resize() {
  // The content panel fills the view under the header.
  const int contentTop = kHeaderHeight + kSplitterHeight;
  FContent->SetBounds(0, contentTop, Width(), std::max(Height() - contentTop, 0));
  if (FAlignDisabled > 0 || !HasParent() || FOrderedList.empty()) return;
  DisableAlign();  // MatchToContent resizes the view again
  Realign();
  MatchToContent();
  EnableAlign();
}

void TAssetsView::CenterRow(std::size_t AFirst, std::size_t AEnd) {
  int total = 0;
  for (std::size_t i = AFirst; i < AEnd; ++i) total += FOrderedList[i]->Width() + kGap;
  const int offset = (FContent->Width() - total) / 2;
  for (std::size_t i = AFirst; i < AEnd; ++i) FOrderedList[i]->SetLeft(FOrderedList[i]->Left() + offset);
}

void TAssetsView::Realign() {
  int x = kGap, y = kGap;
  std::size_t rowStart = 0;
  for (std::size_t i = 0; i < FOrderedList.size(); ++i) {
    TResourceGroupView* tile = FOrderedList[i];
    const int w = tile->Width() + kGap;
    // A tile wider than the pane still starts the first row rather than
    // leaving it empty.
    if (x + w > FContent->Width() && i > rowStart) {
      // The tile that opens the row sets its distance from the row above.
      y += tile->Height() + kGap;
      CenterRow(rowStart, i);
      rowStart = i;
      x = kGap;
    }
    tile->SetBounds(x, y, tile->Width(), tile->Height());
    x += w;
  }
  if (!FOrderedList.empty()) CenterRow(rowStart, FOrderedList.size());
}

void TAssetsView::MatchToContent() {
  TqxAssert::IsFalse(FOrderedList.empty(), "FOrderedList is empty");
  const TResourceGroupView* last = FOrderedList.back();
  SetHeight(last->Top() + last->Height() + FContent->Top() + Padding.Bottom);
}

void TAssetsView::NeedUpdatePreviewHandler(TqxAsset* AAsset) {
  if (FOnNeedUpdatePreview) FOnNeedUpdatePreview(AAsset);
}

void TAssetsView::NeedApplyColorsHandler(TqxAssetColor* AColor) {
  if (!FGroup || !AColor) return;
  for (TqxAsset* asset : FGroup->Items()) {
    auto* color = dynamic_cast<TqxAssetColor*>(asset);
    if (color && color != AColor) color->SetColor(AColor->Color());
  }
  for (TResourceGroupView* tile : FOrderedList)
    if (tile->Asset() != AColor) tile->Refresh();
}

}  // namespace qx
