// Sort keys: their order is that of values themselves.

#include "Records/OrderKeys.h"

#include "Commands/UserSettings.h"
#include "Records/ValueOrder.h"

#include "support/TestSupport.h"

#include <KTUtility/Platform/Values/UTC_p.h>

#include <QDateTime>

using namespace Qt::StringLiterals;

namespace {
QVariant decimal(const QString &digits)
{
    return QVariant::fromValue(NSDecimalNumber::decimalNumberWithString(digits));
}

int sign(std::weak_ordering order)
{
    return order < 0 ? -1 : order > 0 ? 1 : 0;
}

/// Compares all with all.
void expectOrderOfValues(const QVariantList &values, const QString &locale)
{
    const LocaleScope scope(locale);
    OrderKeys keys(locale);
    for (const QVariant &value : values)
        keys.append(value);
    ASSERT_EQ(keys.size(), size_t(values.size()));
    for (qsizetype left = 0; left < values.size(); ++left) {
        for (qsizetype right = 0; right < values.size(); ++right)
            EXPECT_EQ(sign(keys.compare(size_t(left), size_t(right))),
                      sign(ValueOrder::compare(values.at(left), values.at(right))))
                << locale.toStdString() << ": " << values.at(left).toString().left(30).toStdString()
                << " and " << values.at(right).toString().left(30).toStdString();
    }
}
} // namespace

TEST(OrderKeys, TextsAreInTheOrderOfTheLanguage)
{
    testing_support::needApplication();
    QVariantList texts{u"a10"_s,     u"a9"_s, u"A9"_s,       u"Äpfel"_s, u"Apfel"_s, u"Zug"_s,
                       u"zug"_s,     u""_s,   u"ch\u0300"_s, u"chi"_s,   u"co op"_s, u"co-op"_s,
                       u"e\u0301"_s, u"é"_s,  u"漢字"_s,     u"かな"_s,  u"カナ"_s,  u"١٠"_s};
    texts += QString(400, u'w');
    texts += QString(401, u'w');
    for (const QString &locale :
         {u"en_US"_s, u"de_DE"_s, u"sv_SE"_s, u"ja_JP"_s, u"ar_EG"_s, u"cs_CZ"_s})
        expectOrderOfValues(texts, locale);
}

TEST(OrderKeys, HostileTextsAreInTheirOrder)
{
    testing_support::needApplication();
    QVariantList texts;
    for (const QString &text : testing_support::hostileTexts())
        texts += text.isNull() ? u""_s : text.left(2000);
    expectOrderOfValues(texts, u"en_US"_s);
}

TEST(OrderKeys, NumbersAreExact)
{
    testing_support::needApplication();
    expectOrderOfValues({decimal(u"0"_s), decimal(u"-1"_s), decimal(u"0.1"_s), decimal(u"12.5"_s),
                         decimal(u"9007199254740993"_s), decimal(u"9007199254740992"_s),
                         decimal(u"9007199254740992.5"_s), decimal(u"100000000000000000001"_s),
                         decimal(u"100000000000000000000"_s), decimal(u"1000000000000000"_s),
                         decimal(u"0.123456789012345678"_s), decimal(u"0.123456789012345679"_s),
                         decimal(u"-0.123456789012345679"_s), decimal(u"none"_s)},
                        u"en_US"_s);
}

TEST(OrderKeys, KindsAreInTheirOrder)
{
    testing_support::needApplication();
    const QDateTime day(QDate(2008, 3, 4), QTime(12, 0), KTPrivate::UTC);
    expectOrderOfValues({QVariant(), decimal(u"5"_s), u"five"_s, u""_s, day, day.addSecs(1),
                         day.addDays(-20000), day.toOffsetFromUtc(3600)},
                        u"en_US"_s);
}
