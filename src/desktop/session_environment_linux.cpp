// SPDX-License-Identifier: MIT
#include "desktop/message_bus_linux.h"
#include "desktop/session_environment.h"

#include <QCoreApplication>

namespace tarnwick {

namespace {

constexpr const char* addressVariable = "DBUS_SESSION_BUS_ADDRESS";

// A bus that is just being started may need a second or two.
constexpr std::chrono::seconds timeout{3};

} // namespace

// The D-Bus library reads the address from the environment once, and Qt keeps its first connection.
// So the variable is restored afterwards, for child processes.
void spareQtAnUnresponsiveBus(int argc, char** argv) {
    if (!MessageBus::isUnresponsive(MessageBus::sessionAddress(), timeout))
        return;
    const QCoreApplication application(argc, argv);
    const QByteArray address = qgetenv(addressVariable);
    qputenv(addressVariable, "disabled:");
    QDBusConnection::sessionBus();
    if (address.isEmpty())
        qunsetenv(addressVariable);
    else
        qputenv(addressVariable, address);
}

} // namespace tarnwick
