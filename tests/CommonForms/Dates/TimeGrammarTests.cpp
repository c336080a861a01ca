// Times of day, by themselves.

#include <KTUtility/CommonForms/Dates/TimeGrammar_p.h>
#include <KTUtility/CommonForms/Text/FoldedText_p.h>

#include "support/TestSupport.h"

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
struct Row
{
    const char *locale;
    const char16_t *text;
    const char16_t *time; ///< "no time", or why it is refused
};

QString timeIn(const Row &row, bool isTimeField = false)
{
    const auto words = DateWords::wordsOf(NSLocale(QString::fromLatin1(row.locale)));
    const FoldedText folded(QString::fromUtf16(row.text));
    const DateTokens tokens(folded.text(), *words);
    DateSaid said;
    qsizetype at = 0;
    if (!tokens.isValid() || !TimeGrammar(tokens, *words, isTimeField).read(&at, &said) ||
        at != tokens.count())
        return u"no time"_s;
    if (said.contradiction)
        return QString::fromUtf16(said.contradiction);
    const DateSaid::Time &time = *said.time;
    return QTime(time.hour, time.minute, time.second, time.millisecond)
        .toString(time.millisecond == 0 ? u"HH:mm:ss"_s : u"HH:mm:ss.zzz"_s);
}

void expectTimes(std::initializer_list<Row> rows, bool isTimeField = false)
{
    for (const Row &row : rows)
        EXPECT_EQ(timeIn(row, isTimeField), QStringView(row.time))
            << row.locale << ' ' << QString::fromUtf16(row.text).toStdString();
}
} // namespace

TEST(TimeGrammar, ReadsClocks)
{
    expectTimes({
        {"en_US", u"9:05", u"09:05:00"},
        {"en_US", u"23:59:59", u"23:59:59"},
        {"en_US", u"0:00", u"00:00:00"},
        {"en_US", u"9:05:07.25", u"09:05:07.250"},
        {"de_DE", u"9:05:07,5", u"09:05:07.500"},
        {"hi_IN", u"९:०५", u"09:05:00"},
        {"ja_JP", u"９：０５", u"09:05:00"},
        {"en_US", u"24:00", u"There is no such time."},
        {"en_US", u"9:60", u"There is no such time."},
        {"en_US", u"9:5", u"no time"},
        {"en_US", u"9: 05", u"no time"},
        {"en_US", u"123:05", u"no time"},
    });
}

TEST(TimeGrammar, ReadsHalvesOfTheDay)
{
    expectTimes({
        {"en_US", u"5pm", u"17:00:00"},
        {"en_US", u"5 PM", u"17:00:00"},
        {"en_US", u"5:30 p.m.", u"17:30:00"},
        {"en_US", u"5:30 p. m", u"17:30:00"},
        {"en_US", u"5:30p", u"17:30:00"},
        {"en_US", u"5:30 p", u"no time"},
        {"en_US", u"12am", u"00:00:00"},
        {"en_US", u"12pm", u"12:00:00"},
        {"en_US", u"13:30 pm", u"13:30:00"},
        {"en_US", u"0:30 am", u"00:30:00"},
        {"en_US", u"0:30 pm", u"There is no such time."},
        {"en_US", u"13:30 am", u"There is no such time."},
        {"de_DE", u"5:30 pm", u"17:30:00"},
        {"de_DE", u"12:30 AM", u"00:30:00"},
        {"el_GR", u"5:30 μ.μ.", u"17:30:00"},
        {"el_GR", u"5:30μμ", u"17:30:00"},
        {"hu_HU", u"du. 5:30", u"17:30:00"},
        {"ja_JP", u"午後0時30分", u"12:30:00"},
        {"ja_JP", u"午前0時30分", u"00:30:00"},
        {"ja_JP", u"午後5時30分", u"17:30:00"},
        {"ko_KR", u"오후 5:30", u"17:30:00"},
        {"zh_CN", u"下午5:30", u"17:30:00"},
        {"zh_TW", u"下午5點30分", u"17:30:00"},
    });
}

