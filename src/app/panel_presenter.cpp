// SPDX-License-Identifier: MIT
#include "app/panel_presenter.h"

#include "desktop/window_system.h"

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

QList<ScreenArea> screenAreas() {
    QList<ScreenArea> areas;
    for (const QScreen* screen : QGuiApplication::screens())
        areas.append({screen->geometry(), screen->availableGeometry(), screen->devicePixelRatio()});
    return areas;
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
                dismissal_ = {pointerPosition(), QDeadlineTimer(longestClick)};
        });
        QObject::connect(panel_.get(), &MenuBarView::closed, this, [this] {
            if (QObject* clicks = desktopClicks_.release())
                clicks->deleteLater(); // it may be reporting one
        });
    }
    return *panel_;
}

bool PanelPresenter::Dismissal::mayBeOf(const std::optional<QPoint>& click) const {
    const bool isSameSpot = !click || !pointer || (*click - *pointer).manhattanLength() < sameSpot;
    return isSameSpot && !longestClick.hasExpired();
}

void PanelPresenter::toggle(const IconPlace& icon) {
    // The press of this click may have closed the panel already, by taking its focus.
    const bool closedByThisClick = dismissal_ && dismissal_->mayBeOf(pointerPosition());
    dismissal_.reset();
    if (isOpen())
        panel_->close();
    else if (!closedByThisClick)
        open(icon);
}

void PanelPresenter::open(const IconPlace& icon) {
    const PanelPlacement placement =
        PanelPlacement::beside({icon.rect, icon.click, pointerPosition()}, screenAreas());
    panel().setMaximumPanelHeight(placement.roomForPanel());
    closeOnDesktopClicks();
    panel().openAt(placement.position(panel().panelSize()));
}

void PanelPresenter::closeOnDesktopClicks() {
    if (!desktopClicks_)
        desktopClicks_ = watchDesktopClicks([this] { panel_->close(); });
}

void PanelPresenter::openAsWindow() {
    const QRect available = screenAt(QCursor::pos())->availableGeometry();
    panel().setMaximumPanelHeight(available.height() - titleBarAllowance);
    QRect place(QPoint(0, 0), panel().panelSize());
    place.moveCenter(available.center());
    desktopClicks_.reset(); // an ordinary window stays open
    panel().openAsWindowAt(place.topLeft());
}

} // namespace tarnwick
