// SPDX-License-Identifier: MIT
#include "support/printing.h"
#include "update/update_dialog.h"

#include <gtest/gtest.h>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

const QUrl page(u"https://www.example/download"_s);

UpdateDialog dialogFor(const UpdateCheckResult& result) {
    return UpdateDialog::forResult(result, page);
}

const QList<UpdateDialogButton> onlyClose = {
    {.title = u"Close"_s, .isDefault = true, .isCancel = true}};

} // namespace

TEST(UpdateDialog, ErrorMalformedManifestShowsItWithOneButtonClose) {
    const UpdateDialog dialog = dialogFor(CheckError{u"Malformed manifest"_s});
    EXPECT_EQ(dialog.messageText, u"Software Update"_s);
    EXPECT_EQ(dialog.informativeText, u"Couldn't check for updates: Malformed manifest"_s);
    EXPECT_EQ(dialog.buttons, onlyClose);
}

TEST(UpdateDialog, UpToDateNamesTheInstalledVersion) {
    const UpdateDialog dialog = dialogFor(UpToDate{u"1.4.2"_s});
    EXPECT_EQ(dialog.messageText, u"Software Update"_s);
    EXPECT_EQ(dialog.informativeText, u"Version 1.4.2. Your Tarnwick Network is up to date."_s);
    EXPECT_EQ(dialog.buttons, onlyClose);
}

TEST(UpdateDialog, OutdatedOffersTheDownloadFirst) {
    const UpdateDialog dialog = dialogFor(Outdated{u"1.4.2"_s, u"1.5.0"_s});
    EXPECT_EQ(dialog.messageText, u"Software Update"_s);
    EXPECT_EQ(dialog.informativeText, u"Version 1.5.0 is available. You have 1.4.2."_s);
    const QList<UpdateDialogButton> buttons = {
        {.title = u"Download"_s, .isDefault = true, .opens = page},
        {.title = u"Cancel"_s, .isCancel = true}};
    EXPECT_EQ(dialog.buttons, buttons);
}

TEST(UpdateDialog, UnusualVersionsAreShownUnchanged) {
    EXPECT_EQ(dialogFor(Outdated{u" %1 "_s, u" 2.0-beta "_s}).informativeText,
              u"Version  2.0-beta  is available. You have  %1 ."_s);
    EXPECT_EQ(dialogFor(Outdated{u""_s, u"%2 <b>"_s}).informativeText,
              u"Version %2 <b> is available. You have ."_s);
    EXPECT_EQ(dialogFor(UpToDate{u"2.0-beta"_s}).informativeText,
              u"Version 2.0-beta. Your Tarnwick Network is up to date."_s);
}

} // namespace tarnwick
