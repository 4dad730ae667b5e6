// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>

namespace tarnwick {

/// The sizes in which texts appear, named as on macOS.
enum class TextStyle { Title2, Title3, Headline, Body, Caption, Caption2 };

enum class TextWeight { Natural, Medium, Semibold };

enum class TextDesign { Standard, Monospaced };

/// How a text looks. Natural is semibold for the headline and regular for the others.
struct TextLook {
    TextStyle style = TextStyle::Body;
    TextWeight weight = TextWeight::Natural;
    TextDesign design = TextDesign::Standard;

    bool operator==(const TextLook&) const = default;

    /// The application's font in this look, at the user's size.
    QFont font() const;
};

/// Size in device-independent pixels for a user who has not changed the size of texts.
int nominalSize(TextStyle style);

/// Factor by which the user wants texts larger or smaller than usual. Systems differ in their
/// usual size (9 to 11 points); none of these counts as a wish.
double userTextScale();

/// nominalSize() times userTextScale(), in whole pixels.
int scaledSize(TextStyle style);

} // namespace tarnwick
