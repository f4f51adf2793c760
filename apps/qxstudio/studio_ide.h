#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/core/base/log.h"
#include "platform/host/editor_view_host.h"
#include "platform/host/filesystem/file_system_host.h"
#include "platform/ui/action_list.h"
#include "platform/ui/menu_item.h"
#include "recent_projects.h"

namespace qx {

class TqxIdeSettings;

struct TqxLogLine {
  TqxLogLevel Level;
  std::string Tag, Text;
};

// One row of the project pane.
struct TqxProjectEntry {
  std::shared_ptr<IOTAProject> Project;
  std::string Caption;
  bool Active = false;
};

// The IDE that qxstudio plays, without its window: the open projects, the
// editor views, the main menu as items and actions, the recent projects and
// the log. It offers the IDE's services to the package and loads it; the
// window only shows what this holds and forwards the user's clicks.
class TqxStudioIde {
public:
  static constexpr const char* kProjectResourcesItem = "ProjectViewResourcesItem";

  explicit TqxStudioIde(TqxIdeSettings& settings);
  ~TqxStudioIde();
  TqxStudioIde(const TqxStudioIde&) = delete;
  TqxStudioIde& operator=(const TqxStudioIde&) = delete;

  // Installs the services, starts the IDE-wide listener and registers the package.
  void Start();
  // Asks every editor tab to close; false when one of them stays.
  bool CloseAllViews();
  // Closes the projects and unloads the package; the services go last.
  void Shutdown();

  // Opens the project (or makes an open one active) and puts it on the
  // recent list. A file that can't be opened is reported and answers nullptr.
  std::shared_ptr<IOTAProject> OpenProject(const std::string& fileName);
  // The project's designer closes with it, asking about unsaved changes.
  void CloseProject(const std::shared_ptr<IOTAProject>& project);
  void SetActiveProject(const std::shared_ptr<IOTAProject>& project);
  std::vector<TqxProjectEntry> ProjectEntries() const;

  TqxFileSystemHost& Host() { return *FHost; }
  TqxEditorViewHost& Views() { return *FViews; }
  // Closes a shown view through its own question.
  bool CloseView(const INTACustomEditorView& view);
  TqxRecentProjects& Recent() { return FRecent; }
  TqxIdeSettings& Settings() { return FSettings; }
  const std::vector<TqxLogLine>& LogLines() const { return FLogLines; }

  // File and Project, as the window's menu bar shows them; the package puts
  // its item behind kProjectResourcesItem.
  TMenuItem MainMenu;
  TActionList ActionList;
  TAction* ActionOpenProject;
  TAction* ActionCloseProject;
  TAction* ActionExit;

  // The list of projects or the active one changed.
  std::function<void()> FOnProjectsChanged;
  // The menu's entries changed (recent projects, the package's items).
  std::function<void()> FOnMenuChanged;
  std::function<void(const TqxLogLine&)> FOnLogLine;
  std::function<void()> FOnExit;

private:
  class TMainMenuService;
  class TImagesService;

  void CreateActions();
  void CreateMenu();
  void FillRecentMenu();
  void ProjectsChanged();

  TqxIdeSettings& FSettings;
  std::shared_ptr<TqxFileSystemHost> FHost;
  std::shared_ptr<TqxEditorViewHost> FViews;
  std::shared_ptr<TMainMenuService> FMenuService;
  std::shared_ptr<TImagesService> FImagesService;
  TqxRecentProjects FRecent;
  TMenuItem* FRecentMenu = nullptr;
  std::vector<TqxLogLine> FLogLines;
  int FLogSink = 0;
  bool FStarted = false;
};

}  // namespace qx
