#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/host/editor_view.h"
#include "platform/host/project.h"

namespace qx {

class TAction;
class TMenuItem;

enum TWizardStateFlag : unsigned { wsEnabled = 1, wsChecked = 2 };

// A package's entry point into the IDE; the IDE keeps and frees it.
class IOTAWizard {
public:
  virtual ~IOTAWizard() = default;
  virtual std::string GetIDString() = 0;
  virtual std::string GetName() = 0;
  virtual unsigned GetState() = 0;
  virtual void Execute() = 0;
};

// The IDE's main window services.
class INTAService {
public:
  virtual ~INTAService() = default;
  // Puts the item, bound to the action, beside the IDE's item of that name:
  // behind it when after is true, or as its child when child is true.
  virtual void AddActionMenu(const std::string& targetName, TAction* action, TMenuItem* menuItem,
                             bool after, bool child) = 0;
};

// The projects the IDE has open.
class IOTAModuleServices {
public:
  virtual ~IOTAModuleServices() = default;
  // The active project, or nullptr.
  virtual std::shared_ptr<IOTAProject> GetActiveProject() = 0;
};

// What the IDE offers to packages. The application that plays the IDE fills
// it; an absent service answers nullptr, and callers report that.
class TqxIdeServices {
public:
  static TqxIdeServices& Instance();

  std::shared_ptr<INTAService> NTAService() const { return FNTAService; }
  std::shared_ptr<IOTAEditorViewServices> EditorViewServices() const { return FEditorViewServices; }
  std::shared_ptr<INTAEditorViewServices> NTAEditorViewServices() const {
    return FNTAEditorViewServices;
  }
  std::shared_ptr<IOTAModuleServices> ModuleServices() const { return FModuleServices; }

  void SetNTAService(std::shared_ptr<INTAService> value) { FNTAService = std::move(value); }
  void SetEditorViewServices(std::shared_ptr<IOTAEditorViewServices> value) {
    FEditorViewServices = std::move(value);
  }
  void SetNTAEditorViewServices(std::shared_ptr<INTAEditorViewServices> value) {
    FNTAEditorViewServices = std::move(value);
  }
  void SetModuleServices(std::shared_ptr<IOTAModuleServices> value) {
    FModuleServices = std::move(value);
  }

  // Wizards live until the services are cleared (the IDE's shutdown).
  void RegisterPackageWizard(std::shared_ptr<IOTAWizard> wizard);
  const std::vector<std::shared_ptr<IOTAWizard>>& Wizards() const { return FWizards; }

  // Drops every service and wizard.
  void Clear();

private:
  std::shared_ptr<INTAService> FNTAService;
  std::shared_ptr<IOTAEditorViewServices> FEditorViewServices;
  std::shared_ptr<INTAEditorViewServices> FNTAEditorViewServices;
  std::shared_ptr<IOTAModuleServices> FModuleServices;
  std::vector<std::shared_ptr<IOTAWizard>> FWizards;
};

// The active project of the IDE, or nullptr when there is none.
std::shared_ptr<IOTAProject> GetActiveProject();
void RegisterPackageWizard(std::shared_ptr<IOTAWizard> wizard);

}  // namespace qx
