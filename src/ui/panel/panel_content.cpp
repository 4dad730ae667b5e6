// SPDX-License-Identifier: MIT
#include "ui/panel/panel_content.h"

#include <algorithm>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

using Kind = PanelCommand::Kind;

ThemeColor themeColorOf(HeaderColor color) {
    switch (color) {
    case HeaderColor::Green:
        return ThemeColor::Green;
    case HeaderColor::Orange:
        return ThemeColor::Orange;
    case HeaderColor::Secondary:
        break;
    }
    return ThemeColor::Secondary;
}

PanelContent::Header header(const DaemonState& state) {
    return {state.isConnected ? u"network"_s : u"network.slash"_s, u"Tarnwick Network"_s,
            state.statusLabel(), themeColorOf(state.headerColor())};
}

PanelContent::Info info(const DaemonState& state) {
    return {{{u"IP Address"_s, state.ipAddress, true}, {u"Hostname"_s, state.hostname, false}}};
}

PanelContent::Devices devicesEntry(const QList<DeviceInfo>& devices) {
    PanelContent::Devices entry{u"Devices"_s, u"(%1)"_s.arg(devices.size()), {}};
    entry.devices.reserve(devices.size());
    for (const DeviceInfo& device : devices)
        entry.devices.append({device.id(), device.displayName(), device.tailscaleIPs.value(0),
                              device.os, device.online});
    return entry;
}

PanelContent::Button authKeyButton() {
    return {u"Use Auth Key..."_s, u"key"_s, {Kind::ShowAuthKeyWindow}};
}

void addSwitchActions(QList<PanelContent::Action>& actions, const DaemonState& state) {
    QList<NetworkProfile> others;
    std::ranges::copy_if(state.profiles, std::back_inserter(others),
                         [](const NetworkProfile& profile) { return !profile.isCurrent; });
    if (!others.isEmpty()) {
        actions.append(PanelContent::ProfilePicker{u"switch"_s, u"Switch network"_s,
                                                   u"arrow.left.arrow.right"_s,
                                                   PanelContent::profileLines(others, true)});
    }
    actions.append(PanelContent::Button{u"Disconnect"_s, u"network.slash"_s, {Kind::Disconnect}});
}

void addConnectActions(QList<PanelContent::Action>& actions, const DaemonState& state) {
    // Without a log-in or a daemon there is nothing to switch to.
    const bool canPick = state.backendState != "NeedsLogin"_L1 && state.daemonInstalled;
    if (canPick && !state.profiles.isEmpty()) {
        actions.append(PanelContent::ProfilePicker{
            u"connect"_s, u"Connect (%1)"_s.arg(state.profiles.size()), u"network"_s,
            PanelContent::profileLines(state.profiles, false)});
    }
    actions.append(authKeyButton());
}

PanelContent::Actions actionBlock(const DaemonState& state) {
    PanelContent::Actions block;
    if (state.isConnected)
        addSwitchActions(block.actions, state);
    else
        addConnectActions(block.actions, state);
    block.actions.append(PanelContent::Divider{});
    block.actions.append(PanelContent::Button{u"Refresh"_s, u"arrow.clockwise"_s, {Kind::Refresh}});
    block.actions.append(PanelContent::Button{
        u"Check for Updates..."_s, u"arrow.down.circle"_s, {Kind::CheckForUpdates}});
    block.actions.append(PanelContent::Button{u"Website"_s, u"globe"_s, {Kind::OpenWebsite}});
    block.actions.append(
        PanelContent::Button{u"Quit Tarnwick Network"_s, u"xmark.circle"_s, {Kind::Quit}});
    return block;
}

} // namespace

QList<PanelContent::Profile> PanelContent::profileLines(const QList<NetworkProfile>& profiles,
                                                        bool showsCurrentSelection) {
    QList<Profile> lines;
    lines.reserve(profiles.size());
    for (const NetworkProfile& profile : profiles) {
        const bool hasAddress = !profile.ipAddress.isEmpty();
        Profile line{profile.id,
                     profile.hostname.isEmpty() ? profile.loginName : profile.hostname,
                     hasAddress ? profile.ipAddress : profile.tailnet,
                     hasAddress ? TextDesign::Monospaced : TextDesign::Standard,
                     showsCurrentSelection && profile.isCurrent,
                     {Kind::SwitchProfile, profile.id},
                     {}};
        if (!line.isSelected)
            line.remove = PanelCommand{Kind::RemoveProfile, profile.id};
        lines.append(line);
    }
    return lines;
}

PanelContent PanelContent::of(const DaemonState& state) {
    PanelContent content;
    content.sections.append(header(state));
    if (state.isConnected) {
        content.sections.append(info(state));
        if (!state.devices.isEmpty())
            content.sections.append(devicesEntry(state.devices));
    }
    if (state.errorMessage)
        content.sections.append(Error{*state.errorMessage});
    content.sections.append(actionBlock(state));
    return content;
}

} // namespace tarnwick
