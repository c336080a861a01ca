#include "Editing/PasteProblems.h"

#include "support/TestSupport.h"

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QTableWidget>
#include <QTest>

using namespace Qt::StringLiterals;

class PasteProblemsTests : public testing_support::WindowedTest
{
protected:
    PasteProblemsTests() { window.show(); }

    QDialog *ask(qsizetype count)
    {
        QList<PastePlan::Problem> problems;
        for (qsizetype row = 1; row <= count; ++row)
            problems += {row, u"Visits"_s, u"a cow"_s, u"it is no number"_s};
        PasteProblems::ask(&window, problems, [this] { ++pasted; });
        return window.findChild<QDialog *>();
    }

    QWidget window;
    int pasted = 0;
};

TEST_F(PasteProblemsTests, ListsWhatCannotBePasted)
{
    const QDialog *const sheet = ask(2);
    ASSERT_NE(sheet, nullptr);
    EXPECT_TRUE(sheet->isVisible());
    EXPECT_EQ(sheet->windowModality(), Qt::WindowModal);
    const auto *const table = sheet->findChild<QTableWidget *>();
    ASSERT_EQ(table->rowCount(), 2);
    EXPECT_EQ(table->item(1, 0)->text(), u"2"_s);
    EXPECT_EQ(table->item(1, 1)->text(), u"Visits"_s);
    EXPECT_EQ(table->item(1, 2)->text(), u"a cow"_s);
    EXPECT_EQ(table->item(1, 3)->text(), u"it is no number"_s);
}

TEST_F(PasteProblemsTests, ReturnAndEscapePasteNothing)
{
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
        QTest::keyClick(ask(1), key);
        turn();
        EXPECT_EQ(window.findChild<QDialog *>(), nullptr);
        EXPECT_EQ(pasted, 0);
    }
}

TEST_F(PasteProblemsTests, TheRestIsPastedOnDemand)
{
    const QList<QPushButton *> buttons = ask(1)->findChildren<QPushButton *>();
    const auto rest = std::find_if(buttons.begin(), buttons.end(), [](const QPushButton *button) {
        return button->text().remove(u'&') == u"Paste the Rest"_s;
    });
    ASSERT_NE(rest, buttons.end());
    QTest::mouseClick(*rest, Qt::LeftButton);
    EXPECT_EQ(pasted, 1);
}

TEST_F(PasteProblemsTests, OfManyTheFirstAreListed)
{
    const QDialog *const sheet = ask(PasteProblems::MostListed + 1);
    EXPECT_EQ(sheet->findChild<QTableWidget *>()->rowCount(), PasteProblems::MostListed);
    const QList<QLabel *> labels = sheet->findChildren<QLabel *>();
    EXPECT_TRUE(std::any_of(labels.begin(), labels.end(), [](const QLabel *label) {
        return label->text().contains(u"1,000") || label->text().contains(u"1000");
    }));
}
