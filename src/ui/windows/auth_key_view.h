// SPDX-License-Identifier: MIT
#pragma once

#include "daemon/daemon_manager.h"

#include <QWidget>

#include <chrono>
#include <functional>
#include <memory>

class QLineEdit;
class QPushButton;

namespace tarnwick {

class ScrollingText;

/// What the auth-key form is made of besides the controller.
struct AuthKeyViewOptions {
    QString computerName;                          ///< Becomes the device name that it starts with.
    std::chrono::milliseconds retryInterval{1000}; ///< Between two looks at the status.
    std::function<void()> onClose;                 ///< Main thread; may delete the view.
};

/// The form that joins this machine to a network with a device name and an auth key.
///
/// Logs in, then waits for the connection and closes itself. The waiting goes on when the view is
/// gone: whoever closes the form by hand need not keep it from coming to its end.
class AuthKeyView : public QWidget {
    Q_OBJECT

public:
    static constexpr QSize formSize{400, 340}; ///< Device-independent pixels, at the usual font.

    AuthKeyView(std::shared_ptr<DaemonManager> daemon, AuthKeyViewOptions options,
                QWidget* parent = nullptr);

protected:
    bool event(QEvent* event) override;

private:
    void layOut();
    void fitTexts();
    QLayout* makeField(const QString& label, const QString& placeholder, QLineEdit* field);
    QLayout* makeButtons();
    void connectToNetwork();
    void setConnecting(bool connecting);
    void scheduleRender();
    void render();

    std::shared_ptr<DaemonManager> daemon_;
    AuthKeyViewOptions options_;
    QLineEdit* deviceName_;
    QLineEdit* authKey_;
    ScrollingText* error_;
    QPushButton* cancelButton_;
    QPushButton* connectButton_;
    bool connecting_ = false;
    bool renderIsDue_ = false;
};

} // namespace tarnwick
