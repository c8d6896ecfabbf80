#include <KTRCL_DataTypes/GXEvent.h>
#include <KTRCL_DataTypes/GXString.h>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace {

using Event = GXEvent1Param<const GXString&>;
using Log = std::vector<std::string>;

// Writes its name and what it hears, then does what the test asks of it.
class Hearer : public GXEvent1ParamSubscriber<const GXString&> {
 public:
  Hearer(std::string name, Log& log) : name_(std::move(name)), log_(log) {}

  void OnFire(const GXString& text) override {
    log_.push_back(name_ + ":" + text.Str());
    // A copy, since the action may replace itself or destroy this object.
    const std::function<void()> action = then;
    if (action) {
      action();
    }
  }

  std::function<void()> then;

 private:
  std::string name_;
  Log& log_;
};

class EventTest : public testing::Test {
 protected:
  Log log;
  Event event;
  Hearer a{"a", log};
  Hearer b{"b", log};
  Hearer c{"c", log};
};

}  // namespace

using GXEventOrder = EventTest;
using GXEventWhileFiring = EventTest;

TEST_F(GXEventOrder, NobodyListens) {
  event.Fire("1");
  EXPECT_TRUE(log.empty());
}

TEST_F(GXEventOrder, DeliversInOrderOfSubscription) {
  event.Subscribe(&b);
  event.Subscribe(&a);
  event.Fire("1");
  event.Fire("2");
  EXPECT_EQ(log, (Log{"b:1", "a:1", "b:2", "a:2"}));
}

TEST_F(GXEventOrder, DeliversTwiceToOneAddedTwice) {
  event.Subscribe(&a);
  event.Subscribe(&b);
  event.Subscribe(&a);
  event.Fire("1");
  EXPECT_EQ(log, (Log{"a:1", "b:1", "a:1"}));
}

TEST_F(GXEventOrder, RemovesEveryEntryOfOneThatLeaves) {
  event.Subscribe(&a);
  event.Subscribe(&b);
  event.Subscribe(&a);
  event.Unsubscribe(&a);
  event.Fire("1");
  EXPECT_EQ(log, (Log{"b:1"}));
}

TEST_F(GXEventOrder, SkipsNullEntries) {
  event.Subscribe(nullptr);
  event.Subscribe(&a);
  event.Subscribe(nullptr);
  event.Fire("1");
  event.Unsubscribe(nullptr);
  event.Fire("2");
  EXPECT_EQ(log, (Log{"a:1", "a:2"}));
}

TEST_F(GXEventOrder, IgnoresTheLeavingOfAStranger) {
  event.Subscribe(&a);
  event.Unsubscribe(&b);
  event.Fire("1");
  EXPECT_EQ(log, (Log{"a:1"}));
}

TEST_F(GXEventOrder, TakesBackOneThatLeftAtTheEnd) {
  event.Subscribe(&a);
  event.Subscribe(&b);
  event.Unsubscribe(&a);
  event.Subscribe(&a);
  event.Fire("1");
  EXPECT_EQ(log, (Log{"b:1", "a:1"}));
}

TEST_F(GXEventWhileFiring, OneThatLeavesIsSkippedAtOnce) {
  event.Subscribe(&a);
  event.Subscribe(&b);
  event.Subscribe(&c);
  a.then = [&] { event.Unsubscribe(&b); };
  event.Fire("1");
  event.Fire("2");
  EXPECT_EQ(log, (Log{"a:1", "c:1", "a:2", "c:2"}));
}

TEST_F(GXEventWhileFiring, OneThatLeavesItselfDoesNotDisturbTheNext) {
  event.Subscribe(&a);
  event.Subscribe(&b);
  a.then = [&] { event.Unsubscribe(&a); };
  event.Fire("1");
  event.Fire("2");
  EXPECT_EQ(log, (Log{"a:1", "b:1", "b:2"}));
}

TEST_F(GXEventWhileFiring, OneAddedTwiceThatLeavesIsNotCalledTheSecondTime) {
  event.Subscribe(&a);
  event.Subscribe(&b);
  event.Subscribe(&a);
  a.then = [&] { event.Unsubscribe(&a); };
  event.Fire("1");
  EXPECT_EQ(log, (Log{"a:1", "b:1"}));
}

TEST_F(GXEventWhileFiring, OneAddedHearsTheNextFiring) {
  event.Subscribe(&a);
  a.then = [&] {
    a.then = nullptr;
    event.Subscribe(&b);
  };
  event.Fire("1");
  event.Fire("2");
  EXPECT_EQ(log, (Log{"a:1", "a:2", "b:2"}));
}

TEST_F(GXEventWhileFiring, ManyAddedDoNotDisturbTheWalk) {
  event.Subscribe(&a);
  event.Subscribe(&b);
  a.then = [&] {
    a.then = nullptr;
    for (int i = 0; i < 1000; ++i) {
      event.Subscribe(&c);
    }
  };
  event.Fire("1");
  EXPECT_EQ(log, (Log{"a:1", "b:1"}));
  log.clear();
  event.Fire("2");
  EXPECT_EQ(log.size(), 1002u);
}

