// SPDX-License-Identifier: MIT
#include "daemon/daemon_manager.h"
#include "support/controller_world.h"
#include "support/printing.h"
#include "support/waiting.h"

#include <QSettings>

#include <gtest/gtest.h>

namespace tarnwick {

namespace {

using namespace Qt::StringLiterals;
using test::ControllerWorld;

const auto listWithoutCurrent = "header\np1 harbor mira\np2 kite mira\n";
const auto listWithSecondCurrent = "header\np1 harbor mira\np2 kite mira*\n";
const auto statusOfSecond =
    R"({"BackendState":"Running","Self":{"Online":true,"HostName":"other"}})";

class ProfileDetails : public testing::Test {
protected:
    ControllerWorld world_;
};

TEST_F(ProfileDetails, EmptyProfileListErasesTheStoreToAnEmptyMap) {
    world_.storeDetails({{u"p1"_s, {u"1.2.3.4"_s, u"box"_s}}});
    world_.answer("list", "header\n");
    const auto manager = world_.createRefreshed();
    EXPECT_TRUE(world_.storedDetails().isEmpty());
    const QSettings settings(world_.settingsFile(), QSettings::IniFormat);
    EXPECT_EQ(settings.value(u"tarnwick.profileDetails"_s).toByteArray(), "{}");
}

TEST_F(ProfileDetails, WithoutACurrentProfileThePendingOneIsRememberedAndNoLongerPending) {
    world_.answer("status", ControllerWorld::stoppedStatus());
    world_.answer("list", listWithoutCurrent);
    const auto manager = world_.createRefreshed();
    world_.answer("status", ControllerWorld::connectedStatus());
    manager->switchProfile(u"p2"_s);
    ASSERT_TRUE(test::waitForRefresh(*manager));
    EXPECT_EQ(world_.storedDetails(),
              (ProfileDetailsMap{{u"p2"_s, {u"100.64.0.2"_s, u"laptop"_s}}}));
    EXPECT_EQ(manager->state().profiles[1].hostname, u"laptop"_s) << "shown at once";

    world_.storeDetails({});
    ASSERT_TRUE(test::refresh(*manager));
    EXPECT_EQ(world_.storedDetails(), ProfileDetailsMap()) << "it is no longer pending";
}

TEST_F(ProfileDetails, EmptyAddressAndHostNameLeaveTheStoreUntouched) {
    const ProfileDetailsMap before = {{u"p1"_s, {u"1.2.3.4"_s, u"box"_s}}};
    world_.storeDetails(before);
    world_.answer("status", R"({"BackendState":"Running","Self":{"Online":true}})");
    const auto manager = world_.createRefreshed();
    ASSERT_TRUE(manager->state().isConnected);
    EXPECT_EQ(world_.storedDetails(), before);
    EXPECT_EQ(manager->state().profiles[0].ipAddress, u"1.2.3.4"_s);
}

TEST_F(ProfileDetails, CurrentProfileComesBeforeThePendingOneWhichStaysPending) {
    const auto manager = world_.createRefreshed(); // p1 is marked as current
    manager->switchProfile(u"p2"_s);
    ASSERT_TRUE(test::waitForRefresh(*manager));
    EXPECT_EQ(world_.storedDetails().keys(), QStringList{u"p1"_s});
    world_.answer("list", listWithoutCurrent);
    ASSERT_TRUE(test::refresh(*manager, true));
    EXPECT_EQ(world_.storedDetails().keys(), (QStringList{u"p1"_s, u"p2"_s}));
}

TEST_F(ProfileDetails, EntryIsReplacedEvenWhenOneOfTheTextsIsEmpty) {
    world_.storeDetails({{u"p1"_s, {u"1.2.3.4"_s, u"box"_s}}});
    world_.answer("status", R"({"BackendState":"Running","Self":{"Online":true,"HostName":"x"}})");
    const auto manager = world_.createRefreshed();
    EXPECT_EQ(world_.storedDetails(), (ProfileDetailsMap{{u"p1"_s, {u""_s, u"x"_s}}}));
}

TEST_F(ProfileDetails, ProfilesThatAreGoneAreForgottenAndOthersEnriched) {
    world_.storeDetails({{u"p2"_s, {u"9.9.9.9"_s, u"old"_s}}, {u"gone"_s, {u"1.1.1.1"_s, u"g"_s}}});
    world_.answer("status", ControllerWorld::stoppedStatus());
    const auto manager = world_.createRefreshed();
    EXPECT_EQ(world_.storedDetails().keys(), QStringList{u"p2"_s});
    EXPECT_EQ(manager->state().profiles[0].ipAddress, u""_s);
    EXPECT_EQ(manager->state().profiles[1].ipAddress, u"9.9.9.9"_s);
    EXPECT_EQ(manager->state().profiles[1].hostname, u"old"_s);
}

TEST_F(ProfileDetails, AreAskedForByThePlatformsKey) {
    world_.platform.profileDetailsKey = macOSPlatform().profileDetailsKey;
    const auto manager = world_.createRefreshed();
    const QSettings settings(world_.settingsFile(), QSettings::IniFormat);
    EXPECT_EQ(settings.allKeys(), QStringList{u"tarnwick/profileDetails"_s});
}

TEST_F(ProfileDetails, OutliveTheController) {
    world_.createRefreshed().reset();
    world_.answer("status", ControllerWorld::stoppedStatus());
    const auto manager = world_.createRefreshed();
    EXPECT_EQ(manager->state().profiles[0].ipAddress, u"100.64.0.2"_s);
}

TEST_F(ProfileDetails, PollBehindASwitchLeavesThoseOfTheOldNetworkAlone) {
    const auto manager = world_.createRefreshed(); // p1 is marked as current
    world_.answer("status", statusOfSecond);
    world_.answer("list", listWithSecondCurrent);
    manager->switchProfile(u"p2"_s);
    manager->refreshStatus(); // queued behind it, and does not read the list
    ASSERT_TRUE(test::waitUntil([&] { return manager->state().profiles[1].isCurrent; }));
    EXPECT_EQ(world_.storedDetails(), (ProfileDetailsMap{{u"p1"_s, {u"100.64.0.2"_s, u"laptop"_s}},
                                                         {u"p2"_s, {u""_s, u"other"_s}}}));
}

TEST_F(ProfileDetails, PollBehindALogInLeavesThoseOfTheOldNetworkAlone) {
    const auto manager = world_.createRefreshed();
    world_.answer("status", statusOfSecond);
    world_.answer("list", listWithSecondCurrent);
    manager->connectWithAuthKey(u"key"_s, {});
    manager->refreshStatus();
    ASSERT_TRUE(test::waitUntil([&] { return manager->state().profiles[1].isCurrent; }));
    EXPECT_EQ(world_.storedDetails(), (ProfileDetailsMap{{u"p1"_s, {u"100.64.0.2"_s, u"laptop"_s}},
                                                         {u"p2"_s, {u""_s, u"other"_s}}}));
}

TEST_F(ProfileDetails, FirstOfSeveralCurrentProfilesIsRemembered) {
    world_.answer("list", "header\np1 a x\np2 b y*\np3 c z*\n");
    const auto manager = world_.createRefreshed();
    EXPECT_EQ(world_.storedDetails().keys(), QStringList{u"p2"_s});
}

} // namespace

} // namespace tarnwick
