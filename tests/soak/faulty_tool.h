// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

#include <random>

namespace tarnwick::soak {

/// The tool that the client runs, in a directory of its own, with random faults.
class FaultyTool {
public:
    static constexpr int largeNetwork = 1000; ///< Devices.

    explicit FaultyTool(unsigned seed);

    QString directory() const { return directory_.path(); }

    /// Chooses the behaviour of the next run: most often a good answer, else one of the faults.
    void disturb();

    /// Prints a good answer from now on, with this many devices.
    void answerWell(int devices);

    /// Prints this instead of any answer from now on.
    void failWith(const QByteArray& message);

    /// True once in so many times.
    bool chance(unsigned once) { return random_() % once == 0; }

    /// The current behaviour, for a report.
    const QByteArray& condition() const { return condition_; }

    /// Whether the current behaviour prints an answer, be it late or with a grandchild left behind.
    bool answers() const;

    /// How many devices and profiles its answer has.
    int devices() const { return devices_; }

    int profiles() const { return 1 + devices_ % 7; }

private:
    void write(const char* name, const QByteArray& content) const;
    void repair();
    QString path() const;

    QTemporaryDir directory_;
    std::mt19937 random_;
    QByteArray condition_;
    int devices_ = 0;
};

} // namespace tarnwick::soak
