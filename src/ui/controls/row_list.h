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
/// Rows live on from one list to the next by their keys. Only those in sight are made at once;
/// the others follow a few a turn of the event loop, so that a list of thousands opens at once and
/// still is, a moment later, all there for assistive technology.
class RowList : public QWidget {
    Q_OBJECT

public:
    static constexpr int gap = 2;

    /// Makes a row, or when given one brings it up to date, for the place in the list.
    using Provide = std::function<QWidget*(QWidget* row, qsizetype index)>;

    RowList(Provide provide, QWidget* parent);

    /// The rows to show, in this order. Equal keys are told apart by their order.
    void setRows(const QStringList& keys);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

    /// The row at that place, null when it is not made yet.
    QWidget* row(qsizetype index) const;

    qsizetype count() const { return keys_.size(); }

protected:
    bool event(QEvent* event) override;

private:
    void makeRowsInSight();
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
