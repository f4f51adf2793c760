#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/host/filesystem/dproj_project.h"
#include "platform/host/ide_services.h"
#include "platform/host/message_manager.h"

namespace qx {

// The projects open in the application that plays the IDE, each over its
// .dproj file.
class TqxFileSystemHost : public IOTAModuleServices {
public:
  explicit TqxFileSystemHost(TMessageManager& messages = TMessageManager::DefaultManager());
  ~TqxFileSystemHost() override;

  // Opens the project, makes it the active one, and sends a
  // TqxProjectOpenedMessage with it. A project that is open already just
  // becomes active again. Raises Exception for a file that isn't a project.
  std::shared_ptr<TqxDprojProject> OpenProject(const std::string& fileName);
  // Its notifiers hear Destroyed while it still answers; then it goes. The
  // active project becomes the last opened of those left.
  void CloseProject(const std::shared_ptr<IOTAProject>& project);
  void CloseAll();

  std::shared_ptr<IOTAProject> GetActiveProject() override;
  void SetActiveProject(const std::shared_ptr<IOTAProject>& project);
  const std::vector<std::shared_ptr<TqxDprojProject>>& Projects() const { return FProjects; }
  std::shared_ptr<TqxDprojProject> FindProject(const std::string& fileName) const;

  // Told of each change of the active project (nullptr when none is left).
  std::function<void(const std::shared_ptr<IOTAProject>& project)> FOnActiveProjectChanged;

private:
  void SetActive(std::shared_ptr<TqxDprojProject> project);

  TMessageManager& FMessages;
  std::vector<std::shared_ptr<TqxDprojProject>> FProjects;
  std::shared_ptr<TqxDprojProject> FActive;
};

}  // namespace qx
