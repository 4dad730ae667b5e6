// SPDX-License-Identifier: MIT
#include "app/command_line_options.h"

#include <gtest/gtest.h>

namespace tarnwick {

using namespace Qt::StringLiterals;
using Action = CommandLineOptions::Action;

TEST(CommandLineOptions, NothingRunsTheProgram) {
    EXPECT_EQ(CommandLineOptions::parse({}).action, Action::Run);
}

TEST(CommandLineOptions, EachOptionIsKnown) {
    EXPECT_EQ(CommandLineOptions::parse({u"--help"_s}).action, Action::ShowHelp);
    EXPECT_EQ(CommandLineOptions::parse({u"-h"_s}).action, Action::ShowHelp);
    EXPECT_EQ(CommandLineOptions::parse({u"--version"_s}).action, Action::ShowVersion);
    EXPECT_EQ(CommandLineOptions::parse({u"--install-daemon"_s}).action, Action::InstallDaemon);
}

TEST(CommandLineOptions, QuietRunsTheProgramWithoutAWindow) {
    EXPECT_FALSE(CommandLineOptions::parse({}).isQuiet);
    const CommandLineOptions options = CommandLineOptions::parse({u"--quiet"_s});
    EXPECT_EQ(options.action, Action::Run);
    EXPECT_TRUE(options.isQuiet);
}

TEST(CommandLineOptions, AnythingElseIsRefusedByName) {
    for (const QString& argument : {u"--verbose"_s, u"-x"_s, u"open"_s, u""_s, u"--Help"_s}) {
        const CommandLineOptions options = CommandLineOptions::parse({argument});
        EXPECT_EQ(options.action, Action::Refuse);
        EXPECT_EQ(options.error, u"unknown option '%1'"_s.arg(argument));
    }
}

TEST(CommandLineOptions, AnUnknownOptionStopsAnInstallation) {
    EXPECT_EQ(CommandLineOptions::parse({u"--install-daemon"_s, u"--now"_s}).action,
              Action::Refuse);
    EXPECT_EQ(CommandLineOptions::parse({u"--now"_s, u"--install-daemon"_s}).action,
              Action::Refuse);
}

TEST(CommandLineOptions, HelpHasALineForTheUsageAndOneForEachOfItsLongerOptions) {
    const QString help = CommandLineOptions::helpText();
    EXPECT_EQ(help.count(u'\n'), 3);
    for (const QString& option : {u"--help"_s, u"--version"_s, u"--install-daemon"_s, u"--quiet"_s})
        EXPECT_TRUE(help.contains(option));
}

} // namespace tarnwick
