// Texts that look like a date or time, but say another, several or none.

#include "CommonDatesSupport.h"

using namespace KTPrivate;
using namespace Qt::StringLiterals;
using namespace testing_support;

TEST(CommonDatesMistaken, SpansAreNoYears)
{
    expectReadings({
        {"en_US", u"March 5-16", u"refused"},
        {"en_US", u"5-16 March", u"refused"},
        {"en_US", u"10-11 March", u"refused"},
        {"en_US", u"Jan 1-31", u"refused"},
        {"en_US", u"Mon, March 5-12", u"refused"},
        {"fr_FR", u"du 5 au 16 mars", u"refused"},
        {"es_ES", u"del 5 al 16 de marzo", u"refused"},
        {"de_DE", u"5.-16. März", u"refused"},
        {"de_DE", u"5. und 16. März", u"refused"},
        {"en_US", u"5 Mar 08", u"2008-03-05 12:00:00"},
        {"en_US", u"5-Mar-08", u"2008-03-05 12:00:00"},
        {"en_US", u"5.Mar.08", u"2008-03-05 12:00:00"},
        {"en_US", u"5 Mar. 08", u"2008-03-05 12:00:00"},
        {"en_US", u"Mar-05-08", u"2008-03-05 12:00:00"},
        {"en_US", u"Mar 5, 08", u"2008-03-05 12:00:00"},
        {"en_US", u"5Mar08", u"2008-03-05 12:00:00"},
    });
}

TEST(CommonDatesMistaken, WhatStandsBesideATimeIsNoYear)
{
    expectReadings({
        {"en_US", u"5 March 17:00 -0500", u"2019-03-05 22:00:00"},
        {"en_US", u"5 March 5 PM -0330", u"2019-03-05 20:30:00"},
        {"en_US", u"March 5 5pm-0800", u"refused"},
        {"en_US", u"5 March 14:30-0800", u"refused"},
        {"en_US", u"5 March 14:30 -01", u"refused"},
        {"en_US", u"5 March 17:00-1800", u"refused"},
        {"en_US", u"March 5 10-11pm", u"refused"},
        {"en_US", u"March 10-11pm", u"refused"},
        {"en_US", u"March 5 - 2:30pm", u"2019-03-05 14:30:00"},
        {"en_US", u"March 5 14:30-16", u"refused"},
        {"en_US", u"5-3 14:30-16", u"refused"},
        {"de_DE", u"21. April 10 - 12 Uhr", u"refused"},
        {"fr_FR", u"5 mars de 10 à 12 h", u"refused"},
        {"de_DE", u"5. März um 8 30", u"refused"},
        {"fr_FR", u"5 mars à 8 30", u"refused"},
        {"es_ES", u"5 de marzo a las 8 y 10", u"refused"},
        {"pt_BR", u"5 de março às 8 e 30", u"refused"},
        {"it_IT", u"5 marzo alle 8 e 30", u"refused"},
        {"fr_FR", u"5 mars à 17 heures et 30", u"refused"},
        {"fr_FR", u"5 mars à 8 h et 20", u"refused"},
        {"en_US", u"5 March 14:30 08", u"2008-03-05 14:30:00"},
        {"en_US", u"5 March 5pm 2008", u"2008-03-05 17:00:00"},
        {"en_US", u"5/3 14:30 2008", u"2008-05-03 14:30:00"},
    });
}

TEST(CommonDatesMistaken, DatesThatDoNotExistAreNoOthers)
{
    expectReadings({
        {"de_DE", u"30.2.08", u"refused"},
        {"de_DE", u"29.2.07", u"refused"},
        {"de_DE", u"31.6.08", u"refused"},
        {"en_US", u"31/04/08", u"refused"},
        {"en_US", u"Feb 29, 19", u"refused"},
        {"en_US", u"April 31 15", u"refused"},
        {"zh_CN", u"08-02-30", u"refused"},
        {"ja_JP", u"08-02-30", u"refused"},
        {"sv_SE", u"08-02-30", u"refused"},
        {"hu_HU", u"08-02-30", u"refused"},
        {"en_US", u"74/3/5", u"1974-03-05 12:00:00"},
        {"de_DE", u"2/13/08", u"2008-02-13 12:00:00"},
    });
}

TEST(CommonDatesMistaken, WeekdaysChooseNoOtherYear)
{
    // 5 March 2009 was a Thursday, 3 May 2009 a Sunday, 9 March 2005 a Wednesday.
    expectReadings({
        {"en_US", u"Wed 05.03.09", u"refused"},
        {"en_GB", u"Thu 05/03/09", u"2009-03-05 12:00:00"},
        {"en_GB", u"Wed 05/03/09", u"refused"},
        {"en_GB", u"Sun 05/03/09", u"2009-05-03 12:00:00"},
        {"sv_SE", u"ons 05-03-09", u"2005-03-09 12:00:00"},
        {"sv_SE", u"tors 05-03-09", u"refused"},
        {"he_IL", u"יום ב 5.3.2008", u"refused"},
        {"he_IL", u"יום ד 5.3.2008", u"2008-03-05 12:00:00"},
    });
}

