// SPDX-License-Identifier: MIT
#pragma once

#include "desktop/panel_placement.h"
#include "ui/panel/menu_bar_view.h"

#include <QDeadlineTimer>
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
    PanelPresenter(const PanelPresenter&) = delete;
    PanelPresenter& operator=(const PanelPresenter&) = delete;

    /// A click on the icon: closes an open panel, opens a closed one beside the icon.
    void toggle(const std::optional<QRect>& icon);

    /// Opens the panel, or brings it to the front when it is open.
    void open(const std::optional<QRect>& icon);

    /// Opens the panel as an ordinary window that the user can move: for where there is no icon to
    /// hang it under.
    void openAsWindow();

    bool isOpen() const { return panel_ && panel_->isVisible(); }

private:
    /// The panel lost the focus and closed, perhaps by a press that is about to become a click.
    struct Dismissal {
        QPoint cursor;
        QDeadlineTimer longestClick;
    };

    MenuBarView& panel();

    MakePanel makePanel_;
    std::unique_ptr<MenuBarView> panel_;
    std::optional<Dismissal> dismissal_; ///< The last one, until the next click on the icon.
};

} // namespace tarnwick
