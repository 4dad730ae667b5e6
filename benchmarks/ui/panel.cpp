// SPDX-License-Identifier: MIT
// From the call that a click makes to the first painted frame: the panel the second time, and a
// popover of 1,000 devices, each against an empty window of its size. Then scrolling in it, and
// what it takes of the heap.
#include "support/heap_use.h"
#include "support/publishing.h"
#include "ui/panel/devices_submenu.h"
#include "ui/panel/menu_bar_view.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QScrollBar>
#include <QSettings>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <chrono>

namespace {

using namespace tarnwick;

/// Notes when a window is painted.
class PaintWatch : public QObject {
public:
    explicit PaintWatch(QWidget& window) : window_(window) { window.installEventFilter(this); }

    /// Runs the event loop until the frame with the window's first painting is through.
    void wait() {
        while (!isPainted_)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        window_.removeEventFilter(this);
    }

protected:
    bool eventFilter(QObject*, QEvent* event) override {
        isPainted_ = isPainted_ || event->type() == QEvent::Paint;
        return false;
    }

private:
    QWidget& window_;
    bool isPainted_ = false;
};

class Stopwatch {
public:
    double seconds() const {
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin_).count();
    }

private:
    std::chrono::steady_clock::time_point begin_ = std::chrono::steady_clock::now();
};

void runEventLoop(int milliseconds) {
    const QElapsedTimer elapsed = [] {
        QElapsedTimer timer;
        timer.start();
        return timer;
    }();
    while (elapsed.elapsed() < milliseconds)
        QCoreApplication::processEvents(QEventLoop::AllEvents, milliseconds);
}

/// A panel on a controller that has no tool to ask, with what is published here.
class Panel {
public:
    explicit Panel(int devices) : daemon_(makeDaemon()), view(daemon_, {}) {
        QList<DeviceInfo> all;
        for (int i = 0; i < devices; ++i) {
            all.append({QString::number(i),
                        QStringLiteral("device-%1").arg(i),
                        {},
                        {QStringLiteral("100.64.%1.%2").arg(i / 250).arg(i % 250)},
                        i % 2 == 0,
                        QStringLiteral("linux")});
        }
        DaemonState state;
        state.isConnected = true;
        state.ipAddress = QStringLiteral("100.64.0.1");
        state.hostname = QStringLiteral("my-computer");
        state.devices = all;
        test::publish(*daemon_, state);
        open();
    }

    void open() {
        PaintWatch watch(view);
        view.openAt({350, 20});
        watch.wait();
    }

private:
    std::shared_ptr<DaemonManager> makeDaemon() {
        DaemonManagerOptions options;
        options.timing.statusPollInterval = std::chrono::hours(1);
        options.bundleDir = home_.path();
        options.homeDir = home_.path();
        options.settings = std::make_unique<QSettings>(home_.filePath(QStringLiteral("settings")),
                                                       QSettings::IniFormat);
        auto daemon = DaemonManager::create(std::move(options));
        runEventLoop(200); // its first refresh finds nothing
        return daemon;
    }

    QTemporaryDir home_;
    std::shared_ptr<DaemonManager> daemon_;

public:
    MenuBarView view;
};

double openEmptyWindow(const QSize& size) {
    QWidget window(nullptr, Qt::Tool | Qt::FramelessWindowHint);
    window.setAttribute(Qt::WA_TranslucentBackground);
    window.setGeometry(QRect(QPoint(20, 20), size));
    PaintWatch watch(window);
    const Stopwatch stopwatch;
    window.show();
    window.activateWindow();
    watch.wait();
    return stopwatch.seconds();
}

void openPanelAgain(benchmark::State& state) {
    Panel panel(12);
    for ([[maybe_unused]] auto _ : state) {
        panel.view.hide();
        runEventLoop(350); // until the panel has noted its loss of the focus, or it closes again
        const Stopwatch stopwatch;
        panel.open();
        state.SetIterationTime(stopwatch.seconds());
    }
}

void openWindowOfThatSize(benchmark::State& state) {
    const QSize size = Panel(12).view.size();
    for ([[maybe_unused]] auto _ : state)
        state.SetIterationTime(openEmptyWindow(size));
}

void openDevices(benchmark::State& state) {
    Panel panel(int(state.range(0)));
    auto* row = panel.view.findChild<DevicesSubmenu*>();
    for ([[maybe_unused]] auto _ : state) {
        const Stopwatch stopwatch;
        row->setPopoverPresented(true);
        PaintWatch watch(*row->popover());
        watch.wait();
        state.SetIterationTime(stopwatch.seconds());
        row->setPopoverPresented(false);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        runEventLoop(5);
    }
}

/// A frame of a list that is scrolled by a row and a half at a time, to its end and back.
void scrollDevices(benchmark::State& state) {
    Panel panel(int(state.range(0)));
    auto* row = panel.view.findChild<DevicesSubmenu*>();
    row->setPopoverPresented(true);
    runEventLoop(200);
    QScrollBar& bar = *row->list()->scrollArea()->verticalScrollBar();
    int step = 60;
    for ([[maybe_unused]] auto _ : state) {
        if (bar.value() + step > bar.maximum() || bar.value() + step < 0)
            step = -step;
        PaintWatch watch(*row->popover());
        const Stopwatch stopwatch;
        bar.setValue(bar.value() + step);
        watch.wait();
        state.SetIterationTime(stopwatch.seconds());
    }
}

/// What an open popover holds once nothing is left to do; in place of a time.
void heapOfDevices(benchmark::State& state) {
    Panel panel(int(state.range(0)));
    auto* row = panel.view.findChild<DevicesSubmenu*>();
    for ([[maybe_unused]] auto _ : state) {
        const double before = bench::heapKiB();
        row->setPopoverPresented(true);
        runEventLoop(500);
        state.SetIterationTime((bench::heapKiB() - before) / 1e6);
        row->setPopoverPresented(false);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        runEventLoop(5);
    }
}

void openWindowOfPopoverSize(benchmark::State& state) {
    for ([[maybe_unused]] auto _ : state)
        state.SetIterationTime(openEmptyWindow({269, 330}));
}

BENCHMARK(openPanelAgain)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(openWindowOfThatSize)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(openDevices)->Arg(10)->Arg(1000)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(scrollDevices)->Arg(1000)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(heapOfDevices)
    ->Arg(10)
    ->Arg(1000)
    ->UseManualTime()
    ->Iterations(3)
    ->Unit(benchmark::kMicrosecond);
BENCHMARK(openWindowOfPopoverSize)->UseManualTime()->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
