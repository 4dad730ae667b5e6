// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/overlay_scroll_bar.h"

#include <QScrollArea>

namespace tarnwick {

/// A vertical scroll area without frame or ground whose contents have its whole width. The arrow
/// keys scroll it while it has the focus itself; else they are left to the window.
class OverlayScrollArea : public QScrollArea {
    Q_OBJECT

public:
    explicit OverlayScrollArea(QWidget* parent);

    /// Scrolls `contents`, which it takes over and makes as wide as itself.
    void setContents(QWidget* contents);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    OverlayScrollBar* bar_;
};

} // namespace tarnwick
