#include "platform/host/message_manager.h"

#include <algorithm>

#include "platform/core/base/assert.h"

namespace qx {

TMessageManager& TMessageManager::DefaultManager() {
  static TMessageManager manager;
  return manager;
}

int TMessageManager::SubscribeToMessage(std::type_index messageClass, TMessageListener listener) {
  TqxAssert::IsTrue(static_cast<bool>(listener), "AListener is nil");
  int id = FNextId++;
  FSubscriptions.push_back({id, messageClass, std::move(listener)});
  return id;
}

void TMessageManager::Unsubscribe(int id) {
  std::erase_if(FSubscriptions, [id](const TSubscription& s) { return s.Id == id; });
}

bool TMessageManager::IsSubscribed(int id) const {
  return std::any_of(FSubscriptions.begin(), FSubscriptions.end(),
                     [id](const TSubscription& s) { return s.Id == id; });
}

void TMessageManager::SendMessage(const void* sender, const TMessageBase& message) {
  const std::type_index messageClass(typeid(message));
  // Listeners may (un)subscribe while we deliver: walk the ids taken now, and
  // look each one up again before calling it.
  std::vector<int> ids;
  for (const auto& s : FSubscriptions)
    if (s.MessageClass == messageClass) ids.push_back(s.Id);
  for (int id : ids) {
    auto it = std::find_if(FSubscriptions.begin(), FSubscriptions.end(),
                           [id](const TSubscription& s) { return s.Id == id; });
    if (it == FSubscriptions.end()) continue;
    TMessageListener listener = it->Listener;  // a copy survives self-removal
    listener(sender, message);
  }
}

void TMessageManager::PostMessage(const void* sender, std::shared_ptr<const TMessageBase> message) {
  TqxAssert::IsNotNil(message.get(), "AMessage");
  FPosted.push_back({sender, std::move(message)});
  if (FOnMessagePosted) FOnMessagePosted();
}

std::size_t TMessageManager::ProcessPostedMessages() {
  std::size_t count = 0;
  while (!FPosted.empty()) {
    TPosted posted = std::move(FPosted.front());
    FPosted.pop_front();
    SendMessage(posted.Sender, *posted.Message);
    ++count;
  }
  return count;
}

}  // namespace qx
