#include "package/registration.h"

#include <memory>

#include "frames/register_frames.h"
#include "generators/assets_deployment.h"
#include "kinds/assets_editors_manager.h"
#include "package/assets_manager_view.h"
#include "package/designer_data_module.h"
#include "package/wizard_assets_manager.h"
#include "platform/host/ide_services.h"

namespace qx {

void Register() {
  // What the package's units set up when it loads: the asset kinds, the table
  // of open designer views (a function-local table, ready on first use) and
  // the shared images. The kinds' edit frames follow the kinds.
  RegisterAssetEditors();
  RegisterAssetEditorFrames();
  AssetsManagerViews();
  InitializeDesignerDataModule();

  // Joining as their classes arrive, in front of the wizard and in this
  // order: the class group of the framework's components, the palette pages,
  // the component, property and selection editors, the structure-pane sprigs.
  RegisterPackageWizard(std::make_shared<TqxWizardAssetsManager>());
  RegisterAssetsDeployment();
  // Joins later, behind the deployment: the device skins.
}

void UnregisterPackage() {
  UnregisterAssetsDeployment();
  FinalizeAssetsManagerViews();
  FinalizeDesignerDataModule();
}

}  // namespace qx
