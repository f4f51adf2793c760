#include "designer_session.h"

#include <filesystem>

#include "frames/register_frames.h"
#include "kinds/assets_editors_manager.h"
#include "platform/core/base/exception.h"
#include "platform/core/base/text.h"
#include "platform/host/ide_events_listener.h"

namespace qx::cli {

TqxDesignerSession::TqxDesignerSession(const std::string& projectFileName) {
  if (!std::filesystem::is_regular_file(projectFileName)) {
    throw Exception(Format("no project file \"%s\"", {projectFileName}));
  }
  RegisterAssetEditors();
  RegisterAssetEditorFrames();
  FProject = TqxDprojProject::Open(std::filesystem::absolute(projectFileName).lexically_normal().string());
  TqxIdeEventsListener& ide = TqxIdeEventsListener::Instance();
  ide.Initialize();
  ide.ProjectOpened(FProject);
  FDesigner = std::make_unique<TFrameAssetManager>();
  FDesigner->SetProject(FProject);
}

TqxDesignerSession::~TqxDesignerSession() {
  FDesigner.reset();
  TqxIdeEventsListener::Instance().Finalize();
}

void TqxDesignerSession::Save() {
  FDesigner->Save(false);
  FProject->Save();
}

}  // namespace qx::cli
