// Dates and times in the forms that people type, in their languages.

#include "CommonDatesSupport.h"
#include "support/InZone.h"
#include "support/TestSupport.h"

using namespace KTPrivate;
using namespace Qt::StringLiterals;
using namespace testing_support;

TEST(CommonDates, ReadsNamesOfMonthsOnEitherSideOfTheDay)
{
    expectReadings({
        {"en_US", u"March 5, 2008", u"2008-03-05 12:00:00"},
        {"en_US", u"Wed 5 March 2008", u"2008-03-05 12:00:00"},
        {"en_US", u"mar 5 08", u"2008-03-05 12:00:00"},
        {"en_US", u"5-Mar-2008", u"2008-03-05 12:00:00"},
        {"en_US", u"5/MAR/08", u"2008-03-05 12:00:00"},
        {"en_US", u"2008 March 5", u"2008-03-05 12:00:00"},
        {"en_US", u"5Mar2008", u"2008-03-05 12:00:00"},
        {"en_US", u"March 5 '08", u"2008-03-05 12:00:00"},
        {"en_US", u"March 5, '98", u"1998-03-05 12:00:00"},
        {"en_US", u"Septem 5", u"2019-09-05 12:00:00"},
        {"de_DE", u"5. März 2008", u"2008-03-05 12:00:00"},
        {"de_DE", u"5. maerz 2008", u"2008-03-05 12:00:00"},
        {"de_DE", u"5.Jänner 2008", u"2008-01-05 12:00:00"},
        {"fr_FR", u"5 mars 2008", u"2008-03-05 12:00:00"},
        {"fr_FR", u"5 AOUT 2008", u"2008-08-05 12:00:00"},
        {"es_ES", u"5 de marzo de 2008", u"2008-03-05 12:00:00"},
        {"es_MX", u"5 set 2008", u"2008-09-05 12:00:00"},
        {"it_IT", u"5 marzo '08", u"2008-03-05 12:00:00"},
        {"pt_PT", u"5 de Março, 2008", u"2008-03-05 12:00:00"},
        {"nl_NL", u"5 maart 2008", u"2008-03-05 12:00:00"},
        {"sv_SE", u"5 mars 2008", u"2008-03-05 12:00:00"},
        {"fi_FI", u"5. maaliskuuta 2008", u"2008-03-05 12:00:00"},
        {"fi_FI", u"5 maaliskuu 2008", u"2008-03-05 12:00:00"},
        {"pl_PL", u"5 marca 2008", u"2008-03-05 12:00:00"},
        {"pl_PL", u"5 marzec 2008", u"2008-03-05 12:00:00"},
        {"cs_CZ", u"5. března 2008", u"2008-03-05 12:00:00"},
        {"ru_RU", u"5 марта 2008 г.", u"2008-03-05 12:00:00"},
        {"ru_RU", u"5 март 2008", u"2008-03-05 12:00:00"},
        {"uk_UA", u"5 березень 2008", u"2008-03-05 12:00:00"},
        {"el_GR", u"5 Μαρτίου 2008", u"2008-03-05 12:00:00"},
        {"hu_HU", u"2008. március 5.", u"2008-03-05 12:00:00"},
        {"tr_TR", u"5 mart 2008", u"2008-03-05 12:00:00"},
        {"lv_LV", u"2008. gada 5. marts", u"2008-03-05 12:00:00"},
        {"he_IL", u"5 במרץ 2008", u"2008-03-05 12:00:00"},
        {"ar_EG", u"٥ مارس ٢٠٠٨", u"2008-03-05 12:00:00"},
        {"ar_EG", u"5 اغسطس 2008", u"2008-08-05 12:00:00"},
        {"vi_VN", u"ngày 5 tháng 3 năm 2008", u"2008-03-05 12:00:00"},
        {"vi_VN", u"5 tháng 12 năm 2008", u"2008-12-05 12:00:00"},
        {"ja_JP", u"2008年3月5日", u"2008-03-05 12:00:00"},
        {"ja_JP", u"２００８年３月５日(水)", u"2008-03-05 12:00:00"},
        {"ko_KR", u"2008년 3월 5일 수요일", u"2008-03-05 12:00:00"},
        {"zh_CN", u"2008年3月5号", u"2008-03-05 12:00:00"},
        {"zh_TW", u"2008年3月5號", u"2008-03-05 12:00:00"},
    });
}

