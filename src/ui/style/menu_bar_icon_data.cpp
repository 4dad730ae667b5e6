// SPDX-License-Identifier: MIT
// Written by scripts/make-icon; change the picture there.
#include "ui/style/menu_bar_icon.h"

namespace tarnwick {

const char* const menuBarIconText =
    "iVBORw0KGgoAAAANSUhEUgAAACQAAAAkCAYAAADhAJiYAAAABmJLR0QA/wD/AP+gvaeTAAABOElEQVR42mNgGAU0Bjdv"
    "3swA4tdQnDHQjrEA4v9o2GIgHZSAxUEJA+kgBSD+jeQYEFthoKPNBclBLoMlYYMdREsLRIDYgFYOApkNsoNYxQVI6eI8"
    "EAtQy0Egs6BmwtJbATEafqPlmmYqOqgZzezfeD0MlJTBko1Pg8QpdRDU7NNYzJch5Iv9WDR9BuIaIOYg1UEgPVC9n7GY"
    "u5+YNMQDxBVAPBmIQ4B4OZIB94E4Ak9pbYEmFwHVA5NfDjVzMtQOHnJznQNSYvwPDUUbIN6OxdfboXLIIQ3S60DtooAF"
    "qSL9TyR+DdXDQssyCpQTFxPhmMXEFBnUclQFEQ6qoGdVMXgcNGiibFAl6gHN9oOuYBxUVcegq1wHXfNj0DXQBmUTdlA2"
    "8odsN2jQdRQHY1d6cA02DLrhmBEBAJZLZ+Fv1QZQAAAAAElFTkSuQmCC";

} // namespace tarnwick
