// Texts that are no dates, or nearly: nothing crashes, hangs or comes out of thin air.

#include "CommonDatesSupport.h"
#include "support/InZone.h"
#include "support/TestSupport.h"

#include <ctime>

#include <random>

using namespace KTPrivate;
using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
constexpr const char *Locales[] = {"en_US", "de_DE", "fr_FR", "es_ES", "pt_BR", "it_IT", "nl_NL",
                                   "sv_SE", "fi_FI", "ru_RU", "hu_HU", "tr_TR", "ja_JP", "ko_KR",
                                   "zh_CN", "th_TH", "he_IL", "ar_EG", "hi_IN", "vi_VN"};

/// Words and numbers that dates are made of, in any language, and some that none is.
QString piece(std::mt19937 &random)
{
    static const QStringList pieces{u"3"_s,        u"13"_s,          u"31"_s,
                                    u"2008"_s,     u"99"_s,          u"0"_s,
                                    u"00"_s,       u"."_s,           u","_s,
                                    u"/"_s,        u"-"_s,           u":"_s,
                                    u"'"_s,        u" "_s,           u" "_s,
                                    u" "_s,        u"mar"_s,         u"mars"_s,
                                    u"März"_s,     u"марта"_s,       u"月"_s,
                                    u"日"_s,       u"年"_s,          u"h"_s,
                                    u"Uhr"_s,      u"am"_s,          u"pm"_s,
                                    u"noon"_s,     u"ago"_s,         u"in"_s,
                                    u"days"_s,     u"vor"_s,         u"Tagen"_s,
                                    u"tomorrow"_s, u"mañana"_s,      u"th"_s,
                                    u"er"_s,       u"Mon"_s,         u"mardi"_s,
                                    u"午後"_s,     u"時"_s,          u"の"_s,
                                    u"at"_s,       u"um"_s,          u"the"_s,
                                    u"de"_s,       u"a"_s,           u"("_s,
                                    u")"_s,        u"+"_s,           u"٣"_s,
                                    u"\u200F"_s,   u"😀"_s,           u"\u0301"_s,
                                    u"x"_s,        u"99999999999"_s, QString(QChar(0xD800)),
                                    u"오후"_s,     u"시"_s,          u"kl."_s,
                                    u"'s"_s,       u"next week"_s};
    return pieces[std::uniform_int_distribution<qsizetype>(0, pieces.size() - 1)(random)];
}

QString concatenation(std::mt19937 &random, int longest)
{
    QString text;
    for (int left = std::uniform_int_distribution(1, longest)(random); left > 0; --left)
        text += piece(random);
    return text;
}

/// What every result has to hold.
void expectSound(const CommonDate &date, const QString &text)
{
    using Outcome = CommonDate::Outcome;
    EXPECT_EQ(date.outcome == Outcome::Read, date.date.isValid()) << text.toStdString();
    EXPECT_EQ(date.outcome == Outcome::Read, date.reading.isRead()) << text.toStdString();
    if (date.outcome != Outcome::Read)
        return;
    EXPECT_FALSE(date.reading.parts.isEmpty()) << text.toStdString();
    qsizetype end = 0;
    for (const KTReadingPart &part : date.reading.parts) {
        EXPECT_GE(part.range.location, end) << text.toStdString();
        EXPECT_GT(part.range.length, 0) << text.toStdString();
        end = part.range.location + part.range.length;
    }
    EXPECT_LE(end, text.size()) << text.toStdString();
    EXPECT_NE(date.reading.alternative, QVariant(date.date)) << text.toStdString();
}
} // namespace

TEST(CommonDatesHostile, AreSoundForAnyWordsInAnyOrder)
{
    std::mt19937 random(20080305);
    for (const char *locale : Locales) {
        for (const bool showsDate : {true, false}) {
            const CommonDateField field =
                commonDateField(QString::fromLatin1(locale), showsDate, true);
            for (int round = 0; round < 1500; ++round) {
                const QString text = concatenation(random, round < 1200 ? 8 : 60);
                expectSound(readCommonDate(text, field), text);
            }
        }
    }
}

/// All that is read of numbers and signs shows in them: no number of a date is guessed.
TEST(CommonDatesHostile, TakeAllNumbersFromTheText)
{
    const InZone zone("UTC");
    const CommonDateField field = commonDateField(u"en_US"_s);
    std::mt19937 random(7);
    int read = 0;
    for (int round = 0; round < 20'000; ++round) {
        const QString text = concatenation(random, 6);
        const CommonDate date = readCommonDate(text, field);
        if (date.reading.form != u"common.date")
            continue;
        ++read;
        for (const KTReadingPart &part : date.reading.parts) {
            const int value = part.meaning.toInt();
            const QDate day = date.clock.date();
            const int shown = part.role == u"day"                   ? day.day()
                              : part.role == u"month" && value != 0 ? day.month()
                              : part.role == u"year"                ? day.year()
                                                                    : value;
            EXPECT_EQ(shown % 100, value % 100) << text.toStdString();
        }
    }
    EXPECT_GT(read, 10);
}

TEST(CommonDatesHostile, AreRefusedWithoutSearching)
{
    const CommonDateField field = commonDateField(u"de_DE"_s);
    const QString piece = u"13. März um 8 Uhr am in 3 Tagen, "_s;
    const std::clock_t start = std::clock();
    for (int times = 1; times < 40; ++times)
        EXPECT_NE(readCommonDate(piece.repeated(times), field).outcome, CommonDate::Outcome::Read);
    for (const QString &text :
         {u"1"_s.repeated(1000), u"1 "_s.repeated(500), u"den "_s.repeated(250),
          u"1:"_s.repeated(500), u"a"_s.repeated(1024), u"."_s.repeated(1024),
          u"3. "_s.repeated(300), u"x"_s.repeated(100'000)})
        EXPECT_NE(readCommonDate(text, field).outcome, CommonDate::Outcome::Read);
    // Of this process, so that others beside it do not count.
    EXPECT_LT(std::clock() - start, 5 * CLOCKS_PER_SEC);
}

TEST(CommonDatesHostile, HoldNothingOfHostileTexts)
{
    for (const char *locale : Locales) {
        const CommonDateField field = commonDateField(QString::fromLatin1(locale));
        for (const QString &text : hostileTexts())
            expectSound(readCommonDate(text, field), text);
    }
}
