#pragma once

#include <memory>
#include <string>

#include "designer/frame_asset_manager.h"
#include "platform/host/filesystem/dproj_project.h"

namespace qx::cli {

// A project opened as the IDE opens it with the assets designer on it: the
// project over its .dproj file, its IDE-wide assets manager, and a designer
// document loaded from its assets folder. Commands change the document's
// model and end with Save, so the folder, the config files, the constants
// unit and the deployment entries always agree.
class TqxDesignerSession {
public:
  // Raises Exception for a project that can't be opened or a config that
  // can't be read.
  explicit TqxDesignerSession(const std::string& projectFileName);
  ~TqxDesignerSession();
  TqxDesignerSession(const TqxDesignerSession&) = delete;
  TqxDesignerSession& operator=(const TqxDesignerSession&) = delete;

  TFrameAssetManager& Designer() { return *FDesigner; }
  TqxAssetsModel& Model() { return FDesigner->Model(); }
  TqxDprojProject& Project() { return *FProject; }

  // The designer's save, then the project file written with what the save
  // changed in it (units, deployment entries).
  void Save();

private:
  std::shared_ptr<TqxDprojProject> FProject;
  std::unique_ptr<TFrameAssetManager> FDesigner;
};

}  // namespace qx::cli
