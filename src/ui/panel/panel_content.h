// SPDX-License-Identifier: MIT
#pragma once

#include "daemon/daemon_state.h"
#include "ui/panel/panel_command.h"
#include "ui/style/colors.h"
#include "ui/style/text_style.h"

#include <QList>
#include <QString>

#include <variant>

namespace tarnwick {

/// Everything that the panel shows, from top to bottom, as a value that the widgets render.
struct PanelContent {
    struct Header {
        QString symbol;
        QString title;
        QString status;
        ThemeColor color = ThemeColor::Secondary; ///< Of symbol and status.

        bool operator==(const Header&) const = default;
    };

    struct InfoRow {
        QString label;
        QString value;
        bool isSelectable = false;

        bool operator==(const InfoRow&) const = default;
    };

    struct Info {
        QList<InfoRow> rows;

        bool operator==(const Info&) const = default;
    };

    struct Device {
        QString key;
        QString name;
        QString address; ///< Empty if the device has none.
        QString os;
        bool isOnline = false;

        bool operator==(const Device&) const = default;
    };

    struct Devices {
        QString title;
        QString count;
        QList<Device> devices;

        bool operator==(const Devices&) const = default;
    };

    struct Error {
        QString text;

        bool operator==(const Error&) const = default;
    };

    struct Profile {
        QString key;
        QString title;
        QString subtitle;
        TextDesign subtitleDesign = TextDesign::Standard;
        bool isSelected = false;
        PanelCommand pick;
        std::optional<PanelCommand> remove; ///< None if it cannot be removed.

        bool operator==(const Profile&) const = default;
    };

    struct ProfilePicker {
        QString key; ///< Identity; the title changes with the count.
        QString title;
        QString symbol;
        QList<Profile> profiles;

        bool operator==(const ProfilePicker&) const = default;
    };

    struct Button {
        QString title;
        QString symbol;
        PanelCommand command;

        bool operator==(const Button&) const = default;
    };

    struct Divider {
        bool operator==(const Divider&) const = default;
    };

    using Action = std::variant<ProfilePicker, Button, Divider>;

    struct Actions {
        QList<Action> actions;

        bool operator==(const Actions&) const = default;
    };

    using Section = std::variant<Header, Info, Devices, Error, Actions>;

    QList<Section> sections; ///< Separated by dividers.

    bool operator==(const PanelContent&) const = default;

    /// What the panel shows for that state of the controller.
    static PanelContent of(const DaemonState& state);

    /// A picker's rows. With `showsCurrentSelection`, the current profile is marked and cannot be
    /// removed.
    static QList<Profile> profileLines(const QList<NetworkProfile>& profiles,
                                       bool showsCurrentSelection);

    /// The section of that type, or null.
    template <typename Kind>
    const Kind* find() const {
        for (const Section& section : sections)
            if (const auto* found = std::get_if<Kind>(&section))
                return found;
        return nullptr;
    }
};

} // namespace tarnwick
