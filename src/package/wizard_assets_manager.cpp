#include "package/wizard_assets_manager.h"

#include "package/assets_manager_view.h"
#include "package/designer_data_module.h"
#include "platform/core/base/exception.h"

namespace qx {

namespace {


Exception MissingService(const std::string& name) {
  return Exception("Cannot create Assets Manager menu Item in MainMenu. Sevice " + name + " is unavailable");
}

}  // namespace

TqxWizardAssetsManager::TqxWizardAssetsManager() {
  auto services = TqxIdeServices::Instance().NTAService();
  if (!services) throw MissingService("INTAService");

  FOpenAction = std::make_unique<TAction>();
  FOpenAction->SetCaption("Quorvex Assets Manager");
  FOpenAction->OnExecute = [this](TAction* sender) { OpenAssetManagerClickHandler(sender); };
  FOpenAction->OnUpdate = [this](TAction* sender) { OpenAssetManagerUpdateHandler(sender); };

  FOpenMenuItem = std::make_unique<TMenuItem>();
  services->AddActionMenu("ProjectViewResourcesItem", FOpenAction.get(), FOpenMenuItem.get(), true, false);
  FOpenMenuItem->SetAction(FOpenAction.get());

  auto editorViews = TqxIdeServices::Instance().NTAEditorViewServices();
  if (!editorViews) throw MissingService("INTAEditorViewServices");
  InitializeDesignerDataModule();
  FBaseImageEditorIndex = editorViews->AddImages(&DesignerDataModule()->ImageListTabs, "Quorvex");
}

TqxWizardAssetsManager::~TqxWizardAssetsManager() {
  FOpenMenuItem.reset();
  FOpenAction.reset();
}

void TqxWizardAssetsManager::OpenAssetManagerClickHandler(TAction*) { OpenAssetsManagerDesigner(""); }

void TqxWizardAssetsManager::OpenAssetManagerUpdateHandler(TAction* Sender) {
  auto project = GetActiveProject();
  // Case-sensitive: "XFM" or "fmx" projects get no item.
  const bool isOurs = project && project->GetFrameworkType() == "xfm";
  Sender->SetEnabled(isOurs);
  Sender->SetVisible(isOurs);
}

}  // namespace qx
