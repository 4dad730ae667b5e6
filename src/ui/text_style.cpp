// SPDX-License-Identifier: MIT
#include "ui/text_style.h"
