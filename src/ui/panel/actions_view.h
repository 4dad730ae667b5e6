// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/content_column.h"
#include "ui/controls/row_button.h"
#include "ui/panel/panel_content.h"

namespace tarnwick {

/// A row of the panel with a symbol and a title that performs one command.
class MenuButton : public RowButton {
    Q_OBJECT

public:
    MenuButton(PerformCommand perform, QWidget* parent);

    void setContent(const PanelContent::Button& content);

    const PanelContent::Button& content() const { return content_; }

    QSize sizeHint() const override;

protected:
    void paintRow(QPainter& painter) override;

private:
    PerformCommand perform_;
    PanelContent::Button content_;
};

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
