// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/labels.h"
#include "ui/panel/panel_content.h"
#include "ui/style/colors.h"
#include "ui/style/text_style.h"

#include <QVBoxLayout>
#include <QWidget>

namespace tarnwick {

/// A symbol of the size that goes with a text style.
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

/// The top of the panel: the state of the connection.
class HeaderView : public QWidget {
    Q_OBJECT

public:
    explicit HeaderView(QWidget* parent);

    void setContent(const PanelContent::Header& content);

    const SymbolView& symbol() const { return *symbol_; }

    const ElidedLabel& status() const { return *status_; }

protected:
    bool event(QEvent* event) override;

private:
    void alignWithRows();

    SymbolView* symbol_;
    ElidedLabel* title_;
    ElidedLabel* status_;
};

/// This machine's address and host name, one row each.
class InfoView : public QWidget {
    Q_OBJECT

public:
    explicit InfoView(QWidget* parent);

    void setContent(const PanelContent::Info& content);

    const StyledLabel& value(qsizetype row) const { return *values_[row]; }

protected:
    bool event(QEvent* event) override;

private:
    void makeRow(const PanelContent::InfoRow& row);
    void alignRows();

    QVBoxLayout* column_;
    QList<StyledLabel*> labels_;
    QList<StyledLabel*> values_;
};

/// The last error, wrapped.
class ErrorView : public QWidget {
    Q_OBJECT

public:
    explicit ErrorView(QWidget* parent);

    void setContent(const PanelContent::Error& content);

    const WrappedLabel& text() const { return *text_; }

private:
    WrappedLabel* text_;
};

} // namespace tarnwick