TEST(CommonDates, ReadsEnglishNamesEverywhere)
{
    expectReadings({
        {"de_DE", u"March 5, 2008", u"2008-03-05 12:00:00"},
        {"ja_JP", u"Mar 5, 2008", u"2008-03-05 12:00:00"},
        {"ru_RU", u"Wed, 5 Mar 2008 2:30 PM", u"2008-03-05 14:30:00"},
        {"fi_FI", u"5.3.2008 2:30 pm", u"2008-03-05 14:30:00"},
    });
}

TEST(CommonDates, ReadsOrdinalsAndArticles)
{
    expectReadings({
        {"en_US", u"the 5th of March, 2008", u"2008-03-05 12:00:00"},
        {"en_GB", u"1st March 2008", u"2008-03-01 12:00:00"},
        {"en_US", u"March 22nd", u"2019-03-22 12:00:00"},
        {"fr_FR", u"le 1er mars 2008", u"2008-03-01 12:00:00"},
        {"es_ES", u"el 1º de marzo de 2008", u"2008-03-01 12:00:00"},
        {"it_IT", u"il 1° marzo 2008", u"2008-03-01 12:00:00"},
        {"de_DE", u"Mittwoch, den 5. März 2008", u"2008-03-05 12:00:00"},
        {"de_DE", u"am 5ten März", u"2019-03-05 12:00:00"},
        {"nl_NL", u"de 5e maart", u"2019-03-05 12:00:00"},
        {"sv_SE", u"den 5:e mars", u"2019-03-05 12:00:00"},
        {"ru_RU", u"5-го марта", u"2019-03-05 12:00:00"},
        {"hu_HU", u"március 5-én", u"2019-03-05 12:00:00"},
        {"ca_ES", u"l'1 de març de 2008", u"2008-03-01 12:00:00"},
        {"en_US", u"the 17th", u"2019-06-17 12:00:00"},
        {"ja_JP", u"17日", u"2019-06-17 12:00:00"},
        {"en_US", u"17", u"unknown"},
    });
}

TEST(CommonDates, ChecksTheWeekday)
{
    expectReadings({
        {"en_US", u"Wednesday, March 5, 2008", u"2008-03-05 12:00:00"},
        {"en_US", u"Thursday, March 5, 2008", u"refused"},
        {"en_US", u"5 March 2008 Wed", u"2008-03-05 12:00:00"},
        {"ro_RO", u"Miercuri 5", u"2019-06-05 12:00:00"},
        {"ro_RO", u"Marți 5", u"refused"},
        {"en_US", u"Wed", u"refused"},
        {"en_US", u"Wed 9:00", u"refused"},
        // 12 July is a Saturday, 7 December a Sunday.
        {"en_US", u"Saturday 7/12/2014", u"2014-07-12 12:00:00"},
        {"en_US", u"Sunday 7/12/2014", u"2014-12-07 12:00:00"},
        {"sk_SK", u"št 6. 6. 2019", u"2019-06-06 12:00:00"},
        {"fil_PH", u"Mar 15, 2013", u"2013-03-15 12:00:00"},
        {"sq_AL", u"Sht, 23 mar 2019", u"2019-03-23 12:00:00"},
        {"en_US", u"March 5, 2008 and more", u"unknown"},
    });
}

TEST(CommonDates, ReadsNumbersInTheLocalesOrder)
{
    expectReadings({
        {"en_US", u"3/4/08", u"2008-03-04 12:00:00"},
        {"en_GB", u"3/4/08", u"2008-04-03 12:00:00"},
        {"de_DE", u"3.4.2008", u"2008-04-03 12:00:00"},
        {"de_DE", u"3 - 4 - 2008", u"2008-04-03 12:00:00"},
        {"ja_JP", u"08/3/4", u"2008-03-04 12:00:00"},
        {"en_US", u"13/2/2016", u"2016-02-13 12:00:00"},
        {"de_DE", u"2/13/2016", u"2016-02-13 12:00:00"},
        {"en_US", u"21/4/16", u"2016-04-21 12:00:00"},
        {"en_US", u"2008/3/4", u"2008-03-04 12:00:00"},
        {"de_DE", u"2008-03-13", u"2008-03-13 12:00:00"},
        {"de_DE", u"2008-13-03", u"refused"},
        {"en_US", u"3 4 2008", u"2008-03-04 12:00:00"},
        {"de_DE", u"3.4., 2008", u"2008-04-03 12:00:00"},
        {"en_US", u"3/4", u"2019-03-04 12:00:00"},
        {"de_DE", u"3.4.", u"2019-04-03 12:00:00"},
        {"sv_SE", u"3/4", u"2019-04-03 12:00:00"},
        {"sv_SE", u"03-04", u"2019-03-04 12:00:00"},
        {"zh_CN", u"3/4", u"2019-03-04 12:00:00"},
        {"en_US", u"3/2008", u"2008-03-01 12:00:00"},
        {"en_US", u"March 2008", u"2008-03-01 12:00:00"},
        {"de_DE", u"31.10.74", u"1974-10-31 12:00:00"},
        {"de_DE", u"31.10.49", u"2049-10-31 12:00:00"},
        {"de_DE", u"31.10.50", u"1950-10-31 12:00:00"},
    });
}

