// SPDX-License-Identifier: MIT
#pragma once

namespace tarnwick {

/// Makes Qt see no session bus where the bus accepts connections but does not answer: Qt would
/// block the main thread for 25 seconds. To be called before Qt's application object is made, while
/// the process has one thread. Blocks for up to 3 seconds where the bus is such, else not.
void spareQtAnUnresponsiveBus(int argc, char** argv);

} // namespace tarnwick
