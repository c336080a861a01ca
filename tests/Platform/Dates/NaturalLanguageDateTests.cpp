#include <KTUtility/Platform/Dates/DateFormatterAccess_p.h>

#include "support/TestSupport.h"
#include "support/Zones.h"

#include <array>

using namespace KTPrivate;
using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
/// Wednesday, 20 February 2008, 15:30 in New York.
qint64 pinnedClock()
{
    return QDateTime(QDate(2008, 2, 20), QTime(15, 30), newYork()).toMSecsSinceEpoch();
}

struct Row
{
    const char *locale;
    const char16_t *text;
    const char *expected; ///< wall time in New York; null for a failure
};

class NaturalLanguageDateTests : public testing::Test
{
protected:
    void SetUp() override { DateFormatterAccess::setClock(pinnedClock); }
    void TearDown() override { DateFormatterAccess::setClock(nullptr); }

    static std::unique_ptr<NSDateFormatter> formatterOf(const char *locale,
                                                        const char16_t *pattern = u"%m/%d/%y")
    {
        auto formatter = std::make_unique<NSDateFormatter>(QString::fromUtf16(pattern), true);
        formatter->setLocale(NSLocale(QString::fromLatin1(locale)));
        formatter->setTimeZone(newYork());
        return formatter;
    }

    static QString read(const NSDateFormatter &formatter, const QString &text)
    {
        QVariant value;
        QString error;
        if (!formatter.getObjectValue(&value, text, &error)) {
            EXPECT_FALSE(error.isEmpty());
            EXPECT_FALSE(value.isValid());
            return QString();
        }
        EXPECT_TRUE(error.isNull());
        const QDateTime date = value.toDateTime().toTimeZone(newYork());
        return date.toString(u"yyyy-MM-dd HH:mm:ss"_s);
    }

    template<typename Rows>
    static void expectAll(const Rows &rows, const char16_t *pattern = u"%m/%d/%y")
    {
        for (const Row &row : rows) {
            const QString text = QString::fromUtf16(row.text);
            const auto formatter = formatterOf(row.locale, pattern);
            EXPECT_EQ(read(*formatter, text), QString::fromLatin1(row.expected))
                << row.locale << ' ' << qPrintable(text);
        }
    }
};
} // namespace