TEST(CommonDates, RefusesDatesThatAreNone)
{
    expectReadings({
        {"en_US", u"2/30/2008", u"refused"},
        {"en_US", u"February 30", u"refused"},
        {"en_US", u"Feb 29, 2019", u"refused"},
        {"en_US", u"Feb 29, 2016", u"2016-02-29 12:00:00"},
        {"en_US", u"29 Feb", u"refused"},
        {"en_US", u"3/4/5", u"refused"},
        {"en_US", u"3/4/123", u"refused"},
        {"en_US", u"13/13/2008", u"refused"},
        {"en_US", u"0/1/2008", u"refused"},
        {"en_US", u"March", u"refused"},
        {"en_US", u"March April 5", u"unknown"},
        {"en_US", u"3/4.2008", u"refused"},
        {"en_US", u"3 4", u"refused"},
        {"en_US", u"3//4/2008", u"unknown"},
        {"en_US", u"/3/4/2008", u"unknown"},
        {"en_US", u"3/4/", u"unknown"},
        {"en_US", u"March 5 March 6", u"refused"},
        {"en_US", u"tomorrow 3/4/2008", u"refused"},
        {"en_US", u"5 Mai 2008", u"unknown"},
        {"en_US", u"March 5, 2008 foo", u"unknown"},
        {"hi_IN", u"कल", u"refused"},
        {"en_US", u"", u"unknown"},
        {"en_US", u"   ", u"unknown"},
    });
}

TEST(CommonDates, ReadsTimesOfDayBesideDates)
{
    expectReadings({
        {"de_DE", u"21.04.2016, 16:00", u"2016-04-21 16:00:00"},
        {"de_DE", u"19:00 Uhr am 22.12.2016", u"2016-12-22 19:00:00"},
        {"de_DE", u"22. Dezember um 19 Uhr", u"2019-12-22 19:00:00"},
        {"de_DE", u"22. Dezember um 19.30 Uhr", u"2019-12-22 19:30:00"},
        {"en_US", u"March 5, 2008 at 2:30 PM", u"2008-03-05 14:30:00"},
        {"en_US", u"2:30pm, 3/5/08", u"2008-03-05 14:30:00"},
        {"en_US", u"Wed Mar 5 14:30:15 2008", u"2008-03-05 14:30:15"},
        {"en_US", u"noon on March 5", u"2019-03-05 12:00:00"},
        {"en_US", u"March 5, midnight", u"2019-03-05 00:00:00"},
        {"fr_FR", u"le 5 mars 2008 à 17h30", u"2008-03-05 17:30:00"},
        {"es_ES", u"5 de marzo a las 8 de la noche", u"2019-03-05 20:00:00"},
        {"pt_BR", u"5 de março às 8 da manhã", u"2019-03-05 08:00:00"},
        {"it_IT", u"5 marzo 2008 alle 17:30", u"2008-03-05 17:30:00"},
        {"nl_NL", u"5 maart om 8 uur 's avonds", u"2019-03-05 20:00:00"},
        {"da_DK", u"5. marts 2008 kl. 14.30", u"2008-03-05 14:30:00"},
        {"nb_NO", u"5. mars kl 14:30", u"2019-03-05 14:30:00"},
        {"sv_SE", u"5 mars klockan 14", u"2019-03-05 14:00:00"},
        {"fi_FI", u"5.3.2008 klo 14.30", u"2008-03-05 14:30:00"},
        {"pl_PL", u"5 marca o 14:30", u"2019-03-05 14:30:00"},
        {"cs_CZ", u"5. března ve 14:30", u"2019-03-05 14:30:00"},
        {"ru_RU", u"5 марта в 14:30", u"2019-03-05 14:30:00"},
        {"ru_RU", u"5 марта, 8 вечера", u"2019-03-05 20:00:00"},
        {"tr_TR", u"5 Mart saat 14:30", u"2019-03-05 14:30:00"},
        {"ja_JP", u"3月5日午後2時半", u"2019-03-05 14:30:00"},
        {"ko_KR", u"3월 5일 오후 2시 30분", u"2019-03-05 14:30:00"},
        {"zh_CN", u"3月5日下午2点30分", u"2019-03-05 14:30:00"},
        {"en_US", u"14:30", u"2019-06-05 14:30:00"},
        {"en_US", u"March 5 25:00", u"refused"},
        {"en_US", u"March 5 10:75", u"refused"},
        {"en_US", u"March 5 10:30 11:30", u"refused"},
    });
}

