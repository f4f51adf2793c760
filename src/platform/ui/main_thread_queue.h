#pragma once

#include <deque>
#include <functional>

namespace qx {

// Work posted to run later on the main thread, after the current event.
class IqxMainThreadQueue {
public:
  virtual ~IqxMainThreadQueue() = default;
  virtual void Post(std::function<void()> proc) = 0;
};

// The queue of a program without an event loop: whoever drives it (a test, a
// command-line tool) drains it.
class TqxManualQueue : public IqxMainThreadQueue {
public:
  void Post(std::function<void()> proc) override { FItems.push_back(std::move(proc)); }
  // Runs what is queued now, in order; work those steps queue waits for the
  // next call, as it would wait for the next turn of an event loop.
  int ProcessQueue();
  // Drains until nothing is left or maxRounds turns have run.
  int ProcessAll(int maxRounds = 100);
  int Count() const { return static_cast<int>(FItems.size()); }

private:
  std::deque<std::function<void()>> FItems;
};

class TThread {
public:
  // Queues proc to the main thread even when called on it; the thread argument
  // is kept for the callers' shape and is always nil here.
  static void ForceQueue(TThread* thread, std::function<void()> proc);
};

}  // namespace qx
