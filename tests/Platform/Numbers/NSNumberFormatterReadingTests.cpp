#include <KTUtility/NSCharacterSet>
#include <KTUtility/NSDecimalNumber>
#include <KTUtility/NSNumberFormatter>
#include <KTUtility/NSNumberFormatter_KTCurrency>

#include "support/TestSupport.h"

#include <QJsonArray>
#include <QJsonObject>

using namespace Qt::StringLiterals;
using namespace testing_support;

// How much of a text the number formatter reads, against tables, with what is wanted otherwise.

namespace {
/// An input formatter of a number field, in one of its four passes.
void setUpPass(NSNumberFormatter &formatter, const QJsonObject &row)
{
    formatter.setNumberStyle(NSNumberFormatterDecimalStyle);
    formatter.setLocale(NSLocale(row[u"locale"].toString()));
    formatter.setLenient(true);
    formatter.setGeneratesDecimalNumbers(true);
    formatter.setMaximumFractionDigits(111);
    formatter.setRoundingMode(NSNumberFormatterRoundHalfUp);
    formatter.setNegativePrefix(row[u"negPrefix"].toString());
    formatter.setNegativeSuffix(row[u"negSuffix"].toString());
    formatter.setUsesGroupingSeparator(row[u"grouping"].toBool());
}

qsizetype leadingWhitespace(const QString &text)
{
    qsizetype count = 0;
    while (count < text.size() &&
           NSCharacterSet::whitespaceCharacterSet().characterIsMember(text[count].unicode()))
        ++count;
    return count;
}

bool hasUnpairedParenthesis(const QString &text)
{
    return text.contains(u'(') != text.contains(u')');
}

/// What is wanted otherwise than the tables say: leading whitespace is not counted, an unpaired
/// parenthesis is a failure, and decimals keep 38 digits.
struct Wanted
{
    bool isRead = false;
    NSRange range;
    NSDecimalNumber value;
};

Wanted wantedOf(const QString &text, const QJsonObject &cell)
{
    Wanted wanted;
    const qsizetype leading = leadingWhitespace(text);
    const qsizetype end = std::max<qsizetype>(cell[u"len"].toInt(), leading);
    wanted.range = {leading, end - leading};
    wanted.isRead = cell[u"ok"].toBool() && !hasUnpairedParenthesis(text.left(end));
    wanted.value = NSDecimalNumber::decimalNumberWithString(cell[u"dec"].toString());
    return wanted;
}

/// Money, further: written affixes keep the place of the currency. So an amount with a sign behind
/// it stays positive, and the code is read where the sign is ("(USD 12.50)").
Wanted wantedOfMoney(const QString &text, const QJsonObject &row)
{
    const QJsonObject cell = row[u"cells"][text].toObject();
    Wanted wanted = wantedOf(text, cell);
    const bool isBehind = !row[u"negSuffix"].toString().isEmpty() && !row[u"parens"].toBool();
    if (isBehind && !text.contains(u'-') && !text.contains(u'−') && wanted.value.isNegative())
        wanted.value = NSDecimalNumber::decimalNumberWithString(wanted.value.description().mid(1));
    if (row[u"parens"].toBool() && text == u"(USD 12.50)" &&
        row[u"negPrefix"].toString() == u"($") {
        const QString amount = u"-12.5"_s;
        wanted = {true, {0, text.size()}, NSDecimalNumber::decimalNumberWithString(amount)};
    }
    return wanted;
}

void setUpCurrency(NSNumberFormatter &formatter, const QJsonObject &row)
{
    formatter.setNumberStyle(NSNumberFormatterCurrencyStyle);
    formatter.setLocale(NSLocale(row[u"locale"].toString()));
    formatter.setGeneratesDecimalNumbers(true);
    formatter.setUsesGroupingSeparator(true);
    formatter.setLenient(true);
    const QJsonArray steps = row[u"set"].toArray();
    for (const QJsonValue &step : steps) {
        if (step[0].toString() == u"currencyCode")
            formatter.setCurrencyCode(step[1].toString());
        else if (step[0].toString() == u"currencySymbol")
            formatter.setCurrencySymbol(step[1].toString());
        else if (step[0].toString() == u"parensEdit")
            KTCurrency::setFormatNegativeUsingParens(formatter, step[1].toBool());
    }
}
} // namespace

TEST(NSNumberFormatterReading, ReadsAsFarAsTheTableSays)
{
    int cells = 0;
    for (const QJsonObject &row : rowsOf(u"formatters/number_passes.jsonl"_s)) {
        NSNumberFormatter formatter;
        setUpPass(formatter, row);
        const QJsonObject texts = row[u"cells"].toObject();
        for (auto it = texts.begin(); it != texts.end(); ++it, ++cells) {
            const QString text = it.key();
            const Wanted wanted = wantedOf(text, it.value().toObject());
            QVariant value;
            NSRange range{0, text.size()};
            NSError error;
            const bool isRead = formatter.getObjectValue(&value, text, &range, &error);
            const QString where = row[u"locale"].toString() + u" pass " +
                                  QString::number(row[u"pass"].toInt()) + u" \"" + text + u'"';
            EXPECT_EQ(isRead, wanted.isRead) << qPrintable(where);
            EXPECT_EQ(error.isNil(), isRead) << qPrintable(where);
            if (isRead && wanted.isRead) {
                EXPECT_EQ(value.value<NSDecimalNumber>().description(), wanted.value.description())
                    << qPrintable(where);
            }
            if (isRead == wanted.isRead) {
                EXPECT_EQ(range.location, wanted.range.location) << qPrintable(where);
                EXPECT_EQ(range.length, wanted.range.length) << qPrintable(where);
            }
        }
    }
    EXPECT_GE(cells, 1500);
}

