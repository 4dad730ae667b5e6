// SPDX-License-Identifier: MIT
#pragma once

#include "daemon/descriptor.h"

#include <string>
#include <sys/types.h>

namespace tarnwick::simulator {

/// The daemon's socket in the file system. The file goes when the listener goes, unless something
/// else stands in its place by then.
class Listener {
public:
    explicit Listener(std::string path) : path_(std::move(path)) {}

    ~Listener();
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;

    /// Creates the directory, takes the place of a dead daemon's socket, and listens. Returns what
    /// is in the way, or an empty text.
    std::string open();

    int descriptor() const { return socket_.get(); }

    /// The next waiting connection, non-blocking; not open when there is none.
    Descriptor accept() const;

private:
    std::string clearTheWay() const;
    std::string bindAndListen();

    std::string path_;
    Descriptor socket_;
    dev_t device_ = 0;
    ino_t inode_ = 0;
};

} // namespace tarnwick::simulator
