#pragma once

#include <memory>
#include <string>
#include <vector>

#include "frames/resource_group_view.h"
#include "platform/designtime/frame_themed.h"

namespace qx {

class TqxAssetGroup;
class TqxAssetColor;

// The right-hand pane's view of one asset group: a header with the group's
// name and kind over a flow of centred TResourceGroupView tiles, one per
// variant.
//
// Use: make it, SetGroup once, set FOnNeedUpdatePreview (every edit in a tile
// arrives there with its asset), then give it a width. A widget that shows it
// (TqxAssetsViewWidget) calls SetHosted(true) and sets its width; from then on
// each change of size lays the tiles out again (Realign) and fits the height
// to them (MatchToContent). Without a host, call Realign and MatchToContent
// directly.
class TAssetsView : public TFrameThemed {
public:
  static constexpr int kHeaderHeight = 29, kSplitterHeight = 1;
  static constexpr int kGap = 8;  // around and between tiles

  TAssetsView();
  ~TAssetsView() override;

  // Shows the group, which must outlive the view; sorts its variants in place
  // into display order. Value must not be nil.
  void SetGroup(TqxAssetGroup* Value);
  // The same over a group the view keeps, as the designer's look-ups return one.
  void SetGroup(TqxAssetGroup&& Value);
  TqxAssetGroup* Group() const { return FGroup; }

  // lAssetName and lAssetType.
  const std::string& AssetName() const { return FAssetName; }
  const std::string& AssetType() const { return FAssetType; }
  // After a rename: the group takes its first variant's name.
  void RefreshTitle();

  // The panel under the header that holds the tiles, and the tiles in order.
  TFrameThemed& Content() const { return *FContent; }
  const std::vector<TResourceGroupView*>& OrderedList() const { return FOrderedList; }

  // Flow layout of the tiles in rows centred in the content's width.
  void Realign();
  // Fits the view's height to the tiles; the list must not be empty.
  void MatchToContent();

  // While off, a change of size doesn't lay out the tiles.
  void DisableAlign() { ++FAlignDisabled; }
  void EnableAlign() { --FAlignDisabled; }

  // Gives every other colour of the group AColor's colour and refreshes their tiles.
  void NeedApplyColorsHandler(TqxAssetColor* AColor);

  TNeedUpdateResourcePreviewEvent FOnNeedUpdatePreview;

protected:
  void Resize() override;

private:
  void NeedUpdatePreviewHandler(TqxAsset* AAsset);
  void CenterRow(std::size_t AFirst, std::size_t AEnd);

  TqxAssetGroup* FGroup = nullptr;
  std::unique_ptr<TqxAssetGroup> FOwnedGroup;
  TFrameThemed* FContent;
  std::vector<TResourceGroupView*> FOrderedList;
  std::string FAssetName, FAssetType;
  int FAlignDisabled = 0;
};

}  // namespace qx
