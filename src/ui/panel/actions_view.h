// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/content_column.h"
#include "ui/panel/panel_content.h"

namespace tarnwick {

/// The panel's list of actions.
class ActionsView : public ContentColumn {
    Q_OBJECT

public:
    ActionsView(PerformCommand perform, QWidget* parent);

    void setContent(const PanelContent::Actions& content);

private:
    void addAction(const PanelContent::Action& action);

    PerformCommand perform_;
};

} // namespace tarnwick
