#include "platform/ui/action.h"

#include <vector>

namespace qx {

void TAction::SetCaption(const std::string& value) {
  if (FCaption == value) return;
  FCaption = value;
  Changed();
}

void TAction::SetHint(const std::string& value) {
  if (FHint == value) return;
  FHint = value;
  Changed();
}

void TAction::SetImageIndex(int value) {
  if (FImageIndex == value) return;
  FImageIndex = value;
  Changed();
}

void TAction::SetEnabled(bool value) {
  if (FEnabled == value) return;
  FEnabled = value;
  Changed();
}

void TAction::SetVisible(bool value) {
  if (FVisible == value) return;
  FVisible = value;
  Changed();
}

void TAction::SetChecked(bool value) {
  if (FChecked == value) return;
  FChecked = value;
  Changed();
}

bool TAction::Execute() {
  // A shortcut or a stale button may fire between idle passes: refresh first.
  Update();
  if (!FEnabled || !FVisible || !OnExecute) return false;
  OnExecute(this);
  return true;
}

void TAction::Update() {
  if (OnUpdate) OnUpdate(this);
}

int TAction::Subscribe(std::function<void()> onChange) {
  int id = FNextSubscriber++;
  FSubscribers.emplace(id, std::move(onChange));
  return id;
}

void TAction::Unsubscribe(int id) { FSubscribers.erase(id); }

void TAction::Changed() {
  // A subscriber may unsubscribe while it is told.
  std::vector<std::function<void()>> copy;
  for (auto& [id, fn] : FSubscribers) copy.push_back(fn);
  for (auto& fn : copy) fn();
}

}  // namespace qx
