// SPDX-License-Identifier: MIT
// tarnwick_soak [REFRESHES [OPENINGS [SEED]]]: refreshes many times, with commands and openings of
// the panel in between, and compares what the process holds in the end with what it held after the
// first tenth of them. Then it leaves clients in the middle of their commands.
#include "quits.h"
#include "soak.h"
#include "support/private_bus.h"

#include <QApplication>

#include <cstdio>
#include <cstdlib>
#include <random>

using tarnwick::soak::ProcessUsage;
using tarnwick::soak::Quits;
using tarnwick::soak::Soak;

namespace {

constexpr int shareToSettle = 10; // what large networks leave of the heap differs until then
constexpr int reportEvery = 1000;
constexpr int refreshesACommand = 20;
constexpr int refreshesAQuit = 100;
constexpr long memorySlackKiB = 2048;

// Repeated hundreds of times: the offscreen platform cannot raise windows.
void logAllBut(QtMsgType, const QMessageLogContext&, const QString& message) {
    if (!message.contains(QLatin1StringView("does not support raise")))
        std::fprintf(stderr, "%s\n", qPrintable(message));
}

int fail(const char* what) {
    std::fprintf(stderr, "soak: %s\n", what);
    return 1;
}

int judge(const ProcessUsage& settled, const ProcessUsage& end) {
    std::printf("%-16s %10s %10s\n", "", "settled", "end");
    std::printf("%-16s %10d %10d\n", "descriptors", settled.descriptors, end.descriptors);
    std::printf("%-16s %10d %10d\n", "threads", settled.threads, end.threads);
    std::printf("%-16s %10d %10d\n", "children", settled.children, end.children);
    std::printf("%-16s %10ld %10ld\n", "private KiB", settled.privateKiB, end.privateKiB);
    if (end.descriptors > settled.descriptors || end.threads > settled.threads ||
        end.children > settled.children)
        return fail("something was left behind");
    if (end.privateKiB > settled.privateKiB + memorySlackKiB)
        return fail("memory grows");
    return 0;
}

/// What happens how often.
struct Plan {
    int refreshes;
    int openings;
    unsigned seed;
};

Plan planOf(int argc, char** argv) {
    return {argc > 1 ? std::atoi(argv[1]) : 10000, argc > 2 ? std::atoi(argv[2]) : 500,
            argc > 3 ? static_cast<unsigned>(std::strtoul(argv[3], nullptr, 10))
                     : std::random_device()()};
}

int live(const Plan& plan) {
    Soak soak(plan.seed);
    ProcessUsage settled;
    int opened = 0;
    for (int i = 0; i < plan.refreshes; ++i) {
        if (i == plan.refreshes / shareToSettle) {
            if (!soak.showLargeNetwork())
                return fail("a large network is not shown");
            settled = soak.usageAtRest();
        }
        if (!soak.refresh()) {
            std::printf("refresh %d, %s\n", i, qPrintable(soak.account()));
            return fail("the client does not show what the tool printed");
        }
        if (i % refreshesACommand == 0 && !soak.command()) {
            std::printf("refresh %d, %s\n", i, qPrintable(soak.account()));
            return fail("a command's outcome is not what is shown as a notification");
        }
        if ((i + 1) % reportEvery == 0) {
            std::printf("after %d: %ld KiB private\n", i + 1, ProcessUsage::now().privateKiB);
            std::fflush(stdout);
        }
        for (; opened < static_cast<long>(plan.openings) * (i + 1) / plan.refreshes; ++opened)
            if (!soak.openAndClose())
                return fail("the panel or a popover did not open");
    }
    for (auto entry = soak.conditions().begin(); entry != soak.conditions().end(); ++entry)
        std::printf("%6d %s\n", entry.value(), entry.key().constData());
    std::printf("%6d notifications\n", soak.notifications());
    return judge(settled, soak.usageAtRest());
}

int quitOften(const Plan& plan) {
    Quits quits(plan.seed);
    const int count = plan.refreshes / refreshesAQuit;
    for (int i = 0; i < count; ++i) {
        if (!quits.once()) {
            std::printf("quit %d, %s\n", i, qPrintable(quits.account()));
            return fail("a command was lost as a client was left");
        }
    }
    std::printf("%6d clients left in the middle of their commands\n", count);
    return 0;
}

} // namespace

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(logAllBut);
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    tarnwick::test::PrivateBus bus;
    bus.start();
    qputenv("DBUS_SESSION_BUS_ADDRESS", bus.address().toUtf8());
    const Plan plan = planOf(argc, argv);
    std::printf("%d refreshes, %d openings, seed %u\n", plan.refreshes, plan.openings, plan.seed);
    std::fflush(stdout);
    const int outcome = live(plan);
    return outcome == 0 ? quitOften(plan) : outcome;
}
