// SPDX-License-Identifier: MIT
#include "desktop/instance_lock.h"

#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace tarnwick {

InstanceLock::InstanceLock(const QString& path)
    : descriptor_(open(QFile::encodeName(path).constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0600)) {
    if (descriptor_ < 0)
        return;
    if (flock(descriptor_, LOCK_EX | LOCK_NB) == 0)
        state_ = State::Held;
    else if (errno == EWOULDBLOCK)
        state_ = State::HeldByOther;
}

// The file stays: were it removed, a third process could lock a new one beside a second that has
// just opened the old one.
InstanceLock::~InstanceLock() {
    if (descriptor_ >= 0)
        close(descriptor_);
}

} // namespace tarnwick
