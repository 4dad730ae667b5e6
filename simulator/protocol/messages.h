// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QByteArrayList>
#include <QString>

#include <chrono>
#include <optional>

namespace tarnwick::simulator {

/// The command line that the tool passes to the daemon. On the socket: "tarnwick/1 COUNT SIZE\n"
/// and SIZE bytes, which are COUNT arguments, each with a NUL at its end.
struct Request {
    enum class Status { Incomplete, Complete, Malformed };

    /// More than any real command line has; limits what the daemon reads and parses.
    static constexpr qsizetype maximumBytes = qsizetype{1} << 20;
    static constexpr qsizetype maximumCount = 1000;

    Status status = Status::Incomplete;
    QByteArrayList arguments{}; ///< once it is complete

    static QByteArray encode(const QByteArrayList& arguments);

    /// The request at the start of `bytes`; ignores what follows it.
    static Request decode(const QByteArray& bytes);
};

/// What the daemon tells the tool to do: print two texts and exit, or misbehave.
struct Reply {
    enum class Kind {
        Text,  ///< print `out` and `err`, exit with `exitStatus`
        Flood, ///< print `out` over and over, without end
        Crash, ///< die of SIGABRT
        Hang,  ///< nothing is sent, and the connection stays open
    };

    Kind kind = Kind::Text;
    int exitStatus = 0;
    QByteArray out{};
    QByteArray err{};
    std::chrono::milliseconds delay{0}; ///< how long the daemon holds the answer back; not sent

    static Reply text(const QString& output) { return {.out = output.toUtf8()}; }

    static Reply failure(const QString& sentence) {
        return {.exitStatus = 1, .err = sentence.toUtf8() + '\n'};
    }

    /// On the socket: "tarnwick/1 KIND EXIT OUTSIZE ERRSIZE\n" and both texts.
    QByteArray encode() const;

    /// Nothing if `bytes` are not exactly one reply.
    static std::optional<Reply> decode(const QByteArray& bytes);
};

} // namespace tarnwick::simulator
