// Tables of observed dates. Where ours are meant to differ, a row belongs to a category with a
// narrow condition, and every category has to occur.

#include <KTUtility/NSDateFormatter>
#include <KTUtility/Platform/Values/UTC_p.h>

#include "support/TestSupport.h"

#include <QJsonArray>
#include <QRegularExpression>
#include <QSet>

using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
/// The reference date of the tables, 1 January 2001 in UTC.
constexpr qint64 ReferenceTime = 978'307'200;

QDateTime instantOf(double secondsSinceReference)
{
    return QDateTime::fromMSecsSinceEpoch(qint64((secondsSinceReference + ReferenceTime) * 1000),
                                          KTPrivate::UTC);
}

/// One text in one pattern: what the table has and what we read.
struct Case
{
    QString pattern;
    QString text;
    QJsonArray expected; ///< consumed length, seconds, wall time; empty for a failure
    bool isRead = false;
    qsizetype length = 0;
    QDateTime date = {};

    bool isExpected() const { return !expected.isEmpty(); }
    bool isSame() const
    {
        if (isRead != isExpected())
            return false;
        return !isRead ||
               (length == expected[0].toInt() && date == instantOf(expected[1].toDouble()));
    }
    QString describe() const
    {
        return pattern + u" <" + text + u"> " + date.toString(Qt::ISODate) +
               u" %1; table: %2 %3"_s.arg(length)
                   .arg(expected[2].toString())
                   .arg(expected[0].toInt());
    }
};

/// The runs of digits in the part that was consumed.
QStringList digitRunsOf(const Case &one)
{
    static const QRegularExpression digits(u"\\d+"_s,
                                           QRegularExpression::UseUnicodePropertiesOption);
    QStringList runs;
    auto match = digits.globalMatch(one.text.left(one.expected[0].toInt()));
    while (match.hasNext())
        runs += match.next().captured();
    return runs;
}

/// The fields of a pattern that were read as numbers, in order; a month may be named everywhere.
QStringList numberFieldsOf(const Case &one)
{
    static const QRegularExpression fields(u"y+|M+|d+|h+|H+|k+|m+|s+"_s);
    static const QRegularExpression letters(u"[A-Za-z]{3}"_s);
    const bool hasName = one.text.left(one.expected[0].toInt()).contains(letters);
    QStringList result;
    auto match = fields.globalMatch(one.pattern);
    while (match.hasNext()) {
        const QString field = match.next().captured();
        const bool isNamedMonth = field[0] == u'M' && (field.size() > 2 || hasName);
        if (!isNamedMonth)
            result += field;
    }
    return result;
}

/// The year was as wide as ICU likes, not as the pattern says.
bool hasOtherYearWidth(const Case &one)
{
    if (one.isRead || !one.isExpected())
        return false;
    const QStringList fields = numberFieldsOf(one);
    const QStringList runs = digitRunsOf(one);
    for (int index = 0; index < qMin(fields.size(), runs.size()); ++index) {
        const auto width = runs[index].size();
        if (fields[index] == u"y")
            return width != 2 && width != 4;
        if (fields[index].startsWith(u'y'))
            return width != fields[index].size();
    }
    return false;
}

bool isBareHour(const Case &one)
{
    static const QRegularExpression hour(u"^\\s*(0?[1-9]|1[0-2]):?$"_s);
    return one.pattern == u"ha" && one.isRead && !one.isExpected() &&
           hour.match(one.text).hasMatch();
}

bool hasSpecialSpaceInPattern(const Case &one)
{
    return one.pattern.contains(u'\u202F') && one.isRead && !one.isExpected() &&
           (one.text.contains(u' ') || one.text.contains(u'\u00A0'));
}

/// The table's hundred years begin within the first day of 1950.
bool isFirstDayOfCentury(const Case &one)
{
    return one.isRead && one.text == u"1/1/50" &&
           one.expected[2].toString() == u"2050-01-01T00:00:00";
}

bool isSept(const Case &one)
{
    return one.pattern.contains(u"MMM") && one.isRead && !one.isExpected() &&
           one.text.startsWith(u"Sept ");
}

struct Category
{
    const char *name;
    bool (*contains)(const Case &);
    int count = 0;
};

