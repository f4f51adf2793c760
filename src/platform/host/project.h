#pragma once

#include <memory>
#include <string>

#include "platform/host/guid.h"
#include "platform/host/notifier.h"
#include "platform/host/project_deployment.h"

namespace qx {

// A file that belongs to a project.
class IOTAModuleInfo {
public:
  virtual ~IOTAModuleInfo() = default;
  // Full path of the file.
  virtual std::string GetFileName() const = 0;
};

// A project open in the IDE.
class IOTAProject {
public:
  virtual ~IOTAProject() = default;

  // Full path of the project file.
  virtual std::string GetFileName() const = 0;
  // Stable key of the project while it is open.
  virtual TGUID GetProjectGUID() const = 0;
  // Compared case-sensitively by callers ("xfm" for the framework's projects).
  virtual std::string GetFrameworkType() const = 0;

  // The module of a full file name, or nullptr when the project has none. A
  // unit is found by its file name wherever the project keeps it; the module
  // info gives the name it really has.
  virtual std::shared_ptr<IOTAModuleInfo> FindModuleInfo(const std::string& fileName) const = 0;
  // The file joins the project; a failure raises Exception.
  virtual void AddFile(const std::string& fileName, bool isUnit) = 0;
  virtual void MarkModified() = 0;

  // Returns the id for RemoveNotifier. Destroyed comes while the project still
  // answers for its file name and GUID.
  virtual int AddNotifier(std::shared_ptr<IOTAModuleNotifier> notifier) = 0;
  virtual void RemoveNotifier(int id) = 0;

  // The deployment manager, or nullptr for a project that has none.
  virtual std::shared_ptr<IProjectDeployment> GetProjectDeployment() = 0;
};

// The IDE's Supports on a project: the service, or false and a cleared pointer.
inline bool Supports(const std::shared_ptr<IOTAProject>& project,
                     std::shared_ptr<IProjectDeployment>& deployment) {
  deployment = project ? project->GetProjectDeployment() : nullptr;
  return deployment != nullptr;
}

}  // namespace qx