TEST(CommonDates, ConvertsTimesOfOtherZones)
{
    expectReadings({
        {"en_US", u"March 5, 2008 2:30 PM PST", u"2008-03-05 22:30:00"},
        {"en_US", u"2:30 PM GMT+2, March 5, 2008", u"2008-03-05 12:30:00"},
        {"de_DE", u"5. März 2008 um 14:30 Uhr MEZ", u"2008-03-05 13:30:00"},
        {"en_US", u"tomorrow at 17:00 Europe/Berlin", u"2019-06-06 15:00:00"},
        {"en_US", u"March 5, 2008 14:30 +0100", u"2008-03-05 13:30:00"},
        {"en_US", u"March 5, 2008 PST", u"unknown"},
        {"en_US", u"March 5, 2008 14:30 PST PST", u"unknown"},
        {"en_GB", u"5 March 2008 14:30 IST", u"unknown"},
        {"en_US", u"PST 14:30", u"unknown"},
    });
    const InZone zone("UTC");
    const CommonDate date =
        readCommonDate(u"March 5, 2008 2:30 PM GMT+2"_s, commonDateField(u"en_US"_s));
    EXPECT_EQ(date.reading.zone, u"UTC+02:00");
    EXPECT_EQ(date.reading.parts.last().role, u"zone");
}

TEST(CommonDates, ReadsDaysNearToday)
{
    expectReadings({
        {"en_US", u"today", u"2019-06-05 12:00:00"},
        {"en_US", u"Tomorrow", u"2019-06-06 12:00:00"},
        {"en_US", u"day after tomorrow", u"2019-06-07 12:00:00"},
        {"en_US", u"tomorrow at 5pm", u"2019-06-06 17:00:00"},
        {"en_US", u"now", u"2019-06-05 14:30:20"},
        {"en_US", u"next week", u"2019-06-12 14:30:20"},
        {"en_US", u"last month", u"2019-05-05 14:30:20"},
        {"en_US", u"next Monday", u"2019-06-10 12:00:00"},
        {"en_US", u"last Wednesday", u"2019-05-29 12:00:00"},
        {"de_DE", u"übermorgen", u"2019-06-07 12:00:00"},
        {"de_DE", u"morgen um 8 Uhr", u"2019-06-06 08:00:00"},
        {"fr_FR", u"avant-hier", u"2019-06-03 12:00:00"},
        {"fr_FR", u"demain à 8h", u"2019-06-06 08:00:00"},
        {"es_ES", u"mañana a las 8", u"2019-06-06 08:00:00"},
        {"es_ES", u"mañana a las 8 de la mañana", u"2019-06-06 08:00:00"},
        {"ru_RU", u"вчера", u"2019-06-04 12:00:00"},
        {"he_IL", u"מחר", u"2019-06-06 12:00:00"},
        {"ar_EG", u"غدا", u"2019-06-06 12:00:00"},
        {"ja_JP", u"明後日", u"2019-06-07 12:00:00"},
        {"zh_CN", u"后天", u"2019-06-07 12:00:00"},
        {"ko_KR", u"어제", u"2019-06-04 12:00:00"},
        {"en_US", u"Thursday tomorrow", u"2019-06-06 12:00:00"},
        {"en_US", u"Friday tomorrow", u"refused"},
        {"en_US", u"today tomorrow", u"refused"},
    });
}

