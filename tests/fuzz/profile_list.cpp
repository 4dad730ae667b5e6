// SPDX-License-Identifier: MIT
// Any bytes as the tool's output of `switch --list`.
#include "daemon/command_runner.h"
#include "model/network_profile.h"
#include "property.h"

#include <cstddef>
#include <cstdint>

using namespace Qt::StringLiterals;
using tarnwick::NetworkProfile;
using tarnwick::fuzz::require;

namespace {

void checkProfile(const NetworkProfile& profile) {
    require(!profile.id.isEmpty() && !profile.tailnet.isEmpty(), "id and network are there");
    require(!profile.id.contains(u' ') && !profile.tailnet.contains(u' '),
            "id and network hold no space");
    require(!profile.loginName.isEmpty() || profile.isCurrent, "an account is there");
    require(profile.isCurrent || !profile.loginName.endsWith(u'*'),
            "the mark makes a profile current");
    require(profile.ipAddress.isEmpty() && profile.hostname.isEmpty(),
            "the tool says nothing of remembered details");
}

QString tableOf(const QList<NetworkProfile>& profiles) {
    QString table = u"ID Network Account\n"_s;
    for (const NetworkProfile& profile : profiles)
        table += profile.id + u' ' + profile.tailnet + u' ' + profile.loginName +
                 (profile.isCurrent ? u"*\n"_s : u"\n"_s);
    return table;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const QString output = tarnwick::textFromUtf8(bytes);
    require(output.isEmpty() || output.toUtf8() == bytes, "text is the bytes or nothing");
    require(tarnwick::hasCommandError(bytes + "eRRor"), "an error is seen after any output");

    const auto profiles = tarnwick::parseProfileList(output);
    const auto lines = output.count(u'\n') + 1;
    require(profiles.isEmpty() || profiles.size() < lines, "the header is no profile");
    for (const NetworkProfile& profile : profiles)
        checkProfile(profile);
    require(tarnwick::parseProfileList(tableOf(profiles)) == profiles,
            "profiles survive being printed");
    return 0;
}
