#include "platform/ui/headless_ui.h"

#include "platform/ui/ui_services.h"

namespace qx {

TqxHeadlessUi::TqxHeadlessUi() {
  auto& services = TqxUiServices::Instance();
  FOldDialogs = services.Dialogs();
  FOldClipboard = services.Clipboard();
  FOldPopups = services.Popups();
  FOldQueue = &services.Queue();
  FOldTimers = &services.Timers();
  services.SetDialogs(&Dialogs);
  services.SetClipboard(&Clipboard);
  services.SetPopups(&Popups);
  services.SetQueue(&Queue);
  services.SetTimers(&Clock);
}

TqxHeadlessUi::~TqxHeadlessUi() {
  auto& services = TqxUiServices::Instance();
  services.SetDialogs(FOldDialogs);
  services.SetClipboard(FOldClipboard);
  services.SetPopups(FOldPopups);
  services.SetQueue(FOldQueue);
  services.SetTimers(FOldTimers);
}

}  // namespace qx