TEST(CommonDates, ReadsAmountsOfTimeFromNow)
{
    expectReadings({
        {"en_US", u"in 3 days", u"2019-06-08 14:30:20"},
        {"en_US", u"3 days ago", u"2019-06-02 14:30:20"},
        {"en_US", u"an hour ago", u"2019-06-05 13:30:20"},
        {"en_US", u"in 2 hours and 15 minutes", u"2019-06-05 16:45:20"},
        {"en_US", u"3 days ago at 9:00", u"2019-06-02 09:00:00"},
        {"en_US", u"2 months ago", u"2019-04-05 14:30:20"},
        {"de_DE", u"in 60 Minuten", u"2019-06-05 15:30:20"},
        {"de_DE", u"vor 3 Tagen", u"2019-06-02 14:30:20"},
        {"fr_FR", u"il y a 2 jours", u"2019-06-03 14:30:20"},
        {"fr_FR", u"dans 2 h", u"2019-06-05 16:30:20"},
        {"es_ES", u"hace 5 minutos", u"2019-06-05 14:25:20"},
        {"it_IT", u"5 minuti fa", u"2019-06-05 14:25:20"},
        {"pt_BR", u"há 5 minutos", u"2019-06-05 14:25:20"},
        {"nl_NL", u"5 uur geleden", u"2019-06-05 09:30:20"},
        {"sv_SE", u"för 5 minuter sedan", u"2019-06-05 14:25:20"},
        {"fi_FI", u"5 minuuttia sitten", u"2019-06-05 14:25:20"},
        {"pl_PL", u"5 minut temu", u"2019-06-05 14:25:20"},
        {"ru_RU", u"5 минут назад", u"2019-06-05 14:25:20"},
        {"uk_UA", u"через 2 хвилини", u"2019-06-05 14:32:20"},
        {"tr_TR", u"5 dakika önce", u"2019-06-05 14:25:20"},
        {"el_GR", u"πριν από 5 λεπτά", u"2019-06-05 14:25:20"},
        {"th_TH", u"3 วันที่ผ่านมา", u"2019-06-02 14:30:20"},
        {"ja_JP", u"5分前", u"2019-06-05 14:25:20"},
        {"ko_KR", u"3일 전", u"2019-06-02 14:30:20"},
        {"zh_CN", u"3天后", u"2019-06-08 14:30:20"},
        {"en_US", u"in 2.5 hours", u"2019-06-05 17:00:20"},
        {"de_DE", u"in 1,25 Stunden", u"2019-06-05 15:45:20"},
        {"en_US", u"in 2.5 months", u"unknown"},
        {"ru_RU", u"час назад", u"2019-06-05 13:30:20"},
        {"ru_RU", u"через неделю", u"2019-06-12 14:30:20"},
        {"pl_PL", u"za godzinę", u"2019-06-05 15:30:20"},
        {"es_ES", u"hace una hora", u"2019-06-05 13:30:20"},
        {"en_US", u"days ago", u"unknown"},
        {"en_US", u"3 days", u"unknown"},
        {"en_US", u"in 3", u"unknown"},
        {"en_US", u"in 3 days ago", u"2019-06-02 14:30:20"},
        {"en_US", u"in 2 hours at 5pm", u"refused"},
        {"en_US", u"in 999999 years", u"unknown"},
    });
}

TEST(CommonDates, TakesDaysAtNoonWhereNoTimeIsShown)
{
    expectReadings(
        {
            {"en_US", u"in 3 days", u"2019-06-08 12:00:00"},
            {"en_US", u"next week", u"2019-06-12 12:00:00"},
            {"en_US", u"in 3 hours", u"2019-06-05 17:30:20"},
        },
        true, false);
}

TEST(CommonDates, ReadsTimesInFieldsForThem)
{
    expectReadings(
        {
            {"fr_FR", u"17h30", u"2019-06-05 17:30:00"},
            {"de_DE", u"8.30", u"2019-06-05 08:30:00"},
            {"de_DE", u"20 Uhr abends", u"2019-06-05 20:00:00"},
            {"en_US", u"5 in the evening", u"2019-06-05 17:00:00"},
            {"en_US", u"noon", u"2019-06-05 12:00:00"},
            {"en_US", u"tomorrow 5pm", u"2019-06-06 17:00:00"},
            {"de_DE", u"So um 15 Uhr", u"2019-06-05 15:00:00"},
            {"en_US", u"March 5", u"refused"},
            {"en_US", u"Wed", u"refused"},
            {"en_US", u"today", u"refused"},
            {"en_US", u"in 2 hours", u"2019-06-05 16:30:20"},
        },
        false);
}

