// SPDX-License-Identifier: MIT
#pragma once

#include <utility>

namespace tarnwick::simulator {

/// Owns one file descriptor.
class Descriptor {
public:
    Descriptor() = default;

    explicit Descriptor(int value) : value_(value) {}

    Descriptor(Descriptor&& other) noexcept : value_(std::exchange(other.value_, -1)) {}

    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(value_, other.value_);
        return *this;
    }

    ~Descriptor();
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;

    int get() const { return value_; }

    bool isOpen() const { return value_ >= 0; }

    /// Makes reads and writes return at once, and keeps the descriptor from children.
    void setNonBlocking() const;

private:
    int value_ = -1;
};

} // namespace tarnwick::simulator
