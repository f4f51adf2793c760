#include "platform/ui/timer.h"

#include "platform/ui/ui_services.h"

namespace qx {

TTimer::~TTimer() { Disarm(); }

void TTimer::SetEnabled(bool value) {
  if (FEnabled == value) return;
  FEnabled = value;
  if (value) {
    Arm();
  } else {
    Disarm();
  }
}

void TTimer::SetInterval(int value) {
  if (FInterval == value) return;
  FInterval = value;
  if (FEnabled) {
    Disarm();
    Arm();
  }
}

void TTimer::Restart() {
  Disarm();
  if (FEnabled) Arm();
}

void TTimer::Arm() {
  if (FInterval <= 0) return;
  FService = &TqxUiServices::Instance().Timers();
  FId = FService->Start(FInterval, [this] {
    if (OnTimer) OnTimer(this);
  });
}

void TTimer::Disarm() {
  if (!FService) return;
  // A service replaced since the timer armed has taken its timers with it.
  if (&TqxUiServices::Instance().Timers() == FService) FService->Stop(FId);
  FService = nullptr;
  FId = 0;
}

int TqxManualClock::Start(int intervalMs, std::function<void()> onTick) {
  int id = FNextId++;
  FTimers[id] = TEntry{intervalMs, FNow + intervalMs, std::move(onTick)};
  return id;
}

void TqxManualClock::Stop(int id) { FTimers.erase(id); }

void TqxManualClock::Advance(int ms) {
  long long target = FNow + ms;
  while (true) {
    auto next = FTimers.end();
    for (auto it = FTimers.begin(); it != FTimers.end(); ++it)
      if (it->second.Due <= target && (next == FTimers.end() || it->second.Due < next->second.Due))
        next = it;
    if (next == FTimers.end()) break;
    FNow = next->second.Due;
    next->second.Due += next->second.Interval;
    // The tick may stop or start timers, so it runs from a copy.
    auto tick = next->second.OnTick;
    tick();
  }
  FNow = target;
}

}  // namespace qx
