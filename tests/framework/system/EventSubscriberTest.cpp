#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "framework/system/KorEventSubscriber.h"

namespace {

using Log = std::vector<int>;

/// Writes the number of each registration that is called.
class Listener : public KorEventSubscriber {
 public:
  explicit Listener(Log& log) : _log(log) {}
  void Listen(KorEventSubscriber& publisher, const char* event, int number) {
    AddCallback(&publisher, event, &Listener::OnEvent, KorClientData(number));
  }
  void OnEvent(KorEventSubscriber*, const char*, KorCommandClientData data) {
    _log.push_back(KorClientNumber(data));
  }

 private:
  Log& _log;
};

TEST(Events, CallInTheOrderOfRegistration) {
  Log log;
  KorEventSubscriber publisher;
  Listener first(log), second(log);
  first.Listen(publisher, "Changed", 1);
  second.Listen(publisher, "Changed", 2);
  first.Listen(publisher, "Changed", 3);
  publisher.Publish("Changed");
  EXPECT_EQ(log, (Log{1, 2, 3}));
}

TEST(Events, CallOnlyThoseWhoWaitForTheEvent) {
  Log log;
  KorEventSubscriber publisher;
  Listener listener(log);
  listener.Listen(publisher, "Changed", 1);
  publisher.Publish("Other");
  EXPECT_TRUE(log.empty());
}

TEST(Events, TellThePublisherTheEventAndTheData) {
  KorEventSubscriber publisher, listener;
  int calls = 0;
  listener.AddCallback(
      &publisher, "Changed",
      [&](KorEventSubscriber* from, const char* event, KorCommandClientData data) {
        ++calls;
        EXPECT_EQ(from, &publisher);
        EXPECT_STREQ(event, "Changed");
        EXPECT_EQ(KorClientNumber(data), -4);
      },
      KorClientData(-4));
  publisher.Publish("Changed");
  EXPECT_EQ(calls, 1);
}

TEST(Events, CallNobodyWhoRemovedTheirCallbacks) {
  Log log;
  KorEventSubscriber publisher;
  Listener goes(log), stays(log);
  goes.Listen(publisher, "Changed", 1);
  goes.Listen(publisher, "Other", 2);
  stays.Listen(publisher, "Changed", 3);
  goes.RemoveCallbacks(&publisher);
  publisher.Publish("Changed");
  EXPECT_EQ(log, (Log{3}));
  EXPECT_EQ(publisher.CallbackCount(), 1);
}

TEST(Events, SurviveASubscriberThatIsDestroyedFirst) {
  Log log;
  KorEventSubscriber publisher;
  auto listener = std::make_unique<Listener>(log);
  listener->Listen(publisher, "Changed", 1);
  listener.reset();
  EXPECT_EQ(publisher.CallbackCount(), 0);
  publisher.Publish("Changed");
  EXPECT_TRUE(log.empty());
}

TEST(Events, SurviveAPublisherThatIsDestroyedFirst) {
  Log log;
  Listener listener(log);
  auto publisher = std::make_unique<KorEventSubscriber>();
  KorEventSubscriber* const address = publisher.get();
  listener.Listen(*publisher, "Changed", 1);
  publisher.reset();
  listener.RemoveCallbacks(address);
  EXPECT_TRUE(log.empty());
}

TEST(Events, SurviveACallbackThatRemovesItself) {
  KorEventSubscriber publisher, listener;
  int calls = 0;
  listener.AddCallback(&publisher, "Changed", [&](auto*, auto*, auto) {
    listener.RemoveCallbacks(&publisher);
    ++calls;
  });
  publisher.Publish("Changed");
  publisher.Publish("Changed");
  EXPECT_EQ(calls, 1);
}

TEST(Events, PassOverACallbackThatAnEarlierOneRemoved) {
  Log log;
  KorEventSubscriber publisher, first;
  Listener second(log);
  first.AddCallback(&publisher, "Changed", [&](auto*, auto*, auto) { second.RemoveCallbacks(&publisher); });
  second.Listen(publisher, "Changed", 2);
  publisher.Publish("Changed");
  EXPECT_TRUE(log.empty());
}

TEST(Events, SurviveACallbackThatDestroysALaterSubscriber) {
  Log log;
  KorEventSubscriber publisher, first;
  auto second = std::make_unique<Listener>(log);
  first.AddCallback(&publisher, "Changed", [&](auto*, auto*, auto) { second.reset(); });
  second->Listen(publisher, "Changed", 2);
  publisher.Publish("Changed");
  EXPECT_TRUE(log.empty());
}

TEST(Events, StopWhenACallbackDestroysThePublisher) {
  Log log;
  auto publisher = std::make_unique<KorEventSubscriber>();
  KorEventSubscriber first;
  Listener second(log);
  first.AddCallback(publisher.get(), "Changed", [&](auto*, auto*, auto) { publisher.reset(); });
  second.Listen(*publisher, "Changed", 2);
  publisher->Publish("Changed");
  EXPECT_TRUE(log.empty());
}

TEST(Events, LetACallbackPublishAgain) {
  Log log;
  KorEventSubscriber publisher, relay;
  Listener listener(log);
  relay.AddCallback(&publisher, "Outer", [&](auto*, auto*, auto) { publisher.Publish("Inner"); });
  listener.Listen(publisher, "Outer", 1);
  listener.Listen(publisher, "Inner", 2);
  publisher.Publish("Outer");
  EXPECT_EQ(log, (Log{2, 1}));
}

TEST(Events, CallACallbackThatIsAddedMeanwhileOnlyFromTheNextTime) {
  Log log;
  KorEventSubscriber publisher, first;
  Listener late(log);
  first.AddCallback(&publisher, "Changed", [&](auto*, auto*, auto) { late.Listen(publisher, "Changed", 9); });
  publisher.Publish("Changed");
  EXPECT_TRUE(log.empty());
  first.RemoveCallbacks(&publisher);
  publisher.Publish("Changed");
  EXPECT_EQ(log, (Log{9}));
}

TEST(Events, LetASubscriberListenToItself) {
  Log log;
  auto listener = std::make_unique<Listener>(log);
  listener->Listen(*listener, "Changed", 1);
  listener->Publish("Changed");
  EXPECT_EQ(log, (Log{1}));
}

TEST(Events, LeaveNoSubscriptionsToACopy) {
  Log log;
  KorEventSubscriber publisher;
  Listener listener(log);
  listener.Listen(publisher, "Changed", 1);
  KorEventSubscriber copy = publisher;
  copy.Publish("Changed");
  EXPECT_TRUE(log.empty());
  copy = publisher;
  EXPECT_EQ(copy.CallbackCount(), 0);
  EXPECT_EQ(publisher.CallbackCount(), 1);
}

TEST(Events, CountByName) {
  Log log;
  KorEventSubscriber publisher;
  Listener listener(log);
  listener.Listen(publisher, "A", 1);
  listener.Listen(publisher, "A", 2);
  listener.Listen(publisher, "B", 3);
  EXPECT_EQ(publisher.CallbackCount("A"), 2);
  EXPECT_EQ(publisher.CallbackCount("C"), 0);
  EXPECT_EQ(publisher.CallbackCount(), 3);
}

TEST(Events, IgnoreNullPublishersAndNames) {
  KorEventSubscriber publisher;
  publisher.AddCallback(nullptr, "A", [](auto*, auto*, auto) { FAIL(); });
  publisher.AddCallback(&publisher, nullptr, [](auto*, auto*, auto) { FAIL(); });
  publisher.Publish(nullptr);
  EXPECT_EQ(publisher.CallbackCount(), 0);
}

}  // namespace
