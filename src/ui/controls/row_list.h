// SPDX-License-Identifier: MIT
#pragma once

#include <QAccessible>
#include <QHash>
#include <QStringList>
#include <QTimer>
#include <QWidget>

#include <functional>
#include <utility>

namespace tarnwick {

/// A column of equally high rows with a gap of 2 between them.
///
/// Rows are kept across updates by their keys. A list of thousands opens immediately, because only
/// visible rows are made at once.
class RowList : public QWidget, private QAccessible::ActivationObserver {
    Q_OBJECT

public:
    static constexpr int gap = 2;

    /// What becomes of rows out of sight.
    enum class OutOfSight {
        Made,  ///< A few per turn of the event loop: for rows that accept the focus.
        Reused ///< For others. While assistive technology is active they are made all the same.
    };

    /// Makes the row at `index`, or updates `row` if it is not null.
    using Provide = std::function<QWidget*(QWidget* row, qsizetype index)>;

    RowList(OutOfSight outOfSight, Provide provide, QWidget* parent);
    ~RowList() override;
    RowList(const RowList&) = delete;
    RowList& operator=(const RowList&) = delete;

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
    void accessibilityActiveChanged(bool active) override;
    bool needsAllRows() const;
    std::pair<qsizetype, qsizetype> visibleRows() const;
    void makeVisibleRows();
    QWidget* takeSpareRow();
    void makeMoreRows();
    void makeRow(qsizetype index);
    void placeRow(qsizetype index);
    void learnRowHeight();
    void fitRows();
    void orderRows() const;

    OutOfSight outOfSight_;
    bool isAccessibilityActive_;
    Provide provide_;
    QStringList keys_;
    QHash<QString, QWidget*> rows_;
    QTimer filler_;
    qsizetype filledUpTo_ = 0;
    int rowHeight_ = 0;
};

} // namespace tarnwick
