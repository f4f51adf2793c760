#pragma once

#include "platform/ui/clipboard.h"
#include "platform/ui/headless_popups.h"
#include "platform/ui/main_thread_queue.h"
#include "platform/ui/scripted_dialogs.h"
#include "platform/ui/timer.h"

namespace qx {

// Installs scripted dialogs, a manual queue, a manual clock, a memory
// clipboard and headless popups for its lifetime, and puts back what was installed before.
class TqxHeadlessUi {
public:
  TqxHeadlessUi();
  ~TqxHeadlessUi();
  TqxHeadlessUi(const TqxHeadlessUi&) = delete;
  TqxHeadlessUi& operator=(const TqxHeadlessUi&) = delete;

  TqxScriptedDialogs Dialogs;
  TqxManualQueue Queue;
  TqxManualClock Clock;
  TqxMemoryClipboard Clipboard;
  TqxHeadlessPopups Popups;

private:
  IqxDialogService* FOldDialogs;
  IqxClipboardService* FOldClipboard;
  IqxPopupService* FOldPopups;
  IqxMainThreadQueue* FOldQueue;
  IqxTimerService* FOldTimers;
};

}  // namespace qx
