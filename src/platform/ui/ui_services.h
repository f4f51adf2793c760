#pragma once

#include "platform/ui/clipboard.h"
#include "platform/ui/dialog_service.h"
#include "platform/ui/main_thread_queue.h"
#include "platform/ui/popup_service.h"
#include "platform/ui/timer.h"

namespace qx {

// The platform services the forms use, installed by the application (or a
// test) and borrowed, never owned, here. The queue and the timers fall back to
// manual ones, so code runs without an event loop; dialogs and the clipboard
// are absent until installed, and callers check for them; so are popups.
class TqxUiServices {
public:
  static TqxUiServices& Instance();

  IqxDialogService* Dialogs() const { return FDialogs; }
  IqxClipboardService* Clipboard() const { return FClipboard; }
  IqxPopupService* Popups() const { return FPopups; }
  IqxMainThreadQueue& Queue() const { return FQueue ? *FQueue : FDefaultQueue; }
  IqxTimerService& Timers() const { return FTimers ? *FTimers : FDefaultTimers; }

  void SetDialogs(IqxDialogService* value) { FDialogs = value; }
  void SetClipboard(IqxClipboardService* value) { FClipboard = value; }
  void SetPopups(IqxPopupService* value) { FPopups = value; }
  void SetQueue(IqxMainThreadQueue* value) { FQueue = value; }
  void SetTimers(IqxTimerService* value) { FTimers = value; }

private:
  IqxDialogService* FDialogs = nullptr;
  IqxClipboardService* FClipboard = nullptr;
  IqxPopupService* FPopups = nullptr;
  IqxMainThreadQueue* FQueue = nullptr;
  IqxTimerService* FTimers = nullptr;
  mutable TqxManualQueue FDefaultQueue;
  mutable TqxManualClock FDefaultTimers;
};

}  // namespace qx
