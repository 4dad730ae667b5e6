// SPDX-License-Identifier: MIT
#include "platform/queues.h"
#include "support/printing.h"
#include "support/waiting.h"
#include "ui/controls/form_controls.h"
#include "ui/windows/update_alert.h"

#include <QApplication>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QScrollBar>
#include <QTest>

#include <gtest/gtest.h>

namespace tarnwick::test {

using namespace Qt::StringLiterals;

namespace {

const QUrl page(u"https://www.example/download"_s);

/// An alert on the screen, and what it opened.
class UpdateAlertTest : public testing::Test {
protected:
    ~UpdateAlertTest() override { delete alert; }

    void present(const UpdateCheckResult& result) {
        alert = new UpdateAlert(UpdateDialog::forResult(result, page), [this](const QUrl& url) {
            wasOpenWhenPageOpened = alert && alert->isVisible();
            opened.append(url);
        });
        alert->present();
        runEventLoopFor(std::chrono::milliseconds(1));
    }

    QList<QPushButton*> buttons() const { return alert->findChildren<QPushButton*>(); }

    QStringList titles() const {
        QList<QPushButton*> sorted = buttons();
        std::sort(sorted.begin(), sorted.end(), [this](QPushButton* a, QPushButton* b) {
            return a->mapTo(alert, QPoint()).x() < b->mapTo(alert, QPoint()).x();
        });
        QStringList texts;
        for (const QPushButton* button : sorted)
            texts.append(button->text());
        return texts;
    }

    QPushButton* button(const QString& title) const {
        for (QPushButton* candidate : buttons()) {
            if (candidate->text() == title)
                return candidate;
        }
        qFatal("no such button");
    }

    /// Does what a user does, from within the event loop as the system would.
    static void act(const std::function<void()>& action) {
        bool done = false;
        postToMainQueue([&] {
            action();
            done = true;
        });
        EXPECT_TRUE(waitUntil([&done] { return done; }));
    }

    void press(Qt::Key key) const {
        act([this, key] { QTest::keyClick(alert->focusWidget(), key); });
    }

    bool isGone() const {
        return waitUntil([this] { return alert.isNull(); });
    }

    QStringList labels() const {
        QStringList texts;
        for (const QLabel* label : alert->findChildren<QLabel*>()) {
            if (!label->text().isEmpty())
                texts.append(label->text());
        }
        return texts;
    }

