// SPDX-License-Identifier: MIT
#pragma once

#include <QPushButton>

namespace tarnwick {

/// A button of a window with a form or a message: the main action in the user's accent colour,
/// which Return presses, the others plain.
class FormButton : public QPushButton {
    Q_OBJECT

public:
    enum class Prominence { Plain, Prominent };

    FormButton(const QString& title, Prominence prominence, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    struct Look {
        QColor ground;
        QColor edge;
        QColor title;
    };

    Look look() const;

    Prominence prominence_;
};

} // namespace tarnwick