TEST(TimeGrammar, ReadsPartsOfTheDay)
{
    expectTimes({
        {"en_US", u"5 in the evening", u"17:00:00"},
        {"en_US", u"8:15 in the morning", u"08:15:00"},
        {"en_US", u"3 in the morning", u"03:00:00"},
        {"en_US", u"20:15 in the morning", u"There is no such time."},
        {"de_DE", u"8 Uhr abends", u"20:00:00"},
        {"de_DE", u"8 Uhr morgens", u"08:00:00"},
        {"fr_FR", u"8 heures du soir", u"20:00:00"},
        {"es_ES", u"8 de la tarde", u"20:00:00"},
        {"es_ES", u"8 de la mañana", u"08:00:00"},
        {"pt_BR", u"8 da noite", u"20:00:00"},
        {"it_IT", u"8 di sera", u"20:00:00"},
        {"nl_NL", u"8 uur ’s avonds", u"20:00:00"},
        {"ru_RU", u"8 вечера", u"20:00:00"},
        {"tr_TR", u"akşam 8", u"20:00:00"},
        {"ja_JP", u"夜の8時", u"20:00:00"},
        {"ja_JP", u"夜、8時", u"no time"},
        {"ko_KR", u"저녁 8시", u"20:00:00"},
        {"zh_CN", u"晚上8点", u"20:00:00"},
        {"en_US", u"8pm in the evening", u"20:00:00"},
        {"en_US", u"8am in the evening", u"There is no such time."},
    });
}

TEST(TimeGrammar, KeepsHoursOnTheSideOfTheirPartOfTheDay)
{
    expectTimes({
        {"en_US", u"1 in the morning", u"01:00:00"},
        {"en_US", u"2:15 in the morning", u"02:15:00"},
        {"en_US", u"12 in the morning", u"There is no such time."},
        {"en_US", u"13 in the morning", u"There is no such time."},
        {"en_US", u"11 in the afternoon", u"There is no such time."},
        {"en_US", u"12 in the afternoon", u"12:00:00"},
        {"es_ES", u"1:30 de la mañana", u"01:30:00"},
        {"es_ES", u"12 de la mañana", u"There is no such time."},
        {"pt_BR", u"1 da manhã", u"01:00:00"},
        {"it_IT", u"2 di mattina", u"02:00:00"},
        {"ru_RU", u"1 час утра", u"01:00:00"},
        {"pl_PL", u"1 rano", u"01:00:00"},
        {"tr_TR", u"sabah 1", u"01:00:00"},
        {"vi_VN", u"1 giờ sáng", u"01:00:00"},
        {"ja_JP", u"朝1時", u"01:00:00"},
        {"ja_JP", u"朝12時", u"There is no such time."},
        {"zh_CN", u"凌晨12点", u"00:00:00"},
        {"ko_KR", u"아침 12시", u"There is no such time."},
    });
}

TEST(TimeGrammar, RefusesBothHalvesOfTheDay)
{
    expectTimes({
        {"en_US", u"5 AM PM", u"There is no such time."},
        {"en_US", u"5:30 a.m. p.m.", u"There is no such time."},
        {"en_US", u"5:30 p.m. pm", u"17:30:00"},
    });
}

TEST(TimeGrammar, ReadsPointsBehindMarksOfClocksOnly)
{
    expectTimes({
        {"de_DE", u"um 12.10", u"12:10:00"},
        {"de_DE", u"ab 12.10", u"no time"},
        {"de_DE", u"gegen 12.10.", u"no time"},
        {"de_DE", u"ab 14.30", u"14:30:00"},
        {"de_DE", u"um 12.10.", u"no time"},
        {"de_DE", u"ab 12.10 Uhr", u"12:10:00"},
        {"ru_RU", u"к 12.10", u"no time"},
        {"he_IL", u"ב-12.10", u"no time"},
        {"nl_NL", u"vanaf 12.10", u"no time"},
        {"ro_RO", u"la 12.10", u"no time"},
        {"cs_CZ", u"v 12.10.", u"no time"},
        {"cs_CZ", u"v 14.30", u"14:30:00"},
        {"it_IT", u"alle 12.10", u"12:10:00"},
        {"id_ID", u"pukul 12.10", u"12:10:00"},
    });
}