TEST_F(NaturalLanguageDateTests, ReadsEnglish)
{
    constexpr std::array Rows{
        Row{"en_US", u"today", "2008-02-20 12:00:00"},
        Row{"en_US", u"Tomorrow", "2008-02-21 12:00:00"},
        Row{"en_US", u" yesterday ", "2008-02-19 12:00:00"},
        Row{"en_US", u"day after tomorrow", "2008-02-22 12:00:00"},
        Row{"en_US", u"the day before yesterday", "2008-02-18 12:00:00"},
        Row{"en_US", u"now", "2008-02-20 15:30:00"},
        Row{"en_US", u"tomorrow at 5pm", "2008-02-21 17:00:00"},
        Row{"en_US", u"tomorrow, 5:30", "2008-02-21 05:30:00"},
        Row{"en_US", u"noon tomorrow", "2008-02-21 12:00:00"},
        Row{"en_US", u"tomorrow at midnight", "2008-02-21 00:00:00"},
        Row{"en_US", u"Tuesday", "2008-02-19 12:00:00"},
        Row{"en_US", u"sat", "2008-02-23 12:00:00"},
        Row{"en_US", u"Sunday", "2008-02-17 12:00:00"},
        Row{"en_US", u"next Wednesday", "2008-02-27 12:00:00"},
        Row{"en_US", u"next Friday", "2008-02-22 12:00:00"},
        Row{"en_US", u"last Tuesday at dinner", "2008-02-19 19:00:00"},
        Row{"en_US", u"last Wednesday", "2008-02-13 12:00:00"},
        Row{"en_US", u"this Friday", "2008-02-22 12:00:00"},
        Row{"en_US", u"next week", "2008-02-27 12:00:00"},
        Row{"en_US", u"Monday next week", "2008-02-25 12:00:00"},
        Row{"en_US", u"last month", "2008-01-20 12:00:00"},
        Row{"en_US", u"next year", "2009-02-20 12:00:00"},
        Row{"en_US", u"in 3 days", "2008-02-23 12:00:00"},
        Row{"en_US", u"3 days ago", "2008-02-17 12:00:00"},
        Row{"en_US", u"in a week", "2008-02-27 12:00:00"},
        Row{"en_US", u"a month from today", "2008-03-20 12:00:00"},
        Row{"en_US", u"2 weeks from now at 8am", "2008-03-05 08:00:00"},
        Row{"en_US", u"in 2 hours", "2008-02-20 17:30:00"},
        Row{"en_US", u"10 minutes ago", "2008-02-20 15:20:00"},
        Row{"en_US", u"an hour ago", "2008-02-20 14:30:00"},
        Row{"en_US", u"March", "2008-03-01 12:00:00"},
        Row{"en_US", u"March 5", "2008-03-05 12:00:00"},
        Row{"en_US", u"5 march 2009", "2009-03-05 12:00:00"},
        Row{"en_US", u"Sept. 5th, 08", "2008-09-05 12:00:00"},
        Row{"en_US", u"3pm December 31, 2001", "2001-12-31 15:00:00"},
        Row{"en_US", u"Wednesday, February 20, 2008", "2008-02-20 12:00:00"},
        Row{"en_US", u"12/31/01", "2001-12-31 00:00:00"},
        Row{"en_US", u"3/4", "2008-03-04 12:00:00"},
        Row{"en_US", u"3/4 5:30 p.m.", "2008-03-04 17:30:00"},
        Row{"en_US", u"3/4/08 at noon", "2008-03-04 12:00:00"},
        Row{"en_US", u"2008-3-4", "2008-03-04 12:00:00"},
        Row{"en_US", u"3.4.2008", "2008-03-04 12:00:00"},
        Row{"en_US", u"5:30 PM", "2008-02-20 17:30:00"},
        Row{"en_US", u"12am", "2008-02-20 00:00:00"},
        Row{"en_US", u"5 o'clock", "2008-02-20 05:00:00"},
        Row{"en_US", u"midnight", "2008-02-20 00:00:00"},
        Row{"en_US", u"5 pm tomorrow", "2008-02-21 17:00:00"},
        Row{"en_US", u"on Friday at 3:15 pm", "2008-02-22 15:15:00"},
        Row{"en_US", u"yesterday morning", "2008-02-19 10:00:00"},
        Row{"en_US", u"31 Dec 2001 at 3:15", "2001-12-31 03:15:00"},
        Row{"en_US", u"March 2009", "2009-03-01 12:00:00"},
        Row{"en_US", u"the 1st of May", "2008-05-01 12:00:00"},
        Row{"en_US", u"February 29", "2008-02-29 12:00:00"},
        Row{"en_US", u"in 12 months", "2009-02-20 12:00:00"},
        Row{"en_US", u"in 90 days", "2008-05-20 12:00:00"},
        Row{"en_US", u"30 seconds ago", "2008-02-20 15:29:30"},
        Row{"en_US", u"this week", "2008-02-20 12:00:00"},
        Row{"en_US", u"Saturday last week", "2008-02-16 12:00:00"},
    };
    expectAll(Rows);
}

