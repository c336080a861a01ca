#include "Import/ImportValues.h"
#include "Import/SeparatedText.h"
#include "Import/TypeInference.h"

#include "support/TestSupport.h"

using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
ImportValues valuesOf(const QString &text)
{
    return *ImportValues::of(*SeparatedText::read(text));
}
} // namespace

TEST(ImportValues, CountsWhatIsReadAndKeepsWhatIsNot)
{
    QString text = u"Name,Paid,When\n"_s;
    for (int row = 1; row <= 12; ++row)
        text += u"Ann,$%1,3/%1/08\n"_s.arg(row);
    text += u"Bob,a cow,2/30/08,extra\nCy\nDee, ,\n"_s;
    const ImportValues values = valuesOf(text);
    ASSERT_EQ(values.columns.size(), 4);
    EXPECT_EQ(values.columns[0].typeName, u"text");
    EXPECT_EQ(values.columns[0].read, 15);
    EXPECT_EQ(values.columns[1].typeName, u"currency (USD)");
    EXPECT_EQ(values.columns[1].read, 12);
    EXPECT_EQ(values.columns[1].unread, 1);
    EXPECT_EQ(values.columns[1].empty, 2);
    EXPECT_EQ(values.columns[2].typeName, u"date");
    EXPECT_EQ(values.columns[3].empty, 14);
    ASSERT_EQ(values.unread.size(), 2);
    EXPECT_EQ(values.unread[0].row, 13);
    EXPECT_EQ(values.unread[0].column, 1);
    EXPECT_EQ(values.unread[0].text, u"a cow");
    EXPECT_EQ(values.unread[1].reason, u"There is no such date.");
}

TEST(ImportValues, HelpsSecondsThroughTheImportHooks)
{
    EXPECT_EQ(valuesOf(u"T\n45s\n1h 5s\n"_s).columns[0].typeName, u"duration");
}

TEST(ImportValues, NeedsNoRows)
{
    const ImportValues values = valuesOf(u"a,b\n"_s);
    EXPECT_EQ(values.columns.size(), 2);
    EXPECT_TRUE(values.unread.isEmpty());
}

TEST(ImportValues, ReadsBehindASeparatorLine)
{
    const ImportValues values = valuesOf(u"sep=;\nN;M\n1;2\n3;4\n"_s);
    EXPECT_EQ(values.columns[1].typeName, u"number");
    EXPECT_EQ(values.columns[1].read, 2);
}

TEST(ImportValues, AllRowsDecideNotOnlyTheFirst)
{
    QString text = u"When\n"_s;
    for (qsizetype row = 0; row <= TypeInference::SampleSize; ++row)
        text += u"3/2/2016\n"_s;
    const ImportValues open = valuesOf(text);
    EXPECT_EQ(open.columns[0].typeName, u"date"_s);
    EXPECT_EQ(open.columns[0].decision.readAs, u"month, day, year"_s);
    const ImportValues decided = valuesOf(text + u"13/2/2016\n"_s);
    EXPECT_EQ(decided.columns[0].decision.readAs, u"day, month, year"_s);
    EXPECT_EQ(decided.columns[0].read, TypeInference::SampleSize + 2);
}

TEST(ImportValues, SaysWhichCurrencyTheValuesName)
{
    EXPECT_FALSE(valuesOf(u"Cost\n$5\n$6\n"_s).columns[0].currency.isNeeded());
    const ImportValues values = valuesOf(u"Cost\n€5\n€6\n"_s);
    EXPECT_EQ(values.columns[0].currency.readAs, u"EUR"_s);
    EXPECT_EQ(values.columns[0].currency.since, u"the values name it"_s);
}

