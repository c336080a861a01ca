#include "Finding/FilterBar.h"

#include "Cobble/Filter/FilterSupport.h"
#include "Finding/FilterRow.h"
#include "Finding/FilterWords.h"

#include "support/TestSupport.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>

using namespace Qt::StringLiterals;
using namespace filter_support;

namespace {
class FilterBarTests : public testing_support::WindowedTest
{
protected:
    FilterBarTests() : scope(u"en_US"_s)
    {
        bar.setFields(std::make_shared<FilterFields>(people()));
        bar.show();
    }

    FilterRow *row(qsizetype number) { return bar.rows().at(number); }
    /// Chooses a field and words for an operator, and types a value.
    void choose(FilterRow *row, const QString &field, const QString &words, const QString &value)
    {
        row->fieldBox()->setCurrentText(field);
        row->operatorBox()->setCurrentText(words);
        Q_EMIT row->operatorBox()->activated(row->operatorBox()->currentIndex());
        QTest::keyClicks(row->valueInput(), value);
    }

    LocaleScope scope;
    FilterBar bar;
};
} // namespace

TEST_F(FilterBarTests, RowsMakeATextAndFilter)
{
    ASSERT_EQ(bar.rows().size(), 1);
    EXPECT_TRUE(bar.filter().predicate().isNil());
    QSignalSpy changed(&bar, &FilterBar::filterChanged);
    choose(row(0), u"Visits"_s, u"is at least"_s, u"7"_s);
    EXPECT_EQ(bar.text(), u"Visits >= 7"_s);
    EXPECT_GT(changed.count(), 0);
    EXPECT_EQ(found(bar.filter()), u"ABc"_s);
    Q_EMIT row(0)->addRequested();
    ASSERT_EQ(bar.rows().size(), 2);
    // A condition that still lacks its value does not count.
    EXPECT_EQ(found(bar.filter()), u"ABc"_s);
    choose(row(1), u"Name"_s, u"contains"_s, u"A"_s);
    EXPECT_EQ(bar.text(), u"Visits >= 7 AND Name CONTAINS \"A\""_s);
    EXPECT_EQ(found(bar.filter()), u"A"_s);
    bar.joinBox()->setCurrentIndex(1);
    Q_EMIT bar.joinBox()->activated(1);
    EXPECT_EQ(bar.text(), u"Visits >= 7 OR Name CONTAINS \"A\""_s);
    Q_EMIT row(0)->removeRequested();
    EXPECT_EQ(bar.text(), u"Name CONTAINS \"A\""_s);
    Q_EMIT row(0)->removeRequested();
    EXPECT_EQ(bar.text(), QString());
    EXPECT_EQ(bar.rows().size(), 1);
    EXPECT_TRUE(bar.filter().predicate().isNil());
}

TEST_F(FilterBarTests, ATextMakesRows)
{
    bar.setText(
        u"visits between 7 and 12 or born in march or name not contains x or phone is empty"_s);
    ASSERT_EQ(bar.rows().size(), 4);
    EXPECT_EQ(bar.joinBox()->currentIndex(), 1);
    EXPECT_EQ(row(0)->fieldBox()->currentText(), u"Visits"_s);
    EXPECT_EQ(row(0)->operatorBox()->currentText(), u"is between"_s);
    EXPECT_EQ(row(0)->valueInput()->text(), u"7"_s);
    EXPECT_EQ(row(0)->endInput()->text(), u"12"_s);
    EXPECT_FALSE(row(0)->endInput()->isHidden());
    EXPECT_EQ(row(1)->operatorBox()->currentText(), u"is in the month or year"_s);
    EXPECT_EQ(row(2)->operatorBox()->currentText(), u"does not contain"_s);
    EXPECT_EQ(row(3)->operatorBox()->currentText(), u"is empty"_s);
    EXPECT_TRUE(row(3)->valueInput()->isHidden());
}

TEST_F(FilterBarTests, RowsSayWhatTheyWereMadeOf)
{
    for (const char16_t *const text :
         {u"Visits IN (1; 2)", u"Name IN (\"a,b\")", u"Name =[c] \"x\"", u"Seen NOT IN 2020",
          u"Visits BETWEEN 1 AND 2", u"Name IS NOT EMPTY AND Talked > 1h 5m",
          u"Visits CONTAINS \"1\" OR Wakes < 7:15 AM"}) {
        bar.setText(QString::fromUtf16(text));
        EXPECT_EQ(bar.problem(), QString());
        ASSERT_FALSE(bar.rows().isEmpty());
        Q_EMIT row(0)->changed();
        EXPECT_EQ(bar.text(), QString::fromUtf16(text));
    }
}

TEST_F(FilterBarTests, WhatRowsCannotSayStaysText)
{
    for (const char16_t *const text :
         {u"(visits = 1 or visits = 2) and name = x", u"not (visits = 1 and name = x)",
          u"name >= x", u"visits not between 1 and 2", u"name = \"\"", u"name in (\"a;b\"; c)"}) {
        bar.setText(QString::fromUtf16(text));
        EXPECT_EQ(bar.problem(), QString()) << QString::fromUtf16(text).toStdString();
        EXPECT_TRUE(bar.rows().isEmpty()) << QString::fromUtf16(text).toStdString();
        EXPECT_FALSE(bar.filter().predicate().isNil());
        EXPECT_EQ(bar.text(), QString::fromUtf16(text));
    }
    bar.setText(QString());
    EXPECT_EQ(bar.rows().size(), 1);
}

