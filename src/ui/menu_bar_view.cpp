// SPDX-License-Identifier: MIT
#include "ui/menu_bar_view.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPushButton>
#include <QVBoxLayout>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

constexpr Qt::WindowFlags panelFlags = Qt::Tool | Qt::FramelessWindowHint;

} // namespace

MenuBarView::MenuBarView(std::shared_ptr<DaemonManager> daemon, PanelCalls calls, QWidget* parent)
    : QWidget(parent, panelFlags), daemon_(std::move(daemon)), calls_(std::move(calls)) {
    setWindowTitle(u"Tarnwick Network"_s);
    setFixedWidth(panelWidth);
    auto* layout = new QVBoxLayout(this);
    const auto add = [&](const QString& title, const std::function<void()>& call) {
        auto* button = new QPushButton(title, this);
        QObject::connect(button, &QPushButton::clicked, this, [call] {
            if (call)
                call();
        });
        layout->addWidget(button);
    };
    add(u"Use Auth Key..."_s, calls_.showAuthKeyWindow);
    add(u"Refresh"_s, calls_.refresh);
    add(u"Check for Updates..."_s, calls_.checkForUpdates);
    add(u"Website"_s, calls_.openWebsite);
    add(u"Quit Tarnwick Network"_s, calls_.quit);
}

MenuBarView::~MenuBarView() = default;

QSize MenuBarView::panelSize() {
    return {panelWidth, qMin(sizeHint().height(), maximumHeight())};
}

void MenuBarView::setMaximumPanelHeight(int height) {
    setMaximumHeight(height);
}

void MenuBarView::openAt(const QPoint& topLeft) {
    openAs(panelFlags, topLeft);
}

void MenuBarView::openAsWindowAt(const QPoint& topLeft) {
    openAs(Qt::Window, topLeft);
}

void MenuBarView::openAs(Qt::WindowFlags flags, const QPoint& topLeft) {
    // Qt adds flags of its own; this one tells the two apart. Setting flags hides the window.
    if (windowFlags().testFlag(Qt::FramelessWindowHint) != flags.testFlag(Qt::FramelessWindowHint))
        setWindowFlags(flags);
    resize(panelSize());
    move(topLeft);
    show();
    raise();
    activateWindow();
}

bool MenuBarView::event(QEvent* event) {
    if (event->type() == QEvent::WindowDeactivate && isVisible() &&
        windowFlags().testFlag(Qt::FramelessWindowHint)) {
        Q_EMIT dismissedByDeactivation();
        hide();
    }
    return QWidget::event(event);
}

void MenuBarView::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        hide();
    else
        QWidget::keyPressEvent(event);
}

void MenuBarView::hideEvent(QHideEvent* event) {
    QWidget::hideEvent(event);
    Q_EMIT closed();
}

} // namespace tarnwick
