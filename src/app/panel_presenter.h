// SPDX-License-Identifier: MIT
#pragma once

#include "app/panel_placement.h"
#include "ui/menu_bar_view.h"

#include <QElapsedTimer>
#include <QObject>

#include <functional>
#include <memory>
#include <optional>

namespace tarnwick {

/// Opens and closes the panel. The panel is made when it is first wanted: most runs of the program
/// never show it.
class PanelPresenter : public QObject {
    Q_OBJECT

public:
    using MakePanel = std::function<std::unique_ptr<MenuBarView>()>;

    explicit PanelPresenter(MakePanel makePanel);
    ~PanelPresenter() override;

    /// A click on the icon: closes an open panel, opens a closed one beside the icon.
    void toggle(const std::optional<QRect>& icon);

    /// Opens the panel, or brings it to the front when it is open.
    void open(const std::optional<QRect>& icon);

    /// Opens the panel as an ordinary window that the user can move: for where there is no icon to
    /// hang it under.
    void openAsWindow();

    bool isOpen() const { return panel_ && panel_->isVisible(); }

private:
    MenuBarView& panel();

    MakePanel makePanel_;
    std::unique_ptr<MenuBarView> panel_;
    QElapsedTimer sinceDismissal_; ///< Invalid unless the panel was closed by a click elsewhere.
};

} // namespace tarnwick
