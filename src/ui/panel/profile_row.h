// SPDX-License-Identifier: MIT
#pragma once

#include "ui/controls/remove_button.h"
#include "ui/panel/profile_button.h"

#include <QWidget>

namespace tarnwick {

/// One profile of a picker: all of the line picks it, but for the trash can at its end.
class ProfileRow : public QWidget {
    Q_OBJECT

public:
    explicit ProfileRow(PerformCommand perform, QWidget* parent = nullptr);

    void setProfile(const PanelContent::Profile& profile);

    QSize sizeHint() const override;

    ProfileButton* pickButton() const { return pick_; }

    /// Hidden when the profile cannot be removed.
    RemoveButton* removeButton() const { return remove_; }

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    PerformCommand perform_;
    PanelContent::Profile profile_;
    ProfileButton* pick_;
    RemoveButton* remove_;
};

} // namespace tarnwick
