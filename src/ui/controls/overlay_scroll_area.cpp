// SPDX-License-Identifier: MIT
#include "ui/controls/overlay_scroll_area.h"

#include <QKeyEvent>
#include <QScrollBar>
#include <QStyle>

namespace tarnwick {

OverlayScrollArea::OverlayScrollArea(QWidget* parent)
    : QScrollArea(parent), bar_(new OverlayScrollBar(verticalScrollBar(), this)) {
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);
    viewport()->setAutoFillBackground(false);
}

void OverlayScrollArea::setContents(QWidget* contents) {
    setWidget(contents);
    contents->setAutoFillBackground(false); // setWidget() switches it on
    bar_->raise();
}

void OverlayScrollArea::resizeEvent(QResizeEvent* event) {
    QScrollArea::resizeEvent(event);
    const QRect bar(width() - OverlayScrollBar::barWidth, 0, OverlayScrollBar::barWidth, height());
    bar_->setGeometry(QStyle::visualRect(layoutDirection(), rect(), bar));
}

void OverlayScrollArea::keyPressEvent(QKeyEvent* event) {
    if (hasFocus())
        QScrollArea::keyPressEvent(event);
    else
        event->ignore();
}

} // namespace tarnwick
