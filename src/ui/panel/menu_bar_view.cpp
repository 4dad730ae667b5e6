// SPDX-License-Identifier: MIT
#include "ui/panel/menu_bar_view.h"

#include "ui/controls/popover_row.h"

#include <QApplication>
#include <QScreen>
#include <QWindow>

#include <algorithm>
#include <cmath>
#include <utility>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

/// How long the window manager may take to activate the panel again after a popover has closed;
/// meanwhile no window is active.
constexpr int handOverMilliseconds = 300;

/// The height, a little more where a fractional scale would not make it a whole number of pixels:
/// rounded, the panel would overlap the bar that it touches.
int wholePixelHeight(int height, qreal ratio) {
    constexpr int most = 4; // enough for scales in steps of a quarter
    for (int more = 0; more < most; ++more) {
        const qreal pixels = (height + more) * ratio;
        if (qFuzzyCompare(pixels, std::round(pixels)))
            return height + more;
    }
    return height;
}

} // namespace

MenuBarView::MenuBarView(std::shared_ptr<DaemonManager> daemon, PerformCommand perform,
                         QWidget* parent)
    : FramelessWindow(parent), daemon_(std::move(daemon)), scrollArea_(new OverlayScrollArea(this)),
      column_(new PanelColumn(std::move(perform), nullptr)) {
    setWindowTitle(u"Tarnwick Network"_s);
    MenuBarView::shadowMarginsChanged();
    scrollArea_->setContents(column_);
    activationReview_.setSingleShot(true);
    QObject::connect(&activationReview_, &QTimer::timeout, this, &MenuBarView::reviewActivation);
    QObject::connect(&daemon_->published(), &PublishedState::changed, this,
                     &MenuBarView::renderIfVisible);
    QObject::connect(qGuiApp, &QGuiApplication::focusWindowChanged, this,
                     &MenuBarView::scheduleActivationReview);
}

MenuBarView::~MenuBarView() = default;

QSize MenuBarView::panelSize() {
    render();
    return {panelWidth, fittingHeight()};
}

void MenuBarView::setMaximumPanelHeight(int height) {
    maximumPanelHeight_ = height;
    if (isVisible())
        fitHeight();
}

void MenuBarView::openAt(const QPoint& topLeft) {
    openAs(flags, topLeft);
}

void MenuBarView::openAsWindowAt(const QPoint& topLeft) {
    openAs(Qt::Window, topLeft);
}

bool MenuBarView::isOrdinaryWindow() const {
    return !windowFlags().testFlag(Qt::FramelessWindowHint);
}

void MenuBarView::openAs(Qt::WindowFlags newFlags, const QPoint& topLeft) {
    // Compares one flag, since Qt adds others, and only on a change, since it hides the window.
    if (isOrdinaryWindow() == newFlags.testFlag(Qt::FramelessWindowHint))
        setWindowFlags(newFlags);
    const QRect opened(topLeft, panelSize());
    const QScreen* screen = QGuiApplication::screenAt(opened.center());
    if (screen == nullptr)
        screen = this->screen();
    const QRect available = screen->availableGeometry();
    growsUpwards_ = available.bottom() - opened.bottom() < opened.top() - available.top();
    lastActive_ = this;
    wasActiveSinceOpened_ = isVisible() && ownsWindow(QApplication::activeWindow());
    setPlace(opened);
    showInFront();
}

void MenuBarView::setVisible(bool visible) {
    if (visible && !isVisible()) {
        render(); // the first frame must be up to date
        setPlace({visibleGeometry().topLeft(), panelSize()});
    }
    FramelessWindow::setVisible(visible);
}

void MenuBarView::renderIfVisible() {
    if (isVisible())
        render();
}

void MenuBarView::render() {
    PanelContent content = PanelContent::of(daemon_->state());
    if (shown_ == content)
        return;
    column_->setContent(content);
    shown_ = std::move(content);
    ++renderCount_;
    if (isVisible())
        fitHeight();
}