TEST_F(NaturalLanguageDateTests, RejectsWhatIsNoDate)
{
    constexpr std::array Rows{
        Row{"en_US", u"", nullptr},
        Row{"en_US", u"hello", nullptr},
        Row{"en_US", u"tomorrow hello", nullptr},
        Row{"en_US", u"tomorrowx", nullptr},
        Row{"en_US", u"at", nullptr},
        Row{"en_US", u"today tomorrow", nullptr},
        Row{"en_US", u"Tuesday, February 20, 2008", nullptr},
        Row{"en_US", u"February 30", nullptr},
        Row{"en_US", u"13/13", nullptr},
        Row{"en_US", u"3/4/5/6", nullptr},
        Row{"en_US", u"in 3", nullptr},
        Row{"en_US", u"3 days", nullptr},
        Row{"en_US", u"next", nullptr},
        Row{"en_US", u"13pm", nullptr},
        Row{"en_US", u"pm", nullptr},
        Row{"en_US", u"o'clock", nullptr},
        Row{"en_US", u"5:60", nullptr},
        Row{"en_US", u"5: 30", nullptr},
        Row{"en_US", u"1 2", nullptr},
        Row{"en_US", u"in 99999999 years", nullptr},
        Row{"en_US", u"in 90000 years", nullptr},
        Row{"en_US", u"2000 years ago", nullptr},
        Row{"en_US", u"February 29, 2007", nullptr},
        Row{"en_US", u"tomorrow March 5", nullptr},
        Row{"en_US", u"tomorrow in 2 hours", nullptr},
        Row{"en_US", u"now at 5", nullptr},
        Row{"en_US", u"0/1/08", nullptr},
        Row{"en_US", u"1/0/08", nullptr},
        Row{"en_US", u"1/1/0001", nullptr},
        Row{"en_US", u"0pm", nullptr},
        Row{"en_US", u"+5", nullptr},
        Row{"en_US", u"-5", nullptr},
        Row{"en_US", u":", nullptr},
        Row{"en_US", u"demain", nullptr},
    };
    expectAll(Rows);
}

TEST_F(NaturalLanguageDateTests, ReadsABareHour)
{
    constexpr std::array Rows{
        Row{"en_US", u"5", "2008-02-20 05:00:00"},
        Row{"en_US", u"05", "2008-02-20 05:00:00"},
        Row{"en_US", u"5:", "2008-02-20 05:00:00"},
        Row{"en_US", u" 12 ", "2008-02-20 12:00:00"},
        Row{"en_US", u"0", "2008-02-20 00:00:00"},
        Row{"en_US", u"23:", "2008-02-20 23:00:00"},
        Row{"en_US", u"24", nullptr},
        Row{"en_US", u"005", nullptr},
        Row{"ar_EG", u"17", "2008-02-20 17:00:00"},
    };
    expectAll(Rows);
    expectAll(Rows, u"%m/%d/%y %I:%M:%S %p");
    expectAll(Rows, u"%I:%M:%S %p");
}

TEST_F(NaturalLanguageDateTests, ReadsGerman)
{
    constexpr std::array Rows{
        Row{"de_DE", u"heute", "2008-02-20 12:00:00"},
        Row{"de_DE", u"Morgen", "2008-02-21 12:00:00"},
        Row{"de_DE", u"übermorgen um 17 Uhr", "2008-02-22 17:00:00"},
        Row{"de_DE", u"gestern", "2008-02-19 12:00:00"},
        Row{"de_DE", u"vorgestern", "2008-02-18 12:00:00"},
        Row{"de_DE", u"Sonntag", "2008-02-24 12:00:00"},
        Row{"de_DE", u"nächsten Dienstag", "2008-02-26 12:00:00"},
        Row{"de_DE", u"letzte Woche", "2008-02-13 12:00:00"},
        Row{"de_DE", u"in 3 Tagen", "2008-02-23 12:00:00"},
        Row{"de_DE", u"in einer Woche", "2008-02-27 12:00:00"},
        Row{"de_DE", u"vor 2 Monaten", "2007-12-20 12:00:00"},
        Row{"de_DE", u"4. März 2008", "2008-03-04 12:00:00"},
        Row{"de_DE", u"4.3. um 17:30 Uhr", "2008-03-04 17:30:00"},
        Row{"de_DE", u"4.3.08 17:30", "2008-03-04 17:30:00"},
        Row{"de_DE", u"mittags", "2008-02-20 12:00:00"},
    };
    expectAll(Rows, u"%d/%m/%y");
}

