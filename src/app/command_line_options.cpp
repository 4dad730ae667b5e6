// SPDX-License-Identifier: MIT
#include "app/command_line_options.h"

namespace tarnwick {

using namespace Qt::StringLiterals;

CommandLineOptions CommandLineOptions::parse(const QStringList& arguments) {
    CommandLineOptions options;
    for (const QString& argument : arguments) {
        if (argument == "--help"_L1 || argument == "-h"_L1)
            return {Action::ShowHelp};
        if (argument == "--version"_L1)
            return {Action::ShowVersion};
        if (argument == "--install-daemon"_L1)
            options.action = Action::InstallDaemon;
        else if (argument == "--quiet"_L1)
            options.isQuiet = true;
        else
            return {Action::Refuse, u"unknown option '%1'"_s.arg(argument)};
    }
    return options;
}

QString CommandLineOptions::helpText() {
    return u"Usage: tarnwick-client [--help | --version | --install-daemon | --quiet]\n"
           "  --install-daemon  install and start the network daemon, with administrator rights\n"
           "  --quiet           show the icon and no window, as when logging in\n"_s;
}

} // namespace tarnwick
