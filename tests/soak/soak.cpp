// SPDX-License-Identifier: MIT
#include "soak.h"

#include "ui/controls/popover_row.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>

namespace tarnwick::soak {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr auto refreshTimeout = 60s; // far above any refresh

// The event loop as it is in the program, deferred deletions included.
void runEventLoopFor(std::chrono::milliseconds duration) {
    QEventLoop loop;
    QTimer::singleShot(duration, &loop, &QEventLoop::quit);
    loop.exec();
}

// The timer goes with the loop. A single shot stays until its time has come, and thousands of them
// would count as the client's memory.
void runWithTimeout(QEventLoop& loop) {
    QTimer limit;
    limit.setSingleShot(true);
    QObject::connect(&limit, &QTimer::timeout, &loop, &QEventLoop::quit);
    limit.start(refreshTimeout);
    loop.exec();
}

Timing shortTiming() {
    return {
        .statusPollInterval = 24h,
        .profileRefreshInterval = 0ms,
        .commandTimeout = 400ms,
        .pollStep = 1ms,
        .switchPause = 1ms,
    };
}

} // namespace

Soak::Soak(unsigned seed) : tool_(seed) {
    DaemonManagerOptions options;
    options.platform.systemSocket = home_.filePath(u"no-socket"_s);
    options.platform.installDir = home_.filePath(u"nothing-installed"_s);
    options.timing = shortTiming();
    options.bundleDir = tool_.directory();
    options.homeDir = home_.path();
    options.settings =
        std::make_unique<QSettings>(home_.filePath(u"client.conf"_s), QSettings::IniFormat);
    daemon_ = DaemonManager::create(std::move(options));
    panel_ = std::make_unique<MenuBarView>(daemon_, PerformCommand());
    if (!waitForAnnouncement())
        qFatal("the controller does not refresh");
}

Soak::~Soak() = default;

// For a refresh that runs already: one requested meanwhile would complete at once.
bool Soak::waitForAnnouncement() {
    bool isOver = false;
    QEventLoop loop;
    QObject::connect(&daemon_->published(), &PublishedState::objectWillChange, &loop, [&] {
        isOver = true;
        loop.quit();
    });
    runWithTimeout(loop);
    return isOver;
}

bool Soak::refreshOnce() {
    bool isOver = false;
    QEventLoop loop;
    daemon_->refreshStatus(false, [&] {
        isOver = true;
        loop.quit();
    });
    runWithTimeout(loop);
    return isOver;
}

bool Soak::showsStopped() const {
    return !daemon_->state().isConnected && daemon_->state().devices.isEmpty();
}

bool Soak::showsAnswer() const {
    return daemon_->state().isConnected && daemon_->state().devices.size() == tool_.devices() &&
           daemon_->state().profiles.size() == tool_.profiles();
}

// On a busy machine a good answer may be late, and then counts as none; what the client showed
// before must not stay.
bool Soak::showsAnswerOrNone() const {
    return (daemon_->state().profiles.isEmpty() ||
            daemon_->state().profiles.size() == tool_.profiles()) &&
           (showsStopped() || daemon_->state().devices.size() == tool_.devices());
}

bool Soak::recovers(int devices) {
    tool_.answerWell(devices);
    for (int attempt = 0; attempt < 50; ++attempt) {
        if (!refreshOnce() || !showsAnswerOrNone())
            return false;
        if (showsAnswer())
            return true;
    }
    return false;
}

bool Soak::refresh() {
    tool_.disturb();
    lastCondition_ = tool_.condition();
    ++conditions_[lastCondition_];
    if (!refreshOnce())
        return false;
    if (!tool_.answers())
        return showsStopped() && recovers(12);
    return showsAnswer() || (showsAnswerOrNone() && recovers(tool_.devices()));
}

std::optional<QString> Soak::outcomeOfCommand(bool& hasEnded) {
    std::optional<QString> outcome;
    QEventLoop loop;
    daemon_->setCommandEnded([&](const std::optional<QString>& failure) {
        hasEnded = true;
        outcome = failure;
        if (failure)
            notification_.show(*failure);
        else
            notification_.withdraw();
        loop.quit();
    });
    if (++commands_ % 2 == 0)
        daemon_->connect();
    else
        daemon_->switchProfile(u"p0"_s);
    runWithTimeout(loop);
    daemon_->setCommandEnded({});
    return outcome;
}

bool Soak::waitForNotifications(const QStringList& texts) {
    QEventLoop loop;
    notificationDesk_.changed = [&] {
        if (notificationDesk_.shown() == texts)
            loop.quit();
    };
    if (notificationDesk_.shown() != texts)
        runWithTimeout(loop);
    notificationDesk_.changed = {};
    return notificationDesk_.shown() == texts;
}

// On a busy machine a good command may be late, and then has failed.
bool Soak::command() {
    tool_.answerWell(12);
    const bool mustFail = tool_.chance(2);
    if (mustFail)
        tool_.failWith(u"error: command %1 is refused"_s.arg(commands_).toUtf8());
    bool hasEnded = false;
    const auto failure = outcomeOfCommand(hasEnded);
    if (!hasEnded || (mustFail && !failure) || !waitForAnnouncement())
        return false;
    return waitForNotifications(failure ? QStringList{*failure} : QStringList());
}

bool Soak::openOnce() {
    panel_->openAt({20, 20});
    runEventLoopFor(2ms);
    bool opened = panel_->isVisible();
    for (PopoverRow* row : panel_->findChildren<PopoverRow*>()) {
        if (!row->isVisible())
            continue;
        row->setPopoverPresented(true);
        runEventLoopFor(2ms);
        opened = opened && row->popover() != nullptr && row->popover()->isVisible();
        row->setPopoverPresented(false);
    }
    panel_->hide();
    runEventLoopFor(1ms);
    return opened;
}

QString Soak::account() const {
    return u"tool %1, now %2 with %3 devices, client %4 with %5 devices and %6 profiles"_s
        .arg(QString::fromLatin1(lastCondition_), QString::fromLatin1(tool_.condition()))
        .arg(tool_.devices())
        .arg(daemon_->state().backendState)
        .arg(daemon_->state().devices.size())
        .arg(daemon_->state().profiles.size());
}

// Without a window manager nothing returns the focus, so that on a busy machine closing a popover
// may close the panel.
bool Soak::openAndClose() {
    for (int attempt = 0; attempt < 5; ++attempt)
        if (openOnce())
            return true;
    return false;
}

bool Soak::showLargeNetwork() {
    return recovers(FaultyTool::largeNetwork) && openAndClose();
}

ProcessUsage Soak::usageAtRest() {
    runEventLoopFor(1500ms); // the most stubborn tool has ended
    recovers(12);            // and is reaped by the next run
    runEventLoopFor(100ms);
    return ProcessUsage::now();
}

} // namespace tarnwick::soak
