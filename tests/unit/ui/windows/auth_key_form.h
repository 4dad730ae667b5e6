// SPDX-License-Identifier: MIT
#pragma once

#include "support/controller_world.h"
#include "support/waiting.h"
#include "ui/windows/auth_key_window.h"

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <gtest/gtest.h>

namespace tarnwick::test {

/// An auth-key window over a controller with a stub tool, and what a user finds in it.
class AuthKeyForm : public testing::Test {
protected:
    AuthKeyForm() { world.answer("status", ControllerWorld::stoppedStatus()); }

    void open() {
        if (!daemon)
            daemon = world.createRefreshed();
        window.show(daemon);
        runEventLoopFor(std::chrono::milliseconds(1));
    }

    QDialog* dialog() const { return window.window(); }

    bool isOpen() const { return dialog() && dialog()->isVisible(); }

    QLineEdit* field(const QString& name) const {
        for (auto* candidate : dialog()->findChildren<QLineEdit*>()) {
            if (candidate->accessibleName() == name)
                return candidate;
        }
        qFatal("no such field");
    }

    QLineEdit* deviceName() const { return field(QStringLiteral("Device Name")); }

    QLineEdit* authKey() const { return field(QStringLiteral("Auth Key")); }

    QPushButton* cancelButton() const { return dialog()->findChildren<QPushButton*>()[0]; }

    QPushButton* connectButton() const { return dialog()->findChildren<QPushButton*>()[1]; }

    void pressConnect(const QString& key) {
        authKey()->setText(key);
        connectButton()->click();
    }

    /// Why the field refused a text; empty when it did not.
    QString findNote() const {
        for (const QLabel* label : dialog()->findChildren<QLabel*>()) {
            if (label->isVisible() && label->text().startsWith(QStringLiteral("Too long")))
                return label->text();
        }
        return {};
    }

    /// The log-ins so far, without the socket.
    QList<QStringList> logins() const {
        QList<QStringList> found;
        for (const QStringList& command : world.tool.commands()) {
            if (command.first() == u"login")
                found.append(command);
        }
        return found;
    }

    /// How often the status was asked for behind the last log-in.
    qsizetype statusCallsAfterLogin() const {
        qsizetype count = 0;
        for (const QStringList& command : world.tool.commands())
            count = command.first() == u"login" ? 0 : count + (command.first() == u"status");
        return count;
    }

    ControllerWorld world;
    std::shared_ptr<DaemonManager> daemon;
    QString computerName = QStringLiteral("John's MacBook Pro");
    AuthKeyWindow window{{.computerName = [this] { return computerName; },
                          .retryInterval = std::chrono::milliseconds(10)}};
};

} // namespace tarnwick::test
