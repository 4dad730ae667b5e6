// SPDX-License-Identifier: MIT
#include "ui/controls/overlay_scroll_area.h"

#include "ui/controls/keyboard.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyle>

#include <algorithm>

namespace tarnwick {

namespace {

constexpr int margin = 2;
constexpr int shortestThumb = 24;

} // namespace

OverlayScrollBar::OverlayScrollBar(QAbstractSlider* source, QWidget* parent)
    : QAbstractSlider(parent), source_(source) {
    setOrientation(Qt::Vertical);
    setFocusPolicy(Qt::NoFocus);
    QObject::connect(source_, &QAbstractSlider::rangeChanged, this, &OverlayScrollBar::takeRange);
    QObject::connect(source_, &QAbstractSlider::valueChanged, this, &QAbstractSlider::setValue);
    QObject::connect(this, &QAbstractSlider::valueChanged, source_, &QAbstractSlider::setValue);
    takeRange();
}

void OverlayScrollBar::takeRange() {
    setPageStep(source_->pageStep());
    setRange(source_->minimum(), source_->maximum());
    setVisible(maximum() > minimum());
    update();
}

QRect OverlayScrollBar::thumbRect() const {
    const int track = height() - 2 * margin;
    const double whole = maximum() - minimum() + pageStep();
    const int length = std::min(track, std::max(shortestThumb, int(track * pageStep() / whole)));
    const double part = double(value() - minimum()) / std::max(1, maximum() - minimum());
    return {margin, margin + qRound((track - length) * part), width() - 2 * margin, length};
}

void OverlayScrollBar::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    QColor color = palette().color(QPalette::WindowText);
    color.setAlphaF(isHovering_ || isSliderDown() ? 0.5F : 0.28F);
    painter.setBrush(color);
    const double slimmer = isHovering_ || isSliderDown() ? 0 : 1;
    const QRectF thumb = QRectF(thumbRect()).adjusted(slimmer, 0, -slimmer, 0);
    painter.drawRoundedRect(thumb, thumb.width() / 2, thumb.width() / 2);
}

void OverlayScrollBar::mousePressEvent(QMouseEvent* event) {
    const QRect thumb = thumbRect();
    const int y = int(event->position().y());
    setSliderDown(true);
    grabbedAt_ = thumb.contains(thumb.center().x(), y) ? y - thumb.top() : thumb.height() / 2;
    mouseMoveEvent(event);
}

void OverlayScrollBar::mouseMoveEvent(QMouseEvent* event) {
    if ((event->buttons() & Qt::LeftButton) == 0)
        return;
    const int room = height() - 2 * margin - thumbRect().height();
    const double part = (event->position().y() - grabbedAt_ - margin) / std::max(1, room);
    setValue(minimum() + qRound(std::clamp(part, 0.0, 1.0) * (maximum() - minimum())));
}

void OverlayScrollBar::enterEvent(QEnterEvent*) {
    isHovering_ = true;
    update();
}

void OverlayScrollBar::leaveEvent(QEvent*) {
    isHovering_ = false;
    setSliderDown(false);
    update();
}

OverlayScrollArea::OverlayScrollArea(QWidget* parent)
    : QScrollArea(parent), bar_(new OverlayScrollBar(verticalScrollBar(), this)) {
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWidgetResizable(true);
    setFocusPolicy(Qt::NoFocus);
    viewport()->setAutoFillBackground(false);
    constexpr int inside = -4; // the area reaches to the edges of its window
    new FocusRing(this, inside);
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
    if (!hasFocus())
        event->ignore();
    else if (event->key() == Qt::Key_Home)
        verticalScrollBar()->triggerAction(QAbstractSlider::SliderToMinimum);
    else if (event->key() == Qt::Key_End)
        verticalScrollBar()->triggerAction(QAbstractSlider::SliderToMaximum);
    else
        QScrollArea::keyPressEvent(event);
}

} // namespace tarnwick
