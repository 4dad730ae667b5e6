// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>
#include <QTemporaryDir>

#include <random>

namespace tarnwick::soak {

/// The tool that the client runs, in a directory of its own, and what becomes of it at random.
class FaultyTool {
public:
    explicit FaultyTool(unsigned seed);

    QString directory() const { return directory_.path(); }

    /// Chooses what the next run meets: most often a good answer, else one of the faults.
    void disturb();

    /// Answers well from now on, with a network of so many devices.
    void answerWell(int devices);

    /// What it is up to now, for a report.
    const QByteArray& condition() const { return condition_; }

    /// Whether it answers as it is now, be it late or with something left behind.
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
