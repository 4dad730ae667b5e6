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

} // namespace tarnwick
