#include "Editing/PendingInput.h"

#include "support/TestSupport.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QTest>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {
/// A line that takes digits only.
class Digits : public QLineEdit, public InputSource
{
public:
    std::optional<RejectedInput> settle() override
    {
        if (text().toInt() > 0 || text().isEmpty())
            return {};
        return RejectedInput{u"Visits"_s, text(), u"it is no number"_s, this, [this] { clear(); }};
    }
    bool isAsking(const std::function<void()> &after) override
    {
        if (asks)
            then = after;
        return asks;
    }

    bool asks = false;
    std::function<void()> then;
};
} // namespace

class PendingInputTests : public testing_support::WindowedTest
{
protected:
    PendingInputTests()
    {
        auto *const layout = new QVBoxLayout(&window);
        layout->addWidget(input);
        layout->addWidget(list);
        list->addItems({u"one"_s, u"two"_s});
        list->setCurrentRow(0);
        window.show();
        window.activateWindow();
        turn();
        pending.guard(list);
    }
    static QMessageBox *sheet()
    {
        for (QWidget *const each : QApplication::topLevelWidgets()) {
            auto *const box = qobject_cast<QMessageBox *>(each);
            if (box && box->isVisible())
                return box;
        }
        return nullptr;
    }
    bool leave()
    {
        return pending.leave([this] { ++left; });
    }
    void press(const QString &title)
    {
        ASSERT_NE(sheet(), nullptr);
        for (QAbstractButton *const button : sheet()->buttons()) {
            if (button->text().remove(u'&') == title)
                QTest::mouseClick(button, Qt::LeftButton);
        }
        turn();
    }
    void clickSecond()
    {
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                          list->visualItemRect(list->item(1)).center());
    }

    QWidget window;
    Digits *input = new Digits;
    QListWidget *list = new QListWidget;
    PendingInput pending{&window, {input}};
    int left = 0;
};

TEST_F(PendingInputTests, WhatIsStoredMayBeLeft)
{
    input->setText(u"5"_s);
    EXPECT_TRUE(leave());
    EXPECT_EQ(left, 1);
    EXPECT_EQ(sheet(), nullptr);
    clickSecond();
    EXPECT_EQ(list->currentRow(), 1);
}

TEST_F(PendingInputTests, WhatIsRejectedStaysUntilItIsDiscarded)
{
    input->setText(u"a cow"_s);
    EXPECT_FALSE(leave());
    ASSERT_NE(sheet(), nullptr);
    EXPECT_EQ(sheet()->text(), u"“a cow” cannot be stored as “Visits”."_s);
    EXPECT_EQ(sheet()->informativeText(), u"it is no number"_s);
    // Asked already.
    EXPECT_FALSE(leave());
    EXPECT_EQ(left, 0);
    press(u"Discard"_s);
    EXPECT_EQ(input->text(), QString());
    EXPECT_EQ(left, 1);
}

TEST_F(PendingInputTests, ReturnAndEscapeKeepEditing)
{
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
        input->setText(u"a cow"_s);
        list->setFocus();
        EXPECT_FALSE(leave());
        QTest::keyClick(sheet(), key);
        turn();
        EXPECT_EQ(sheet(), nullptr);
        EXPECT_EQ(input->text(), u"a cow"_s);
        EXPECT_EQ(left, 0);
        EXPECT_EQ(window.focusWidget(), input);
    }
}

TEST_F(PendingInputTests, ClicksAndKeysInAGuardedViewWait)
{
    input->setText(u"a cow"_s);
    clickSecond();
    EXPECT_EQ(list->currentRow(), 0);
    press(u"Discard"_s);
    EXPECT_EQ(list->currentRow(), 1);
    input->setText(u"a cow"_s);
    list->setFocus();
    QTest::keyClick(list, Qt::Key_Up);
    EXPECT_EQ(list->currentRow(), 1);
    press(u"Keep Editing"_s);
    EXPECT_EQ(list->currentRow(), 1);
    list->setFocus();
    QTest::keyClick(list, Qt::Key_Up);
    press(u"Discard"_s);
    EXPECT_EQ(list->currentRow(), 0);
}

TEST_F(PendingInputTests, LongTextsAreShortened)
{
    input->setText(QString(5000, u'x'));
    EXPECT_FALSE(leave());
    EXPECT_LT(sheet()->text().size(), 120);
    press(u"Discard"_s);
    EXPECT_EQ(left, 1);
}

TEST_F(PendingInputTests, AQuestionThatIsOpenIsWaitedFor)
{
    input->asks = true;
    EXPECT_FALSE(leave());
    EXPECT_EQ(sheet(), nullptr);
    EXPECT_EQ(left, 0);
    clickSecond();
    EXPECT_EQ(list->currentRow(), 0);
    input->asks = false;
    input->then();
    EXPECT_EQ(list->currentRow(), 1);
    input->asks = true;
    EXPECT_FALSE(leave());
    // What is found to be no number then is asked about, too.
    input->asks = false;
    input->setText(u"a cow"_s);
    input->then();
    EXPECT_EQ(left, 0);
    press(u"Discard"_s);
    EXPECT_EQ(left, 1);
}
