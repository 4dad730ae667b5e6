// SPDX-License-Identifier: MIT
#pragma once

#include "core/engine.h"
#include "core/peer_churn.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QString>

namespace tarnwick::simulator {

/// What `status --json` prints.
class StatusDocument {
public:
    StatusDocument(const Engine& engine, const PeerChurn& churn, QString tun, Moment now);

    QJsonObject toJson() const;

private:
    QJsonObject self() const;
    QJsonObject peers() const;
    QJsonObject peer(const Peer& peer, qsizetype index, bool online) const;
    QJsonObject users() const;
    QJsonObject currentNetwork() const;
    QJsonArray health() const;

    const Engine& engine_;
    const PeerChurn& churn_;
    QString tun_;
    Moment now_;
    BackendState state_;
    const Profile* profile_; // null: none is current
    const Network* network_; // null just when `profile_` is
};

} // namespace tarnwick::simulator
