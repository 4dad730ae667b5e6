// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/wrapped_label.h"
#include "ui/panel/panel_content.h"

#include <QWidget>

namespace tarnwick {

/// The last failure, in as many lines as it takes.
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
