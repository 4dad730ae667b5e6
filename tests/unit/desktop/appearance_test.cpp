// SPDX-License-Identifier: MIT
#include "desktop/appearance.h"

#include <gtest/gtest.h>

#include <limits>
#include <utility>

namespace tarnwick {

using namespace Qt::StringLiterals;

namespace {

Appearance withCommon(const QString& key, const QVariant& value) {
    return Appearance::of({{u"org.freedesktop.appearance"_s, {{key, value}}}});
}

Appearance withGnome(const QString& key, const QVariant& value) {
    return Appearance::of({{u"org.gnome.desktop.interface"_s, {{key, value}}}});
}

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double infinity = std::numeric_limits<double>::infinity();

bool hasPlugin() {
    return true;
}

bool hasNoPlugin() {
    return false;
}

} // namespace

TEST(AppearanceOfSettings, NoneIsNothingChosen) {
    EXPECT_EQ(Appearance::of({}), Appearance());
}

TEST(AppearanceOfSettings, SchemeIsDarkOrLightOrNoPreference) {
    const std::pair<QVariant, Appearance::Scheme> cases[] = {
        {1U, Appearance::Scheme::Dark},
        {2U, Appearance::Scheme::Light},
        {0U, Appearance::Scheme::NoPreference},
        {3U, Appearance::Scheme::NoPreference},
        {std::numeric_limits<uint>::max(), Appearance::Scheme::NoPreference},
        {1, Appearance::Scheme::NoPreference},
        {1.0, Appearance::Scheme::NoPreference},
        {true, Appearance::Scheme::NoPreference},
        {u"1"_s, Appearance::Scheme::NoPreference},
        {QVariant(), Appearance::Scheme::NoPreference},
    };
    for (const auto& [value, scheme] : cases)
        EXPECT_EQ(withCommon(u"color-scheme"_s, value).scheme, scheme) << value.typeName();
}

TEST(AppearanceOfSettings, ContrastIsHighForOneAlone) {
    EXPECT_TRUE(withCommon(u"contrast"_s, 1U).hasHighContrast);
    for (const QVariant& value :
         {QVariant(0U), QVariant(2U), QVariant(1), QVariant(true), QVariant(u"high"_s), QVariant()})
        EXPECT_FALSE(withCommon(u"contrast"_s, value).hasHighContrast) << value.typeName();
}

TEST(AppearanceOfSettings, AccentHasThreeChannelsFromZeroToOne) {
    const auto accent = withCommon(u"accent-color"_s, QVariantList{0.2, 0.0, 1.0}).accent;
    ASSERT_TRUE(accent);
    EXPECT_EQ(accent->rgb(), qRgb(51, 0, 255));
    const QVariant absent[] = {QVariantList{-1.0, -1.0, -1.0},
                               QVariantList{0.2, 0.2, 1.01},
                               QVariantList{0.2, 0.2},
                               QVariantList{0.2, 0.2, 0.2, 0.2},
                               QVariantList{0, 0, 1},
                               QVariantList{0.2, notANumber, 0.2},
                               QVariantList{0.2, infinity, 0.2},
                               QVariantList(),
                               u"#3584e4"_s,
                               QVariant()};
    for (const QVariant& value : absent)
        EXPECT_FALSE(withCommon(u"accent-color"_s, value).accent)
            << qPrintable(QDebug::toString(value));
}

TEST(AppearanceOfSettings, FontsAreFamilyAndSizeOfAPangoDescription) {
    struct Case {
        QString description;
        QString family;
        double points;
    };

    const Case cases[] = {
        {u"Cantarell 11"_s, u"Cantarell"_s, 11},
        {u"Noto Sans 10.5"_s, u"Noto Sans"_s, 10.5},
        {u"  Ubuntu   Sans 11 "_s, u"Ubuntu Sans"_s, 11},
        {u"Ubuntu Sans Bold Italic 11"_s, u"Ubuntu Sans"_s, 11},
        {u"Cantarell Semi-Bold 11 @wght=600"_s, u"Cantarell"_s, 11},
        {u"Inter Display, Medium 10 #tnum=1"_s, u"Inter Display"_s, 10},
        {u"Roboto Condensed, 11"_s, u"Roboto Condensed"_s, 11},
        {u"Sans,Serif 9"_s, u"Sans"_s, 9},
        {u"Cantarell 16px"_s, u"Cantarell"_s, 12},
    };
    for (const auto& [description, family, points] : cases) {
        const auto font = withGnome(u"font-name"_s, description).font;
        ASSERT_TRUE(font) << qPrintable(description);
        EXPECT_EQ(font->family, family) << qPrintable(description);
        EXPECT_DOUBLE_EQ(font->points, points) << qPrintable(description);
        EXPECT_EQ(withGnome(u"monospace-font-name"_s, description).monospacedFont, font);
    }
}

TEST(AppearanceOfSettings, AbsurdFontsAreNone) {
    const QVariant cases[] = {u""_s,
                              u" "_s,
                              u"11"_s,
                              u"Bold 11"_s,
                              u"Cantarell"_s,
                              u"Cantarell 0"_s,
                              u"Cantarell -11"_s,
                              u"Cantarell 1e9"_s,
                              u"Cantarell nan"_s,
                              u"Cantarell inf"_s,
                              u", 11"_s,
                              u"@wght=600"_s,
                              QString(5000, u'x') + u" 11"_s,
                              11.0,
                              QStringList{u"Cantarell 11"_s},
                              QVariant()};
    for (const QVariant& value : cases) {
        EXPECT_FALSE(withGnome(u"font-name"_s, value).font) << qPrintable(value.toString());
        EXPECT_FALSE(withGnome(u"monospace-font-name"_s, value).monospacedFont);
    }
}

TEST(AppearanceOfSettings, TextScaleIsBetweenAHalfAndThree) {
    for (const double scale : {0.5, 1.0, 1.25, 3.0})
        EXPECT_EQ(withGnome(u"text-scaling-factor"_s, scale).textScale, scale);
    for (const QVariant& value :
         {QVariant(0.0), QVariant(-1.0), QVariant(0.49), QVariant(3.01), QVariant(1e9),
          QVariant(notANumber), QVariant(infinity), QVariant(2), QVariant(u"2"_s), QVariant()})
        EXPECT_EQ(withGnome(u"text-scaling-factor"_s, value).textScale, 1)
            << qPrintable(value.toString());
}

TEST(AppearanceOfSettings, PlasmasColorsAreItsOwn) {
    const auto of = [](const QString& background, uint scheme) {
        return Appearance::of(
            {{u"org.freedesktop.appearance"_s, {{u"color-scheme"_s, scheme}}},
             {u"org.kde.kdeglobals.General"_s, {}},
             {u"org.kde.kdeglobals.Colors:Window"_s,
              {{u"BackgroundNormal"_s, background}, {u"ForegroundNormal"_s, u"1,2,3"_s}}},
             {u"org.kde.kdeglobals.Colors:Selection"_s, {{u"BackgroundNormal"_s, u"4,5,6"_s}}}});
    };
    const Appearance own = of(u"200,210,220"_s, 1);
    ASSERT_TRUE(own.colors);
    EXPECT_EQ(own.colors->background, QColor(200, 210, 220));
    EXPECT_EQ(own.colors->text, QColor(1, 2, 3));
    EXPECT_EQ(own.accent, QColor(4, 5, 6));
    for (const QString& absurd :
         {u""_s, u"1,2"_s, u"1,2,3,4"_s, u"1,2,256"_s, u"1,-2,3"_s, u"red"_s, u"1,2,x"_s}) {
        EXPECT_EQ(of(absurd, 1).colors->background, QColor(42, 46, 50)) << qPrintable(absurd);
        EXPECT_EQ(of(absurd, 2).colors->background, QColor(239, 240, 241)) << qPrintable(absurd);
    }
}

TEST(AppearanceOfSettings, PlasmasColorsAreBreezesWhereItHasNone) {
    const Appearance fresh = Appearance::of({{u"org.kde.kdeglobals.General"_s, {}}});
    ASSERT_TRUE(fresh.colors);
    EXPECT_EQ(fresh.colors->background, QColor(239, 240, 241));
    EXPECT_EQ(fresh.accent, QColor(61, 174, 233));
    EXPECT_FALSE(withCommon(u"color-scheme"_s, 1U).colors);
}

TEST(AppearanceNamespaces, OfPlasmaAreAskedForWhereQtHasNotItsPlugin) {
    QProcessEnvironment plasma;
    plasma.insert(u"XDG_CURRENT_DESKTOP"_s, u"KDE"_s);
    EXPECT_TRUE(
        appearanceNamespaces(plasma, hasNoPlugin).contains(u"org.kde.kdeglobals.Colors:Window"_s));
    plasma.insert(u"QT_QPA_PLATFORMTHEME"_s, u"kde"_s);
    EXPECT_TRUE(appearanceNamespaces(plasma, hasNoPlugin).isEmpty());
}

TEST(AppearanceNamespaces, PlasmasPluginIsLookedForUnderPlasmaOnly) {
    bool isAsked = false;
    const auto look = [&isAsked] {
        isAsked = true;
        return true;
    };
    for (const auto& [desktop, isPlasma] :
         {std::pair(u"GNOME"_s, false), std::pair(u""_s, false), std::pair(u"KDE"_s, true)}) {
        QProcessEnvironment environment;
        environment.insert(u"XDG_CURRENT_DESKTOP"_s, desktop);
        isAsked = false;
        appearanceNamespaces(environment, look);
        EXPECT_EQ(isAsked, isPlasma) << qPrintable(desktop);
    }
}

TEST(AppearanceNamespaces, AreThoseThatTheDesktopKeepsItsSettingsIn) {
    const QString common = u"org.freedesktop.appearance"_s;
    const QString gnome = u"org.gnome.desktop.interface"_s;

    struct Case {
        QString desktop;
        QString theme;
        QStringList namespaces;
    };

    const Case cases[] = {
        {{}, {}, {common, gnome}},
        {u"GNOME"_s, {}, {common, gnome}},
        {u"ubuntu:GNOME"_s, {}, {common, gnome}},
        {u"sway"_s, {}, {common, gnome}},
        {u"XFCE"_s, {}, {common}},
        {u"MATE"_s, {}, {common}},
        {u"X-Cinnamon"_s, {}, {common}},
        {u"KDE"_s, {}, {}},
        {u"KDE"_s, u"kde"_s, {}},
        {u"KDE"_s, u"xdgdesktopportal"_s, {common, gnome}},
        {u"LXQt"_s, u"lxqt"_s, {}},
        {u"GNOME"_s, u"gtk3"_s, {common, gnome}},
        {u"GNOME"_s, u"qt6ct"_s, {}},
    };
    for (const auto& [desktop, theme, namespaces] : cases) {
        QProcessEnvironment environment;
        environment.insert(u"XDG_CURRENT_DESKTOP"_s, desktop);
        environment.insert(u"QT_QPA_PLATFORMTHEME"_s, theme);
        EXPECT_EQ(appearanceNamespaces(environment, hasPlugin), namespaces)
            << qPrintable(desktop + u' ' + theme);
    }
    QProcessEnvironment olderPlasma;
    olderPlasma.insert(u"KDE_FULL_SESSION"_s, u"true"_s);
    EXPECT_TRUE(appearanceNamespaces(olderPlasma, hasPlugin).isEmpty());
}

} // namespace tarnwick