TEST_F(NaturalLanguageDateTests, ReadsFrench)
{
    constexpr std::array Rows{
        Row{"fr_FR", u"aujourd’hui", "2008-02-20 12:00:00"},
        Row{"fr_FR", u"demain à 17h", "2008-02-21 17:00:00"},
        Row{"fr_FR", u"demain à 17h30", "2008-02-21 17:30:00"},
        Row{"fr_FR", u"après-demain", "2008-02-22 12:00:00"},
        Row{"fr_FR", u"hier à midi", "2008-02-19 12:00:00"},
        Row{"fr_FR", u"mardi", "2008-02-19 12:00:00"},
        Row{"fr_FR", u"mardi prochain", "2008-02-26 12:00:00"},
        Row{"fr_FR", u"dans 3 jours", "2008-02-23 12:00:00"},
        Row{"fr_FR", u"il y a 3 jours", "2008-02-17 12:00:00"},
        Row{"fr_FR", u"la semaine prochaine", "2008-02-27 12:00:00"},
        Row{"fr_FR", u"1er mars 2008", "2008-03-01 12:00:00"},
        Row{"fr_FR", u"le 4 juil.", "2008-07-04 12:00:00"},
        Row{"fr_FR", u"4/3/08 à 8 heures", "2008-03-04 08:00:00"},
    };
    expectAll(Rows, u"%d/%m/%y");
}

TEST_F(NaturalLanguageDateTests, ReadsJapanese)
{
    constexpr std::array Rows{
        Row{"ja_JP", u"今日", "2008-02-20 12:00:00"},
        Row{"ja_JP", u"明日の午後5時", "2008-02-21 17:00:00"},
        Row{"ja_JP", u"明後日", "2008-02-22 12:00:00"},
        Row{"ja_JP", u"昨日", "2008-02-19 12:00:00"},
        Row{"ja_JP", u"3日後", "2008-02-23 12:00:00"},
        Row{"ja_JP", u"3 日後", "2008-02-23 12:00:00"},
        Row{"ja_JP", u"来週", "2008-02-27 12:00:00"},
        Row{"ja_JP", u"金曜日", "2008-02-22 12:00:00"},
        Row{"ja_JP", u"2008年3月4日", "2008-03-04 12:00:00"},
        Row{"ja_JP", u"12月31日 17時30分", "2008-12-31 17:30:00"},
        Row{"ja_JP", u"３月４日", "2008-03-04 12:00:00"},
        Row{"ja_JP", u"正午", "2008-02-20 12:00:00"},
    };
    expectAll(Rows, u"%y/%m/%d");
}

TEST_F(NaturalLanguageDateTests, KnowsRelativeWordsOfManyLanguages)
{
    constexpr std::array Rows{
        Row{"sv_SE", u"i morgon", "2008-02-21 12:00:00"},
        Row{"it_IT", u"domani", "2008-02-21 12:00:00"},
        Row{"es_ES", u"dentro de 3 días", "2008-02-23 12:00:00"},
        Row{"ru_RU", u"через 5 дней", "2008-02-25 12:00:00"},
        Row{"ru_RU", u"21 день назад", "2008-01-30 12:00:00"},
        Row{"ar_EG", u"غدًا", "2008-02-21 12:00:00"},
        Row{"zh_CN", u"明天", "2008-02-21 12:00:00"},
        Row{"nl_NL", u"gisteren", "2008-02-19 12:00:00"},
    };
    expectAll(Rows);
}

TEST_F(NaturalLanguageDateTests, CountsFromTheDefaultDate)
{
    const auto formatter = formatterOf("en_US");
    formatter->setDefaultDate(QDateTime(QDate(2010, 5, 31), QTime(12, 0), newYork()));
    EXPECT_EQ(read(*formatter, u"tomorrow"_s), u"2010-06-01 12:00:00");
    EXPECT_EQ(read(*formatter, u"5"_s), u"2010-05-31 05:00:00");
    EXPECT_EQ(read(*formatter, u"next month"_s), u"2010-06-30 12:00:00");
    EXPECT_EQ(read(*formatter, u"in 2 hours"_s), u"2008-02-20 17:30:00");
}

