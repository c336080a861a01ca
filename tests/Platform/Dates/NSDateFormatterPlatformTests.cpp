// The platform's own tables for date formatters and calendar dates.

#include <KTUtility/NSDateFormatter>
#include <KTUtility/Platform/Values/UTC_p.h>

#include "support/TestSupport.h"

#include <QJsonArray>
#include <QRegularExpression>

using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
unsigned styleNamed(const QString &name)
{
    static const QStringList names{u"none"_s, u"short"_s, u"medium"_s, u"long"_s, u"full"_s};
    return unsigned(qMax(0, names.indexOf(name)));
}

NSDateFormatterSymbols symbolsNamed(const QString &name)
{
    using Symbols = NSDateFormatterSymbols;
    static const QHash<QString, Symbols> kinds{
        {u"shortStandaloneMonthSymbols"_s, Symbols::ShortStandaloneMonth},
        {u"shortWeekdaySymbols"_s, Symbols::ShortWeekday},
        {u"eraSymbols"_s, Symbols::Era},
        {u"veryShortMonthSymbols"_s, Symbols::VeryShortMonth},
        {u"standaloneQuarterSymbols"_s, Symbols::StandaloneQuarter},
        {u"standaloneWeekdaySymbols"_s, Symbols::StandaloneWeekday},
        {u"longEraSymbols"_s, Symbols::LongEra},
        {u"monthSymbols"_s, Symbols::Month},
        {u"shortStandaloneQuarterSymbols"_s, Symbols::ShortStandaloneQuarter}};
    EXPECT_TRUE(kinds.contains(name)) << qPrintable(name);
    return kinds.value(name);
}

QTimeZone zoneNamed(const QString &name)
{
    return QTimeZone(name == u"JST" ? QByteArray("Asia/Tokyo") : name.toLatin1());
}

std::unique_ptr<NSDateFormatter> formatterOf(const QJsonObject &row)
{
    auto formatter = std::make_unique<NSDateFormatter>();
    formatter->setLocale(NSLocale(row[u"locale"].toString(u"en_US_POSIX"_s)));
    if (row.contains(u"timezone"))
        formatter->setTimeZone(zoneNamed(row[u"timezone"].toString()));
    const QJsonObject config = row[u"config"].toObject();
    if (config.contains(u"calendar"))
        formatter->setCalendar(NSCalendar(config[u"calendar"].toString()));
    formatter->setDateStyle(styleNamed(config[u"dateStyle"].toString()));
    formatter->setTimeStyle(styleNamed(config[u"timeStyle"].toString()));
    if (config.contains(u"dateFormat"))
        formatter->setDateFormat(config[u"dateFormat"].toString());
    return formatter;
}

/// A pair of styles is joined by a plain space here.
QString withPlainJoint(QString text, const QJsonObject &row)
{
    static const QRegularExpression inText(u"(?<=\\d{2})(, | at )(?=\\d{1,2}:)"_s);
    static const QRegularExpression inPattern(u"(?<=y)(, | 'at' )(?=h)"_s);
    const QJsonObject config = row[u"config"].toObject();
    text.replace(u'\u202F', u' ');
    if (!config.contains(u"dateStyle"))
        return text;
    return text.replace(row[u"op"].toString() == u"format" ? inText : inPattern, u" "_s);
}

void expectState(const QJsonObject &row)
{
    NSDateFormatter formatter;
    formatter.setLocale(NSLocale(u"en_US"_s));
    if (row[u"input"].toString() == u"fresh formatter") {
        EXPECT_EQ(formatter.dateFormat(), row[u"expected"][u"dateFormat"].toString());
        EXPECT_EQ(formatter.dateStyle(), 0U);
        EXPECT_EQ(formatter.timeStyle(), 0U);
        return;
    }
    formatter.setDateFormat(u"MY"_s);
    formatter.setDateStyle(NSDateFormatterShortStyle);
    EXPECT_EQ(formatter.dateFormat(), u"M/d/yy");
}

void expectSymbols(const QJsonObject &row)
{
    const QStringList names = formatterOf(row)->symbols(symbolsNamed(row[u"input"].toString()));
    EXPECT_EQ(QJsonArray::fromStringList(names), row[u"expected"].toArray());
}

void expectPattern(const QJsonObject &row)
{
    EXPECT_EQ(formatterOf(row)->dateFormat(), withPlainJoint(row[u"expected"].toString(), row));
}

void expectText(const QJsonObject &row)
{
    const QDateTime date = QDateTime::fromMSecsSinceEpoch(
        qint64(row[u"input_unix"].toDouble() * 1000), KTPrivate::UTC);
    EXPECT_EQ(formatterOf(row)->stringFromDate(date),
              withPlainJoint(row[u"expected"].toString(), row));
}

QDateTime expectedDate(const QJsonObject &row)
{
    const QJsonValue expected = row[u"expected"];
    if (expected.isDouble())
        return QDateTime::fromMSecsSinceEpoch(qint64(expected.toDouble() * 1000), KTPrivate::UTC);
    QString text = expected.toString().section(u' ', 0, 0);
    text.remove(u'Z');
    const QDateTime local = QDateTime::fromString(text, Qt::ISODate);
    return local.isValid()
               ? QDateTime(local.date(), local.time(), zoneNamed(row[u"timezone"].toString()))
               : QDateTime();
}
} // namespace