int MenuBarView::fittingHeight() const {
    const int content = column_->contentHeight(panelWidth);
    return std::min(wholePixelHeight(content, devicePixelRatioF()), maximumPanelHeight_);
}

void MenuBarView::fitHeight() {
    const int newHeight = fittingHeight();
    const QRect shown = visibleGeometry();
    if (newHeight == shown.height())
        return;
    QRect fitted(shown.topLeft(), QSize(panelWidth, newHeight));
    if (growsUpwards_)
        fitted.moveBottom(shown.bottom());
    const QRect available = screen()->availableGeometry();
    fitted.moveTop(
        std::max(available.top(), std::min(fitted.top(), available.bottom() + 1 - newHeight)));
    setPlace(fitted);
}

void MenuBarView::setPlace(const QRect& geometry) {
    // Tiling window managers stretch windows that can be resized.
    setMinimumHeight(isOrdinaryWindow() ? geometry.height() : 0);
    setMaximumHeight(isOrdinaryWindow() ? geometry.height() : QWIDGETSIZE_MAX);
    setVisibleGeometry(geometry);
}

bool MenuBarView::event(QEvent* event) {
    if (event->type() == QEvent::ApplicationFontChange && isVisible())
        QMetaObject::invokeMethod(this, &MenuBarView::fitHeight, Qt::QueuedConnection);
    return FramelessWindow::event(event);
}

void MenuBarView::deactivated() {
    scheduleActivationReview();
}

bool MenuBarView::ownsWindow(const QWidget* window) const {
    for (; window != nullptr; window = window->parentWidget())
        if (window == this)
            return true;
    return false;
}

void MenuBarView::scheduleActivationReview() {
    const QWidget* active = QApplication::activeWindow();
    const bool popoverWentAway = !lastActive_ || !lastActive_->isVisible();
    activationReview_.start(active == nullptr && popoverWentAway ? handOverMilliseconds : 0);
    if (ownsWindow(active)) {
        lastActive_ = active;
        wasActiveSinceOpened_ = true;
    }
}

// A focus that goes before the panel had it since it was opened is that of the last time: where it
// is opened again at once, the window system reports the loss late.
void MenuBarView::reviewActivation() {
    if (!isVisible() || isOrdinaryWindow() || !wasActiveSinceOpened_ ||
        ownsWindow(QApplication::activeWindow()))
        return;
    Q_EMIT dismissedByDeactivation();
    hide();
}

bool MenuBarView::closeInnermostPopover() {
    for (PopoverRow* row : findChildren<PopoverRow*>()) {
        if (row->isPopoverPresented()) {
            row->setPopoverPresented(false);
            return true;
        }
    }
    return false;
}

void MenuBarView::escape() {
    if (!closeInnermostPopover())
        hide();
}

void MenuBarView::resizeEvent(QResizeEvent* event) {
    FramelessWindow::resizeEvent(event);
    visibleRectChanged();
}

int MenuBarView::roomAbove(const QRect& geometry) const {
    constexpr int forAllRows = 300; // more than between the fewest rows and the most
    const QScreen* screen = QGuiApplication::screenAt(geometry.center());
    if (!growsUpwards_ || isOrdinaryWindow() || screen == nullptr)
        return 0;
    const int room = geometry.top() - screen->availableGeometry().top();
    return std::clamp(room - room % 4, 0, forAllRows); // whole pixels at every scale
}

void MenuBarView::visibleRectChanged() {
    scrollArea_->setGeometry(visibleRect());
    const QRect shape(QPoint(0, 0), visibleRect().size());
    QPainterPath square;
    square.addRect(shape);
    setOutline(isOrdinaryWindow() ? square : roundedOutline(shape), shape);
}

void MenuBarView::shadowMarginsChanged() {
    setFixedWidth(panelWidth + shadowMargins().left() + shadowMargins().right());
}

void MenuBarView::hideEvent(QHideEvent* event) {
    FramelessWindow::hideEvent(event);
    Q_EMIT closed();
}

} // namespace tarnwick