TEST(ImportValues, AreTheSameWithAnyNumberOfThreads)
{
    QString text = u"Name,Paid,When,Share,Note\n"_s;
    for (int row = 1; row <= 20'000; ++row)
        text += row % 97 == 0 ? u"%1,a cow,2/30/08,x%1\n"_s.arg(row)
                              : u"Ann %1,\"$%1,000.50\",%2/13/08,0.%1,%3\n"_s.arg(row)
                                    .arg(row % 12 + 1)
                                    .arg(row % 5 ? u""_s : u"note"_s);
    const SeparatedText rows = *SeparatedText::read(text);
    ImportValues::Settings settings;
    settings.threads = 1;
    const ImportValues alone = *ImportValues::of(rows, settings);
    EXPECT_GT(alone.unread.size(), 400);
    for (const int threads : {2, 5}) {
        settings.threads = threads;
        const ImportValues together = *ImportValues::of(rows, settings);
        ASSERT_EQ(together.columns.size(), alone.columns.size());
        for (qsizetype column = 0; column < alone.columns.size(); ++column) {
            EXPECT_EQ(together.columns[column].typeName, alone.columns[column].typeName);
            EXPECT_EQ(together.columns[column].read, alone.columns[column].read);
            EXPECT_EQ(together.columns[column].unread, alone.columns[column].unread);
            EXPECT_EQ(together.columns[column].empty, alone.columns[column].empty);
            EXPECT_EQ(together.columns[column].decision.readAs,
                      alone.columns[column].decision.readAs);
            EXPECT_EQ(together.columns[column].decision.contradicting,
                      alone.columns[column].decision.contradicting);
        }
        ASSERT_EQ(together.unread.size(), alone.unread.size());
        for (qsizetype index = 0; index < alone.unread.size(); ++index) {
            EXPECT_EQ(together.unread[index].row, alone.unread[index].row);
            EXPECT_EQ(together.unread[index].column, alone.unread[index].column);
            EXPECT_EQ(together.unread[index].text, alone.unread[index].text);
            EXPECT_EQ(together.unread[index].reason, alone.unread[index].reason);
        }
    }
}

TEST(ImportValues, AreReadInALocaleOfTheirOwn)
{
    const QString text = u"Betrag;Wann;Zahl\n\"1.234,50 €\";3.4.2008;1,5\n7,25 €;4.5.2008;2,75\n"_s;
    const SeparatedText rows = *SeparatedText::read(text, u';');
    ImportValues::Settings settings;
    settings.locale = NSLocale(u"de_DE"_s);
    const ImportValues german = *ImportValues::of(rows, settings);
    NSLocale::setCurrentLocale(NSLocale(u"de_DE"_s));
    const ImportValues chosen = *ImportValues::of(rows);
    NSLocale::resetCurrentLocale();
    const QString names[] = {u"currency (EUR)"_s, u"date"_s, u"number"_s};
    for (qsizetype column = 0; column < 3; ++column) {
        EXPECT_EQ(german.columns[column].typeName, names[column]);
        EXPECT_EQ(german.columns[column].read, 2);
        EXPECT_EQ(chosen.columns[column].typeName, names[column]);
    }
}

TEST(ImportValues, ATypeThatIsToldKeepsTheCurrencyThatIsFound)
{
    const SeparatedText rows = *SeparatedText::read(u"Paid\n€5\n€7.50\n"_s);
    ImportValues::Settings settings;
    settings.types = {{0, FieldType::Currency}};
    EXPECT_EQ(ImportValues::of(rows, settings)->columns[0].typeName, u"currency (EUR)");
    settings.conventions[0].unit = u"JPY"_s;
    EXPECT_EQ(ImportValues::of(rows, settings)->columns[0].typeName, u"currency (JPY)");
    settings.types = {{0, FieldType::Text}};
    EXPECT_EQ(ImportValues::of(rows, settings)->columns[0].typeName, u"text");
}

TEST(ImportValues, ListOnlyTheFirstThatAreNotRead)
{
    const auto valuesOfDates = [](const QString &value, qsizetype count) {
        ImportValues::Settings settings;
        settings.types = {{0, FieldType::Date}};
        const QString line = value + u'\n';
        return *ImportValues::of(*SeparatedText::read(u"a\n"_s + line.repeated(count)), settings);
    };
    constexpr qsizetype Count = ImportValues::MostListed + 500;
    const ImportValues many = valuesOfDates(u"x"_s, Count);
    EXPECT_EQ(many.columns.at(0).unread, Count);
    EXPECT_EQ(many.unreadCount(), Count);
    ASSERT_EQ(many.unread.size(), ImportValues::MostListed);
    EXPECT_EQ(many.unlistedCount(), 500);
    EXPECT_EQ(many.unread.constLast().row, ImportValues::MostListed);
    // Fewer where they are long.
    const ImportValues huge = valuesOfDates(QString(100'000, u'x'), 200);
    EXPECT_EQ(huge.unreadCount(), 200);
    EXPECT_LT(huge.unread.size(), 200);
    EXPECT_GT(huge.unread.size(), 100);
}
