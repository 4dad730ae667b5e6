// SPDX-License-Identifier: MIT
#include "window_pictures.h"

#include "support/publishing.h"
#include "support/waiting.h"
#include "ui/style/symbol.h"
#include "ui/windows/auth_key_window.h"
#include "ui/windows/update_alert.h"

#include <QApplication>
#include <QDialog>
#include <QIcon>
#include <QLineEdit>

namespace tarnwick::pictures {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

bool save(QWidget& window, const QDir& folder, const QString& name, bool isDark) {
    test::runEventLoopFor(30ms);
    const QPixmap picture = window.grab();
    return picture.save(
        folder.filePath(u"%1-%2@%3x.png"_s.arg(name, isDark ? u"dark"_s : u"light"_s)
                            .arg(window.devicePixelRatioF())));
}

QList<std::pair<QString, UpdateCheckResult>> updateResults() {
    return {{u"update-up-to-date"_s, UpToDate{u"1.4.2"_s}},
            {u"update-outdated"_s, Outdated{u"1.4.2"_s, u"1.5.0"_s}},
            {u"update-error"_s, CheckError{u"Server returned HTTP 503"_s}},
            {u"update-hostile-version"_s, Outdated{u"<b>1.4</b>"_s, QString(10'000, u'9')}}};
}

struct FormState {
    QString name;
    QString authKey;
    std::optional<QString> error;
};

QList<FormState> formStates() {
    return {{u"auth-key-empty"_s, {}, {}},
            {u"auth-key-filled"_s, u"twkey-harbor-jonas"_s, {}},
            {u"auth-key-refused"_s, u"twkey-harbor-jonas"_s, u"error: invalid auth key"_s},
            {u"auth-key-hostile-error"_s, u"twkey"_s, QString(10'000, u'x') + u"<b>bold</b>"_s}};
}

} // namespace

bool paintWindows(const std::shared_ptr<DaemonManager>& daemon, const QDir& folder, bool isDark,
                  const QString& only) {
    QApplication::setWindowIcon(symbolPixmap(u"network"_s, 48, QColor(0x35, 0x84, 0xe4), 2));
    bool saved = true;
    for (const auto& [name, result] : updateResults()) {
        if (!only.isEmpty() && name != only)
            continue;
        UpdateAlert alert(UpdateDialog::forResult(result, {}), {});
        alert.present();
        saved = save(alert, folder, name, isDark) && saved;
    }
    for (const FormState& state : formStates()) {
        if (!only.isEmpty() && state.name != only)
            continue;
        AuthKeyWindow form({.computerName = [] {
            return u"Anna's Computer"_s;
        }});
        form.show(daemon);
        form.window()->findChildren<QLineEdit*>().last()->setText(state.authKey);
        test::publishError(*daemon, state.error);
        saved = save(*form.window(), folder, state.name, isDark) && saved;
    }
    return saved;
}

} // namespace tarnwick::pictures