TEST_F(NaturalLanguageDateTests, ReadsASkippedHourAnHourOn)
{
    const auto formatter = formatterOf("en_US");
    EXPECT_EQ(read(*formatter, u"March 9, 2008 2:30"_s), u"2008-03-09 03:30:00");
    EXPECT_EQ(read(*formatter, u"November 2, 2008 1:30"_s), u"2008-11-02 01:30:00");
}

TEST_F(NaturalLanguageDateTests, IsReadOnlyWhereAllowed)
{
    NSDateFormatter formatter(u"%m/%d/%y"_s, false);
    formatter.setLocale(NSLocale(u"en_US"_s));
    EXPECT_FALSE(formatter.allowsNaturalLanguage());
    EXPECT_FALSE(formatter.dateFromString(u"tomorrow"_s).isValid());
    EXPECT_TRUE(formatter.dateFromString(u"3/4/08"_s).isValid());
}

TEST_F(NaturalLanguageDateTests, SurvivesHostileTexts)
{
    const auto formatter = formatterOf("en_US");
    for (const QString &text : hostileTexts())
        EXPECT_EQ(read(*formatter, text), QString());
    for (const char16_t *const piece : {u"tomorrow ", u"5:", u"1/", u"in ", u". ", u"9", u"a "})
        EXPECT_EQ(read(*formatter, megabyteOf(QString::fromUtf16(piece))), QString());
}

TEST_F(NaturalLanguageDateTests, TakesOrdinalsForDays)
{
    constexpr std::array Rows{Row{"en_US", u"the 5th", "2008-02-05 12:00:00"},
                              Row{"en_US", u"march 5th, 2008", "2008-03-05 12:00:00"},
                              Row{"en_US", u"the 1st of may at 5pm", "2008-05-01 17:00:00"},
                              Row{"en_US", u"the 35th", nullptr},
                              Row{"fr_FR", u"1er mars", "2008-03-01 12:00:00"},
                              Row{"fr_FR", u"le 1er", "2008-02-01 12:00:00"}};
    expectAll(Rows);
}

TEST_F(NaturalLanguageDateTests, TakesApostrophesAndVowelsAsTheyAreTyped)
{
    constexpr std::array Rows{Row{"fr_FR", u"aujourd'hui", "2008-02-20 12:00:00"},
                              Row{"fr_FR", u"aujourd\u2019hui", "2008-02-20 12:00:00"},
                              Row{"ar_EG", u"غدًا", "2008-02-21 12:00:00"},
                              Row{"ar_EG", u"غدا", "2008-02-21 12:00:00"},
                              Row{"en_US", u"5 o\u2019clock", "2008-02-20 05:00:00"}};
    expectAll(Rows);
}

TEST_F(NaturalLanguageDateTests, KnowsEveningsAndShortDays)
{
    constexpr std::array Rows{Row{"en_US", u"tonight", "2008-02-20 19:00:00"},
                              Row{"en_US", u"tomorrow evening", "2008-02-21 19:00:00"},
                              Row{"en_US", u"thurs", "2008-02-21 12:00:00"},
                              Row{"en_US", u"tues", "2008-02-19 12:00:00"},
                              Row{"fr_FR", u"ce soir", "2008-02-20 19:00:00"},
                              Row{"de_DE", u"heute abend", "2008-02-20 19:00:00"}};
    expectAll(Rows);
}

TEST_F(NaturalLanguageDateTests, KnowsEarlyYears)
{
    constexpr std::array Rows{Row{"en_US", u"october 10, 1582", "1582-10-10 12:00:00"},
                              Row{"en_US", u"february 29, 1500", nullptr}};
    expectAll(Rows);
}