TEST(TimeGrammar, ReadsNoonAndMidnight)
{
    expectTimes({
        {"en_US", u"noon", u"12:00:00"},
        {"en_US", u"at midnight", u"00:00:00"},
        {"en_US", u"12 noon", u"12:00:00"},
        {"en_US", u"12 midnight", u"00:00:00"},
        {"en_US", u"3 noon", u"There is no such time."},
        {"fr_FR", u"midi", u"12:00:00"},
        {"fr_FR", u"à minuit", u"00:00:00"},
        {"ko_KR", u"정오", u"12:00:00"},
    });
}

TEST(TimeGrammar, ReadsMarksOfHours)
{
    expectTimes({
        {"fr_FR", u"17h", u"17:00:00"},
        {"fr_FR", u"17h30", u"17:30:00"},
        {"fr_FR", u"17 h 30 min 15 s", u"17:30:15"},
        {"fr_FR", u"17 heures", u"17:00:00"},
        {"de_DE", u"17 Uhr", u"17:00:00"},
        {"de_DE", u"17 Uhr 30", u"17:30:00"},
        {"de_DE", u"17:30 Uhr", u"17:30:00"},
        {"de_DE", u"17.30 Uhr", u"17:30:00"},
        {"nl_NL", u"17 uur 30", u"17:30:00"},
        {"ja_JP", u"17時半", u"17:30:00"},
        {"ja_JP", u"17時30分15秒", u"17:30:15"},
        {"zh_CN", u"17点", u"17:00:00"},
        {"ko_KR", u"17시 5분", u"17:05:00"},
        {"vi_VN", u"17 giờ 30", u"17:30:00"},
        {"ru_RU", u"17 ч. 30 мин.", u"no time"},
        {"en_US", u"17h5", u"no time"},
        {"en_US", u"5 o'clock", u"no time"},
        {"en_US", u"5 o'clock in the evening", u"17:00:00"},
        {"zh_CN", u"下午5点一刻", u"17:15:00"},
        {"hu_HU", u"17:30-kor", u"17:30:00"},
        {"fr_FR", u"25h", u"There is no such time."},
    });
}

TEST(TimeGrammar, ReadsBareHoursWhereTheyCannotBeBeforeAndAfterNoon)
{
    expectTimes({
        {"da_DK", u"kl. 14", u"14:00:00"},
        {"nb_NO", u"klokka 3", u"03:00:00"},
        {"de_DE", u"um 8", u"08:00:00"},
        {"en_US", u"at 8", u"no time"},
        {"en_US", u"at 20", u"20:00:00"},
        {"de_DE", u"8", u"no time"},
        {"es_ES", u"a 5 de marzo", u"no time"},
        {"de_DE", u"um 8.3.", u"no time"},
    });
}

TEST(TimeGrammar, ReadsPointsInFieldsForTimes)
{
    const std::initializer_list<Row> rows{{"de_DE", u"8.30", u"08:30:00"},
                                          {"fi_FI", u"8.30.15", u"08:30:15"},
                                          {"de_DE", u"8.3", u"no time"},
                                          {"de_DE", u"8.30.2008", u"no time"}};
    expectTimes(rows, true);
    expectTimes({{"de_DE", u"8.30", u"no time"},
                 {"de_DE", u"um 8.30", u"08:30:00"},
                 {"en_US", u"8.30 pm", u"20:30:00"}});
}
