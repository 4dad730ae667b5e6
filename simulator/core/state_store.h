// SPDX-License-Identifier: MIT
#pragma once

#include "core/daemon_state.h"

#include <QString>

namespace tarnwick::simulator {

/// The state file. Problems are told on standard error and otherwise do no harm: the daemon goes on
/// with what it has in memory.
class StateStore {
public:
    /// With an empty path nothing is kept.
    explicit StateStore(QString path) : path_(std::move(path)) {}

    /// What was saved last; the state of a new daemon when nothing usable is there.
    DaemonState load() const;

    /// Replaces the file as a whole, so that a crash leaves the old or the new one.
    void save(const DaemonState& state) const;

private:
    QString path_;
};

} // namespace tarnwick::simulator
