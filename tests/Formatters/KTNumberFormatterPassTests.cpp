#include <KTUtility/KTLogCapture>
#include <KTUtility/KTLoggerComponents>
#include <KTUtility/KTNumberFormatter>
#include <KTUtility/NSDecimalNumber>

#include "support/TestSupport.h"

#include <random>

using namespace Qt::StringLiterals;

// Passes that cannot read another number than the one before are left out, unless the log shows each.

namespace {
struct Answer
{
    bool isRead = false;
    QVariant value;
    QString description;

    friend bool operator==(const Answer &, const Answer &) = default;
};

Answer answerOf(const KTNumberFormatter &formatter, const QString &text)
{
    Answer answer;
    answer.isRead = formatter.getObjectValue(&answer.value, text, &answer.description);
    return answer;
}

QString randomText(std::mt19937 &random)
{
    static const QString units =
        u"0123456789012345678901234567890123456789.,.,  \u00A0\u202F'-+()٣"_s;
    QString text;
    for (int count = int(1 + random() % 10); count > 0; --count)
        text += units[qsizetype(random() % quint64(units.size()))];
    return text;
}
} // namespace

TEST(KTNumberFormatterPasses, LeaveNothingOut)
{
    for (const QString &locale : {u"en_US"_s, u"de_DE"_s, u"fr_FR"_s, u"de_CH"_s, u"hi_IN"_s}) {
        KTNumberFormatter formatter;
        formatter.setLocale(NSLocale(locale));
        std::mt19937 random(20261123);
        for (int round = 0; round < 2'000; ++round) {
            const QString text = randomText(random);
            const Answer quick = answerOf(formatter, text);
            const KTLogCapture allPasses(kLog_FormattersNumbers, 4);
            ASSERT_EQ(quick, answerOf(formatter, text)) << qPrintable(text) << qPrintable(locale);
        }
    }
}
