// SPDX-License-Identifier: MIT
#include "platform/quality_of_service.h"

#include <pthread/qos.h>

namespace tarnwick {

void enterBackgroundQualityOfService() {
    pthread_set_qos_class_self_np(QOS_CLASS_BACKGROUND, 0);
}

void enterUserInitiatedQualityOfService() {
    pthread_set_qos_class_self_np(QOS_CLASS_USER_INITIATED, 0);
}

} // namespace tarnwick
