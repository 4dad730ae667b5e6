// SPDX-License-Identifier: MIT
#include "app/panel_presenter.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>

namespace tarnwick {

namespace {

/// Limits within which a loss of focus and a click on the icon count as one click: the time from
/// press to release, and the pointer's movement in device-independent pixels.
constexpr std::chrono::milliseconds longestClick{500};
constexpr int sameSpot = 16;

/// Room for a window manager's title bar and borders, in device-independent pixels.
constexpr int titleBarAllowance = 48;

const QScreen* screenAt(const QPoint& point) {
    const QScreen* screen = QGuiApplication::screenAt(point);
    return screen ? screen : QGuiApplication::primaryScreen();
}

PanelPlacement placementFor(const std::optional<QRect>& icon) {
    const QPoint cursor = QCursor::pos();
    const QScreen* screen = screenAt(icon ? icon->center() : cursor);
    const QRect whole = screen->geometry();
    const QRect available = screen->availableGeometry();
    return {icon.value_or(assumedIcon(cursor, whole, available)), whole, available};
}

} // namespace

PanelPresenter::PanelPresenter(MakePanel makePanel) : makePanel_(std::move(makePanel)) {}

PanelPresenter::~PanelPresenter() = default;

MenuBarView& PanelPresenter::panel() {
    if (!panel_) {
        panel_ = makePanel_();
        QObject::connect(panel_.get(), &MenuBarView::dismissedByDeactivation, this, [this] {
            // Hiding the panel deactivates it too, which is no dismissal.
            if (!panel_->isHidden())
                dismissal_ = {QCursor::pos(), QDeadlineTimer(longestClick)};
        });
    }
    return *panel_;
}

void PanelPresenter::toggle(const std::optional<QRect>& icon) {
    // The press of this click may have closed the panel already, by taking its focus.
    const bool closedByThisClick =
        dismissal_ && !dismissal_->longestClick.hasExpired() &&
        (QCursor::pos() - dismissal_->cursor).manhattanLength() < sameSpot;
    dismissal_.reset();
    if (isOpen())
        panel_->close();
    else if (!closedByThisClick)
        open(icon);
}

void PanelPresenter::open(const std::optional<QRect>& icon) {
    const PanelPlacement placement = placementFor(icon);
    panel().setMaximumPanelHeight(placement.roomForPanel());
    panel().openAt(placement.position(panel().panelSize()));
}

void PanelPresenter::openAsWindow() {
    const QRect available = screenAt(QCursor::pos())->availableGeometry();
    panel().setMaximumPanelHeight(available.height() - titleBarAllowance);
    QRect place(QPoint(0, 0), panel().panelSize());
    place.moveCenter(available.center());
    panel().openAsWindowAt(place.topLeft());
}

} // namespace tarnwick
