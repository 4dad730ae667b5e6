// SPDX-License-Identifier: MIT
#pragma once

#include "ui/panel/panel_content.h"

#include <QHash>
#include <QVBoxLayout>
#include <QWidget>

namespace tarnwick {

/// The rows at the bottom of the panel that do something.
class ActionsView : public QWidget {
    Q_OBJECT

public:
    ActionsView(PerformCommand perform, QWidget* parent);

    /// Rows live on from one content to the next where they do the same.
    void setContent(const PanelContent::Actions& content);

private:
    QWidget* rowFor(const PanelContent::Action& action, QWidget* row);

    PerformCommand perform_;
    QVBoxLayout* column_;
    QHash<QString, QWidget*> rows_;
};

} // namespace tarnwick
