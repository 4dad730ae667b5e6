// SPDX-License-Identifier: MIT
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace tarnwick::simulator {

/// Collects the bytes of one request, in whatever pieces they arrive.
///
/// A request is the line "tarnwick/1 COUNT SIZE\n" and SIZE bytes: COUNT arguments, each ended by a
/// NUL, the one byte that no argument can hold. Bytes after the request are ignored.
class RequestParser {
public:
    enum class Status { Incomplete, Complete, Malformed };

    /// More arguments, or more bytes of them, are refused: any command line has far fewer, and
    /// nobody should be kept waiting while a silly one is taken apart.
    static constexpr std::size_t maximumBytes = std::size_t{1} << 20;
    static constexpr std::size_t maximumCount = 1000;

    Status feed(std::string_view bytes);

    Status status() const { return status_; }

    /// The arguments of a complete request; empty before.
    const std::vector<std::string>& arguments() const { return arguments_; }

private:
    void readHeader();
    void readBody();

    Status status_ = Status::Incomplete;
    bool headerRead_ = false;
    std::size_t count_ = 0;
    std::size_t size_ = 0;
    std::string buffer_;
    std::vector<std::string> arguments_;
};

} // namespace tarnwick::simulator
