// SPDX-License-Identifier: MIT
#include "panel_on_screen.h"
#include "ui/controls/form_controls.h"
#include "ui/style/colors.h"

#include <QScopeGuard>

namespace tarnwick {

namespace {

using namespace Qt::StringLiterals;
using test::profile;

/// Where the focus is has to be seen when the keyboard moved it, and no ring may come with a click.
class FocusMarkTest : public test::PanelOnScreen {
protected:
    ~FocusMarkTest() override { QApplication::setPalette(usual_); }

    static void usePalette(bool isDark) {
        const QColor ground = isDark ? QColor(0x2a, 0x2a, 0x2c) : QColor(0xf8, 0xf8, 0xf9);
        QPalette palette(ground);
        palette.setColor(QPalette::Window, ground);
        palette.setColor(QPalette::Base, ground);
        for (const auto role : {QPalette::WindowText, QPalette::Text})
            palette.setColor(role, isDark ? Qt::white : Qt::black);
        palette.setColor(QPalette::Highlight, QColor(0x35, 0x84, 0xe4));
        palette.setColor(QPalette::HighlightedText, Qt::white);
        QApplication::setPalette(palette);
    }

    /// The pixels of its window that differ clearly between two pictures.
    static int clearlyChanged(const QImage& before, const QImage& after) {
        int changed = 0;
        for (int y = 0; y < before.height(); ++y) {
            for (int x = 0; x < before.width(); ++x) {
                const double ratio = contrastRatio(before.pixelColor(x, y), after.pixelColor(x, y));
                changed += ratio >= leastContrast ? 1 : 0;
            }
        }
        return changed;
    }

    static QImage picture(QWidget& control) {
        settle();
        return control.window()->grab().toImage();
    }

    static void removeFocus(QWidget& control) {
        control.window()->setFocus(Qt::OtherFocusReason);
        control.clearFocus();
    }

    /// How much each way of taking the focus changes what is to be seen.
    static std::pair<int, int> marks(QWidget& control) {
        removeFocus(control);
        const QImage without = picture(control);
        control.setFocus(Qt::MouseFocusReason);
        EXPECT_TRUE(control.hasFocus());
        const int byMouse = clearlyChanged(without, picture(control));
        removeFocus(control);
        control.setFocus(Qt::TabFocusReason);
        const int byKeyboard = clearlyChanged(without, picture(control));
        removeFocus(control);
        return {byMouse, byKeyboard};
    }

    static void expectMarkByKeyboardAlone(QWidget& control, const char* name, bool isDark) {
        const auto [byMouse, byKeyboard] = marks(control);
        EXPECT_EQ(byMouse, 0) << name << (isDark ? ", dark" : ", light");
        EXPECT_GE(byKeyboard, leastMark) << name << (isDark ? ", dark" : ", light");
    }

    /// What takes the keys after a click shows that, but with less than the ring.
    static void expectLessByMouse(QWidget& control, const char* name, bool isDark) {
        const auto [byMouse, byKeyboard] = marks(control);
        EXPECT_LT(byMouse, 0.7 * byKeyboard) << name << (isDark ? ", dark" : ", light");
        EXPECT_GE(byKeyboard, leastMark) << name << (isDark ? ", dark" : ", light");
    }

    static constexpr double leastContrast = 3;
    static constexpr int leastMark = 60; // pixels

private:
    QPalette usual_ = QApplication::palette();
};

TEST_F(FocusMarkTest, OfEveryRowAndListOfThePanelIsOfTheKeyboardAlone) {
    DaemonState state = test::connectedState();
    state.devices = test::numberedDevices(12);
    state.profiles = {profile(u"a"_s, true), profile(u"b"_s)};
    for (const bool isDark : {false, true}) {
        usePalette(isDark);
        open(state);
        expectMarkByKeyboardAlone(*button(u"Refresh"_s), "button", isDark);
        auto* devices = find<DevicesSubmenu>();
        expectMarkByKeyboardAlone(*devices, "devices", isDark);
        auto* picker = find<ProfilePickerRow>();
        expectMarkByKeyboardAlone(*picker, "picker", isDark);
        expectLessByMouse(*panel->findChild<SelectableLabel*>(), "address", isDark);
        picker->setPopoverPresented(true);
        settle();
        const ProfileRow& row = *line(*picker, 0);
        expectMarkByKeyboardAlone(*row.pickButton(), "profile", isDark);
        expectMarkByKeyboardAlone(*row.removeButton(), "remove", isDark);
        picker->setPopoverPresented(false);
        devices->setPopoverPresented(true);
        settle();
        expectMarkByKeyboardAlone(*devices->list()->scrollArea(), "list of devices", isDark);
        devices->setPopoverPresented(false);
        panel->hide();
    }
}

TEST_F(FocusMarkTest, OfEveryControlOfAFormIsOfTheKeyboardAlone) {
    for (const bool isDark : {false, true}) {
        usePalette(isDark);
        QWidget window;
        window.resize(320, 260);
        FormButton plain(u"Cancel"_s, FormButton::Prominence::Plain, &window);
        plain.setGeometry(20, 20, 100, plain.sizeHint().height());
        FormButton prominent(u"Connect"_s, FormButton::Prominence::Prominent, &window);
        prominent.setGeometry(140, 20, 100, plain.height());
        RoundedField field(&window);
        field.setGeometry(20, 80, 200, field.sizeHint().height());
        ScrollingText text({TextStyle::Body}, ThemeColor::Label, &window);
        text.setGeometry(20, 140, 200, 60);
        text.setText(u"A text that is too long. "_s.repeated(40));
        window.show();
        window.activateWindow();
        settle();
        expectMarkByKeyboardAlone(plain, "plain button", isDark);
        expectMarkByKeyboardAlone(prominent, "prominent button", isDark);
        expectMarkByKeyboardAlone(text, "scrolling text", isDark);
        expectLessByMouse(field, "field", isDark);
    }
}

} // namespace

} // namespace tarnwick
