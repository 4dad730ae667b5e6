// SPDX-License-Identifier: MIT
#include "daemon/descriptor.h"

#include <fcntl.h>
#include <unistd.h>

namespace tarnwick::simulator {

Descriptor::~Descriptor() {
    if (isOpen())
        close(value_);
}

void Descriptor::setNonBlocking() const {
    fcntl(value_, F_SETFL, fcntl(value_, F_GETFL) | O_NONBLOCK);
    fcntl(value_, F_SETFD, FD_CLOEXEC);
}

} // namespace tarnwick::simulator
