// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/labels.h"
#include "ui/controls/popover_row.h"
#include "ui/controls/row_button.h"
#include "ui/panel/panel_content.h"

#include <QWidget>

namespace tarnwick {

/// The trash can at the end of a profile's row.
class RemoveButton : public RowButton {
    Q_OBJECT

public:
    static constexpr int sideLength = 24; ///< Of the clickable square.

    explicit RemoveButton(QWidget* parent);

protected:
    void paintRow(QPainter& painter) override;
    QString tooltipText() const override;
};

/// Picks a profile: a mark for the selected one, and two lines of text.
class ProfileButton : public RowButton {
    Q_OBJECT

public:
    static constexpr int horizontalPadding = 12;
    static constexpr int lineGap = 1; ///< Between the two lines of text.

    explicit ProfileButton(QWidget* parent);

    void setProfile(const PanelContent::Profile& profile);

    /// Room for another control at the end of the row.
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

/// A profile of a picker: clicking the row picks it, the trash can at its end removes it.
class ProfileRow : public QWidget {
    Q_OBJECT

public:
    explicit ProfileRow(PerformCommand perform, QWidget* parent = nullptr);

    void setProfile(const PanelContent::Profile& profile);

    QSize sizeHint() const override;

    ProfileButton* pickButton() const { return pick_; }

    /// Hidden if the profile cannot be removed.
    RemoveButton* removeButton() const { return remove_; }

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    PerformCommand perform_;
    PanelContent::Profile profile_;
    ProfileButton* pick_;
    RemoveButton* remove_;
};

/// A row that opens a popover of network profiles, each of which can be picked or removed.
class ProfilePickerRow : public PopoverRow {
    Q_OBJECT

public:
    static constexpr int maximumListHeight = 240;

    ProfilePickerRow(PerformCommand perform, QWidget* parent);

    void setContent(const PanelContent::ProfilePicker& content);

    QSize sizeHint() const override;

protected:
    void paintRow(QPainter& painter) override;
    PopoverList* makeList() override;
    void updateList(PopoverList& list) override;

private:
    QWidget* provideLine(QWidget* row, qsizetype index);
    void closeAndPerform(const PanelCommand& command);

    PerformCommand perform_;
    PanelContent::ProfilePicker content_;
};

} // namespace tarnwick
