#include "platform/host/ide_events_listener.h"

#include <filesystem>

#include "platform/core/assets/assets_factory.h"
#include "platform/core/base/assert.h"
#include "platform/core/base/log.h"
#include "platform/host/ide_messages.h"

namespace qx {

namespace {

const char* kLogTag = "AssetsDesigner";

std::string ConfigFileOf(const IOTAProject& project) {
  return (std::filesystem::path(project.GetFileName()).parent_path() / "Assets" / "config.json")
      .string();
}

}  // namespace

// Follows one project for the listener, to learn when it goes.
class TqxIdeEventsListener::TProjectNotifier : public TNotifierObject {
public:
  TProjectNotifier(TqxIdeEventsListener& owner, TGUID guid) : FOwner(owner), FGuid(guid) {}
  void Destroyed() override { FOwner.ProjectDestroyed(FGuid); }

private:
  TqxIdeEventsListener& FOwner;
  TGUID FGuid;
};

TqxIdeEventsListener& TqxIdeEventsListener::Instance() {
  static TqxIdeEventsListener listener;
  return listener;
}

TqxIdeEventsListener::TqxIdeEventsListener(TMessageManager& messages)
    : FLoadConfig(&TqxAssetsFactory::LoadFromFile), FMessages(messages) {}

TqxIdeEventsListener::~TqxIdeEventsListener() { Finalize(); }

void TqxIdeEventsListener::Initialize() {
  if (FOpenedSubscription != -1) return;
  FOpenedSubscription = FMessages.SubscribeToMessage<TqxProjectOpenedMessage>(
      [this](const void*, const TMessageBase& message) {
        ProjectOpened(static_cast<const TqxProjectOpenedMessage&>(message).Value());
      });
  FCanRemoveSubscription = FMessages.SubscribeToMessage<TqxCanRemoveAssetsManager>(
      [this](const void*, const TMessageBase& message) {
        CanRemove(static_cast<const TqxCanRemoveAssetsManager&>(message).Value());
      });
}

void TqxIdeEventsListener::Finalize() {
  if (FOpenedSubscription != -1) FMessages.Unsubscribe(FOpenedSubscription);
  if (FCanRemoveSubscription != -1) FMessages.Unsubscribe(FCanRemoveSubscription);
  FOpenedSubscription = FCanRemoveSubscription = -1;
  while (!FEntries.empty()) Drop(FEntries.begin());
}

TqxAssetsManager* TqxIdeEventsListener::FindAssetsManager(const TGUID& projectGuid) const {
  auto it = FEntries.find(projectGuid);
  return it != FEntries.end() ? it->second.Manager.get() : nullptr;
}

bool TqxIdeEventsListener::TryGetAssetsManager(const TGUID& projectGuid,
                                               TqxAssetsManager*& manager) const {
  manager = FindAssetsManager(projectGuid);
  return manager != nullptr;
}

void TqxIdeEventsListener::ProjectOpened(const std::shared_ptr<IOTAProject>& project) {
  TqxAssert::IsNotNil(project.get(), "AProject");
  const TGUID guid = project->GetProjectGUID();
  if (auto it = FEntries.find(guid); it != FEntries.end()) Drop(it);

  TEntry& entry = FEntries[guid];
  entry.Manager = std::make_unique<TqxAssetsManager>();
  entry.Project = project;
  entry.NotifierId = project->AddNotifier(std::make_shared<TProjectNotifier>(*this, guid));

  const std::string configFileName = ConfigFileOf(*project);
  if (FLoadConfig && std::filesystem::exists(configFileName)) {
    try {
      FLoadConfig(*entry.Manager, configFileName);
    } catch (const std::exception& e) {
      TqxLog::Error(kLogTag, "Cannot load project assets: configFileName=\"%s\", error=\"%s\"",
                    {configFileName, e.what()});
    }
  }
  ActiveProjectChanged(project);
}

void TqxIdeEventsListener::ActiveProjectChanged(const std::shared_ptr<IOTAProject>& project) {
  TqxAssetsManager::SetCurrent(project ? FindAssetsManager(project->GetProjectGUID()) : nullptr);
}

void TqxIdeEventsListener::ProjectDestroyed(const TGUID& projectGuid) {
  auto it = FEntries.find(projectGuid);
  if (it == FEntries.end()) return;
  it->second.Closing = true;
  // Dropped once the closing is over, unless the designer says so earlier.
  FMessages.PostMessage(this, std::make_shared<TqxCanRemoveAssetsManager>(projectGuid));
}

void TqxIdeEventsListener::CanRemove(const TGUID& projectGuid) {
  auto it = FEntries.find(projectGuid);
  // A project opened again under the same GUID keeps its new manager.
  if (it != FEntries.end() && it->second.Closing) Drop(it);
}

void TqxIdeEventsListener::Drop(std::map<TGUID, TEntry>::iterator it) {
  TEntry& entry = it->second;
  if (auto project = entry.Project.lock(); project && entry.NotifierId != -1)
    project->RemoveNotifier(entry.NotifierId);
  if (TqxAssetsManager::GetCurrent() == entry.Manager.get()) TqxAssetsManager::SetCurrent(nullptr);
  FEntries.erase(it);
}

}  // namespace qx
