#pragma once

#include <memory>
#include <string>

#include "platform/host/ide_services.h"
#include "platform/host/notifier.h"
#include "platform/ui/action.h"
#include "platform/ui/menu_item.h"

namespace qx {

// Puts "Quorvex Assets Manager" behind the IDE's Project menu item
// "ProjectViewResourcesItem"; the item shows only for the framework's projects.
class TqxWizardAssetsManager : public IOTAWizard, public TNotifierObject {
public:
  static constexpr const char* kIDString = "Quorvex.View.AssetsManager.TqxOpenAssetsManagerMenuItem";

  // Raises Exception when the IDE lacks INTAService or INTAEditorViewServices.
  TqxWizardAssetsManager();
  ~TqxWizardAssetsManager() override;

  std::string GetIDString() override { return kIDString; }
  std::string GetName() override { return kIDString; }
  unsigned GetState() override { return wsEnabled; }
  void Execute() override {}

  TAction* OpenAction() const { return FOpenAction.get(); }
  TMenuItem* OpenMenuItem() const { return FOpenMenuItem.get(); }
  int BaseImageEditorIndex() const { return FBaseImageEditorIndex; }

private:
  void OpenAssetManagerClickHandler(TAction* Sender);
  void OpenAssetManagerUpdateHandler(TAction* Sender);

  // Declared first so that the item goes before its action.
  std::unique_ptr<TAction> FOpenAction;
  std::unique_ptr<TMenuItem> FOpenMenuItem;
  int FBaseImageEditorIndex = -1;
};

}  // namespace qx
