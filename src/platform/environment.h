// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QByteArrayList>

#include <vector>

namespace tarnwick {

/// The environment of child processes, as a value.
///
/// Copied once, on the main thread: this process's own may change there while another thread starts
/// a child. Thread-safe for reading.
class Environment {
public:
    /// A copy of this process's environment. Main thread.
    ///
    /// Without the launcher's start-up tokens: each is good for one activation of one window of
    /// ours.
    static Environment ofThisProcess();

    /// The same with the variable `name` set to `value`, whether or not it was set before.
    Environment with(const QByteArray& name, const QByteArray& value) const;

    /// The null-terminated array that exec takes; valid as long as this environment.
    std::vector<char*> pointers() const;

private:
    void remove(const QByteArray& name);

    QByteArrayList entries_; ///< Each "NAME=value".
};

} // namespace tarnwick
