// SPDX-License-Identifier: MIT
#pragma once

namespace tarnwick {

/// Tells the system that nobody waits for the calling thread's work.
void enterBackgroundQualityOfService();

/// Tells the system that the user waits for the calling thread's work.
void enterUserInitiatedQualityOfService();

} // namespace tarnwick
