// SPDX-License-Identifier: MIT
#pragma once

#include <QDBusConnection>
#include <QDBusVirtualObject>
#include <QMap>
#include <QString>

#include <functional>

namespace tarnwick::soak {

/// The desktop's notification service on the session bus. Keeps what is shown now, and no more.
class NotificationDesk : public QDBusVirtualObject {
public:
    NotificationDesk();
    ~NotificationDesk() override;

    /// The texts that are shown.
    QStringList shown() const { return shown_.values(); }

    /// How many were shown in all.
    int total() const { return total_; }

    /// Called when what is shown has changed.
    std::function<void()> changed;

    QString introspect(const QString&) const override { return {}; }

    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

private:
    uint show(const QVariantList& arguments);

    QDBusConnection connection_;
    QMap<uint, QString> shown_; ///< By id.
    uint lastId_ = 0;
    int total_ = 0;
};

} // namespace tarnwick::soak
