#include "platform/ui/action_list.h"

#include <algorithm>

namespace qx {

TActionList::TActionList() {
  FIdleId = TqxIdle::Instance().Subscribe([this] { UpdateActions(); });
}

TActionList::~TActionList() { TqxIdle::Instance().Unsubscribe(FIdleId); }

TAction* TActionList::Add(std::unique_ptr<TAction> action) {
  FActions.push_back(std::move(action));
  return FActions.back().get();
}

TAction* TActionList::Add(const std::string& name) {
  return Add(std::make_unique<TAction>(name));
}

TAction* TActionList::Find(const std::string& name) const {
  for (auto& action : FActions)
    if (action->Name == name) return action.get();
  return nullptr;
}

void TActionList::UpdateActions() {
  for (auto& action : FActions) {
    bool handled = false;
    if (OnUpdate) OnUpdate(action.get(), handled);
    if (!handled) action->Update();
  }
}

TqxIdle& TqxIdle::Instance() {
  static TqxIdle instance;
  return instance;
}

int TqxIdle::Subscribe(std::function<void()> handler) {
  int id = FNextId++;
  FHandlers.emplace_back(id, std::move(handler));
  return id;
}

void TqxIdle::Unsubscribe(int id) {
  std::erase_if(FHandlers, [id](const auto& entry) { return entry.first == id; });
}

void TqxIdle::DoIdle() {
  // An update that opens a modal loop must not start a nested pass.
  if (FRunning) return;
  FRunning = true;
  struct Reset {
    bool& flag;
    ~Reset() { flag = false; }
  } reset{FRunning};
  // Handlers may subscribe or unsubscribe others; run those present at the start
  // and still subscribed when their turn comes.
  std::vector<int> ids;
  for (auto& entry : FHandlers) ids.push_back(entry.first);
  for (int id : ids) {
    auto it = std::find_if(FHandlers.begin(), FHandlers.end(),
                           [id](const auto& entry) { return entry.first == id; });
    if (it == FHandlers.end()) continue;
    auto handler = it->second;
    handler();
  }
}

}  // namespace qx
