#include "platform/ui/qt/qt_ui_services.h"

#include <QClipboard>
#include <QCoreApplication>
#include <QGuiApplication>

#include "platform/ui/ui_services.h"

namespace qx {

void TqxQtMainThreadQueue::Post(std::function<void()> proc) {
  QMetaObject::invokeMethod(QCoreApplication::instance(), std::move(proc), Qt::QueuedConnection);
}

TqxQtTimerService::~TqxQtTimerService() { qDeleteAll(FTimers); }

int TqxQtTimerService::Start(int intervalMs, std::function<void()> onTick) {
  int id = FNextId++;
  auto* timer = new QTimer;
  timer->setInterval(intervalMs);
  QObject::connect(timer, &QTimer::timeout, timer, std::move(onTick));
  FTimers.insert(id, timer);
  timer->start();
  return id;
}

void TqxQtTimerService::Stop(int id) {
  // The tick that stops its own timer is still running on it: free it later.
  if (QTimer* timer = FTimers.take(id)) {
    timer->stop();
    timer->deleteLater();
  }
}

void TqxQtClipboard::SetText(const std::string& text) {
  QGuiApplication::clipboard()->setText(QString::fromStdString(text));
}

std::string TqxQtClipboard::GetText() { return QGuiApplication::clipboard()->text().toStdString(); }

TqxQtUi::TqxQtUi() : FIdlePump(std::make_unique<TqxQtIdlePump>()) {
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
  services.SetTimers(&Timers);
}

TqxQtUi::~TqxQtUi() {
  auto& services = TqxUiServices::Instance();
  services.SetDialogs(FOldDialogs);
  services.SetClipboard(FOldClipboard);
  services.SetPopups(FOldPopups);
  services.SetQueue(FOldQueue);
  services.SetTimers(FOldTimers);
}

}  // namespace qx
