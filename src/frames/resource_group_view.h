#pragma once

#include <functional>
#include <memory>
#include <string>

#include "frames/editor_color.h"
#include "platform/designtime/frame_themed.h"

namespace qx {

class TqxAsset;
class TBaseAssetEditorFrame;

using TNeedUpdateResourcePreviewEvent = std::function<void(TqxAsset* AAsset)>;

// One tile of the assets view: the edit frame of one variant over a brace and
// the name of its target ("Android Phone Small"). The tile wraps its frame
// exactly, so a wide frame makes a wide tile.
class TResourceGroupView : public TFrameThemed {
public:
  static constexpr int kContentPadding = 8;  // left and right of the frame
  static constexpr int kBraceHeight = 7;
  static constexpr int kTargetNameHeight = 16;

  TResourceGroupView();
  ~TResourceGroupView() override;

  // Makes the kind's frame for the asset; raises EqxAssertError for nullptr,
  // an unknown kind or a kind without a frame.
  void SetAsset(TqxAsset* Value);
  TqxAsset* Asset() const { return FAsset; }
  TBaseAssetEditorFrame* Editor() const { return FEditor.get(); }
  // The frame's preview again, after someone else changed the asset.
  void Refresh();

  // lTargetName.
  const std::string& TargetName() const { return FTargetName; }
  // In the tile's coordinates; the frame's own Left and Top are kept in them too.
  TRect BraceBounds() const;
  TRect TargetNameBounds() const;

  TNeedUpdateResourcePreviewEvent FOnNeedUpdatePreview;
  TNeedApplyColorEvent FOnNeedApplyColor;

private:
  void MatchToContentSize();
  void NeedUpdatePreivewHandler(TqxAsset* AAsset);
  void NeedApplyColorEvent(TqxAssetColor* AColor);

  TqxAsset* FAsset = nullptr;
  std::string FTargetName = "Universal";
  std::shared_ptr<TBaseAssetEditorFrame> FEditor;
};

}  // namespace qx
