// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/labels.h"

#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>

namespace tarnwick {

/// A text field with a rounded border that is visible in dark palettes too. Drops the line breaks
/// of pasted and dropped texts, and refuses a text longer than `longestText`, which is reported by
/// inputRejected().
class RoundedField : public QLineEdit {
    Q_OBJECT

public:
    static constexpr int longestText = 32'767;

    explicit RoundedField(QWidget* parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    bool showsFocusRing_ = false;
};

/// A text as high as it needs that scrolls where there is less room, with the keyboard too: it
/// accepts the focus while a part of it is not visible.
class ScrollingText : public QScrollArea {
    Q_OBJECT

public:
    ScrollingText(const TextLook& look, ThemeColor color, QWidget* parent = nullptr);

    void setText(const QString& text);

    const QString& text() const { return label_->content(); }

    /// Device-independent pixels.
    void setMaximumTextHeight(int height);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void fit();

    WrappedLabel* label_;
    int maximumTextHeight_ = QWIDGETSIZE_MAX;
};

/// A button of a form or a message. The prominent one has the accent colour and Return presses it.
class FormButton : public QPushButton {
    Q_OBJECT

public:
    enum class Prominence { Plain, Prominent };

    FormButton(const QString& title, Prominence prominence, QWidget* parent = nullptr);

    QSize sizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    struct Look {
        QColor background;
        QColor edge;
        QColor title;
    };

    Look look() const;
    bool isDrawnByStyle() const;

    Prominence prominence_;
    bool showsFocusRing_ = false;
};

} // namespace tarnwick