TEST(NSDateFormatterPlatform, WritesAsTheTableSays)
{
    int templates = 0;
    for (const QJsonObject &row : rowsOf(u"platform/date_format.jsonl"_s)) {
        const QString op = row[u"op"].toString();
        if (op == u"format")
            expectText(row);
        else if (op == u"dateFormat of styles")
            expectPattern(row);
        else if (op == u"symbols")
            expectSymbols(row);
        else if (op == u"state")
            expectState(row);
        else
            ++templates;
    }
    // Patterns from templates are not offered.
    EXPECT_EQ(templates, 1);
}

TEST(NSDateFormatterPlatform, ReadsAsTheTableSays)
{
    for (const QJsonObject &row : rowsOf(u"platform/date_parse.jsonl"_s))
        EXPECT_EQ(formatterOf(row)->dateFromString(row[u"input"].toString()), expectedDate(row))
            << qPrintable(row[u"input"].toString());
}

namespace {
/// Names as the table's own locale has them.
void setItalianNames(NSDateFormatter *formatter)
{
    using Symbols = NSDateFormatterSymbols;
    const auto names = [](const char *list) { return QString::fromLatin1(list).split(u' '); };
    formatter->setSymbols(Symbols::Weekday,
                          names("Domenica Lunedi Martedi Mercoledi Giovedi Venerdi Sabato"));
    formatter->setSymbols(Symbols::ShortWeekday, names("Dom Lun Mar Mer Gio Ven Sab"));
    formatter->setSymbols(Symbols::ShortMonth,
                          names("Gen Feb Mar Apr Mag Giu Lug Ago Set Ott Nov Dic"));
}

QDateTime dateIn(const QString &text, const QString &zone)
{
    const QDateTime local = QDateTime::fromString(text, Qt::ISODate);
    return local.isValid() ? QDateTime(local.date(), local.time(), zoneNamed(zone)) : QDateTime();
}

/// Widths, and the letter R, are not offered.
bool isNotOffered(const QString &format)
{
    return format == u"%2e" || format == u"%R";
}

void expectOldText(const QJsonObject &row)
{
    NSDateFormatter formatter(row[u"format"].toString(), false);
    formatter.setLocale(NSLocale(u"it_IT"_s));
    formatter.setTimeZone(zoneNamed(u"CET"_s));
    setItalianNames(&formatter);
    const QDateTime date = dateIn(row[u"date"].toString().section(u' ', 0, 0), u"CET"_s);
    const QString text = formatter.stringFromDate(date);
    EXPECT_EQ(text == row[u"expected"].toString(), !isNotOffered(row[u"format"].toString()))
        << qPrintable(row[u"format"].toString() + u' ' + text);
}

void expectOldDate(const QJsonObject &row)
{
    const QString input = row[u"input"].toString();
    NSDateFormatter formatter(row[u"format"].toString(), false);
    formatter.setLocale(NSLocale(u"en_US"_s));
    formatter.setTimeZone(QTimeZone::utc());
    const QDateTime date = formatter.dateFromString(input);
    const QString expected = row[u"expected"].toString();
    // Without a format there is nothing to read; the platform takes one from the user's defaults.
    if (expected.startsWith(u"round-trips")) {
        EXPECT_EQ(formatter.dateFromString(formatter.stringFromDate(date)), date);
    } else if (!expected.isNull() && expected != u"non-nil") {
        EXPECT_EQ(date, dateIn(expected, u"UTC"_s)) << qPrintable(input);
    }
    // Without a format there is nothing to read; the platform takes one from the user's defaults.
    EXPECT_EQ(date.isValid(), !row[u"format"].isNull() && !row[u"expected"].isNull())
        << qPrintable(input);
}

void expectSums(const QJsonObject &row)
{
    const QString zone = row[u"timezone"].toString();
    NSCalendar calendar(NSGregorianCalendar);
    calendar.setTimeZone(zoneNamed(zone));
    QDateTime date = dateIn(row[u"start"].toString(), zone);
    for (const auto &step : row[u"steps"].toArray()) {
        const auto amount = [&](QStringView unit) {
            return step[u"add"].toObject()[unit].toInt(NSUndefinedDateComponent);
        };
        date = calendar.dateByAddingComponents({.year = amount(u"years"),
                                                .month = amount(u"months"),
                                                .hour = amount(u"hours"),
                                                .second = amount(u"seconds")},
                                               date);
        EXPECT_EQ(date, dateIn(step[u"expected"].toString(), zone));
    }
}
} // namespace

TEST(NSDateFormatterPlatform, TreatsCalendarDatesAsTheTableSays)
{
    for (const QJsonObject &row : rowsOf(u"platform/calendar_date.jsonl"_s)) {
        const QString op = row[u"op"].toString();
        if (op == u"format")
            expectOldText(row);
        else if (op == u"parse")
            expectOldDate(row);
        else
            expectSums(row);
    }
}
