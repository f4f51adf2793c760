#pragma once

#include <functional>
#include <map>

namespace qx {

// Repeating timers on the main thread's event loop.
class IqxTimerService {
public:
  virtual ~IqxTimerService() = default;
  // Calls onTick every intervalMs until stopped; answers an id for Stop.
  virtual int Start(int intervalMs, std::function<void()> onTick) = 0;
  virtual void Stop(int id) = 0;
};

// A timer component: while enabled with a positive interval it fires OnTimer
// every Interval milliseconds, on the main thread. It starts disabled.
class TTimer {
public:
  TTimer() = default;
  TTimer(const TTimer&) = delete;
  TTimer& operator=(const TTimer&) = delete;
  ~TTimer();

  bool Enabled() const { return FEnabled; }
  void SetEnabled(bool value);
  int Interval() const { return FInterval; }
  void SetInterval(int value);
  // Starts the interval afresh, as disabling and enabling again does.
  void Restart();

  std::function<void(TTimer* sender)> OnTimer;

private:
  void Arm();
  void Disarm();

  bool FEnabled = false;
  int FInterval = 1000;
  IqxTimerService* FService = nullptr;
  int FId = 0;
};

// Timers driven by a clock that only moves when a test advances it.
class TqxManualClock : public IqxTimerService {
public:
  int Start(int intervalMs, std::function<void()> onTick) override;
  void Stop(int id) override;

  long long Now() const { return FNow; }
  // Moves the clock on, firing each due timer at its time, earliest first.
  void Advance(int ms);
  int ActiveCount() const { return static_cast<int>(FTimers.size()); }

private:
  struct TEntry {
    int Interval;
    long long Due;
    std::function<void()> OnTick;
  };
  long long FNow = 0;
  int FNextId = 1;
  std::map<int, TEntry> FTimers;
};

}  // namespace qx
