// SPDX-License-Identifier: MIT
#include "ui/panel/panel_calls.h"

#include <QStringList>

#include <gtest/gtest.h>

namespace tarnwick {

namespace {

using namespace Qt::StringLiterals;
using Kind = PanelCommand::Kind;

constexpr Kind allKinds[] = {Kind::SwitchProfile,     Kind::RemoveProfile, Kind::Disconnect,
                             Kind::ShowAuthKeyWindow, Kind::Refresh,       Kind::CheckForUpdates,
                             Kind::OpenWebsite,       Kind::Quit};

TEST(PanelCalls, EachCallReachesItsFunction) {
    QStringList made;
    const auto note = [&made](const QString& what) {
        return [&made, what] {
            made += what;
        };
    };
    const PanelCalls calls{[&made](const QString& id) { made += u"switch "_s + id; },
                           [&made](const QString& id) { made += u"remove "_s + id; },
                           note(u"disconnect"_s),
                           note(u"key"_s),
                           note(u"refresh"_s),
                           note(u"updates"_s),
                           note(u"website"_s),
                           note(u"quit"_s)};
    for (const Kind kind : allKinds)
        calls.perform({kind, u"7"_s});
    EXPECT_EQ(made, (QStringList{u"switch 7"_s, u"remove 7"_s, u"disconnect"_s, u"key"_s,
                                 u"refresh"_s, u"updates"_s, u"website"_s, u"quit"_s}));
}

TEST(PanelCalls, AnEmptyFunctionIsNotCalled) {
    for (const Kind kind : allKinds)
        EXPECT_NO_THROW(PanelCalls{}.perform({kind, u"7"_s}));
}

} // namespace

} // namespace tarnwick
