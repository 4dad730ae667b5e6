// SPDX-License-Identifier: MIT
#pragma once

#include "daemon/object_will_change.h"

#include <utility>

namespace tarnwick {

/// A field whose every setting is announced on its owner before the new value is stored.
///
/// Main thread only. Setting the value that it already has is announced too: whether anything that
/// the user sees has changed is for the observer to find out.
template <typename T>
class Published {
public:
    Published(ObjectWillChange& owner, T initial) : owner_(owner), value_(std::move(initial)) {}

    const T& operator()() const { return value_; }

    void set(T value) {
        Q_EMIT owner_.announced();
        value_ = std::move(value);
    }

private:
    ObjectWillChange& owner_;
    T value_;
};

} // namespace tarnwick
