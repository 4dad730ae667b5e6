// SPDX-License-Identifier: MIT
#include "ui/controls/content_column.h"

#include "ui/style/colors.h"
#include "ui/style/row_painting.h"

#include <QPainter>

#include <algorithm>
#include <utility>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

bool areInOrder(const QList<QWidget*>& widgets) {
    qsizetype next = 0;
    for (const QObject* child : widgets.first()->parentWidget()->children())
        if (next < widgets.size() && child == widgets[next])
            ++next;
    return next == widgets.size();
}

} // namespace

Divider::Divider(int padding, QWidget* parent) : QWidget(parent) {
    setFixedHeight(1 + 2 * padding);
}

void Divider::paintEvent(QPaintEvent*) {
    // Of one thickness at every scale: a point that is no whole number of pixels would be rounded
    // differently here and there.
    QPainter painter(this);
    const int padding = height() / 2;
    const double top = wholePixels(painter, QRectF(0, padding, 1, 1)).top();
    const QRectF line(0, top, width(), wholePixelLine(painter, 1));
    painter.fillRect(line, dividerColor(palette()));
}

ContentColumn::ContentColumn(const QMargins& margins, int spacing, QWidget* parent)
    : QWidget(parent), column_(new QVBoxLayout(this)) {
    column_->setContentsMargins(margins);
    column_->setSpacing(spacing);
}

void ContentColumn::begin() {
    while (const auto* item = column_->takeAt(0))
        delete item;
    previous_ = std::exchange(widgets_, {});
    shown_.clear();
}

void ContentColumn::end() {
    for (QWidget* gone : std::as_const(previous_)) {
        gone->hide();
        gone->deleteLater();
    }
    previous_.clear();
    setReadingOrder(shown_);
}

void ContentColumn::addDivider(int padding) {
    const QString key = u"divider/%1"_s.arg(shown_.size());
    QWidget* divider = previous_.take(key);
    append(key, divider != nullptr ? divider : new Divider(padding, this));
}

void ContentColumn::append(const QString& key, QWidget* widget) {
    column_->addWidget(widget);
    widget->show(); // now, because hidden ones do not count for the height
    widgets_.insert(key, widget);
    shown_.append(widget);
}

void setReadingOrder(const QList<QWidget*>& children) {
    if (children.isEmpty() || areInOrder(children))
        return;
    for (QWidget* child : children)
        child->raise(); // moves it to the end of the parent's children
}

} // namespace tarnwick
