#include "platform/host/message_manager.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace qx {
namespace {

class TTextMessage : public TMessage<std::string> {
public:
  using TMessage::TMessage;
};
class TOtherTextMessage : public TTextMessage {
public:
  using TTextMessage::TTextMessage;
};

std::string TextOf(const TMessageBase& message) {
  return static_cast<const TTextMessage&>(message).Value();
}

TEST(MessageManagerTest, ListenersHearTheirOwnClassInSubscriptionOrder) {
  TMessageManager manager;
  std::vector<std::string> heard;
  int sender = 0;
  manager.SubscribeToMessage<TTextMessage>([&](const void* from, const TMessageBase& m) {
    EXPECT_EQ(from, &sender);
    heard.push_back("a:" + TextOf(m));
  });
  manager.SubscribeToMessage<TTextMessage>(
      [&](const void*, const TMessageBase& m) { heard.push_back("b:" + TextOf(m)); });
  manager.SubscribeToMessage<TOtherTextMessage>(
      [&](const void*, const TMessageBase& m) { heard.push_back("other:" + TextOf(m)); });

  manager.SendMessage(&sender, TTextMessage("one"));
  manager.SendMessage(&sender, TOtherTextMessage("two"));  // a subclass is a class of its own
  EXPECT_EQ(heard, (std::vector<std::string>{"a:one", "b:one", "other:two"}));
}

TEST(MessageManagerTest, UnsubscribingWhileDeliveringStopsAtOnce) {
  TMessageManager manager;
  std::vector<std::string> heard;
  int first = 0, second = 0;
  first = manager.SubscribeToMessage<TTextMessage>([&](const void*, const TMessageBase&) {
    heard.push_back("first");
    manager.Unsubscribe(first);   // itself
    manager.Unsubscribe(second);  // and the one behind it, before it is called
  });
  second = manager.SubscribeToMessage<TTextMessage>(
      [&](const void*, const TMessageBase&) { heard.push_back("second"); });
  manager.SendMessage(nullptr, TTextMessage("x"));
  manager.SendMessage(nullptr, TTextMessage("y"));
  EXPECT_EQ(heard, std::vector<std::string>{"first"});
}

TEST(MessageManagerTest, PostedMessagesWaitForProcessingAndKeepTheirOrder) {
  TMessageManager manager;
  int posted = 0;
  manager.FOnMessagePosted = [&] { ++posted; };
  std::vector<std::string> heard;
  manager.SubscribeToMessage<TTextMessage>([&](const void*, const TMessageBase& m) {
    heard.push_back(TextOf(m));
    if (TextOf(m) == "1") manager.PostMessage(nullptr, std::make_shared<TTextMessage>("3"));
  });
  manager.PostMessage(nullptr, std::make_shared<TTextMessage>("1"));
  manager.PostMessage(nullptr, std::make_shared<TTextMessage>("2"));
  EXPECT_TRUE(heard.empty());
  EXPECT_EQ(manager.ProcessPostedMessages(), 3u);
  EXPECT_EQ(heard, (std::vector<std::string>{"1", "2", "3"}));
  EXPECT_EQ(posted, 3);
}

}  // namespace
}  // namespace qx
