// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/elided_label.h"
#include "ui/controls/row_button.h"
#include "ui/panel/panel_content.h"

namespace tarnwick {

/// Picks a profile: a mark that says whether it is the selected one, and two lines of text.
class ProfileButton : public RowButton {
    Q_OBJECT

public:
    static constexpr int horizontalPadding = 12;
    static constexpr int lineGap = 1; ///< Between its two lines of text.

    explicit ProfileButton(QWidget* parent);

    void setProfile(const PanelContent::Profile& profile);

    /// Room at the end of the row that belongs to another control.
    void setReservedWidth(int width);

    const QString& markSymbol() const { return markSymbol_; }

    ThemeColor markColor() const { return markColor_; }

    const ElidedLabel& title() const { return *title_; }

    const ElidedLabel& subtitle() const { return *subtitle_; }

protected:
    void paintRow(QPainter& painter) override;
    void resizeEvent(QResizeEvent* event) override;
    QString tooltipText() const override;

private:
    void placeTexts();

    QString markSymbol_;
    ThemeColor markColor_ = ThemeColor::Secondary;
    ElidedLabel* title_;
    ElidedLabel* subtitle_;
    int reservedWidth_ = 0;
};

} // namespace tarnwick
