// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/elided_label.h"
#include "ui/controls/symbol_view.h"
#include "ui/panel/panel_content.h"

#include <QWidget>

namespace tarnwick {

/// The top of the panel: where this machine's connection stands.
class HeaderView : public QWidget {
    Q_OBJECT

public:
    explicit HeaderView(QWidget* parent);

    void setContent(const PanelContent::Header& content);

    const SymbolView& symbol() const { return *symbol_; }

    const ElidedLabel& status() const { return *status_; }

private:
    SymbolView* symbol_;
    ElidedLabel* title_;
    ElidedLabel* status_;
};

} // namespace tarnwick
