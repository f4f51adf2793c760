#include "frames/resource_group_view.h"

#include "frames/base_asset_editor_frame.h"
#include "kinds/assets_editors_manager.h"
#include "platform/core/assets/asset.h"
#include "platform/core/base/assert.h"

namespace qx {

TResourceGroupView::TResourceGroupView() {
  SetBounds(0, 0, 2 * kContentPadding, kBraceHeight + kTargetNameHeight);
}

TResourceGroupView::~TResourceGroupView() = default;

void TResourceGroupView::SetAsset(TqxAsset* Value) {
  TqxAssert::IsNotNil(Value, "Value");
  FAsset = Value;
  FTargetName = Value->GetTargetDeviceDisplayName();
  auto& editors = TqxAssetsEditorsManager::Instance();
  if (!editors.Contains(Value->GetType()))
    TqxAssert::Fail("Неизвестный тип ресурса. Не могу создать для него редактор");
  FEditor = editors.Editors(*Value).CreateEditor(Value);
  TqxAssert::IsNotNil(FEditor.get(), "FEditor");
  FEditor->SetAsset(Value);
  FEditor->FOnChanged = [this](TqxAsset* asset) { NeedUpdatePreivewHandler(asset); };
  if (auto* color = dynamic_cast<TEditorColor*>(FEditor.get()))
    color->FOnNeedApplyColor = [this](TqxAssetColor* asset) { NeedApplyColorEvent(asset); };
  MatchToContentSize();
}

void TResourceGroupView::Refresh() {
  if (FEditor) FEditor->UpdatePreview();
}

void TResourceGroupView::MatchToContentSize() {
  const TRect& m = FEditor->Margins;
  FEditor->SetBounds(kContentPadding + m.Left, m.Top, FEditor->Width(), FEditor->Height());
  SetBounds(Left(), Top(), 2 * kContentPadding + FEditor->Width() + m.Left + m.Right,
            FEditor->Height() + m.Top + m.Bottom + kBraceHeight + kTargetNameHeight);
  Repaint();
}

TRect TResourceGroupView::BraceBounds() const {
  const int top = Height() - kTargetNameHeight - kBraceHeight;
  return {kContentPadding, top, Width() - kContentPadding, top + kBraceHeight};
}

TRect TResourceGroupView::TargetNameBounds() const { return {0, Height() - kTargetNameHeight, Width(), Height()}; }

void TResourceGroupView::NeedUpdatePreivewHandler(TqxAsset* AAsset) {
  if (FOnNeedUpdatePreview) FOnNeedUpdatePreview(AAsset);
}

void TResourceGroupView::NeedApplyColorEvent(TqxAssetColor* AColor) {
  if (FOnNeedApplyColor) FOnNeedApplyColor(AColor);
}

}  // namespace qx
