// SPDX-License-Identifier: MIT
#pragma once

namespace tarnwick {

/// Keeps Qt from waiting half a minute, with the main thread, for a session bus that accepts
/// connections but does not answer: to Qt there is then none. To be called before Qt's application
/// object is made and while the process has one thread; blocks for some seconds where there is such
/// a bus, and else for less than a millisecond.
void spareQtAnUnresponsiveBus(int argc, char** argv);

} // namespace tarnwick
