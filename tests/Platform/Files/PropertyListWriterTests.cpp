#include <KTUtility/NSPropertyListSerialization>

#include <KTUtility/NSDecimalNumber>
#include <KTUtility/NSObject>
#include <KTUtility/Platform/Values/UTC_p.h>

#include "support/TestSupport.h"

#include <QDateTime>
#include <QMap>

#include <cmath>
#include <limits>
#include <vector>

using namespace NSPropertyListSerialization;
using namespace Qt::StringLiterals;
using namespace testing_support;

namespace {
QVariantMap mapOf(const QString &key, const QVariant &value)
{
    return {{key, value}};
}

/// The lines between the plist tags.
QByteArray bodyOf(const QVariant &value)
{
    QString error;
    const QByteArray xml = dataWithPropertyList(value, &error);
    EXPECT_TRUE(error.isEmpty()) << error.toStdString();
    const QByteArray begin = "<plist version=\"1.0\">\n";
    const QByteArray end = "</plist>\n";
    EXPECT_TRUE(xml.endsWith(end));
    const qsizetype start = xml.indexOf(begin) + begin.size();
    return xml.sliced(start, xml.size() - start - end.size());
}

QString errorOf(const QVariant &value)
{
    QString error;
    EXPECT_TRUE(dataWithPropertyList(value, &error).isNull());
    EXPECT_TRUE(dataWithPropertyList(value).isNull());
    EXPECT_FALSE(isPropertyList(value));
    return error;
}

QVariant thereAndBack(const QVariant &value)
{
    QString error;
    const QVariant back = propertyListFromData(dataWithPropertyList(value, &error), &error);
    EXPECT_TRUE(error.isEmpty()) << error.toStdString();
    return back;
}

const QMap<QString, QVariant> &valuesOfRows()
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    static const QMap<QString, QVariant> values = {
        {u"nested"_s, QVariantMap{{u"list"_s, QVariantList{mapOf(u"k"_s, u"v"_s), QVariantList()}},
                                  {u"d"_s, QVariantMap()}}},
        {u"empty dictionary"_s, QVariantMap()},
        {u"empty data"_s, QVariantList{QByteArray("")}},
        {u"reals"_s, QVariantList{0.0, 0.5, 0.1, -1.0, 1e100, std::nan(""), infinity, -infinity}},
    };
    return values;
}
} // namespace

TEST(PropertyListWriter, WritesWhatTheTableSays)
{
    int checked = 0;
    for (const QJsonObject &row : rowsOf(u"platform/property_list.jsonl"_s)) {
        if (row.value(u"op").toString() != u"write XML")
            continue;
        const QVariant value = valuesOfRows().value(row.value(u"case").toString());
        EXPECT_EQ(QString::fromUtf8(dataWithPropertyList(value)),
                  row.value(u"expected").toString());
        ++checked;
    }
    EXPECT_EQ(checked, 4);
}

TEST(PropertyListWriter, ScalarsAreWrittenInThePlatformsForm)
{
    EXPECT_EQ(bodyOf(true), "<true/>\n");
    EXPECT_EQ(bodyOf(false), "<false/>\n");
    EXPECT_EQ(bodyOf(-7), "<integer>-7</integer>\n");
    EXPECT_EQ(bodyOf(std::numeric_limits<qint64>::min()),
              "<integer>-9223372036854775808</integer>\n");
    EXPECT_EQ(bodyOf(std::numeric_limits<quint64>::max()),
              "<integer>18446744073709551615</integer>\n");
    EXPECT_EQ(bodyOf(QVariant::fromValue(short(3))), "<integer>3</integer>\n");
    EXPECT_EQ(bodyOf(QVariant::fromValue(uchar(200))), "<integer>200</integer>\n");
    EXPECT_EQ(bodyOf(QVariant::fromValue(0.5f)), "<real>0.5</real>\n");
    EXPECT_EQ(bodyOf(1e-5), "<real>1.0000000000000001e-05</real>\n");
    EXPECT_EQ(bodyOf(u""_s), "<string></string>\n");
    EXPECT_EQ(bodyOf(u"a<b>&\"'é"_s), "<string>a&lt;b&gt;&amp;\"'\xC3\xA9</string>\n");
    EXPECT_EQ(bodyOf(QVariantList()), "<array/>\n");
    EXPECT_EQ(bodyOf(QStringList{u"a"_s}), "<array>\n\t<string>a</string>\n</array>\n");
}

