#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <memory>
#include <typeindex>
#include <vector>

namespace qx {

class TMessageBase {
public:
  virtual ~TMessageBase() = default;
};

// A message that carries one value.
template <class T>
class TMessage : public TMessageBase {
public:
  explicit TMessage(T value) : FValue(std::move(value)) {}
  const T& Value() const { return FValue; }

private:
  T FValue;
};

// Messages between objects that don't know each other. A listener subscribes
// to one message class and hears the messages of exactly that class, in the
// order of subscription. Everything runs on the main thread.
class TMessageManager {
public:
  using TMessageListener = std::function<void(const void* sender, const TMessageBase& message)>;

  static TMessageManager& DefaultManager();

  template <class TMsg>
  int SubscribeToMessage(TMessageListener listener) {
    return SubscribeToMessage(std::type_index(typeid(TMsg)), std::move(listener));
  }
  // Returns the id for Unsubscribe; ids are never reused.
  int SubscribeToMessage(std::type_index messageClass, TMessageListener listener);
  // An unknown id is ignored. A listener may unsubscribe itself or others while
  // a message is being delivered; a removed listener hears nothing more.
  void Unsubscribe(int id);
  bool IsSubscribed(int id) const;

  // Delivers at once, before returning.
  void SendMessage(const void* sender, const TMessageBase& message);
  // Queues the message for ProcessPostedMessages; FOnMessagePosted, when set,
  // is told so that the application can schedule the delivery.
  void PostMessage(const void* sender, std::shared_ptr<const TMessageBase> message);
  // Delivers the queued messages, those posted meanwhile included; returns how many.
  std::size_t ProcessPostedMessages();
  std::size_t PostedCount() const { return FPosted.size(); }

  std::function<void()> FOnMessagePosted;

private:
  struct TSubscription {
    int Id;
    std::type_index MessageClass;
    TMessageListener Listener;
  };
  struct TPosted {
    const void* Sender;
    std::shared_ptr<const TMessageBase> Message;
  };

  std::vector<TSubscription> FSubscriptions;
  std::deque<TPosted> FPosted;
  int FNextId = 1;
};

}  // namespace qx
