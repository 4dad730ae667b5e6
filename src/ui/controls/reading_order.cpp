// SPDX-License-Identifier: MIT
#include "ui/controls/reading_order.h"

#include <QWidget>

namespace tarnwick {

namespace {

bool areInOrder(const QList<QWidget*>& widgets) {
    qsizetype next = 0;
    for (const QObject* child : widgets.first()->parentWidget()->children())
        if (next < widgets.size() && child == widgets[next])
            ++next;
    return next == widgets.size();
}

} // namespace

void setReadingOrder(const QList<QWidget*>& children) {
    if (children.isEmpty() || areInOrder(children))
        return;
    for (QWidget* child : children)
        child->raise(); // to the end of its parent's children
}

} // namespace tarnwick
