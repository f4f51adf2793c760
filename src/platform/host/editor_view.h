#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace qx {

class TCustomImageList;

// Base of the frames the IDE shows in its editor tabs. The IDE makes and owns
// the frame of a view and hands it to the view by FrameCreated.
class TCustomFrame {
public:
  virtual ~TCustomFrame() = default;
  std::string Name;
};

// What GetFrameClass answers: how to make the view's frame.
using TFrameClass = std::function<std::unique_ptr<TCustomFrame>()>;

// 0x00BBGGRR: red in the low byte.
using TColor = std::uint32_t;

// Edit commands a view may offer; GetEditState answers a set of these bits.
enum TEditStateFlag : unsigned {
  esCanUndo = 1, esCanRedo = 2, esCanCut = 4, esCanCopy = 8, esCanPaste = 16,
  esCanDelete = 32, esCanSelectAll = 64
};
enum class TEditAction { Undo, Redo, Cut, Copy, Paste, Delete, SelectAll };

// A custom view in an editor tab of the IDE.
class INTACustomEditorView {
public:
  virtual ~INTACustomEditorView() = default;

  virtual bool GetCanCloneView() = 0;
  virtual std::shared_ptr<INTACustomEditorView> CloneEditorView() = 0;
  virtual std::string GetCaption() = 0;
  virtual std::string GetEditorWindowCaption() = 0;
  // One view per identifier: showing a view whose identifier is open brings that tab up.
  virtual std::string GetViewIdentifier() = 0;
  virtual unsigned GetEditState() = 0;
  virtual bool EditAction(TEditAction action) = 0;
  virtual void CloseAllCalled(bool& shouldClose) = 0;
  virtual void SelectView() = 0;
  virtual void DeselectView() = 0;
  virtual TFrameClass GetFrameClass() = 0;
  virtual void FrameCreated(TCustomFrame* frame) = 0;
  virtual int GetImageIndex() = 0;
  virtual std::string GetTabHintText() = 0;
  // The IDE asks before the tab goes; the tab stays when allowed is false.
  virtual void Close(bool& allowed) = 0;
  virtual TColor GetTabColor() = 0;
};

// Shows and closes editor views.
class IOTAEditorViewServices {
public:
  virtual ~IOTAEditorViewServices() = default;
  // A tab opens, or comes to the front when the view's identifier is open. For
  // a new view the IDE makes a frame of GetFrameClass and calls FrameCreated.
  virtual void ShowEditorView(std::shared_ptr<INTACustomEditorView> view) = 0;
  // The IDE calls the view's Close; the tab goes if that allows it. Answers
  // whether it went.
  virtual bool CloseEditorView(std::shared_ptr<INTACustomEditorView> view) = 0;
};

class INTAEditorViewServices {
public:
  virtual ~INTAEditorViewServices() = default;
  // Registers the images under an identifier; answers the base index of them.
  virtual int AddImages(TCustomImageList* images, const std::string& ident) = 0;
};

}  // namespace qx
