#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/host/filesystem/dproj_deployment.h"
#include "platform/host/filesystem/dproj_document.h"
#include "platform/host/project.h"

namespace qx {

class TqxDprojModuleInfo : public IOTAModuleInfo {
public:
  explicit TqxDprojModuleInfo(std::string fileName) : FFileName(std::move(fileName)) {}
  std::string GetFileName() const override { return FFileName; }

private:
  std::string FFileName;
};

// A project over a .dproj file. Its GUID (ProjectGuid), framework type
// (FrameworkType) and units (DCCReference items) come from the file. Changes
// (added units, deployment entries) are held until Save, as the IDE holds a
// modified project until the user saves it; Save writes back only what changed.
class TqxDprojProject : public IOTAProject, public std::enable_shared_from_this<TqxDprojProject> {
public:
  // Raises Exception naming the file for a file that can't be read or isn't a project.
  static std::shared_ptr<TqxDprojProject> Open(const std::string& fileName);

  std::string GetFileName() const override { return FFileName; }
  TGUID GetProjectGUID() const override { return FGuid; }
  std::string GetFrameworkType() const override { return FFrameworkType; }
  // The module at that full name, ignoring case; failing that, the unit of the
  // same file name wherever the project keeps it.
  std::shared_ptr<IOTAModuleInfo> FindModuleInfo(const std::string& fileName) const override;
  // Enters the file as a DCCReference (a unit) or a None item, behind the last
  // unit; a file that FindModuleInfo finds is left as it is.
  void AddFile(const std::string& fileName, bool isUnit) override;
  void MarkModified() override;
  int AddNotifier(std::shared_ptr<IOTAModuleNotifier> notifier) override;
  void RemoveNotifier(int id) override;
  std::shared_ptr<IProjectDeployment> GetProjectDeployment() override { return FDeployment; }

  // Full paths of the project's modules, in file order.
  std::vector<std::string> ModuleFileNames() const;
  std::shared_ptr<TqxDprojDeployment> Deployment() const { return FDeployment; }

  // Marked modified, or holding changes that Save would write.
  bool IsModified() const;
  // The file's text as Save would write it.
  std::string PendingText() const;
  // Writes the changes, through a temporary file renamed over the project; with
  // no change nothing is written. On an exception the file is as it was and
  // the changes are still held.
  void Save();
  // Tells every notifier Destroyed, while the project still answers; the host
  // calls it when it closes the project.
  void NotifyDestroyed();

  // Called by MarkModified, for the application's title bar and save command.
  std::function<void()> FOnModified;

private:
  struct TModule {
    std::string FileName;
    bool IsUnit;
  };

  explicit TqxDprojProject(std::unique_ptr<TqxDprojDocument> document);
  void ReadProperties();
  std::string FullPathOf(const std::string& include) const;
  std::string IncludeFor(const std::string& fileName) const;
  std::vector<TModule> Modules() const;

  std::unique_ptr<TqxDprojDocument> FDocument;
  std::shared_ptr<TqxDprojDeployment> FDeployment;
  TqxNotifierList FNotifiers;
  std::string FFileName;
  std::string FDiskText;
  TGUID FGuid;
  std::string FFrameworkType;
  bool FModified = false;
};

}  // namespace qx
