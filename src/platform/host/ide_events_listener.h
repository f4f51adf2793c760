#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>

#include "platform/core/assets/assets_manager.h"
#include "platform/host/guid.h"
#include "platform/host/message_manager.h"
#include "platform/host/project.h"

namespace qx {

// Keeps the IDE-wide assets manager of each open project, under the project's
// GUID: made and filled from the project's Assets\config.json when the project
// opens, made current when its project is the active one, and dropped when the
// project has gone and the designer has finished with it.
//
// A going project's manager stays until a TqxCanRemoveAssetsManager for it
// arrives: the designer may still save into it while the project closes. The
// listener posts that message itself when the project goes, so the manager is
// dropped after the closing is over even when no designer was open.
class TqxIdeEventsListener {
public:
  using TConfigLoader = std::function<void(TqxAssetsManager& manager, const std::string& fileName)>;

  static TqxIdeEventsListener& Instance();

  explicit TqxIdeEventsListener(TMessageManager& messages = TMessageManager::DefaultManager());
  ~TqxIdeEventsListener();
  TqxIdeEventsListener(const TqxIdeEventsListener&) = delete;
  TqxIdeEventsListener& operator=(const TqxIdeEventsListener&) = delete;

  // Subscribes to project openings and removal requests. The application calls
  // it before the package's Register, so that a project's manager exists when
  // the package hears of the opening.
  void Initialize();
  // Unsubscribes, lets go of the projects and drops every manager.
  void Finalize();

  // The manager of the project with this GUID, or nullptr.
  TqxAssetsManager* FindAssetsManager(const TGUID& projectGuid) const;
  bool TryGetAssetsManager(const TGUID& projectGuid, TqxAssetsManager*& manager) const;
  std::size_t Count() const { return FEntries.size(); }

  // What the opening message does: a manager for the project (a fresh one when
  // it had one), filled by FLoadConfig from Assets\config.json beside the
  // project file when that file exists. A failing load goes to the log.
  void ProjectOpened(const std::shared_ptr<IOTAProject>& project);
  // Makes the project's manager the current one (nullptr for no project).
  void ActiveProjectChanged(const std::shared_ptr<IOTAProject>& project);

  // Reads a config file into a manager: the framework's factory unless set otherwise.
  TConfigLoader FLoadConfig;

private:
  class TProjectNotifier;
  struct TEntry {
    std::unique_ptr<TqxAssetsManager> Manager;
    std::weak_ptr<IOTAProject> Project;
    int NotifierId = -1;
    bool Closing = false;
  };

  void ProjectDestroyed(const TGUID& projectGuid);
  void CanRemove(const TGUID& projectGuid);
  void Drop(std::map<TGUID, TEntry>::iterator it);

  TMessageManager& FMessages;
  std::map<TGUID, TEntry> FEntries;
  int FOpenedSubscription = -1;
  int FCanRemoveSubscription = -1;
};

}  // namespace qx
