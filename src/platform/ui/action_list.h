#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/ui/action.h"

namespace qx {

class TCustomImageList;

// Owns a form's actions and runs their updates on each idle pass while it lives.
class TActionList {
public:
  // Runs first on each idle pass; setting handled skips the actions' own OnUpdate.
  using TActionListUpdateEvent = std::function<void(TAction* action, bool& handled)>;

  TActionList();
  TActionList(const TActionList&) = delete;
  TActionList& operator=(const TActionList&) = delete;
  ~TActionList();

  // Takes the action; answers it for further set-up.
  TAction* Add(std::unique_ptr<TAction> action);
  TAction* Add(const std::string& name);
  TAction* Find(const std::string& name) const;
  int Count() const { return static_cast<int>(FActions.size()); }
  TAction* Actions(int index) const { return FActions.at(index).get(); }

  // Not owned; what shows the actions takes their images from it.
  TCustomImageList* Images = nullptr;

  TActionListUpdateEvent OnUpdate;

  // One idle pass over the list.
  void UpdateActions();

private:
  std::vector<std::unique_ptr<TAction>> FActions;
  int FIdleId = 0;
};

// The application's idle passes. The event loop (or a test) calls DoIdle when
// nothing else is waiting; every subscriber then refreshes its state.
class TqxIdle {
public:
  static TqxIdle& Instance();

  int Subscribe(std::function<void()> handler);
  void Unsubscribe(int id);
  void DoIdle();

private:
  std::vector<std::pair<int, std::function<void()>>> FHandlers;
  int FNextId = 1;
  bool FRunning = false;
};

}  // namespace qx