TEST_F(FilterBarTests, WhatCannotBeReadIsMarkedInItsPlaceAndFindsNothing)
{
    choose(row(0), u"Visits"_s, u"is more than"_s, u"many"_s);
    EXPECT_FALSE(row(0)->problem().isEmpty());
    EXPECT_EQ(row(0)->valueInput()->accessibleDescription(), row(0)->problem());
    EXPECT_EQ(found(bar.filter()), QString());
    EXPECT_FALSE(bar.saveButton()->isEnabled());
    row(0)->valueInput()->clear();
    QTest::keyClicks(row(0)->valueInput(), u"7"_s);
    EXPECT_EQ(row(0)->problem(), QString());
    EXPECT_EQ(found(bar.filter()), u"Bc"_s);
    EXPECT_TRUE(bar.saveButton()->isEnabled());
    bar.setText(u"visits > 7 and vists = 3"_s);
    EXPECT_TRUE(bar.problem().contains(u"“vists”")) << bar.problem().toStdString();
    EXPECT_EQ(row(0)->problem(), QString());
    EXPECT_EQ(found(bar.filter()), QString());
}

TEST_F(FilterBarTests, AFilterStaysAsItIsUntilSomebodyChangesIt)
{
    const auto fields = std::make_shared<FilterFields>(people());
    bar.setFilter(
        RecordFilter::read(u"\"kt_visits\" >= 1000.000"_s, fields, FilterNotation::Portable));
    EXPECT_EQ(bar.text(), u"Visits >= \"1,000\""_s);
    EXPECT_EQ(bar.filter().text(FilterNotation::Portable), u"\"kt_visits\" >= 1000.000"_s);
    EXPECT_EQ(found(bar.filter()), u"c"_s);
    ASSERT_EQ(bar.rows().size(), 1);
    EXPECT_EQ(row(0)->valueInput()->text(), u"1,000"_s);
    QTest::keyClicks(row(0)->valueInput(), u"0"_s);
    EXPECT_EQ(found(bar.filter()), QString());
    EXPECT_EQ(bar.filter().notation(), FilterNotation::Typed);
    bar.setFilter(RecordFilter::read(u"\"kt_gone\" > 1"_s, fields, FilterNotation::Portable));
    EXPECT_TRUE(bar.problem().contains(u"kt_gone"));
    EXPECT_FALSE(bar.saveButton()->isEnabled());
}

TEST_F(FilterBarTests, EscapeAsksToClose)
{
    QSignalSpy closed(&bar, &FilterBar::closeRequested);
    QTest::keyClick(row(0)->valueInput(), Qt::Key_Escape);
    QTest::keyClick(bar.textInput(), Qt::Key_Escape);
    QTest::mouseClick(bar.closeButton(), Qt::LeftButton);
    EXPECT_EQ(closed.count(), 3);
}

TEST_F(FilterBarTests, WithoutFieldsThereIsNothingToFilter)
{
    bar.setText(u"visits > 7"_s);
    bar.setFields(nullptr);
    EXPECT_TRUE(bar.rows().isEmpty());
    EXPECT_FALSE(bar.isEnabled());
    EXPECT_EQ(bar.text(), QString());
    bar.setText(u"visits > 7"_s);
    EXPECT_TRUE(bar.filter().predicate().isNil());
}

TEST_F(FilterBarTests, HostileTextsAreTakenOrRefused)
{
    for (const QString &text : testing_support::hostileTexts()) {
        bar.setText(text);
        EXPECT_EQ(bar.filter().predicate().isNil(), bar.text().trimmed().isEmpty());
        EXPECT_NE(bar.filter().root() || bar.text().trimmed().isEmpty(),
                  bar.filter().problem().has_value());
    }
}

TEST_F(FilterBarTests, EveryInputHasAName)
{
    for (QWidget *const widget : bar.findChildren<QWidget *>()) {
        const bool isInput = qobject_cast<QLineEdit *>(widget) ||
                             qobject_cast<QComboBox *>(widget) ||
                             qobject_cast<QToolButton *>(widget);
        const bool isPart = qobject_cast<QLineEdit *>(widget->parentWidget()) != nullptr;
        EXPECT_TRUE(!isInput || isPart || !widget->accessibleName().isEmpty());
    }
}

TEST(FilterWords, EachTypeHasWordsForWhatItCanDo)
{
    for (const FieldType type : {FieldType::Number, FieldType::Currency, FieldType::Duration,
                                 FieldType::Time, FieldType::Date, FieldType::DateTime,
                                 FieldType::Phone, FieldType::Media, FieldType::Text}) {
        QStringList words;
        for (const FilterWords::Choice &choice : FilterWords::choicesFor(type))
            words += choice.words;
        EXPECT_EQ(words.removeDuplicates(), 0);
        EXPECT_TRUE(words.contains(u"is"_s) && words.contains(u"is not empty"_s));
        const bool hasPeriods = type == FieldType::Date || type == FieldType::DateTime;
        EXPECT_EQ(words.contains(u"is in the month or year"_s), hasPeriods);
    }
}
