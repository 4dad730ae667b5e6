// SPDX-License-Identifier: MIT
#include "ui/controls/row_list.h"

#include "ui/controls/content_column.h"

#include <QEvent>

#include <algorithm>
#include <utility>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype rowsPerTurn = 16; // about a millisecond

QStringList distinct(const QStringList& keys) {
    QHash<QString, int> seen;
    QStringList all;
    all.reserve(keys.size());
    for (const QString& key : keys)
        all.append(u"%1/%2"_s.arg(seen[key]++).arg(key));
    return all;
}

} // namespace

RowList::RowList(OutOfSight outOfSight, Provide provide, QWidget* parent)
    : QWidget(parent), outOfSight_(outOfSight), isAccessibilityActive_(QAccessible::isActive()),
      provide_(std::move(provide)) {
    filler_.setInterval(0);
    QObject::connect(&filler_, &QTimer::timeout, this, &RowList::makeMoreRows);
    QAccessible::installActivationObserver(this);
}

RowList::~RowList() {
    QAccessible::removeActivationObserver(this);
}

bool RowList::needsAllRows() const {
    return outOfSight_ == OutOfSight::Made || isAccessibilityActive_;
}

void RowList::accessibilityActiveChanged(bool active) {
    isAccessibilityActive_ = active;
    filledUpTo_ = 0; // rows may have been reused
    if (active)
        filler_.start();
}

void RowList::setRows(const QStringList& keys) {
    keys_ = distinct(keys);
    QHash<QString, QWidget*> kept;
    for (qsizetype i = 0; i < keys_.size(); ++i) {
        if (QWidget* row = rows_.take(keys_[i])) {
            provide_(row, i);
            kept.insert(keys_[i], row);
        }
    }
    for (QWidget* gone : std::as_const(rows_)) {
        gone->hide();
        gone->deleteLater();
    }
    rows_ = std::move(kept);
    learnRowHeight();
    filledUpTo_ = 0;
    for (qsizetype i = 0; i < keys_.size(); ++i)
        placeRow(i);
    makeVisibleRows();
    if (needsAllRows())
        filler_.start();
    updateGeometry();
}

void RowList::learnRowHeight() {
    if (keys_.isEmpty())
        return;
    makeRow(0);
    rowHeight_ = row(0)->sizeHint().height();
}

QSize RowList::sizeHint() const {
    const int rows = int(keys_.size());
    return {0, rows == 0 ? 0 : rows * rowHeight_ + (rows - 1) * gap};
}

QSize RowList::minimumSizeHint() const {
    return sizeHint(); // the scroll area scrolls what does not fit
}

QWidget* RowList::row(qsizetype index) const {
    return rows_.value(keys_.value(index));
}

void RowList::makeRow(qsizetype index) {
    if (row(index) != nullptr)
        return;
    QWidget* made = provide_(takeSpareRow(), index);
    made->setParent(this);
    rows_.insert(keys_[index], made);
    placeRow(index);
    made->show();
}

/// A row that is out of sight and not needed there.
QWidget* RowList::takeSpareRow() {
    if (needsAllRows() || rows_.isEmpty())
        return nullptr;
    const auto [first, last] = visibleRows();
    for (auto row = rows_.begin(); row != rows_.end(); ++row) {
        const int index = row.value()->y() / (rowHeight_ + gap);
        if (index < first || index > last) {
            QWidget* spare = row.value();
            rows_.erase(row);
            return spare;
        }
    }
    return nullptr;
}

std::pair<qsizetype, qsizetype> RowList::visibleRows() const {
    const int pitch = rowHeight_ + gap;
    return {std::max(0, -y() / pitch),
            std::min(keys_.size() - 1, qsizetype((parentWidget()->height() - y()) / pitch))};
}

void RowList::placeRow(qsizetype index) {
    if (QWidget* placed = row(index))
        placed->setGeometry(0, int(index) * (rowHeight_ + gap), width(), rowHeight_);
}

void RowList::makeVisibleRows() {
    if (keys_.isEmpty() || rowHeight_ == 0 || parentWidget() == nullptr)
        return;
    const auto [first, last] = visibleRows();
    for (qsizetype i = first; i <= last; ++i)
        makeRow(i);
}

void RowList::makeMoreRows() {
    const qsizetype end = std::min(keys_.size(), filledUpTo_ + rowsPerTurn);
    for (; filledUpTo_ < end; ++filledUpTo_)
        makeRow(filledUpTo_);
    if (filledUpTo_ < keys_.size())
        return;
    filler_.stop();
    orderRows();
}

void RowList::orderRows() const {
    QList<QWidget*> rows;
    rows.reserve(keys_.size());
    for (qsizetype i = 0; i < keys_.size(); ++i)
        rows.append(row(i));
    setReadingOrder(rows);
}

void RowList::fitRows() {
    learnRowHeight();
    for (qsizetype i = 0; i < keys_.size(); ++i)
        placeRow(i);
    updateGeometry();
}

bool RowList::event(QEvent* event) {
    switch (event->type()) {
    case QEvent::Move: // scrolled
    case QEvent::Show:
        makeVisibleRows();
        break;
    case QEvent::Resize:
        for (qsizetype i = 0; i < keys_.size(); ++i)
            placeRow(i);
        makeVisibleRows();
        break;
    case QEvent::ApplicationFontChange:
        // Queued, because the rows may get the event after this list.
        QMetaObject::invokeMethod(this, &RowList::fitRows, Qt::QueuedConnection);
        break;
    default:
        break;
    }
    return QWidget::event(event);
}

} // namespace tarnwick