TEST(PropertyListWriter, RealsAreThoseOfPrintf)
{
    std::vector<double> values = {999'999'999.875, 1e9, -1e9 - 0.125, 0.0625, -0.0625, 1e-300};
    for (int eighths = -1000; eighths <= 1000; ++eighths) {
        values.push_back(eighths / 8.0);
        values.push_back(eighths / 8.0 + 123'456'789);
        values.push_back(eighths / 10.0);
    }
    std::erase(values, 0.0);
    for (const double value : values) {
        EXPECT_EQ(bodyOf(value), "<real>" + QByteArray::number(value, 'g', 17) + "</real>\n");
    }
}

TEST(PropertyListWriter, ZeroLosesItsSign)
{
    EXPECT_EQ(bodyOf(-0.0), "<real>0.0</real>\n");
}

TEST(PropertyListWriter, DecimalsAreNumbers)
{
    const auto bodyOfDecimal = [](QStringView text) {
        return bodyOf(QVariant::fromValue(NSDecimalNumber::decimalNumberWithString(text)));
    };
    EXPECT_EQ(bodyOfDecimal(u"12"), "<integer>12</integer>\n");
    EXPECT_EQ(bodyOfDecimal(u"0.5"), "<real>0.5</real>\n");
    EXPECT_EQ(bodyOfDecimal(u"1e30"), "<real>1e+30</real>\n");
}

TEST(PropertyListWriter, DatesAreWrittenInUniversalTime)
{
    const QDateTime here(QDate(2008, 3, 4), QTime(7, 0, 0, 999), QTimeZone(-5 * 3600));
    EXPECT_EQ(bodyOf(here), "<date>2008-03-04T12:00:00Z</date>\n");
    EXPECT_EQ(bodyOf(QDateTime(QDate(900, 1, 2), QTime(0, 0), KTPrivate::UTC)),
              "<date>0900-01-02T00:00:00Z</date>\n");
    // The year before the year 1 is 0 in a file, and -1 in Qt.
    EXPECT_EQ(bodyOf(QDateTime(QDate(-1, 12, 30), QTime(0, 0), KTPrivate::UTC)),
              "<date>0000-12-30T00:00:00Z</date>\n");
    EXPECT_EQ(bodyOf(QDateTime(QDate(-101, 1, 1), QTime(0, 0), KTPrivate::UTC)),
              "<date>-100-01-01T00:00:00Z</date>\n");
    EXPECT_EQ(bodyOf(QDateTime(QDate(12345, 1, 1), QTime(0, 0), KTPrivate::UTC)),
              "<date>12345-01-01T00:00:00Z</date>\n");
}

TEST(PropertyListWriter, DataIsWrappedAtAWidthThatShrinksWithTheIndent)
{
    QVariant value = QByteArray(120, 'x');
    for (int depth = 0; depth < 12; ++depth) {
        const QList<QByteArray> lines = bodyOf(value).split('\n');
        const QByteArray indent(depth, '\t');
        const QByteArray first = lines.at(depth + 1);
        EXPECT_EQ(lines.at(depth), QByteArray(indent + "<data>"));
        EXPECT_EQ(first.size(), depth + 76 - 8 * std::min(depth, 8));
        EXPECT_TRUE(first.startsWith(indent) && first.at(depth) != '\t');
        value = QVariantList{value};
    }
}

TEST(PropertyListWriter, KeysAreSortedByUnit)
{
    const QVariantMap map = {{u"b"_s, 1}, {u"B"_s, 2},      {u"é"_s, 3},
                             {u""_s, 4},  {u"\uFF01"_s, 5}, {u"😀"_s, 6}};
    QList<QByteArray> keys;
    for (const QByteArray &line : bodyOf(map).split('\n')) {
        if (line.startsWith("\t<key>"))
            keys += line.sliced(6).chopped(6);
    }
    const QList<QByteArray> expected = {"", "B", "b", "é", "😀", "\uFF01"};
    EXPECT_EQ(keys, expected);
}

