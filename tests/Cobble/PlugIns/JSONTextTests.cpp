#include "JSONText.h"

#include "support/TestSupport.h"

#include <KTUtility/NSDecimalNumber>

#include <QDateTime>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTimeZone>

using namespace Qt::StringLiterals;

namespace {
QString parsed(const QString &json)
{
    return QJsonDocument::fromJson(QByteArray('[' + json.toUtf8() + ']'))
        .array()
        .first()
        .toString();
}
} // namespace

TEST(JSONText, WritesValues)
{
    EXPECT_EQ(JSONText::of(QVariant()), u"null"_s);
    EXPECT_EQ(JSONText::of(5), u"5"_s);
    const QString digits = u"0.12345678901234567890123456789"_s;
    EXPECT_EQ(JSONText::of(QVariant::fromValue(NSDecimalNumber::decimalNumberWithString(digits))),
              digits);
    EXPECT_EQ(JSONText::of(QVariant::fromValue(NSDecimalNumber::notANumber())), u"null"_s);
    EXPECT_EQ(JSONText::of(QDateTime(QDate(2008, 3, 4), QTime(5, 6), QTimeZone::utc())),
              u"\"2008-03-04T00:06:00-05:00\""_s);
}

TEST(JSONText, DatesKeepTheirInstant)
{
    const QDateTime early(QDate(1880, 5, 5), QTime(10, 0, 45, 7), QTimeZone("America/New_York"));
    const QString text = parsed(JSONText::of(early));
    EXPECT_EQ(text, u"1880-05-05T10:00:47.007-04:56"_s);
    EXPECT_EQ(QDateTime::fromString(text, Qt::ISODateWithMs), early);
}

TEST(JSONText, TextsComeBack)
{
    for (const QString &text : {u""_s, u"a\"b\\c/d\n\r\t\x01é😀"_s, QString(QChar(u'\0')), u"שם"_s})
        EXPECT_EQ(parsed(JSONText::of(text)), text);
    EXPECT_EQ(JSONText::of(QString(QChar(0xD800))), u"\"\\ud800\""_s);
    EXPECT_EQ(JSONText::of(QString(QString(QChar(0xDC00)) + u'a')), u"\"\\udc00a\""_s);
}
