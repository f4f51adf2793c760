#include "platform/designtime/frame_themed.h"

#include <algorithm>

namespace qx {

TFrameThemed::~TFrameThemed() = default;

void TFrameThemed::SetBounds(int ALeft, int ATop, int AWidth, int AHeight) {
  AWidth = std::max(AWidth, 0);
  AHeight = std::max(AHeight, 0);
  if (ALeft == FLeft && ATop == FTop && AWidth == FWidth && AHeight == FHeight) return;
  const bool resized = AWidth != FWidth || AHeight != FHeight;
  FLeft = ALeft;
  FTop = ATop;
  FWidth = AWidth;
  FHeight = AHeight;
  if (resized) Resize();
  if (OnBoundsChanged) OnBoundsChanged();
}

void TFrameThemed::SetVisible(bool value) {
  if (FVisible == value) return;
  FVisible = value;
  if (OnVisibleChanged) OnVisibleChanged();
}

void TFrameThemed::SetHint(const std::string& value) {
  if (FHint == value) return;
  FHint = value;
  Repaint();
}

void TFrameThemed::InsertOwned(std::unique_ptr<TFrameThemed> child) {
  if (!child) return;
  child->FParent = this;
  FChildren.push_back(std::move(child));
}

void TFrameThemed::RemoveChild(TFrameThemed* child) {
  auto it = std::find_if(FChildren.begin(), FChildren.end(), [&](auto& c) { return c.get() == child; });
  if (it == FChildren.end()) return;
  auto owned = std::move(*it);
  FChildren.erase(it);
}

void TFrameThemed::ClearChildren() {
  auto children = std::move(FChildren);
  FChildren.clear();
}

void TFrameThemed::Repaint() {
  if (OnRepaint) OnRepaint();
}

}  // namespace qx