TEST(CommonDatesMistaken, DottedDatesAreNoTimes)
{
    expectReadings({
        {"de_DE", u"ab 12.10.", u"2019-10-12 12:00:00"},
        {"de_DE", u"gegen 12.10.", u"2019-10-12 12:00:00"},
        {"de_DE", u"vom 10.10. - 12.10.", u"unknown"},
        {"ru_RU", u"к 12.10", u"2019-10-12 12:00:00"},
        {"ro_RO", u"la 12.10", u"2019-10-12 12:00:00"},
        {"nl_NL", u"vanaf 12.10", u"2019-10-12 12:00:00"},
        {"de_DE", u"5.3.2008 - 14.30", u"2008-03-05 14:30:00"},
        {"de_DE", u"5.3.2008 um 12.10", u"2008-03-05 12:10:00"},
    });
}

TEST(CommonDatesMistaken, HoursOfTheNightBelongToNoSingleDay)
{
    expectReadings({
        {"en_US", u"tonight at 12", u"refused"},
        {"en_US", u"tonight at 12:30", u"refused"},
        {"en_US", u"tonight at 1", u"refused"},
        {"en_US", u"tonight at 8", u"2019-06-05 20:00:00"},
        {"en_US", u"tomorrow night at 1", u"refused"},
        {"en_US", u"tomorrow night at 10", u"2019-06-06 22:00:00"},
        {"zh_CN", u"今晚12点", u"refused"},
        {"zh_CN", u"3月5日晚上12点", u"refused"},
        {"ko_KR", u"오늘 밤 12시", u"refused"},
        {"nl_NL", u"vanavond 12 uur", u"refused"},
        {"ja_JP", u"昨日の夜12時", u"refused"},
        {"en_US", u"March 5 at 1 at night", u"2019-03-05 01:00:00"},
        {"en_US", u"March 5 at 12 at night", u"refused"},
        {"ja_JP", u"3月5日夜1時", u"refused"},
        {"en_US", u"1 at night", u"2019-06-05 01:00:00"},
        {"zh_CN", u"3月5日凌晨2点", u"2019-03-05 02:00:00"},
    });
}

TEST(CommonDatesMistaken, ThisWeekdayIsTheNextFromTodayOn)
{
    expectReadings({
        {"en_US", u"this Sunday", u"2019-06-09 12:00:00"},
        {"en_US", u"this Monday", u"2019-06-10 12:00:00"},
        {"en_US", u"this Wednesday", u"2019-06-05 12:00:00"},
        {"pt_BR", u"este domingo", u"2019-06-09 12:00:00"},
        {"ja_JP", u"今週の日曜日", u"2019-06-09 12:00:00"},
    });
}

TEST(CommonDatesMistaken, DayAndMonthKeepTheirOrderBeforeAYear)
{
    expectReadings({
        {"sv_SE", u"5/3", u"2019-03-05 12:00:00"},
        {"sv_SE", u"5/3 2008", u"2008-03-05 12:00:00"},
        {"sv_SE", u"5/3/2008", u"2008-03-05 12:00:00"},
    });
}

TEST(CommonDatesMistaken, ABareMIsNoUnit)
{
    for (const char *locale : {"en_US", "es_ES", "de_DE", "fr_FR", "ru_RU", "sv_SE"}) {
        const CommonDateField field = commonDateField(QString::fromLatin1(locale));
        for (const QString &text : {u"1y 2m ago"_s, u"5m ago"_s, u"in 5m"_s, u"hace 5 m"_s,
                                    u"in 5 m"_s, u"5 м назад"_s, u"för 5 m sedan"_s})
            EXPECT_EQ(readAs(text, field), u"unknown") << locale << ' ' << text.toStdString();
    }
    expectReadings({
        {"en_US", u"5 min ago", u"2019-06-05 14:25:20"},
        {"ja_JP", u"5分前", u"2019-06-05 14:25:20"},
        {"fr_FR", u"17h30min", u"2019-06-05 17:30:00"},
    });
}

TEST(CommonDatesMistaken, TwoDatesAreNone)
{
    expectReadings({
        {"en_US", u"yesterday 2 days ago", u"refused"},
        {"en_US", u"tomorrow in 2 days", u"refused"},
        {"en_US", u"2 days ago yesterday", u"refused"},
        {"en_US", u"next week in 2 days", u"refused"},
        {"ar_EG", u"5/3/2008م 10:30", u"2008-03-05 10:30:00"},
        {"ar_EG", u"5/3/2008 10:30م", u"2008-03-05 22:30:00"},
    });
}

TEST(CommonDatesMistaken, NumberedWeekdaysAreNoDays)
{
    expectReadings({
        {"pt_BR", u"2ª feira", u"refused"},
        {"pt_BR", u"6a feira", u"refused"},
        {"pt_BR", u"4ª feira, 5 de março de 2008", u"2008-03-05 12:00:00"},
        {"pt_BR", u"4a-feira, 5 de março de 2008", u"2008-03-05 12:00:00"},
        {"pt_BR", u"5ª feira, 5 de março de 2008", u"refused"},
        {"pt_BR", u"feira 5 de março", u"unknown"},
    });
}

TEST(CommonDatesMistaken, EachIsRefusedWithAReason)
{
    const InZone zone("UTC");
    for (const QString &text :
         {u"the"_s, u"at"_s, u"this day"_s, u"tonight at 1"_s, u"March 10-11pm"_s}) {
        const CommonDate date = readCommonDate(text, commonDateField(u"en_US"_s));
        EXPECT_EQ(date.outcome, CommonDate::Outcome::Refused) << text.toStdString();
        EXPECT_FALSE(QString::fromUtf16(date.reason).isEmpty()) << text.toStdString();
    }
}
