#include "ObservableObject.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using appkitglue::ObservableObject;
using appkitglue::Subscription;
using testing::ElementsAre;

struct Counter : ObservableObject {
    int value = 0;
    void set(int newValue) {
        value = newValue;
        announce();
    }
};

TEST(ObservableObject, TellsAllSubscribersInOrder) {
    Counter counter;
    std::vector<int> told;
    const auto first = counter.subscribe([&] { told.push_back(1); });
    const auto second = counter.subscribe([&] { told.push_back(2); });
    counter.set(1);
    counter.set(2);
    EXPECT_THAT(told, ElementsAre(1, 2, 1, 2));
}

TEST(ObservableObject, ASubscriptionEndsWithItsToken) {
    Counter counter;
    int told = 0;
    auto token = counter.subscribe([&] { told++; });
    counter.set(1);
    auto moved = std::move(token);
    counter.set(2);
    moved = Subscription();
    counter.set(3);
    EXPECT_EQ(told, 2);
}

TEST(ObservableObject, ATokenMayOutliveTheObject) {
    Subscription token;
    {
        Counter counter;
        token = counter.subscribe([] { FAIL(); });
    }
    token = Subscription();
}

TEST(ObservableObject, AChangeInsideAnAnnouncementIsAnnouncedAfterIt) {
    Counter counter;
    std::vector<std::string> told;
    const auto first = counter.subscribe([&] {
        told.push_back("first " + std::to_string(counter.value));
        if (counter.value < 3)
            counter.set(counter.value + 1);
    });
    const auto second = counter.subscribe([&] { told.push_back("second " + std::to_string(counter.value)); });
    counter.set(1);
    EXPECT_THAT(told, ElementsAre("first 1", "second 2", "first 2", "second 3", "first 3", "second 3"));
}

TEST(ObservableObject, SubscribersMayComeAndGoInsideAnAnnouncement) {
    Counter counter;
    std::vector<int> told;
    Subscription first, second, third;
    first = counter.subscribe([&] {
        told.push_back(1);
        first = Subscription();
        second = Subscription();
        third = counter.subscribe([&] { told.push_back(3); });
    });
    second = counter.subscribe([&] { told.push_back(2); });
    counter.set(1);
    counter.set(2);
    EXPECT_THAT(told, ElementsAre(1, 3));
}

TEST(ObservableObject, MayBeDestroyedInsideAnAnnouncement) {
    auto counter = std::make_unique<Counter>();
    int told = 0;
    const auto first = counter->subscribe([&] { counter.reset(); });
    const auto second = counter->subscribe([&] { told++; });
    counter->set(1);
    EXPECT_EQ(counter, nullptr);
    EXPECT_EQ(told, 0);
}

} // namespace
