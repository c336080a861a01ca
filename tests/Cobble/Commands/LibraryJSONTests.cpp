#include "Commands/LibraryJSON.h"

#include "support/TestSupport.h"

#include <KTUtility/NSDecimalNumber>

#include <QDateTime>
#include <QJsonArray>
#include <QJsonDocument>

using namespace Qt::StringLiterals;

namespace {
QVariant decimal(const QString &digits)
{
    return QVariant::fromValue(NSDecimalNumber::decimalNumberWithString(digits));
}

LibraryField field(const QString &header, const QString &column)
{
    LibraryField field;
    field.header = header;
    field.columnName = column;
    return field;
}
} // namespace

TEST(LibraryJSON, WritesNumbersThatNoDoubleLosesADigitOf)
{
    const struct
    {
        QString digits;
        QJsonValue value;
    } rows[] = {
        {u"0"_s, 0},
        {u"-1234.5"_s, -1234.5},
        {u"0.1"_s, 0.1},
        {u"9007199254740992"_s, qint64(9007199254740992)},
        {u"9007199254740993"_s, u"9007199254740993"_s},
        {u"-9007199254740993"_s, u"-9007199254740993"_s},
        {u"1234567890123456.5"_s, u"1234567890123456.5"_s},
    };
    for (const auto &row : rows) {
        EXPECT_EQ(LibraryJSON::of(decimal(row.digits)), row.value) << row.digits.toStdString();
        const Outcome<QVariant> read = LibraryJSON::valueIn(FieldType::Currency, row.value);
        ASSERT_TRUE(read) << row.digits.toStdString();
        EXPECT_EQ(*read, decimal(row.digits)) << row.digits.toStdString();
    }
}

TEST(LibraryJSON, ReadsWholeNumbersExactlyOrNotAtAll)
{
    const auto read = [](const QByteArray &number) {
        const QJsonDocument document = QJsonDocument::fromJson('[' + number + ']');
        return LibraryJSON::valueIn(FieldType::Number, document.array().first());
    };
    for (const QByteArray &number : {"9007199254740993"_ba, "-9007199254740995"_ba,
                                     "9223372036854775807"_ba, "1e3"_ba, "-0.125"_ba})
        EXPECT_EQ(*read(number), decimal(QString::fromLatin1(number))) << number.toStdString();
    for (const QByteArray &number : {"12345678901234567890"_ba, "-1e300"_ba})
        EXPECT_EQ(read(number).reason(), u"it is too large to be exact; write it as a text"_s);
}

TEST(LibraryJSON, WritesDatesTextsAndNothing)
{
    const QDateTime date(QDate(2008, 3, 4), QTime(17, 30), Qt::UTC);
    const QJsonValue written = LibraryJSON::of(date);
    EXPECT_EQ(QDateTime::fromString(written.toString(), Qt::ISODate), date);
    EXPECT_EQ(LibraryJSON::valueIn(FieldType::Date, written)->toDateTime(), date);
    EXPECT_EQ(LibraryJSON::of(u"a\"b"_s), QJsonValue(u"a\"b"_s));
    EXPECT_TRUE(LibraryJSON::of(QVariant()).isNull());
    EXPECT_FALSE(LibraryJSON::valueIn(FieldType::Text, QJsonValue::Null)->isValid());
}

TEST(LibraryJSON, RefusesWhatIsNoValueOfAField)
{
    const struct
    {
        FieldType type;
        QJsonValue value;
        QString reason;
    } rows[] = {
        {FieldType::Text, 3, u"it is no text"_s},
        {FieldType::Phone, true, u"it is no text"_s},
        {FieldType::Number, false, u"a number, a text or null is needed"_s},
        {FieldType::Date, 3, u"a number, a text or null is needed"_s},
        {FieldType::Number, u"1,5"_s, u"it is no number"_s},
        {FieldType::Duration, u"1h"_s, u"it is no number"_s},
        {FieldType::Time, u"noon"_s, u"it is no date of ISO 8601"_s},
        {FieldType::Number, 1e300, u"it is too large to be exact; write it as a text"_s},
    };
    for (const auto &row : rows)
        EXPECT_EQ(LibraryJSON::valueIn(row.type, row.value).reason(), row.reason);
}

TEST(LibraryJSON, FieldsOfOneTitleHaveNamesOfTheirOwn)
{
    Library library;
    library.fields = {field(u"A"_s, u"kt_a"_s), field(u"A"_s, u"kt_a1"_s),
                      field(u"kt_a1"_s, u"kt_a2"_s), field(u""_s, u"kt_field"_s)};
    EXPECT_EQ(LibraryJSON::namesOf(library),
              QStringList({u"A"_s, u"kt_a1"_s, u"kt_a2"_s, u"kt_field"_s}));
}

TEST(LibraryJSON, TextsDoNotSteerATerminal)
{
    EXPECT_EQ(LibraryJSON::textOf({{u"a"_s, u"\u202e\u009b\x1b\n"_s}}),
              u"{\"a\":\"\\u202e\\u009b\\u001b\\n\"}"_s);
}
