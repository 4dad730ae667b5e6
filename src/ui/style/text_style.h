// SPDX-License-Identifier: MIT
#pragma once

#include <QFont>
#include <QString>

namespace tarnwick {

/// The sizes in which texts appear, named as on macOS.
enum class TextStyle { Title2, Title3, Headline, Body, Caption, Caption2 };

enum class TextWeight { Natural, Medium, Semibold };

enum class TextDesign { Standard, Monospaced };

/// Style, weight and design of a text. Natural is semibold for the headline, else regular.
struct TextLook {
    TextStyle style = TextStyle::Body;
    TextWeight weight = TextWeight::Natural;
    TextDesign design = TextDesign::Standard;

    bool operator==(const TextLook&) const = default;

    /// The application's font in this look, at the user's size.
    QFont font() const;
};

/// Size in device-independent pixels at a text scale of 1.
int nominalSize(TextStyle style);

/// Factor by which all sizes follow that of the application's font. One of 9 or 10 points counts as
/// 1, since a system that knows no wish of the user gives either.
double userTextScale();

/// The family of monospaced texts from now on, "" for the system's. Texts that are shown have to be
/// sent an ApplicationFontChange.
void setMonospacedFamily(const QString& family);

/// nominalSize() times userTextScale(), in whole pixels.
int scaledSize(TextStyle style);

} // namespace tarnwick
