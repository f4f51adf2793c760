// The designer's closing question and the widths it keeps between sessions.
#include "designer/asset_tree.h"
#include "designer/designer_commands.h"
#include "designer/frame_asset_manager.h"
#include "platform/host/ide_messages.h"
#include "platform/host/ide_settings.h"
#include "platform/ui/dialog_service.h"

namespace qx {

namespace {

constexpr const char* kClosingQuestion = "The assets designer is closing. Would you like to save all changes?";

}  // namespace

void TFrameAssetManager::LoadUISettings() {
  // A fresh installation keeps the form's own widths.
  auto& settings = TqxIdeSettings::Instance();
  const int treeWidth = settings.GetIntegerValue(TIntegerField::AssetsTreeWidth);
  if (treeWidth > 0) FTree->TreeWidth = treeWidth;
  const int infoWidth = settings.GetIntegerValue(TIntegerField::AssetsTreeSecondColumnWidth);
  if (infoWidth > 0) FTree->VTResources.Header.Columns.at(1).Width = infoWidth;
}

void TFrameAssetManager::SaveUISettings() {
  auto& settings = TqxIdeSettings::Instance();
  settings.SetIntegerValue(TIntegerField::AssetsTreeWidth, FTree->TreeWidth);
  settings.SetIntegerValue(TIntegerField::AssetsTreeSecondColumnWidth, FTree->VTResources.Header.Columns.at(1).Width);
}

bool TFrameAssetManager::CloseQuery(bool AIsProjectDestroying, const void* ASender) {
  bool allowed = true;
  if (GetModified()) {
    switch (MessageDlg(kClosingQuestion, TMsgDlgType::mtConfirmation, mbYesNoCancel)) {
      case mrYes:
        Save(AIsProjectDestroying);
        // The IDE-wide manager of a going project may go now.
        if (AIsProjectDestroying)
          TMessageManager::DefaultManager().SendMessage(ASender, TqxCanRemoveAssetsManager(FProjectGUID));
        break;
      case mrNo:
        break;
      default:
        allowed = false;
        break;
    }
  }
  SaveUISettings();
  return allowed;
}

}  // namespace qx
