// SPDX-License-Identifier: MIT
#pragma once

#include <QPushButton>

namespace tarnwick {

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
