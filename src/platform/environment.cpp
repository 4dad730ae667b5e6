// SPDX-License-Identifier: MIT
#include "platform/environment.h"

extern char** environ; // NOLINT(readability-redundant-declaration): not every system declares it

namespace tarnwick {

Environment Environment::ofThisProcess() {
    Environment environment;
    for (char** entry = environ; entry != nullptr && *entry != nullptr; ++entry)
        environment.entries_.append(*entry);
    environment.remove("XDG_ACTIVATION_TOKEN");
    environment.remove("DESKTOP_STARTUP_ID");
    return environment;
}

Environment Environment::with(const QByteArray& name, const QByteArray& value) const {
    Environment environment = *this;
    environment.remove(name);
    environment.entries_.append(name + '=' + value);
    return environment;
}

std::vector<char*> Environment::pointers() const {
    std::vector<char*> pointers;
    pointers.reserve(static_cast<std::size_t>(entries_.size()) + 1);
    for (const QByteArray& entry : entries_)
        pointers.push_back(const_cast<char*>(entry.constData())); // exec changes none of them
    pointers.push_back(nullptr);
    return pointers;
}

void Environment::remove(const QByteArray& name) {
    entries_.removeIf(
        [prefix = name + '='](const QByteArray& entry) { return entry.startsWith(prefix); });
}

} // namespace tarnwick