TEST(NSNumberFormatterReading, MakesIntegersAndDoublesAsTheTableSays)
{
    for (const QJsonObject &row : rowsOf(u"formatters/number_passes.jsonl"_s)) {
        NSNumberFormatter formatter;
        setUpPass(formatter, row);
        formatter.setGeneratesDecimalNumbers(false);
        const QJsonObject texts = row[u"cells"].toObject();
        for (auto it = texts.begin(); it != texts.end(); ++it) {
            const QJsonObject cell = it.value().toObject();
            NSRange range{0, it.key().size()};
            QVariant value;
            if (!formatter.getObjectValue(&value, it.key(), &range, nullptr))
                continue;
            const QMetaType::Type type =
                cell[u"type"].toString() == u"i" ? QMetaType::LongLong : QMetaType::Double;
            EXPECT_EQ(value.metaType().id(), type) << qPrintable(it.key());
            EXPECT_EQ(value.toDouble(), cell[u"value"].toString().toDouble())
                << qPrintable(it.key());
        }
    }
}

TEST(NSNumberFormatterReading, ReadsMoneyAsTheTableSays)
{
    int cells = 0;
    for (const QJsonObject &row : rowsOf(u"formatters/currency_parse.jsonl"_s)) {
        NSNumberFormatter formatter;
        setUpCurrency(formatter, row);
        const QJsonObject texts = row[u"cells"].toObject();
        for (auto it = texts.begin(); it != texts.end(); ++it, ++cells) {
            const Wanted wanted = wantedOfMoney(it.key(), row);
            NSRange range{0, it.key().size()};
            QVariant value;
            const bool isRead = formatter.getObjectValue(&value, it.key(), &range, nullptr);
            const QString where = row[u"locale"].toString() + u' ' + row[u"code"].toString() +
                                  QString::number(row[u"parens"].toBool()) + u" \"" + it.key() +
                                  u'"';
            EXPECT_EQ(isRead, wanted.isRead) << qPrintable(where);
            if (isRead && wanted.isRead) {
                EXPECT_EQ(value.value<NSDecimalNumber>().description(), wanted.value.description())
                    << qPrintable(where);
                EXPECT_EQ(range.length, wanted.range.length) << qPrintable(where);
            }
        }
    }
    EXPECT_GE(cells, 1500);
}

TEST(NSNumberFormatterReading, ReadsItsOwnCurrencyWhetherTheSystemKnowsItOrNot)
{
    NSNumberFormatter formatter;
    formatter.setNumberStyle(NSNumberFormatterCurrencyStyle);
    formatter.setLocale(NSLocale(u"en_US"_s));
    formatter.setLenient(true);
    for (const QString &code : {u"XCG"_s, u"ZWG"_s, u"XYZ"_s}) {
        formatter.setCurrencyCode(code);
        EXPECT_EQ(formatter.numberFromString(code + u"12.5").toDouble(), 12.5) << qPrintable(code);
        EXPECT_EQ(formatter.numberFromString(formatter.stringFromNumber(12.5)).toDouble(), 12.5);
    }
}

TEST(NSNumberFormatterReading, TellsIntegersFromDoublesInEveryLocale)
{
    const std::tuple<const char *, const char16_t *, QMetaType::Type> typed[] = {
        {"en_US", u"5", QMetaType::LongLong},  {"ar_EG", u"5", QMetaType::LongLong},
        {"en_US", u"-0", QMetaType::LongLong}, {"ar_EG", u"-0", QMetaType::LongLong},
        {"en_US", u"5.", QMetaType::Double},   {"ar_EG", u"5,", QMetaType::Double},
        {"fa_IR", u"5,", QMetaType::Double},   {"fa_IR", u"۵٫۰", QMetaType::Double},
        {"en_US", u"5.0", QMetaType::Double},  {"ar_EG", u"5,0", QMetaType::Double},
        {"de_DE", u"5,", QMetaType::Double},   {"fa_IR", u"-0", QMetaType::LongLong},
        {"en_US", u"５", QMetaType::LongLong}, {"en_US", u"５.", QMetaType::Double},
        {"ar_EG", u"٥", QMetaType::LongLong},  {"en_US", u"5 ", QMetaType::Double}};
    for (const auto &[locale, text, type] : typed) {
        NSNumberFormatter formatter;
        formatter.setLocale(NSLocale(QString::fromLatin1(locale)));
        formatter.setNumberStyle(NSNumberFormatterDecimalStyle);
        formatter.setLenient(true);
        formatter.setUsesGroupingSeparator(false);
        const QVariant value = formatter.numberFromString(QString::fromUtf16(text));
        EXPECT_EQ(value.metaType().id(), type)
            << locale << ' ' << qPrintable(QString::fromUtf16(text));
    }
}

TEST(NSNumberFormatterReading, ReadsZeroInParenthesesAsAnInteger)
{
    for (const char *locale : {"en_US", "ar_EG", "fa_IR"}) {
        NSNumberFormatter formatter;
        formatter.setLocale(NSLocale(QString::fromLatin1(locale)));
        formatter.setNumberStyle(NSNumberFormatterDecimalStyle);
        formatter.setLenient(true);
        formatter.setNegativePrefix(u"("_s);
        formatter.setNegativeSuffix(u")"_s);
        EXPECT_EQ(formatter.numberFromString(u"(0)"_s).metaType().id(), QMetaType::LongLong);
        EXPECT_EQ(formatter.numberFromString(u"(5)"_s), -5);
    }
}
