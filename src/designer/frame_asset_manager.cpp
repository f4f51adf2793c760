#include "designer/frame_asset_manager.h"

#include <filesystem>

#include "designer/asset_tree.h"
#include "designer/asset_views.h"
#include "designer/designer_commands.h"
#include "generators/assets_consts_generator.h"
#include "generators/assets_deployment.h"
#include "platform/core/assets/assets_factory.h"
#include "platform/core/base/log.h"
#include "platform/host/ide_events_listener.h"

namespace qx {
namespace fs = std::filesystem;

namespace {

// Clears a flag when the scope ends, exception or not.
class TStateScope {
public:
  TStateScope(TqxStates& states, TqxState state) : FStates(states), FState(state) { FStates.Include(state); }
  ~TStateScope() { FStates.Exclude(FState); }
  TStateScope(const TStateScope&) = delete;
  TStateScope& operator=(const TStateScope&) = delete;

private:
  TqxStates& FStates;
  TqxState FState;
};

}  // namespace

TFrameAssetManager::TFrameAssetManager()
    : FModel(std::make_unique<TqxAssetsModel>()), FIdeEvents(&TqxIdeEventsListener::Instance()) {
  FModel->FOnAssetChanged = [this](const TqxAssetName& name, TqxAssetOperation operation) {
    AssetsChangedHandler(name, operation);
  };
  FModel->FOnAssetRenamed = [this](const TqxAssetName& oldName, const TqxAssetName& newName) {
    AssetRenamedHandler(oldName, newName);
  };
  FTree = std::make_unique<TqxAssetTree>(*this);
  FCommands = std::make_unique<TqxDesignerCommands>(*this, *FTree);
  FViews = std::make_unique<TqxAssetViews>(*this);
  FOnLoad = [this] { FTree->Build(); };
  FOnAssetChanged = [this](const TqxAssetName& name, TqxAssetOperation operation) {
    FTree->AssetsChangedHandler(name, operation);
  };
  FOnAssetRenamed = [this](const TqxAssetName& oldName, const TqxAssetName& newName) {
    FTree->AssetRenamedHandler(oldName, newName);
  };
}

TFrameAssetManager::~TFrameAssetManager() = default;

void TFrameAssetManager::SetProject(const std::shared_ptr<IOTAProject>& AProject) {
  FProject = AProject;
  FProjectGUID = AProject ? AProject->GetProjectGUID() : TGUID{};
  Load();
}

std::string TFrameAssetManager::GetConfigFileName() const {
  const auto project = FProject.lock();
  const fs::path projectFile = project ? project->GetFileName() : std::string();
  return (projectFile.parent_path() / "Assets" / "config.json").string();
}

void TFrameAssetManager::Load() {
  const std::string configFileName = GetConfigFileName();
  const auto project = FProject.lock();
  TqxLog::Trace(kLogTag,
                "Загрузка ассетов в локальный ассет-менеджер: projectFileName=\"%s\", configFileName=\"%s\"",
                {project ? project->GetFileName() : std::string(), configFileName});
  FModel->LoadFromFile(configFileName);
  FModel->CleanUp();
  TStateScope loading(FState, TqxState::Loading);
  if (FOnLoad) FOnLoad();
}

void TFrameAssetManager::Save(bool AIsProjectDestroying) {
  const std::string configFileName = GetConfigFileName();
  TqxAssetsManager* ideManager = FIdeEvents ? FIdeEvents->FindAssetsManager(FProjectGUID) : nullptr;
  if (ideManager != nullptr) {
    try {
      ideManager->Clear();
    } catch (...) {
      // The IDE-wide manager is refilled below; a failed clear changes nothing for the save.
    }
  }
  FModel->SaveToFile(configFileName);
  FModel->LoadFromFile(configFileName);
  if (!AIsProjectDestroying) AddToDeploy();

  const auto project = FProject.lock();
  if (project) {
    project->MarkModified();
    TqxLog::Trace(kLogTag,
                  "Перенос ассет-менеджера из локального в проект: projectFileName=\"%s\", configFileName=\"%s\"",
                  {project->GetFileName(), configFileName});
  }
  if (ideManager != nullptr) TqxAssetsFactory::LoadFromFile(*ideManager, configFileName);
  // The generator reads the IDE-wide manager, so it comes after its reload.
  if (project) TqxAssetsConstsGenerator::GenerateAssetsConsts(project, AIsProjectDestroying);
}

void TFrameAssetManager::AddToDeploy() {
  TqxAssetsDeployment deployment(FProject.lock());
  deployment.AddToDeploy(&GetAssetsManager());
}

void TFrameAssetManager::AssetsChangedHandler(const TqxAssetName& AName, TqxAssetOperation AOperation) {
  if (FOnAssetChanged) FOnAssetChanged(AName, AOperation);
  MarkModified();
}

void TFrameAssetManager::AssetRenamedHandler(const TqxAssetName& AOldName, const TqxAssetName& ANewName) {
  TStateScope renaming(FState, TqxState::Renaming);
  if (FOnAssetRenamed) FOnAssetRenamed(AOldName, ANewName);
}

void TFrameAssetManager::MarkModified() {
  if (GetModified()) return;
  FState.Include(TqxState::Modified);
  if (FOnModifiedChanged) FOnModifiedChanged();
}

void TFrameAssetManager::ClearModified() {
  if (!GetModified()) return;
  FState.Exclude(TqxState::Modified);
  if (FOnModifiedChanged) FOnModifiedChanged();
}

}  // namespace qx