    QPointer<UpdateAlert> alert;
    QList<QUrl> opened;
    bool wasOpenWhenPageOpened = false;
};

const Outdated outdated{u"1.4.2"_s, u"1.5.0"_s};

} // namespace

TEST_F(UpdateAlertTest, ErrorShowsItsTextAndOneButtonClose) {
    present(CheckError{u"Malformed manifest"_s});
    EXPECT_EQ(labels(), QStringList({u"Software Update"_s,
                                     u"Couldn't check for updates: Malformed manifest"_s}));
    EXPECT_EQ(titles(), QStringList({u"Close"_s}));
}

TEST_F(UpdateAlertTest, OutdatedWithCancelPressedOpensNothing) {
    present(outdated);
    act([this] { QTest::mouseClick(button(u"Cancel"_s), Qt::LeftButton); });
    EXPECT_TRUE(isGone());
    EXPECT_TRUE(opened.isEmpty());
}

TEST_F(UpdateAlertTest, OutdatedWithDownloadPressedOpensThePageOnceWhenItIsGone) {
    present(outdated);
    act([download = button(u"Download"_s)] {
        download->click();
        download->click(); // a second click that was on its way
    });
    EXPECT_TRUE(isGone());
    EXPECT_EQ(opened, QList<QUrl>({page}));
    EXPECT_FALSE(wasOpenWhenPageOpened);
}

TEST_F(UpdateAlertTest, UnusualVersionsAreShownUnchanged) {
    present(Outdated{u"<b>1</b>"_s, u"2.0-beta & <i>more</i>"_s});
    EXPECT_TRUE(
        labels().contains(u"Version 2.0-beta & <i>more</i> is available. You have <b>1</b>."_s));
    for (const QLabel* label : alert->findChildren<QLabel*>()) {
        if (!label->text().isEmpty()) {
            EXPECT_EQ(label->textFormat(), Qt::PlainText);
        }
    }
}

TEST_F(UpdateAlertTest, DescriptionForScreenReadersHasNoControlOrDirectionCharacters) {
    present(CheckError{u"a\u202eb\u0007c\u001b[31m\nd"_s});
    EXPECT_EQ(alert->accessibleDescription(), u"Couldn't check for updates: ab c [31m\nd"_s);
}

TEST_F(UpdateAlertTest, ButtonsStandInTheirOrder) {
    present(outdated);
    EXPECT_EQ(titles(), QStringList({u"Download"_s, u"Cancel"_s}));
}

TEST_F(UpdateAlertTest, ReturnPressesTheDefault) {
    present(outdated);
    press(Qt::Key_Return);
    EXPECT_TRUE(isGone());
    EXPECT_EQ(opened, QList<QUrl>({page}));
}

TEST_F(UpdateAlertTest, EscapeCancels) {
    present(outdated);
    press(Qt::Key_Escape);
    EXPECT_TRUE(isGone());
    EXPECT_TRUE(opened.isEmpty());
}

TEST_F(UpdateAlertTest, ReturnAndEscapeBothCloseTheOneButton) {
    for (const auto key : {Qt::Key_Return, Qt::Key_Escape}) {
        present(UpToDate{u"1.4.2"_s});
        press(key);
        EXPECT_TRUE(isGone());
    }
    EXPECT_TRUE(opened.isEmpty());
}

TEST_F(UpdateAlertTest, TellsWhenItIsAnswered) {
    present(outdated);
    int answers = 0;
    QObject::connect(alert, &QDialog::finished, alert, [&answers] { ++answers; });
    act([this] { button(u"Cancel"_s)->click(); });
    EXPECT_TRUE(isGone());
    EXPECT_EQ(answers, 1);
}

TEST_F(UpdateAlertTest, KeepsInputFromEveryOtherWindowAndStaysInFront) {
    present(outdated);
    EXPECT_EQ(alert->windowModality(), Qt::ApplicationModal);
    EXPECT_EQ(QApplication::activeModalWidget(), alert);
    EXPECT_TRUE(alert->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
}

TEST_F(UpdateAlertTest, TextOf10000CharactersStaysOnTheScreenAndScrolls) {
    for (const QString& text :
         {QString(10'000, u'x'), u"many words "_s.repeated(910), u"a line\n"_s.repeated(1430)}) {
        present(CheckError{text});
        EXPECT_LE(alert->height(), 400);
        EXPECT_LE(alert->width(), 480);
        EXPECT_TRUE(
            QGuiApplication::primaryScreen()->availableGeometry().contains(alert->geometry()));
        EXPECT_TRUE(alert->rect().contains(button(u"Close"_s)->mapTo(alert, QPoint())));
        auto* informative = alert->findChild<ScrollingText*>();
        EXPECT_GT(informative->verticalScrollBar()->maximum(), 0);
        const int last = informative->widget()->height() - informative->viewport()->height();
        EXPECT_EQ(informative->verticalScrollBar()->maximum(), last); // its end can be reached
        act([this] { alert->close(); });
        EXPECT_TRUE(isGone());
    }
}

TEST_F(UpdateAlertTest, ShortTextDoesNotScroll) {
    present(outdated);
    const auto* informative = alert->findChild<ScrollingText*>();
    EXPECT_EQ(informative->verticalScrollBar()->maximum(), 0);
    EXPECT_EQ(informative->focusPolicy(), Qt::NoFocus);
}

} // namespace tarnwick::test
