// SPDX-License-Identifier: MIT
#include "desktop/appearance.h"

#include "desktop/session_environment.h"

#include <QMetaType>

#include <algorithm>
#include <array>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

QString appearanceNamespace() {
    return u"org.freedesktop.appearance"_s;
}

QString gnomeNamespace() {
    return u"org.gnome.desktop.interface"_s;
}

QString plasmaNamespace(const QString& group) {
    return u"org.kde.kdeglobals."_s + group;
}

/// The value if it is of that type.
template <typename T>
std::optional<T> valueAs(const QVariant& value) {
    if (value.metaType() != QMetaType::fromType<T>())
        return std::nullopt;
    return value.value<T>();
}

/// Also refuses what is not a number.
template <typename T>
std::optional<T> within(std::optional<T> value, T least, T most) {
    return value && *value >= least && *value <= most ? value : std::nullopt;
}

Appearance::Scheme schemeOf(const QVariant& value) {
    switch (valueAs<uint>(value).value_or(0)) {
    case 1:
        return Appearance::Scheme::Dark;
    case 2:
        return Appearance::Scheme::Light;
    default:
        return Appearance::Scheme::NoPreference;
    }
}

/// Red, green and blue from 0 to 1; others say that there is no accent colour.
std::optional<QColor> accentOf(const QVariant& value) {
    const QVariantList channels = valueAs<QVariantList>(value).value_or(QVariantList());
    std::array<float, 3> rgb{};
    if (channels.size() != std::ssize(rgb))
        return std::nullopt;
    for (std::size_t i = 0; i < rgb.size(); ++i) {
        const auto channel = within(valueAs<double>(channels[qsizetype(i)]), 0.0, 1.0);
        if (!channel)
            return std::nullopt;
        rgb[i] = static_cast<float>(*channel);
    }
    return QColor::fromRgbF(rgb[0], rgb[1], rgb[2]);
}

/// Words of a Pango font description between family and size. Weight and slant are the text's own.
bool isStyleWord(const QString& word) {
    static constexpr std::array words = {
        "normal"_L1,         "roman"_L1,          "oblique"_L1,         "italic"_L1,
        "small-caps"_L1,     "thin"_L1,           "ultra-light"_L1,     "extra-light"_L1,
        "light"_L1,          "semi-light"_L1,     "demi-light"_L1,      "book"_L1,
        "regular"_L1,        "medium"_L1,         "semi-bold"_L1,       "demi-bold"_L1,
        "bold"_L1,           "ultra-bold"_L1,     "extra-bold"_L1,      "heavy"_L1,
        "black"_L1,          "ultra-black"_L1,    "ultra-condensed"_L1, "extra-condensed"_L1,
        "condensed"_L1,      "semi-condensed"_L1, "semi-expanded"_L1,   "expanded"_L1,
        "extra-expanded"_L1, "ultra-expanded"_L1};
    return std::ranges::find(words, word.toLower()) != words.end();
}

/// In points. "14px" is in pixels, of which there are 96 an inch.
std::optional<double> fontSizeOf(QString word) {
    constexpr double pointsPerPixel = 0.75;
    const bool isInPixels = word.endsWith("px"_L1);
    if (isInPixels)
        word.chop(2);
    bool isNumber = false;
    const double size = word.toDouble(&isNumber);
    if (!isNumber)
        return std::nullopt;
    constexpr double smallest = 4;
    constexpr double largest = 72;
    return within(std::optional(isInPixels ? size * pointsPerPixel : size), smallest, largest);
}

/// A Pango font description such as "Noto Sans, Bold 10.5 @wght=600".
std::optional<Appearance::Font> fontOf(const QVariant& value) {
    constexpr qsizetype longestFamily = 256;
    QStringList words =
        valueAs<QString>(value).value_or(QString()).simplified().split(u' ', Qt::SkipEmptyParts);
    while (!words.isEmpty() && (words.last().startsWith(u'@') || words.last().startsWith(u'#')))
        words.removeLast();
    const auto points = words.isEmpty() ? std::nullopt : fontSizeOf(words.takeLast());
    while (!words.isEmpty() && isStyleWord(words.last()))
        words.removeLast();
    const QString family = words.join(u' ').section(u',', 0, 0).trimmed();
    if (!points || family.isEmpty() || family.size() > longestFamily)
        return std::nullopt;
    return Appearance::Font{family, *points};
}

