#include "platform/host/editor_view_host.h"

#include <algorithm>

#include "platform/core/base/assert.h"

namespace qx {

TqxEditorViewHost::~TqxEditorViewHost() {
  // Frames go before their views, as the IDE frees a tab's frame first.
  for (auto& open : FViews) open.Frame.reset();
}

std::vector<TqxEditorViewHost::TOpenView>::iterator TqxEditorViewHost::Find(
    const INTACustomEditorView* view) {
  return std::find_if(FViews.begin(), FViews.end(),
                      [view](const TOpenView& open) { return open.View.get() == view; });
}

INTACustomEditorView* TqxEditorViewHost::FindView(const std::string& identifier) const {
  for (const auto& open : FViews)
    if (open.View->GetViewIdentifier() == identifier) return open.View.get();
  return nullptr;
}

INTACustomEditorView* TqxEditorViewHost::ActiveView() const { return FActive; }

TCustomFrame* TqxEditorViewHost::FrameOf(const INTACustomEditorView* view) const {
  for (const auto& open : FViews)
    if (open.View.get() == view) return open.Frame.get();
  return nullptr;
}

void TqxEditorViewHost::ShowEditorView(std::shared_ptr<INTACustomEditorView> view) {
  TqxAssert::IsNotNil(view.get(), "AView");
  INTACustomEditorView* shown = FindView(view->GetViewIdentifier());
  if (shown == nullptr) {
    TFrameClass frameClass = view->GetFrameClass();
    TqxAssert::IsTrue(static_cast<bool>(frameClass), "GetFrameClass is nil");
    FViews.push_back({view, frameClass()});
    shown = view.get();
    TCustomFrame* frame = FViews.back().Frame.get();
    TqxAssert::IsNotNil(frame, "AFrame");
    FActive = shown;
    view->FrameCreated(frame);
  }
  FActive = shown;
  if (FOnViewShown) FOnViewShown(*shown, *FrameOf(shown));
}

bool TqxEditorViewHost::CloseEditorView(std::shared_ptr<INTACustomEditorView> view) {
  if (!view || Find(view.get()) == FViews.end()) return false;
  bool allowed = true;
  view->Close(allowed);
  if (!allowed) return false;
  // Close may have closed other views meanwhile: look the view up again.
  auto it = Find(view.get());
  if (it == FViews.end()) return true;
  std::unique_ptr<TCustomFrame> frame = std::move(it->Frame);
  FViews.erase(it);
  if (FActive == view.get()) FActive = FViews.empty() ? nullptr : FViews.back().View.get();
  if (FOnViewClosed) FOnViewClosed(*view);
  return true;
}

bool TqxEditorViewHost::CloseAll() {
  bool all = true;
  std::vector<std::shared_ptr<INTACustomEditorView>> views;
  for (const auto& open : FViews) views.push_back(open.View);
  for (const auto& view : views) all = CloseEditorView(view) && all;
  return all;
}

}  // namespace qx
