#include "platform/ui/popup_service.h"

#include <algorithm>

#include "platform/core/base/exception.h"
#include "platform/ui/headless_popups.h"
#include "platform/ui/ui_services.h"

namespace qx {

void ShowPopup(std::unique_ptr<IqxPopupForm> AForm, const void* AAnchor) {
  auto* service = TqxUiServices::Instance().Popups();
  if (!service) throw Exception("No popup service is installed");
  service->Show(std::move(AForm), AAnchor);
}

bool ClosePopup(IqxPopupForm* AForm) {
  auto* service = TqxUiServices::Instance().Popups();
  return service ? service->Close(AForm) : true;
}

void DismissPopup(IqxPopupForm* AForm) {
  if (auto* service = TqxUiServices::Instance().Popups()) service->Dismiss(AForm);
}

void TqxHeadlessPopups::Show(std::unique_ptr<IqxPopupForm> AForm, const void* AAnchor) {
  if (AForm) FOpen.push_back({std::move(AForm), AAnchor});
}

bool TqxHeadlessPopups::Close(IqxPopupForm* AForm) {
  auto it = std::find_if(FOpen.begin(), FOpen.end(), [&](const TEntry& e) { return e.Form.get() == AForm; });
  if (it == FOpen.end()) return true;
  if (!it->Form->CanClose()) return false;
  // Out of the list before it dies, so a destructor that asks the service
  // finds a consistent list.
  auto form = std::move(it->Form);
  FOpen.erase(it);
  return true;
}

void TqxHeadlessPopups::Dismiss(IqxPopupForm* AForm) {
  auto it = std::find_if(FOpen.begin(), FOpen.end(), [&](const TEntry& e) { return e.Form.get() == AForm; });
  if (it == FOpen.end()) return;
  auto form = std::move(it->Form);
  FOpen.erase(it);
}

const void* TqxHeadlessPopups::AnchorOf(const IqxPopupForm* AForm) const {
  for (auto& entry : FOpen)
    if (entry.Form.get() == AForm) return entry.Anchor;
  return nullptr;
}

}  // namespace qx
