#pragma once

#include <QHash>
#include <QObject>
#include <QTimer>
#include <memory>

#include "platform/ui/clipboard.h"
#include "platform/ui/main_thread_queue.h"
#include "platform/ui/qt/qt_actions.h"
#include "platform/ui/qt/qt_dialogs.h"
#include "platform/ui/qt/qt_popups.h"
#include "platform/ui/timer.h"

namespace qx {

// Posts to the event loop of the application's main thread.
class TqxQtMainThreadQueue : public IqxMainThreadQueue {
public:
  void Post(std::function<void()> proc) override;
};

class TqxQtTimerService : public IqxTimerService {
public:
  ~TqxQtTimerService() override;
  int Start(int intervalMs, std::function<void()> onTick) override;
  void Stop(int id) override;

private:
  QHash<int, QTimer*> FTimers;
  int FNextId = 1;
};

class TqxQtClipboard : public IqxClipboardService {
public:
  void SetText(const std::string& text) override;
  std::string GetText() override;
};

// Installs the Qt services and the idle pump for its lifetime, and puts back
// what was installed before. Made after the QApplication.
class TqxQtUi {
public:
  TqxQtUi();
  ~TqxQtUi();
  TqxQtUi(const TqxQtUi&) = delete;
  TqxQtUi& operator=(const TqxQtUi&) = delete;

  TqxQtDialogService Dialogs;
  TqxQtMainThreadQueue Queue;
  TqxQtTimerService Timers;
  TqxQtClipboard Clipboard;
  TqxQtPopupService Popups;

private:
  std::unique_ptr<TqxQtIdlePump> FIdlePump;
  IqxDialogService* FOldDialogs;
  IqxClipboardService* FOldClipboard;
  IqxPopupService* FOldPopups;
  IqxMainThreadQueue* FOldQueue;
  IqxTimerService* FOldTimers;
};

}  // namespace qx
