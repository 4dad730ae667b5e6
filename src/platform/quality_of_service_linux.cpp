// SPDX-License-Identifier: MIT
#include "platform/quality_of_service.h"

namespace tarnwick {

// A Linux thread's nice value is inherited by the programs it starts: a background thread here
// would make the tool itself slow on a busy machine and run it into its time limit. The thread's
// own work is a fraction of a millisecond a poll, so there is nothing to lower.
void enterBackgroundQualityOfService() {}

void enterUserInitiatedQualityOfService() {}

} // namespace tarnwick
