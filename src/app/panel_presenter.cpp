// SPDX-License-Identifier: MIT
#include "app/panel_presenter.h"

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>

namespace tarnwick {

namespace {

/// Longest time between the press that takes the focus from the panel and the click that it ends
/// as, and how far the mouse moves meanwhile at most, in device-independent pixels.
constexpr std::chrono::milliseconds longestClick{500};
constexpr int sameSpot = 16;

/// Height that a window manager's title bar and borders take at most, in device-independent pixels.
constexpr int titleBarAllowance = 48;

const QScreen& screenAt(const QPoint& point) {
    const QScreen* screen = QGuiApplication::screenAt(point);
    return screen ? *screen : *QGuiApplication::primaryScreen();
}

PanelPlacement placementFor(const std::optional<QRect>& icon) {
    const QPoint cursor = QCursor::pos();
    const QScreen& screen = screenAt(icon ? icon->center() : cursor);
    const QRect whole = screen.geometry();
    const QRect available = screen.availableGeometry();
    return {icon.value_or(assumedIcon(cursor, whole, available)), whole, available};
}

} // namespace

PanelPresenter::PanelPresenter(MakePanel makePanel) : makePanel_(std::move(makePanel)) {}

PanelPresenter::~PanelPresenter() = default;

MenuBarView& PanelPresenter::panel() {
    if (!panel_) {
        panel_ = makePanel_();
        QObject::connect(panel_.get(), &MenuBarView::dismissedByDeactivation, this, [this] {
            // Hiding it takes the focus from it too.
            if (!panel_->isHidden())
                dismissal_ = {QCursor::pos(), QDeadlineTimer(longestClick)};
        });
    }
    return *panel_;
}

void PanelPresenter::toggle(const std::optional<QRect>& icon) {
    // The click that is to close the panel has closed it already, by taking the focus from it.
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
    const QRect available = screenAt(QCursor::pos()).availableGeometry();
    panel().setMaximumPanelHeight(available.height() - titleBarAllowance);
    QRect place(QPoint(0, 0), panel().panelSize());
    place.moveCenter(available.center());
    panel().openAsWindowAt(place.topLeft());
}

} // namespace tarnwick