/// The first category of a case that differs; null if it is none.
Category *categoryOf(const Case &one, std::vector<Category> *categories)
{
    for (Category &category : *categories) {
        if (category.contains(one))
            return &category;
    }
    return nullptr;
}

void configure(NSDateFormatter *formatter, const QJsonObject &row)
{
    formatter->setLocale(NSLocale(row[u"locale"].toString()));
    formatter->setTimeZone(QTimeZone(row[u"tz"].toString().toLatin1()));
    formatter->setLenient(row[u"lenient"].toBool());
    const QJsonValue date = row[u"defaultDate"];
    formatter->setDefaultDate(date.isNull() ? QDateTime() : instantOf(date.toDouble()));
    // The patterns with special spaces are those of styles, in which ours has plain spaces.
    formatter->setDateFormat(row[u"pattern"].toString().replace(u'\u202F', u' '));
}

Case caseOf(const NSDateFormatter &formatter, const QJsonObject &row, const QString &text)
{
    Case one{row[u"pattern"].toString(), text, row[u"matches"].toObject()[text].toArray()};
    NSRange range{0, text.size()};
    QVariant value;
    one.isRead = formatter.getObjectValue(&value, text, &range, nullptr);
    one.length = range.length;
    one.date = value.toDateTime();
    return one;
}
} // namespace

TEST(NSDateFormatterTable, ReadPrefixesAsObserved)
{
    std::vector<Category> categories{{"year width", hasOtherYearWidth},
                                     {"bare hour", isBareHour},
                                     {"special space", hasSpecialSpaceInPattern},
                                     {"Sept", isSept},
                                     {"first day of 1950", isFirstDayOfCentury}};
    const QList<QJsonObject> texts = rowsOf(u"formatters/date_texts.jsonl"_s);
    int same = 0;
    for (const QJsonObject &row : rowsOf(u"formatters/date_parse.jsonl"_s)) {
        NSDateFormatter formatter;
        configure(&formatter, row);
        for (const QJsonObject &text : texts) {
            const Case one = caseOf(formatter, row, text[u"text"].toString());
            same += one.isSame() ? 1 : 0;
            Category *const category = one.isSame() ? nullptr : categoryOf(one, &categories);
            if (category)
                ++category->count;
            EXPECT_TRUE(one.isSame() || category) << qPrintable(
                row[u"locale"].toString() + u' ' + row[u"ctx"].toString() + u' ' + one.describe());
        }
    }
    EXPECT_GT(same, 140'000);
    for (const Category &category : categories)
        EXPECT_GT(category.count, 0) << category.name;
}

namespace {
/// The pattern that ours has for what the locale data say.
QString withPlainJoints(QString pattern)
{
    static const QRegularExpression special(u"[\u202F\u00A0\u2009]"_s);
    static const QRegularExpression joint(u"(?<=[yd]), (?=[hH])| 'at' | 'um' (?=[hH])"_s);
    pattern.replace(special, u" "_s);
    return pattern.replace(joint, u" "_s);
}

QString withPlainJointsInText(QString text)
{
    static const QRegularExpression joint(u"(?<=\\d), (?=\\d{1,2}:)| (at|um) (?=\\d{1,2}:)"_s);
    text.replace(u'\u202F', u' ');
    return text.replace(joint, u" "_s);
}
} // namespace

TEST(NSDateFormatterTable, HaveTheStylesOfLocales)
{
    int joined = 0;
    for (const QJsonObject &row : rowsOf(u"formatters/date_styles.jsonl"_s)) {
        NSDateFormatter formatter;
        configure(&formatter, row);
        formatter.setDateStyle(unsigned(row[u"dateStyle"].toInt()));
        formatter.setTimeStyle(unsigned(row[u"timeStyle"].toInt()));
        const QString pattern = row[u"pattern"].toString();
        EXPECT_EQ(formatter.dateFormat(), withPlainJoints(pattern));
        joined += pattern == withPlainJoints(pattern) ? 0 : 1;
        const QJsonArray times = row[u"ats"].toArray();
        for (int index = 0; index < times.size(); ++index) {
            const double time = times[index].toDouble();
            const QString expected = row[u"strings"].toArray()[index].toString();
            EXPECT_EQ(formatter.stringFromDate(instantOf(time)), withPlainJointsInText(expected));
        }
    }
    EXPECT_GT(joined, 20);
}
