#pragma once

#include <map>
#include <memory>
#include <string>

#include "platform/core/base/types.h"
#include "platform/host/editor_view.h"
#include "platform/host/guid.h"
#include "platform/host/notifier.h"
#include "platform/host/project.h"

namespace qx {

class TFrameAssetManager;

// The assets designer's editor tab for one project. It follows the project
// as a module notifier, so that the tab closes with the project.
class TqxAssetsManagerView : public INTACustomEditorView,
                             public TNotifierObject,
                             public std::enable_shared_from_this<TqxAssetsManagerView> {
public:
  // Keeps a weak reference and the GUID, and registers the view as the
  // project's notifier.
  static std::shared_ptr<TqxAssetsManagerView> Create(const std::shared_ptr<IOTAProject>& AProject,
                                                      int ABaseImageEditorIndex);
  ~TqxAssetsManagerView() override;

  // Selects the asset in the tree once there is one; empty selects nothing.
  void SetInitialAssetName(const TqxAssetName& AName);

  bool GetCanCloneView() override { return false; }
  std::shared_ptr<INTACustomEditorView> CloneEditorView() override { return nullptr; }
  std::string GetCaption() override;
  std::string GetEditorWindowCaption() override { return "GetEditorWindowCaption"; }
  std::string GetViewIdentifier() override;
  unsigned GetEditState() override { return 0; }
  bool EditAction(TEditAction) override { return false; }
  void CloseAllCalled(bool&) override {}
  void SelectView() override {}
  void DeselectView() override {}
  TFrameClass GetFrameClass() override;
  void FrameCreated(TCustomFrame* AFrame) override;
  int GetImageIndex() override { return FBaseImageEditorIndex; }
  std::string GetTabHintText() override { return ""; }
  // The designer's closing question; an allowed close leaves the table of
  // open views.
  void Close(bool& Allowed) override;
  // Blue $99, green $CC, red 0.
  TColor GetTabColor() override { return 0x0099CC00; }

  // The project goes: the notifier goes, the view leaves the table, and the
  // tab closes while the project still answers, so that an unsaved designer
  // asks and saves as for a going project.
  void Destroyed() override;

  const TGUID& ProjectGUID() const { return FProjectGUID; }
  TFrameAssetManager* Frame() const { return FFrame; }
  int ProjectNotifierId() const { return FProjectNotifierId; }
  bool IsProjectDestroying() const { return FIsProjectDestroying; }

private:
  TqxAssetsManagerView(const std::shared_ptr<IOTAProject>& AProject, int ABaseImageEditorIndex);
  std::string ProjectFileName() const;
  void RemoveFromOpenViews();

  TGUID FProjectGUID;
  std::weak_ptr<IOTAProject> FProject;
  // Owned by the IDE's tab.
  TFrameAssetManager* FFrame = nullptr;
  int FProjectNotifierId = -1;
  int FBaseImageEditorIndex;
  bool FIsProjectDestroying = false;
  TqxAssetName FInitialAssetName;
  // The project's file name at the last query, for after the project has gone.
  mutable std::string FLastFileName;
};

// The open designer views by project GUID: plain references, at most one per
// project, from the first opening until the tab closes or the project goes.
using TqxAssetsManagerViews = std::map<TGUID, TqxAssetsManagerView*>;
TqxAssetsManagerViews& AssetsManagerViews();
// Empties the table; the views themselves belong to the IDE.
void FinalizeAssetsManagerViews();

// Opens the active project's designer, or brings its tab to the front, and
// selects the named asset. The caller makes sure there is an active project.
void OpenAssetsManagerDesigner(const TqxAssetName& AInitialAssetName);

}  // namespace qx
