// SPDX-License-Identifier: MIT
#include "ui/panel/panel_column.h"

#include "ui/panel/actions_view.h"
#include "ui/panel/devices_submenu.h"
#include "ui/panel/panel_sections.h"

#include <utility>

namespace tarnwick {

using namespace Qt::StringLiterals;

PanelColumn::PanelColumn(PerformCommand perform, QWidget* parent)
    : ContentColumn({}, 0, parent), perform_(std::move(perform)) {}

void PanelColumn::setContent(const PanelContent& content) {
    begin();
    for (qsizetype i = 0; i < content.sections.size(); ++i) {
        if (i > 0)
            addDivider();
        addSection(content.sections[i]);
    }
    end();
}

void PanelColumn::addSection(const PanelContent::Section& section) {
    const QString key = QString::number(section.index());
    if (const auto* header = std::get_if<PanelContent::Header>(&section))
        add<HeaderView>(key, *header);
    else if (const auto* info = std::get_if<PanelContent::Info>(&section))
        add<InfoView>(key, *info);
    else if (const auto* devices = std::get_if<PanelContent::Devices>(&section))
        add<DevicesSubmenu>(key, *devices);
    else if (const auto* error = std::get_if<PanelContent::Error>(&section))
        add<ErrorView>(key, *error);
    else if (const auto* actions = std::get_if<PanelContent::Actions>(&section))
        add<ActionsView>(key, *actions, perform_);
}

int PanelColumn::contentHeight(int width) const {
    QLayout* column = layout();
    column->activate();
    return column->hasHeightForWidth() ? column->heightForWidth(width)
                                       : column->sizeHint().height();
}

} // namespace tarnwick
