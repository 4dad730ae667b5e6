// SPDX-License-Identifier: MIT
#pragma once

#include "ui/style/colors.h"
#include "ui/style/text_style.h"

#include <QLabel>

namespace tarnwick {

/// A label of plain text whose look and colour follow the user's font and palette. Subclasses
/// decide what happens to a text that does not fit.
class StyledLabel : public QLabel {
    Q_OBJECT

public:
    StyledLabel(const TextLook& look, ThemeColor color, QWidget* parent);

    void setLook(const TextLook& look);
    void setColor(ThemeColor color);

    /// Lets labels of one line each share a baseline where their tops are at the same height; to be
    /// repeated when the font changes.
    static void alignBaselines(StyledLabel& one, StyledLabel& other);

    const TextLook& look() const { return look_; }

    ThemeColor color() const { return color_; }

    QColor textColor() const { return themeColor(color_, palette()); }

    /// The full text, of which the label may show only a part.
    const QString& content() const { return content_; }

    void setContent(const QString& content);

protected:
    bool event(QEvent* event) override;

    /// content() has changed.
    virtual void showContent() = 0;
    /// Whether less than content() is visible.
    virtual bool isCut() const = 0;

private:
    void showTooltip(const QPoint& position);

    TextLook look_;
    ThemeColor color_;
    QString content_;
};

/// One line of text, elided if it does not fit; the tooltip then has all of it.
class ElidedLabel : public StyledLabel {
    Q_OBJECT

public:
    ElidedLabel(const TextLook& look, ThemeColor color, QWidget* parent);

    /// Position of the ellipsis, by default at the end.
    void setElideMode(Qt::TextElideMode mode);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void showContent() override;
    bool isCut() const override;

private:
    Qt::TextElideMode mode_ = Qt::ElideRight;
};

/// One line of text that can be selected and copied with mouse or keyboard; elided in the middle.
class SelectableLabel : public StyledLabel {
    Q_OBJECT

public:
    SelectableLabel(const TextLook& look, QWidget* parent);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void showContent() override;
    bool isCut() const override;

private:
    bool isSelectable() const;
    /// On first use, since QLabel then makes a whole text document: more than half a megabyte of
    /// code and data for a line that is seldom selected.
    void makeSelectable();
    void elide();
    void copySelection() const;

    QString line_;
};

/// Text wrapped over as many lines as it needs. Breaks words that are wider than a line.
class WrappedLabel : public StyledLabel {
    Q_OBJECT

public:
    WrappedLabel(const TextLook& look, ThemeColor color, QWidget* parent);

    /// Makes the lines about equally wide, so that no word stands alone in the last.
    void balanceLines();

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    bool hasHeightForWidth() const override;
    int heightForWidth(int width) const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void showContent() override;
    bool isCut() const override;

private:
    int lineWidth() const;

    bool isBalanced_ = false;
};

} // namespace tarnwick
