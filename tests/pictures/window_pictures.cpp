// SPDX-License-Identifier: MIT
#include "window_pictures.h"

#include "support/publishing.h"
#include "ui/style/symbol.h"
#include "ui/windows/auth_key_window.h"
#include "ui/windows/update_alert.h"

#include <QApplication>
#include <QGraphicsOpacityEffect>
#include <QIcon>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>

namespace tarnwick::pictures {

using namespace Qt::StringLiterals;

namespace {

/// For what Qt draws, which its versions do differently.
void makeInvisible(QWidget& widget) {
    auto* effect = new QGraphicsOpacityEffect(&widget);
    effect->setOpacity(0);
    widget.setGraphicsEffect(effect);
}

void takeWindow(QWidget& window, const QString& name, const TakePicture& take) {
    settle(window);
    for (auto* bar : window.findChildren<QScrollBar*>())
        makeInvisible(*bar);
    take(name, window.grab().toImage());
}

QList<std::pair<QString, UpdateCheckResult>> updateResults() {
    return {{u"update-up-to-date"_s, UpToDate{u"1.4.2"_s}},
            {u"update-outdated"_s, Outdated{u"1.4.2"_s, u"1.5.0"_s}},
            {u"update-error"_s, CheckError{u"Server returned HTTP 503"_s}},
            {u"update-hostile-version"_s, Outdated{u"<b>1.4</b>"_s, QString(10'000, u'9')}}};
}

void paintUpdateDialogs(const TakePicture& take) {
    QApplication::setWindowIcon(symbolPixmap(u"network"_s, 48, QColor(0x35, 0x84, 0xe4), 2));
    for (const auto& [name, result] : updateResults()) {
        UpdateAlert alert(UpdateDialog::forResult(result, {}), {});
        alert.present();
        takeWindow(alert, name, take);
    }
}

struct FormState {
    QString name;
    QString authKey;
    std::optional<QString> error = std::nullopt;
    bool isConnecting = false;
};

QList<FormState> formStates() {
    return {{u"auth-key-empty"_s, {}},
            {u"auth-key-filled"_s, u"twkey-harbor-jonas"_s},
            {u"auth-key-refused"_s, u"twkey-harbor-jonas"_s, u"error: invalid auth key"_s},
            {u"auth-key-hostile-error"_s, u"twkey"_s, QString(10'000, u'x') + u"<b>bold</b>"_s},
            {u"auth-key-connecting"_s, u"twkey-harbor-jonas"_s, {}, true}};
}

void paintForm(const std::shared_ptr<DaemonManager>& daemon, const FormState& state,
               const TakePicture& take) {
    AuthKeyWindow form({.computerName = [] {
        return u"Anna's Computer"_s;
    }});
    form.show(daemon);
    form.window()->findChildren<QLineEdit*>().last()->setText(state.authKey);
    test::publishError(*daemon, state.error);
    if (state.isConnecting)
        form.window()->findChildren<QPushButton*>().last()->click();
    takeWindow(*form.window(), state.name, take);
}

} // namespace

void paintWindows(const test::ControllerWorld& world, const std::shared_ptr<DaemonManager>& daemon,
                  const TakePicture& take) {
    paintUpdateDialogs(take);
    world.closeGate(); // a form that is connecting stays so
    for (const FormState& state : formStates())
        paintForm(daemon, state, take);
    world.openGate();
}

} // namespace tarnwick::pictures
