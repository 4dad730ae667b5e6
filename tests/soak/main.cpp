// SPDX-License-Identifier: MIT
// tarnwick_soak [REFRESHES [OPENINGS [SEED]]]: refreshes many times and compares what the process
// holds in the end with what it held after the first hundred refreshes.
#include "soak.h"

#include <QApplication>

#include <cstdio>
#include <cstdlib>
#include <random>

using tarnwick::soak::ProcessUsage;
using tarnwick::soak::Soak;

namespace {

constexpr int settledAfter = 100;
constexpr int reportEvery = 1000;
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

} // namespace

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(logAllBut);
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const int refreshes = argc > 1 ? std::atoi(argv[1]) : 10000;
    const int openings = argc > 2 ? std::atoi(argv[2]) : 500;
    const unsigned seed = argc > 3 ? static_cast<unsigned>(std::strtoul(argv[3], nullptr, 10))
                                   : std::random_device()();
    std::printf("%d refreshes, %d openings, seed %u\n", refreshes, openings, seed);
    std::fflush(stdout);

    Soak soak(seed);
    ProcessUsage settled;
    int opened = 0;
    for (int i = 0; i < refreshes; ++i) {
        if (i == settledAfter)
            settled = soak.usageAtRest();
        if (!soak.refresh()) {
            std::printf("refresh %d, %s\n", i, qPrintable(soak.account()));
            return fail("the client does not show what the tool printed");
        }
        if ((i + 1) % reportEvery == 0) {
            std::printf("after %d: %ld KiB private\n", i + 1, ProcessUsage::now().privateKiB);
            std::fflush(stdout);
        }
        for (; opened < static_cast<long>(openings) * (i + 1) / refreshes; ++opened)
            if (!soak.openAndClose())
                return fail("the panel or a popover did not open");
    }
    for (auto entry = soak.conditions().begin(); entry != soak.conditions().end(); ++entry)
        std::printf("%6d %s\n", entry.value(), entry.key().constData());
    return judge(settled, soak.usageAtRest());
}