TEST(CommonDates, ReadsOtherCalendars)
{
    const InZone zone("UTC");
    struct CalendarRow
    {
        const char *locale;
        const char16_t *text;
        QDate day;
    };
    const CalendarRow rows[] = {
        {"th_TH", u"5 มีนาคม 2551", QDate(2008, 3, 5)},
        {"th_TH", u"5/3/2551", QDate(2008, 3, 5)},
        {"th_TH", u"5/3/2008", QDate(2008, 3, 5)},
        {"th_TH", u"5 มีนาคม 2008", QDate(2008, 3, 5)},
        {"ja_JP@calendar=japanese", u"2008年3月5日", QDate(2008, 3, 5)},
        {"fa_IR", u"2008/3/5", QDate(2008, 3, 5)},
        {"fa_IR", u"۱۵ اسفند ۱۳۸۶", QDate(2008, 3, 5)},
        {"he_IL@calendar=hebrew", u"28 אדר א׳ 5768", QDate(2008, 3, 5)},
        {"ja_JP@calendar=japanese", u"平成20年3月5日", QDate(2008, 3, 5)},
        {"ja_JP", u"平成20年3月5日", QDate(2008, 3, 5)},
        {"ja_JP", u"令和元年5月2日", QDate(2019, 5, 2)},
    };
    for (const CalendarRow &row : rows) {
        const CommonDate date = readCommonDate(QString::fromUtf16(row.text),
                                               commonDateField(QString::fromLatin1(row.locale)));
        EXPECT_EQ(date.clock, QDateTime(row.day, QTime(12, 0), UTC))
            << row.locale << ' ' << QString::fromUtf16(row.text).toStdString();
    }
}

TEST(CommonDates, TellsWhatDecided)
{
    const InZone zone("UTC");
    const CommonDate date =
        readCommonDate(u"Wed 5th  March 2008, 2:30 PM"_s, commonDateField(u"en_US"_s));
    EXPECT_EQ(date.reading.form, u"common.datetime");
    EXPECT_EQ(date.reading.zone, u"UTC");
    EXPECT_FALSE(date.reading.isAmbiguous());
    const QList<KTReadingPart> parts{
        {{0, 3}, u"weekday"_s, u"Wednesday"_s}, {{4, 1}, u"day"_s, u"5"_s},
        {{9, 5}, u"month"_s, u"March"_s},       {{15, 4}, u"year"_s, u"2008"_s},
        {{21, 1}, u"hour"_s, u"14"_s},          {{23, 2}, u"minute"_s, u"30"_s},
        {{26, 2}, u"dayPeriod"_s, u"PM"_s}};
    EXPECT_EQ(date.reading.parts, parts);
}

TEST(CommonDates, TellsTheOtherReading)
{
    const InZone zone("UTC");
    const CommonDateField field = commonDateField(u"en_US"_s);
    const CommonDate ambiguous = readCommonDate(u"3/4/2008"_s, field);
    EXPECT_EQ(ambiguous.clock.date(), QDate(2008, 3, 4));
    EXPECT_EQ(ambiguous.reading.alternative.toDateTime().date(), QDate(2008, 4, 3));
    EXPECT_EQ(ambiguous.reading.alternativeForm, u"common.date");
    for (const QString &text : {u"3/13/2008"_s, u"13/3/2008"_s, u"3/3/2008"_s, u"March 4 2008"_s})
        EXPECT_FALSE(readCommonDate(text, field).reading.isAmbiguous()) << text.toStdString();
}

TEST(CommonDates, TellsWhyItRefuses)
{
    const InZone zone("UTC");
    const CommonDateField field = commonDateField(u"en_US"_s);
    const auto reasonOf = [&field](const QString &text) {
        return QString::fromUtf16(readCommonDate(text, field).reason);
    };
    EXPECT_EQ(reasonOf(u"2/30/2008"_s), u"There is no such date.");
    EXPECT_EQ(reasonOf(u"Thu March 5 2008"_s), u"The date is on another weekday.");
    EXPECT_EQ(reasonOf(u"3/4/2008 25:00"_s), u"There is no such time.");
}
