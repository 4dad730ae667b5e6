// SPDX-License-Identifier: MIT
#pragma once

#include "ui/style/colors.h"
#include "ui/style/text_style.h"

#include <QWidget>

namespace tarnwick {

/// A symbol in the panel's column of symbols. One larger than the column stands over on both
/// sides, so that the middles of all symbols lie on one line.
class SymbolView : public QWidget {
    Q_OBJECT

public:
    SymbolView(TextStyle style, QWidget* parent);

    void setSymbol(const QString& name, ThemeColor color);

    const QString& name() const { return name_; }

    ThemeColor color() const { return color_; }

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    TextStyle style_;
    QString name_;
    ThemeColor color_ = ThemeColor::Label;
};

} // namespace tarnwick
