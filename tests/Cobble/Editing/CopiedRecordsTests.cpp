#include "Editing/CopiedRecords.h"

#include "support/TestSupport.h"

#include <KTUtility/NSDecimalNumber>
#include <KTUtility/NSObject>

#include <QCborArray>
#include <QCborMap>
#include <QCborValue>
#include <QDateTime>

using namespace Qt::StringLiterals;

namespace {
CopiedRecords exactRecords()
{
    const QVariant paid =
        QVariant::fromValue(NSDecimalNumber::decimalNumberWithString(u"12345678901234567890.12"_s));
    const QDateTime since(QDate(2008, 3, 4), QTime(17, 30), Qt::UTC);
    CopiedRecords copied;
    copied.bundle = u"/home/ann/Cobble.cobbledb"_s;
    copied.fields = {{u"Name"_s, FieldType::Text, {}},
                     {u"Paid"_s, FieldType::Currency, u"EUR"_s},
                     {u"Since"_s, FieldType::DateTime, {}}};
    copied.rows = {{{u"Ann\nSmith"_s, u"Ann\nSmith"_s},
                    {paid, u"12,345,678,901,234,567,890.12 €"_s},
                    {since, u"3/4/2008"_s}},
                   {{}, {u"much"_s, u"much"_s}, {}}};
    return copied;
}
} // namespace

TEST(CopiedRecordsTests, WhatIsWrittenIsReadExactly)
{
    const CopiedRecords written = exactRecords();
    const auto read = CopiedRecords::read(written.bytes());
    ASSERT_TRUE(read) << read.reason().toStdString();
    EXPECT_EQ(read->bundle, written.bundle);
    EXPECT_EQ(read->titles(), QStringList({u"Name"_s, u"Paid"_s, u"Since"_s}));
    EXPECT_EQ(read->fields.at(1).type, FieldType::Currency);
    EXPECT_EQ(read->fields.at(1).currency, u"EUR"_s);
    ASSERT_EQ(read->rows.size(), 2);
    for (qsizetype row = 0; row < 2; ++row) {
        EXPECT_EQ(read->texts(row), written.texts(row));
        for (qsizetype field = 0; field < 3; ++field)
            EXPECT_TRUE(NSObject::isEqual(read->rows.at(row).at(field).value,
                                          written.rows.at(row).at(field).value))
                << row << ' ' << field;
    }
}

TEST(CopiedRecordsTests, BytesOfOthersAreAnError)
{
    const QByteArray whole = exactRecords().bytes();
    for (const QByteArray &bytes :
         {QByteArray(), QByteArray("text"), whole.first(whole.size() - 1), QByteArray(100, '\xff'),
          QCborValue(QCborMap{{u"version"_s, 2}}).toCbor()})
        EXPECT_FALSE(CopiedRecords::read(bytes)) << bytes.toHex().toStdString();
}

TEST(CopiedRecordsTests, RowsOfOtherLengthsAreFilled)
{
    const QCborMap odd{{u"version"_s, 1},
                       {u"fields"_s, QCborArray{QCborMap{{u"title"_s, u"A"_s}}, 7}},
                       {u"rows"_s, QCborArray{5, QCborArray(), QCborArray{QCborArray{true, 3}}}}};
    const auto read = CopiedRecords::read(QCborValue(odd).toCbor());
    ASSERT_TRUE(read);
    ASSERT_EQ(read->rows.size(), 3);
    for (const QList<CopiedCell> &row : read->rows) {
        ASSERT_EQ(row.size(), 2);
        EXPECT_TRUE(row.first().value.isNull());
        EXPECT_EQ(row.first().text, QString());
    }
}
