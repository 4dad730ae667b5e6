// SPDX-License-Identifier: MIT
#pragma once

#include "core/world.h"

#include <QByteArray>
#include <QJsonArray>
#include <QJsonObject>
#include <QString>

#include <optional>

namespace tarnwick::simulator {

/// Reads a world from JSON; README.md tells its members.
class WorldReader {
public:
    /// The world, or nothing; then `problem()` says what is wrong with it.
    std::optional<World> read(const QByteArray& json);

    QString problem() const { return problem_; }

private:
    void readNetworks(const QJsonArray& list, World& world);
    void readAccounts(const QJsonArray& list, Network& network);
    void readPeers(const QJsonArray& list, Network& network);
    void readAuthKeys(const QJsonArray& list, World& world);
    QString required(const QJsonObject& object, QStringView key, const QString& where);
    void complain(const QString& problem);

    QString problem_;
};

} // namespace tarnwick::simulator
