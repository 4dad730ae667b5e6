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

/// Opens and closes the panel, and makes it when it is first needed.
class PanelPresenter : public QObject {
    Q_OBJECT

public:
    using MakePanel = std::function<std::unique_ptr<MenuBarView>()>;

    explicit PanelPresenter(MakePanel makePanel);
    ~PanelPresenter() override;
    PanelPresenter(const PanelPresenter&) = delete;
    PanelPresenter& operator=(const PanelPresenter&) = delete;

    /// For a click on the icon: closes an open panel, opens a closed one beside the icon.
    void toggle(const IconPlace& icon);

    /// Opens the panel, or raises an open one.
    void open(const IconPlace& icon);

    /// Opens the panel as an ordinary window, for sessions in which the icon's place is unknown.
    void openAsWindow();

    bool isOpen() const { return panel_ && panel_->isVisible(); }

private:
    /// The panel closed because it lost the focus, perhaps by the press of a click on the icon.
    struct Dismissal {
        std::optional<QPoint> pointer;
        QDeadlineTimer longestClick;

        bool mayBeOf(const std::optional<QPoint>& click) const;
    };

    MenuBarView& panel();
    void closeOnDesktopClicks();

    MakePanel makePanel_;
    std::unique_ptr<MenuBarView> panel_;
    std::unique_ptr<QObject> desktopClicks_; ///< While the panel is open beside the icon.
    std::optional<Dismissal> dismissal_;     ///< The last one, until the next click on the icon.
};

} // namespace tarnwick