TEST_F(GXEventWhileFiring, OneAddedAndRemovedInOneFiringNeverHears) {
  event.Subscribe(&a);
  a.then = [&] {
    event.Subscribe(&b);
    event.Unsubscribe(&b);
  };
  event.Fire("1");
  event.Fire("2");
  EXPECT_EQ(log, (Log{"a:1", "a:2"}));
}

TEST_F(GXEventWhileFiring, OneRemovedAndAddedHearsAgainFromTheNextFiringOn) {
  event.Subscribe(&a);
  event.Subscribe(&b);
  event.Subscribe(&c);
  a.then = [&] {
    a.then = nullptr;
    event.Unsubscribe(&b);
    event.Subscribe(&b);
  };
  event.Fire("1");
  event.Fire("2");
  EXPECT_EQ(log, (Log{"a:1", "c:1", "a:2", "c:2", "b:2"}));
}

TEST_F(GXEventWhileFiring, OneMayDestroyItself) {
  auto passing = std::make_unique<Hearer>("p", log);
  event.Subscribe(passing.get());
  event.Subscribe(&b);
  passing->then = [&] {
    event.Unsubscribe(passing.get());
    passing.reset();
  };
  event.Fire("1");
  event.Fire("2");
  EXPECT_EQ(log, (Log{"p:1", "b:1", "b:2"}));
}

TEST_F(GXEventWhileFiring, OneMayDestroyAnotherBeforeItsTurn) {
  auto victim = std::make_unique<Hearer>("v", log);
  event.Subscribe(&a);
  event.Subscribe(victim.get());
  event.Subscribe(&b);
  event.Subscribe(victim.get());
  a.then = [&] {
    event.Unsubscribe(victim.get());
    victim.reset();
  };
  event.Fire("1");
  EXPECT_EQ(log, (Log{"a:1", "b:1"}));
}

TEST_F(GXEventWhileFiring, ANewOneAtTheAddressOfADestroyedOneWaitsForTheNextFiring) {
  alignas(Hearer) unsigned char place[sizeof(Hearer)];
  auto* const first = new (place) Hearer("first", log);
  event.Subscribe(&a);
  event.Subscribe(first);
  Hearer* second = nullptr;
  a.then = [&] {
    a.then = nullptr;
    event.Unsubscribe(first);
    first->~Hearer();
    second = new (place) Hearer("second", log);
    event.Subscribe(second);
  };
  event.Fire("1");
  event.Fire("2");
  second->~Hearer();
  EXPECT_EQ(log, (Log{"a:1", "a:2", "second:2"}));
}

TEST_F(GXEventWhileFiring, AFiringInsideGoesToTheCurrentSubscribers) {
  event.Subscribe(&a);
  event.Subscribe(&b);
  a.then = [&] {
    a.then = nullptr;
    event.Subscribe(&c);
    event.Fire("inner");
  };
  event.Fire("outer");
  event.Fire("last");
  EXPECT_EQ(log, (Log{"a:outer", "a:inner", "b:inner", "b:outer", "a:last", "b:last", "c:last"}));
}

TEST_F(GXEventWhileFiring, OneThatLeavesInsideIsSkippedInBothFirings) {
  event.Subscribe(&a);
  event.Subscribe(&b);
  event.Subscribe(&c);
  a.then = [&] {
    a.then = nullptr;
    event.Fire("inner");
  };
  b.then = [&] { event.Unsubscribe(&b); };
  event.Fire("outer");
  EXPECT_EQ(log, (Log{"a:outer", "a:inner", "b:inner", "c:inner", "c:outer"}));
}

TEST_F(GXEventWhileFiring, AnExceptionEndsTheFiringAndLeavesTheEventUsable) {
  event.Subscribe(&a);
  event.Subscribe(&b);
  a.then = [&] {
    a.then = nullptr;
    event.Unsubscribe(&a);
    event.Subscribe(&c);
    throw std::runtime_error("no more");
  };
  EXPECT_THROW(event.Fire("1"), std::runtime_error);
  event.Fire("2");
  EXPECT_EQ(log, (Log{"a:1", "b:2", "c:2"}));
}

TEST(GXEvent1ParamOfValues, HandsEverySubscriberTheSameValue) {
  class Adder : public GXEvent1ParamSubscriber<int> {
   public:
    void OnFire(int value) override { sum += value; }
    int sum = 0;
  };
  GXEvent1Param<int> event;
  Adder first;
  Adder second;
  event.Subscribe(&first);
  event.Subscribe(&second);
  event.Fire(3);
  event.Fire(4);
  EXPECT_EQ(first.sum, 7);
  EXPECT_EQ(second.sum, 7);
}
