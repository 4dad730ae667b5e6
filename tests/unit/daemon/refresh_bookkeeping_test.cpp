// SPDX-License-Identifier: MIT
#include "daemon/refresh_bookkeeping.h"

#include <QRandomGenerator>

#include <gtest/gtest.h>

#include <vector>

namespace tarnwick {

namespace {

using namespace std::chrono_literals;
using TimePoint = RefreshBookkeeping::Clock::time_point;

bool readsProfiles(const RefreshBookkeeping& refresh, TimePoint now, bool isForced = false,
                   bool isEmpty = false) {
    return refresh.shouldReadProfiles(isForced, isEmpty, [now] { return now; });
}

TEST(RefreshBookkeeping, ListIsOldAtExactlyThirtySeconds) {
    RefreshBookkeeping refresh(30s);
    const TimePoint read(1000s);
    refresh.profilesWereRead(read);
    EXPECT_FALSE(readsProfiles(refresh, read));
    EXPECT_FALSE(readsProfiles(refresh, read + 30s - 1ns));
    EXPECT_TRUE(readsProfiles(refresh, read + 30s));
    EXPECT_TRUE(readsProfiles(refresh, read + 1h));
}

TEST(RefreshBookkeeping, ListThatWasNeverReadIsOldEvenRightAfterBoot) {
    const RefreshBookkeeping refresh(30s);
    EXPECT_TRUE(readsProfiles(refresh, TimePoint(0s)));
}

TEST(RefreshBookkeeping, ClockIsReadOnlyWhenTheOtherReasonsDoNotHold) {
    RefreshBookkeeping refresh(30s);
    int readings = 0;
    const auto now = [&readings] {
        ++readings;
        return TimePoint(0s);
    };
    refresh.shouldReadProfiles(true, false, now);
    refresh.shouldReadProfiles(false, true, now);
    EXPECT_EQ(readings, 0);
    refresh.shouldReadProfiles(false, false, now);
    EXPECT_EQ(readings, 1);
}

// A second account of the same rules: it keeps the whole history and derives everything from it.
struct Event {
    enum Kind { Request, ForcedRequest, End, ListRead } kind;

    TimePoint at;
    bool hasStarted = false;
};

class History {
public:
    bool isRefreshing() const {
        int running = 0;
        for (const Event& event : events_)
            running += event.hasStarted ? 1 : event.kind == Event::End ? -1 : 0;
        return running == 1;
    }

    bool wasForcedMeanwhile() const {
        for (auto event = events_.rbegin(); event != events_.rend() && !event->hasStarted; ++event)
            if (event->kind == Event::ForcedRequest)
                return true;
        return false;
    }

    bool isListOld(TimePoint now) const {
        for (auto event = events_.rbegin(); event != events_.rend(); ++event)
            if (event->kind == Event::ListRead)
                return !(now < event->at + 30s);
        return true;
    }

    void add(Event event) { events_.push_back(event); }

private:
    std::vector<Event> events_;
};

// One random step of both accounts, which have to agree.
void step(RefreshBookkeeping& refresh, History& history, TimePoint& now, QRandomGenerator& random) {
    now += random.bounded(2) == 0 ? 0s : std::chrono::seconds(random.bounded(1, 21));
    if (random.bounded(3) == 0 && history.isRefreshing()) {
        const bool isFollowed = history.wasForcedMeanwhile();
        history.add({Event::End, now});
        ASSERT_EQ(refresh.end(), isFollowed);
        return;
    }
    if (random.bounded(6) == 0) {
        history.add({Event::ListRead, now});
        refresh.profilesWereRead(now);
        return;
    }
    const bool isForced = random.bounded(3) == 0;
    const bool isEmpty = random.bounded(4) == 0;
    const bool starts = !history.isRefreshing();
    ASSERT_EQ(refresh.begin(isForced), starts);
    ASSERT_TRUE(refresh.isRefreshing());
    ASSERT_EQ(readsProfiles(refresh, now, isForced, isEmpty),
              isForced || isEmpty || history.isListOld(now));
    history.add({isForced ? Event::ForcedRequest : Event::Request, now, starts});
}

TEST(RefreshBookkeeping, AgreesWithAHistoryOfRandomCallsAndCompletions) {
    const quint32 seed = QRandomGenerator::global()->generate();
    SCOPED_TRACE(testing::Message() << "seed " << seed);
    QRandomGenerator random(seed);
    for (int sequence = 0; sequence < 200; ++sequence) {
        RefreshBookkeeping refresh(30s);
        History history;
        TimePoint now(std::chrono::hours(random.bounded(1000)));
        for (int i = 0; i < 60 && !testing::Test::HasFatalFailure(); ++i) {
            step(refresh, history, now, random);
            ASSERT_EQ(refresh.isRefreshing(), history.isRefreshing());
        }
    }
}

} // namespace

} // namespace tarnwick
