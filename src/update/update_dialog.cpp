// SPDX-License-Identifier: MIT
#include "update/update_dialog.h"

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

UpdateDialog dialogWith(const QString& informativeText, const QList<UpdateDialogButton>& buttons) {
    return {u"Software Update"_s, informativeText, buttons};
}

QList<UpdateDialogButton> onlyClose() {
    return {{.title = u"Close"_s, .isDefault = true, .isCancel = true}};
}

UpdateDialog dialogFor(const UpToDate& result, const QUrl&) {
    return dialogWith(u"Version "_s + result.installed +
                          u". Your Tarnwick Network is up to date."_s,
                      onlyClose());
}

UpdateDialog dialogFor(const Outdated& result, const QUrl& downloadPage) {
    return dialogWith(u"Version "_s + result.available + u" is available. You have "_s +
                          result.installed + u"."_s,
                      {{.title = u"Download"_s, .isDefault = true, .opens = downloadPage},
                       {.title = u"Cancel"_s, .isCancel = true}});
}

UpdateDialog dialogFor(const CheckError& result, const QUrl&) {
    return dialogWith(u"Couldn't check for updates: "_s + result.reason, onlyClose());
}

} // namespace

UpdateDialog UpdateDialog::forResult(const UpdateCheckResult& result, const QUrl& downloadPage) {
    return std::visit([&](const auto& outcome) { return dialogFor(outcome, downloadPage); },
                      result);
}

} // namespace tarnwick
