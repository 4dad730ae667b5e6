// SPDX-License-Identifier: MIT
#pragma once

#include <QHash>
#include <QStringList>
#include <QTimer>
#include <QWidget>

#include <functional>

namespace tarnwick {

/// A column of equally high rows with a gap of 2 between them.
///
/// Rows are kept across updates by their keys. Only visible ones are made at once, the others a few
/// per turn of the event loop: a list of thousands opens immediately, and assistive technology
/// still finds all of it a moment later.
class RowList : public QWidget {
    Q_OBJECT

public:
    static constexpr int gap = 2;

    /// Makes the row at `index`, or updates `row` if it is not null.
    using Provide = std::function<QWidget*(QWidget* row, qsizetype index)>;

    RowList(Provide provide, QWidget* parent);

    /// Shows a row per key, in this order. Equal keys are distinguished by their order.
    void setRows(const QStringList& keys);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    /// Null if the row is not made yet.
    QWidget* row(qsizetype index) const;

    qsizetype count() const { return keys_.size(); }

protected:
    bool event(QEvent* event) override;

private:
    void makeVisibleRows();
    void makeMoreRows();
    void makeRow(qsizetype index);
    void placeRow(qsizetype index);
    void learnRowHeight();
    void fitRows();
    void orderRows() const;

    Provide provide_;
    QStringList keys_;
    QHash<QString, QWidget*> rows_;
    QTimer filler_;
    qsizetype filledUpTo_ = 0;
    int rowHeight_ = 0;
};

} // namespace tarnwick
