#include "JSONText.h"
#include "Text/CSVText.h"

#include "support/TestSupport.h"

#include <KTUtility/NSDecimalNumber>

#include <QDateTime>
#include <QJsonArray>
#include <QJsonDocument>
#include <QTimeZone>

namespace {
QString parsed(const QString &json)
{
    return QJsonDocument::fromJson(QByteArray('[' + json.toUtf8() + ']'))
        .array()
        .first()
        .toString();
}
} // namespace

TEST(JSONText, Values)
{
    EXPECT_EQ(JSONText::of(QVariant()), QStringLiteral("null"));
    EXPECT_EQ(JSONText::of(5), QStringLiteral("5"));
    const QString digits = QStringLiteral("0.12345678901234567890123456789");
    EXPECT_EQ(JSONText::of(QVariant::fromValue(NSDecimalNumber::decimalNumberWithString(digits))),
              digits);
    EXPECT_EQ(JSONText::of(QVariant::fromValue(NSDecimalNumber::notANumber())),
              QStringLiteral("null"));
    EXPECT_EQ(JSONText::of(QDateTime(QDate(2008, 3, 4), QTime(5, 6), QTimeZone::utc())),
              QStringLiteral("\"2008-03-04T00:06:00-05:00\""));
}

TEST(JSONText, DatesKeepTheirInstant)
{
    const QDateTime early(QDate(1880, 5, 5), QTime(10, 0, 45, 7), QTimeZone("America/New_York"));
    const QString text = parsed(JSONText::of(early));
    EXPECT_EQ(text, QStringLiteral("1880-05-05T10:00:47.007-04:56"));
    EXPECT_EQ(QDateTime::fromString(text, Qt::ISODateWithMs), early);
}

TEST(JSONText, TextsComeBack)
{
    for (const QString &text : {QStringLiteral(""), QStringLiteral("a\"b\\c/d\n\r\t\x01é😀"),
                                QString(QChar(u'\0')), QStringLiteral("שם")})
        EXPECT_EQ(parsed(JSONText::of(text)), text);
    EXPECT_EQ(JSONText::of(QString(QChar(0xD800))), QStringLiteral("\"\\ud800\""));
    EXPECT_EQ(JSONText::of(QString(QString(QChar(0xDC00)) + u'a')), QStringLiteral("\"\\udc00a\""));
}

TEST(CSVText, QuotesWhatNeedsIt)
{
    const QList<std::pair<QString, QString>> cases = {
        {QStringLiteral("a"), QStringLiteral("a")},
        {QStringLiteral(""), QStringLiteral("")},
        {QStringLiteral("a,b"), QStringLiteral("\"a,b\"")},
        {QStringLiteral("a;b"), QStringLiteral("\"a;b\"")},
        {QStringLiteral("a \"b\""), QStringLiteral("\"a \"\"b\"\"\"")},
        {QStringLiteral("a\nb"), QStringLiteral("\"a\nb\"")},
        {QStringLiteral(" a"), QStringLiteral("\" a\"")},
        {QStringLiteral("a "), QStringLiteral("\"a \"")},
    };
    for (const auto &[field, quoted] : cases)
        EXPECT_EQ(CSVText::quoted(field), quoted);
}