TEST(PropertyListWriter, WhatXMLCannotHoldIsRejectedByKey)
{
    const QList<QString> texts = {
        QString(QChar(0)),      u"a\u0001b"_s,          u"\u001F"_s,
        QString(QChar(0xD800)), QString(QChar(0xDC00)), QString(QChar(0xFFFE)),
        QString(QChar(0xFFFF)),
    };
    for (const QString &text : texts) {
        const QVariantMap inside = mapOf(u"Notes"_s, text);
        EXPECT_TRUE(errorOf(inside).contains(u"Notes"_s));
        EXPECT_TRUE(errorOf(mapOf(u"a"_s, QVariantList{inside})).contains(u"Notes"_s));
        EXPECT_FALSE(errorOf(mapOf(text, 1)).isEmpty());
        EXPECT_FALSE(errorOf(text).isEmpty());
    }
}

TEST(PropertyListWriter, WhatIsNoPropertyListIsRejectedByKey)
{
    const QList<QVariant> values = {
        QVariant(),
        QVariant(QString()),
        QVariant(QDateTime()),
        QVariant(QChar(u'a')),
        NSNull(),
        QVariant::fromValue(static_cast<QObject *>(nullptr)),
    };
    for (const QVariant &value : values) {
        EXPECT_TRUE(errorOf(mapOf(u"Field"_s, value)).contains(u"Field"_s));
        EXPECT_FALSE(errorOf(QVariantList{1, value}).isEmpty());
        EXPECT_FALSE(errorOf(value).isEmpty());
    }
}

TEST(PropertyListWriter, DepthAndSizeAreThoseThatCanBeReadBack)
{
    QVariant value = 1;
    for (int depth = 0; depth < MaximumDepth; ++depth)
        value = QVariantList{value};
    EXPECT_TRUE(thereAndBack(value).isValid());
    EXPECT_FALSE(errorOf(QVariantList{value}).isEmpty());
    EXPECT_FALSE(errorOf(QByteArray(MaximumSize, 'x')).isEmpty());
}

TEST(PropertyListWriter, HostileTextsComeBackOrAreRejected)
{
    int rejected = 0;
    for (const QString &text : hostileTexts()) {
        const QVariantMap map = {{text, QVariantList{text, text}}};
        if (!isPropertyList(map)) {
            ++rejected;
            continue;
        }
        EXPECT_TRUE(thereAndBack(map).toMap() == map);
    }
    EXPECT_EQ(rejected, 4); // nil, two with lone surrogates, one with NUL
}

TEST(PropertyListWriter, ValuesComeBackAsTheyWere)
{
    const QList<QVariant> values = {
        QVariant(true),
        QVariant(std::numeric_limits<qlonglong>::min()),
        QVariant(std::numeric_limits<qulonglong>::max()),
        QVariant(0.1),
        QVariant(std::numeric_limits<double>::denorm_min()),
        QVariant(-std::numeric_limits<double>::max()),
        QVariant(-std::numeric_limits<double>::infinity()),
        QVariant(u"\r\n\t \r]]>&#0;<![CDATA["_s),
        QVariant(u"\u0085\u2028\uFEFF\U0001FFFE\uFFFD"_s),
        QVariant(QByteArray("")),
        QVariant(QByteArray(1 << 20, '\xFF')),
        QVariant(QDateTime(QDate(1999, 12, 31), QTime(23, 59, 59), KTPrivate::UTC)),
        QVariant(QDateTime(QDate(-101, 2, 28), QTime(1, 2, 3), KTPrivate::UTC)),
        QVariant(mapOf(u"CF$UID"_s, 5LL)),
    };
    for (const QVariant &value : values) {
        const QVariant back = thereAndBack(value);
        EXPECT_EQ(back.typeId(), value.typeId());
        EXPECT_TRUE(back == value) << value.typeName();
        EXPECT_FALSE(NSObject::isNil(back));
    }
    EXPECT_TRUE(std::isnan(thereAndBack(std::nan("")).toDouble()));
}
