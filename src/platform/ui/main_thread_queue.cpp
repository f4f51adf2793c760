#include "platform/ui/main_thread_queue.h"

#include "platform/ui/ui_services.h"

namespace qx {

int TqxManualQueue::ProcessQueue() {
  int count = static_cast<int>(FItems.size());
  for (int i = 0; i < count; ++i) {
    auto proc = std::move(FItems.front());
    FItems.pop_front();
    proc();
  }
  return count;
}

int TqxManualQueue::ProcessAll(int maxRounds) {
  int total = 0;
  for (int round = 0; round < maxRounds && !FItems.empty(); ++round) total += ProcessQueue();
  return total;
}

void TThread::ForceQueue(TThread*, std::function<void()> proc) {
  TqxUiServices::Instance().Queue().Post(std::move(proc));
}

}  // namespace qx
