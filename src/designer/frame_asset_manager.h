#pragma once

#include <functional>
#include <memory>
#include <string>

#include "designer/assets_model.h"
#include "platform/host/guid.h"
#include "platform/host/project.h"

namespace qx {

class TqxAssetTree;
class TqxAssetViews;
class TqxDesignerCommands;
class TqxIdeEventsListener;

enum class TqxState { Modified, Loading, Renaming };

// A set of TqxState.
class TqxStates {
public:
  bool Contains(TqxState state) const { return (FBits & Bit(state)) != 0; }
  void Include(TqxState state) { FBits |= Bit(state); }
  void Exclude(TqxState state) { FBits &= ~Bit(state); }

private:
  static unsigned Bit(TqxState state) { return 1u << unsigned(state); }
  unsigned FBits = 0;
};

// The document of the assets designer for one project: it loads the
// project's assets folder into the model's local manager and saves it back,
// with the deployment entries, the IDE-wide manager and the constants unit
// that follow a save. The tree and the commands build on it; this class holds
// no widget.
class TFrameAssetManager {
public:
  TFrameAssetManager();
  virtual ~TFrameAssetManager();
  TFrameAssetManager(const TFrameAssetManager&) = delete;
  TFrameAssetManager& operator=(const TFrameAssetManager&) = delete;

  // Keeps a weak reference and the GUID, then loads.
  void SetProject(const std::shared_ptr<IOTAProject>& AProject);
  // Assets/config.json beside the project file.
  std::string GetConfigFileName() const;

  // Reads the config file into the model and drops redundant colour variants;
  // a project without one loads empty. FOnLoad then rebuilds the view, with
  // Loading set.
  void Load();
  // Writes the assets folder, reloads the model from it, and, unless the
  // project is going away, rewrites its deployment entries; then marks the
  // project modified, reloads the IDE-wide manager and regenerates the
  // constants unit. A failure ends the save where it stands; see the
  // designer's user guide for what each one leaves. Changes neither the view
  // nor the flags.
  void Save(bool AIsProjectDestroying);
  // Rewrites the project's deployment entries from the local manager.
  void AddToDeploy();

  void MarkModified();
  bool GetModified() const { return FState.Contains(TqxState::Modified); }
  // The save command is the one place that clears Modified.
  void ClearModified();
  const TqxStates& State() const { return FState; }

  TqxAssetsModel& Model() { return *FModel; }
  TqxAssetsManager& GetAssetsManager() { return FModel->GetAssetsManager(); }
  std::shared_ptr<IOTAProject> Project() const { return FProject.lock(); }
  const TGUID& ProjectGUID() const { return FProjectGUID; }

  // The tree of the left side and the commands over it; the model's events
  // and each load reach the tree.
  TqxAssetTree& Tree() { return *FTree; }
  TqxDesignerCommands& Commands() { return *FCommands; }
  // The right-hand side: one view for each asset the selection shows.
  TqxAssetViews& Views() { return *FViews; }

  // The tree's width and its info column's, shared by all projects; the view
  // loads them once it has given the frame its project.
  void LoadUISettings();
  void SaveUISettings();
  // Asks whether to save a modified document; answers whether the frame may
  // close. A Yes while the project goes tells the IDE-wide listener, with
  // ASender as the sender, that its manager may go. The widths are saved
  // whatever the answer.
  bool CloseQuery(bool AIsProjectDestroying, const void* ASender);

  // Where the IDE-wide managers are kept; the package's listener unless set.
  void SetIdeEventsListener(TqxIdeEventsListener* listener) { FIdeEvents = listener; }

  // Called inside Load once the model is read, with Loading set: the tree
  // rebuilds here.
  std::function<void()> FOnLoad;
  // The model's events, passed on; every change of the model also marks the
  // document modified.
  TqxAssetChangedEvent FOnAssetChanged;
  TqxAssetRenamedEvent FOnAssetRenamed;
  // Called when Modified turns on or off.
  std::function<void()> FOnModifiedChanged;

  static constexpr const char* kLogTag = "AssetsDesigner";

private:
  void AssetsChangedHandler(const TqxAssetName& AName, TqxAssetOperation AOperation);
  void AssetRenamedHandler(const TqxAssetName& AOldName, const TqxAssetName& ANewName);

  std::weak_ptr<IOTAProject> FProject;
  TGUID FProjectGUID;
  TqxStates FState;
  std::unique_ptr<TqxAssetsModel> FModel;
  TqxIdeEventsListener* FIdeEvents;
  std::unique_ptr<TqxAssetTree> FTree;
  std::unique_ptr<TqxDesignerCommands> FCommands;
  std::unique_ptr<TqxAssetViews> FViews;
};

}  // namespace qx
