// SPDX-License-Identifier: MIT
#include "daemon/connection_commands.h"
#include "platform/service_addresses.h"
#include "support/printing.h"

#include <gtest/gtest.h>

namespace tarnwick {

namespace {

using namespace Qt::StringLiterals;

TEST(LoginServer, DevPrefixInAnyCaseBehindBlanksMeansDevelopmentAndMydevDoesNot) {
    const ServiceAddresses addresses = serviceAddresses();
    ASSERT_NE(addresses.devLoginServer, addresses.prodLoginServer);
    EXPECT_EQ(loginServer(u"  DEV-box"_s), addresses.devLoginServer);
    EXPECT_EQ(loginServer(u"mydev-box"_s), addresses.prodLoginServer);
}

TEST(LoginServer, OtherNames) {
    const ServiceAddresses addresses = serviceAddresses();
    for (const auto& name : {u"dev-"_s, u"\n\tDev-x\r\n"_s, u"dev-\U0001F600"_s})
        EXPECT_EQ(loginServer(name), addresses.devLoginServer) << name.toStdString();
    for (const auto& name : {u""_s, u"   "_s, u"dev"_s, u"devbox"_s, u"dev box"_s, u"d-ev-"_s})
        EXPECT_EQ(loginServer(name), addresses.prodLoginServer) << name.toStdString();
}

} // namespace

} // namespace tarnwick
