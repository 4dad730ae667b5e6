// SPDX-License-Identifier: MIT
#include "scenes.h"

namespace tarnwick::pictures {

using namespace Qt::StringLiterals;

namespace {

DeviceInfo device(const QString& name, const QString& address, bool online, const QString& os) {
    return {u"key-"_s + name, name, {}, {address}, online, os};
}

QList<DeviceInfo> fewDevices() {
    return {device(u"media-server"_s, u"100.64.0.12"_s, true, u"linux"_s),
            device(u"annas-phone"_s, u"100.64.0.23"_s, true, u"iOS"_s),
            device(u"workstation"_s, u"100.64.0.7"_s, true, u"windows"_s),
            device(u"old-laptop"_s, u"100.64.0.31"_s, false, u"macOS"_s)};
}

QList<DeviceInfo> twelveDevices() {
    QList<DeviceInfo> devices = fewDevices();
    for (int i = 1; i <= 8; ++i)
        devices.append(
            device(u"build-node-%1"_s.arg(i), u"100.64.1.%1"_s.arg(i), i % 3 != 0, u"linux"_s));
    return devices;
}

QList<NetworkProfile> profiles() {
    return {{u"1"_s, u"home.example"_s, u"anna@home.example"_s, true, u"100.64.0.5"_s,
             u"annas-computer"_s},
            {u"2"_s, u"work.example"_s, u"anna@work.example"_s, false, u"100.71.3.9"_s,
             u"annas-work-computer"_s},
            {u"3"_s, u"club.example"_s, u"anna@club.example"_s, false, {}, {}}};
}

DaemonState connected() {
    DaemonState state;
    state.isConnected = true;
    state.backendState = u"Running"_s;
    state.ipAddress = u"100.64.0.5"_s;
    state.hostname = u"annas-computer"_s;
    state.devices = fewDevices();
    state.profiles = profiles();
    state.daemonInstalled = true;
    return state;
}

DaemonState stopped() {
    DaemonState state;
    state.daemonInstalled = true;
    return state;
}

DaemonState withHostileTexts() {
    DaemonState state = connected();
    state.ipAddress = u"fd7a:115c:a1e0:ab12:4843:cd96:6240:0005"_s;
    state.hostname = QString(10'000, u'h');
    state.devices = {
        device(QString(10'000, u'W'), QString(300, u'1'), true, u"linux"_s),
        device(u"two\nlines\tand \u0007 bell"_s, u"100.64.0.1"_s, true, u"linux"_s),
        device(u"<img src=x><b>bold</b> & co"_s, {}, false, u"<i>os</i>"_s),
        device(u"\u202eevil\u202c \u05e9\u05dc\u05d5\u05dd"_s, u"100.64.0.2"_s, true,
               QString(60, u'o')),
        device(u"\U0001F469\u200D\U0001F4BB dev \U0001F680"_s, u"100.64.0.3"_s, true, {}),
        device({}, {}, false, {})};
    state.errorMessage = u"error: "_s + QString(200, u'x') + u" <b>not bold</b>\nsecond line"_s;
    return state;
}

Scene scene(const QString& name, const DaemonState& state,
            Scene::Open open = Scene::Open::Nothing) {
    return {name, state, open};
}

} // namespace

QList<Scene> allScenes() {
    DaemonState twelve = connected();
    twelve.devices = twelveDevices();
    DaemonState alone = connected();
    alone.devices.clear();
    alone.profiles = {profiles().first()};
    DaemonState picking = stopped();
    picking.profiles = profiles();
    DaemonState needsLogin = stopped();
    needsLogin.backendState = u"NeedsLogin"_s;
    DaemonState starting = picking;
    starting.backendState = u"Starting"_s;
    DaemonState failed = picking;
    failed.errorMessage = u"error: failed to connect to the local daemon; is it running? "
                          "(dial unix /var/run/tarnwick.sock: no such file or directory)"_s;
    DaemonState emptyError = stopped();
    emptyError.errorMessage = u""_s;
    Scene mirrored = scene(u"right-to-left"_s, connected(), Scene::Open::Devices);
    mirrored.isRightToLeft = true;
    Scene focused = scene(u"connected-keyboard"_s, connected());
    focused.tabPresses = 2;

    return {scene(u"connected"_s, connected()),
            scene(u"connected-devices"_s, connected(), Scene::Open::Devices),
            scene(u"connected-switch"_s, connected(), Scene::Open::Picker),
            scene(u"connected-twelve"_s, twelve, Scene::Open::Devices),
            scene(u"connected-alone"_s, alone),
            focused,
            scene(u"stopped"_s, stopped()),
            scene(u"stopped-profiles"_s, picking, Scene::Open::Picker),
            scene(u"needs-login"_s, needsLogin),
            scene(u"starting"_s, starting),
            scene(u"error"_s, failed),
            scene(u"empty-error"_s, emptyError),
            scene(u"hostile"_s, withHostileTexts(), Scene::Open::Devices),
            mirrored};
}

} // namespace tarnwick::pictures