/// Red, green and blue as Plasma writes them: "61,174,233".
std::optional<QColor> plasmaColorOf(const QVariant& value) {
    const QStringList channels = valueAs<QString>(value).value_or(QString()).split(u',');
    std::array<int, 3> rgb{};
    if (channels.size() != std::ssize(rgb))
        return std::nullopt;
    for (std::size_t i = 0; i < rgb.size(); ++i) {
        bool isNumber = false;
        rgb[i] = channels[qsizetype(i)].toInt(&isNumber);
        if (!isNumber || rgb[i] < 0 || rgb[i] > 255)
            return std::nullopt;
    }
    return QColor(rgb[0], rgb[1], rgb[2]);
}

/// Plasma's settings have no colours until the user has changed them once: they are Breeze's then.
void takePlasmasColors(Appearance& appearance, const DesktopSettings& settings) {
    const QVariantMap window = settings.value(plasmaNamespace(u"Colors:Window"_s));
    if (window.isEmpty() && !settings.contains(plasmaNamespace(u"General"_s)))
        return;
    const auto background = plasmaColorOf(window.value(u"BackgroundNormal"_s));
    const auto text = plasmaColorOf(window.value(u"ForegroundNormal"_s));
    if (background && text)
        appearance.colors = {*background, *text};
    else if (appearance.scheme == Appearance::Scheme::Dark)
        appearance.colors = {QColor(42, 46, 50), QColor(252, 252, 252)};
    else
        appearance.colors = {QColor(239, 240, 241), QColor(35, 38, 41)};
    if (!appearance.accent) {
        appearance.accent =
            plasmaColorOf(
                settings.value(plasmaNamespace(u"Colors:Selection"_s)).value(u"BackgroundNormal"_s))
                .value_or(QColor(61, 174, 233));
    }
}

/// Whether Qt's theme of that name has palette and fonts from the desktop or from the user.
bool isThemeOfTheDesktop(const QString& name) {
    static constexpr std::array others = {
        "gtk2"_L1,    "gtk3"_L1, "gnome"_L1,           "flatpak"_L1,
        "generic"_L1, "snap"_L1, "xdgdesktopportal"_L1};
    return std::ranges::find(others, name) == others.end();
}

} // namespace

Appearance Appearance::of(const DesktopSettings& settings) {
    const QVariantMap common = settings.value(appearanceNamespace());
    const QVariantMap gnome = settings.value(gnomeNamespace());
    constexpr double smallestScale = 0.5;
    constexpr double largestScale = 3;
    Appearance appearance;
    appearance.scheme = schemeOf(common.value(u"color-scheme"_s));
    appearance.hasHighContrast = valueAs<uint>(common.value(u"contrast"_s)) == 1U;
    appearance.accent = accentOf(common.value(u"accent-color"_s));
    appearance.font = fontOf(gnome.value(u"font-name"_s));
    appearance.monospacedFont = fontOf(gnome.value(u"monospace-font-name"_s));
    appearance.textScale =
        within(valueAs<double>(gnome.value(u"text-scaling-factor"_s)), smallestScale, largestScale)
            .value_or(1);
    takePlasmasColors(appearance, settings);
    return appearance;
}

QStringList appearanceNamespaces(const QProcessEnvironment& environment,
                                 const std::function<bool()>& hasPlasmaPlugin) {
    const QString theme = environment.value(u"QT_QPA_PLATFORMTHEME"_s).section(u':', 0, 0);
    const QStringList desktops = desktopNames(environment);
    const bool isPlasma = desktops.isEmpty() ? environment.contains(u"KDE_FULL_SESSION"_s)
                                             : desktops.contains("KDE"_L1);
    // Without it Qt reads Plasma's settings itself, but not the colours that are Plasma's when the
    // user has chosen none, nor every change.
    if (theme.isEmpty() && isPlasma && !hasPlasmaPlugin())
        return {appearanceNamespace(), plasmaNamespace(u"General"_s),
                plasmaNamespace(u"Colors:Window"_s), plasmaNamespace(u"Colors:Selection"_s)};
    if (theme.isEmpty() ? isPlasma : isThemeOfTheDesktop(theme))
        return {};
    // These keep their fonts elsewhere, and the portal reports GNOME's defaults.
    for (const auto other : {"XFCE"_L1, "MATE"_L1, "X-CINNAMON"_L1, "LXDE"_L1, "LXQT"_L1}) {
        if (desktops.contains(other))
            return {appearanceNamespace()};
    }
    return {appearanceNamespace(), gnomeNamespace()};
}

} // namespace tarnwick
