#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/host/editor_view.h"

namespace qx {

// The IDE's handling of custom editor views, without the tabs themselves: one
// open view per identifier, each with the frame the host made for it. The
// application's window shows the views; tests drive this directly.
class TqxEditorViewHost : public IOTAEditorViewServices {
public:
  struct TOpenView {
    std::shared_ptr<INTACustomEditorView> View;
    std::unique_ptr<TCustomFrame> Frame;
  };

  ~TqxEditorViewHost() override;

  // A view whose identifier is open brings that tab to the front (the view
  // passed is then not kept); a new one gets a frame of its GetFrameClass,
  // then FrameCreated, and becomes the active tab.
  void ShowEditorView(std::shared_ptr<INTACustomEditorView> view) override;
  // Asks the view's Close; when it allows, the tab and its frame go.
  bool CloseEditorView(std::shared_ptr<INTACustomEditorView> view) override;
  // Closes every view, asking each; false when one of them stayed.
  bool CloseAll();

  std::size_t Count() const { return FViews.size(); }
  INTACustomEditorView* ActiveView() const;
  INTACustomEditorView* FindView(const std::string& identifier) const;
  TCustomFrame* FrameOf(const INTACustomEditorView* view) const;

  // For the window: a tab to show or bring up, a tab that went.
  std::function<void(INTACustomEditorView& view, TCustomFrame& frame)> FOnViewShown;
  std::function<void(INTACustomEditorView& view)> FOnViewClosed;

private:
  std::vector<TOpenView>::iterator Find(const INTACustomEditorView* view);

  std::vector<TOpenView> FViews;
  INTACustomEditorView* FActive = nullptr;
};

}  // namespace qx
