// SPDX-License-Identifier: MIT
#include "desktop/session_environment.h"
#include "desktop/window_system.h"
#include "desktop/x11_linux.h"

#include <QAbstractNativeEventFilter>
#include <QCursor>
#include <QGuiApplication>
#include <QRegion>
#include <QScreen>
#include <QSurfaceFormat>
#include <QTransform>
#include <QWindow>

#include <cstdint>
#include <utility>
#include <vector>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

constexpr const char* compositorSelection = "_NET_WM_CM_S0";

/// Notices when a compositor starts or ends: it owns a selection of the X display.
class X11CompositorWatch : public QObject, public QAbstractNativeEventFilter {
public:
    explicit X11CompositorWatch(std::function<void()> changed);
    ~X11CompositorWatch() override;
    X11CompositorWatch(const X11CompositorWatch&) = delete;
    X11CompositorWatch& operator=(const X11CompositorWatch&) = delete;

    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

private:
    std::function<void()> changed_;
    std::uint32_t selection_ = 0;
    std::uint8_t eventType_ = 0;
};

X11CompositorWatch::X11CompositorWatch(std::function<void()> changed)
    : changed_(std::move(changed)) {
    X11Display display;
    selection_ = display.atom(compositorSelection);
    eventType_ = display.watchSelection(selection_);
    if (eventType_ != 0)
        qGuiApp->installNativeEventFilter(this);
}

X11CompositorWatch::~X11CompositorWatch() {
    if (qGuiApp)
        qGuiApp->removeNativeEventFilter(this);
}

bool X11CompositorWatch::nativeEventFilter(const QByteArray& eventType, void* message, qintptr*) {
    constexpr std::uint8_t sentByAnyProgram = 0x80; // set in an event's type by the X server

    struct SelectionEvent {
        std::uint8_t type;
        std::uint8_t what;
        std::uint16_t sequence;
        std::uint32_t window;
        std::uint32_t owner;
        std::uint32_t selection;
    };

    if (eventType != "xcb_generic_event_t")
        return false;
    const auto* event = static_cast<const SelectionEvent*>(message);
    if ((event->type & ~sentByAnyProgram) == eventType_ && event->selection == selection_)
        QMetaObject::invokeMethod(this, changed_, Qt::QueuedConnection);
    return false;
}

/// GNOME leaves the focus where it is when its empty desktop is clicked, and reports such a click
/// to nobody. This is a window that nobody sees, below all others, as a program that draws the
/// desktop has.
class DesktopWindow : public QWindow {
public:
    explicit DesktopWindow(std::function<void()> clicked) : clicked_(std::move(clicked)) {
        QSurfaceFormat translucent;
        translucent.setAlphaBufferSize(8);
        setFormat(translucent);
        setFlags(Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus);
        setGeometry(QGuiApplication::primaryScreen()->virtualGeometry());
        create();
        X11Display display;
        const auto id = static_cast<std::uint32_t>(winId());
        display.makeBackgroundTransparent(id);
        display.setNames(id, "_NET_WM_WINDOW_TYPE", {"_NET_WM_WINDOW_TYPE_DESKTOP"});
        show();
    }

protected:
    void mousePressEvent(QMouseEvent*) override {
        QMetaObject::invokeMethod(this, clicked_, Qt::QueuedConnection); // may delete this
    }

private:
    const std::function<void()> clicked_;
};

} // namespace

bool isScreenComposited() {
    X11Display display;
    return !display.exists() || display.hasOwner(display.atom(compositorSelection));
}

bool canDeclareShadow() {
    return X11Display().exists();
}

void declareShadow(QWindow& window, const QMargins& margins, const QPainterPath& shape) {
    X11Display display;
    if (!display.exists())
        return;
    const qreal ratio = window.devicePixelRatio();
    const auto id = static_cast<std::uint32_t>(window.winId());
    const auto pixels = [ratio](int length) {
        return static_cast<std::uint32_t>(qRound(length * ratio));
    };
    std::vector<std::uint32_t> extents;
    if (!margins.isNull())
        extents = {pixels(margins.left()), pixels(margins.right()), pixels(margins.top()),
                   pixels(margins.bottom())};
    display.setProperty(id, "_GTK_FRAME_EXTENTS", extents);
    const QPainterPath scaled = QTransform::fromScale(ratio, ratio).map(shape);
    display.setInputRegion(id, QRegion(scaled.toFillPolygon().toPolygon()));
}

std::unique_ptr<QObject> watchCompositor(std::function<void()> changed) {
    if (!X11Display().exists())
        return nullptr;
    return std::make_unique<X11CompositorWatch>(std::move(changed));
}

void setLeftOutOfTaskBars(QWindow& window, bool isLeftOut) {
    X11Display display;
    if (!display.exists())
        return;
    std::vector<QByteArray> states;
    if (isLeftOut)
        states = {"_NET_WM_STATE_SKIP_TASKBAR", "_NET_WM_STATE_SKIP_PAGER"};
    display.setNames(static_cast<std::uint32_t>(window.winId()), "_NET_WM_STATE", states);
}

std::unique_ptr<QObject> watchDesktopClicks(std::function<void()> clicked) {
    if (!isGnome(QProcessEnvironment::systemEnvironment()) || !X11Display().exists())
        return nullptr;
    return std::make_unique<DesktopWindow>(std::move(clicked));
}

std::optional<QPoint> pointerPosition() {
    if (QGuiApplication::platformName().startsWith("wayland"_L1) || X11Display().isXwayland())
        return std::nullopt;
    return QCursor::pos();
}

void completeStartup(const QByteArray& token) {
    QByteArray quoted = token;
    quoted.replace('\\', "\\\\").replace('"', "\\\"");
    if (!token.isEmpty())
        X11Display().broadcast("_NET_STARTUP_INFO", "remove: ID=\"" + quoted + '"');
}

} // namespace tarnwick
