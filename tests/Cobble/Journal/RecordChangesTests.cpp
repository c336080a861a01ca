#include "Journal/RecordChanges.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {
RecordChanges sample()
{
    RecordChanges changes;
    changes.add({-5, {u"a"_s, u"b"_s}, QVariantList{1, 0.1}, QVariantList{QVariant(), u"x"_s}});
    changes.add({6, {u"a"_s, u"b"_s}, std::nullopt, QVariantList{qint64(1) << 62, u""_s}});
    changes.add({7, {u"c"_s}, QVariantList{QByteArray("\0\1", 2)}, std::nullopt});
    return changes;
}
} // namespace

TEST(RecordChanges, ComeBackWithTheKindsOfTheirValues)
{
    const auto read = RecordChanges::read(sample().bytes());
    ASSERT_TRUE(read);
    ASSERT_EQ(read->size(), 3);
    EXPECT_EQ(read->at(0).id, -5);
    EXPECT_EQ(read->at(0).columns, QStringList({u"a"_s, u"b"_s}));
    EXPECT_EQ(*read->at(0).before, QVariantList({qint64(1), 0.1}));
    EXPECT_TRUE(read->at(0).after->at(0).isNull());
    EXPECT_EQ(read->at(1).columns, QStringList({u"a"_s, u"b"_s}));
    EXPECT_FALSE(read->at(1).before);
    EXPECT_EQ(read->at(1).after->at(0), QVariant(qint64(1) << 62));
    EXPECT_FALSE(read->at(1).after->at(1).isNull());
    EXPECT_EQ(read->at(2).columns, QStringList(u"c"_s));
    EXPECT_EQ(read->at(2).before->at(0), QVariant(QByteArray("\0\1", 2)));
    EXPECT_FALSE(read->at(2).after);
}

TEST(RecordChanges, AreNoneInNoBytes)
{
    EXPECT_TRUE(RecordChanges::read({})->isEmpty());
}

TEST(RecordChanges, BytesThatAreCutAreAnError)
{
    const QByteArray bytes = sample().bytes();
    int whole = 0;
    for (qsizetype size = 1; size < bytes.size(); ++size)
        whole += RecordChanges::read(bytes.first(size)) ? 1 : 0;
    // Those that end between two changes.
    EXPECT_EQ(whole, 2);
}

TEST(RecordChanges, ValuesOfNoKindAreAnError)
{
    QByteArray bytes = sample().bytes();
    bytes[bytes.size() - 7] = 9;
    EXPECT_EQ(RecordChanges::read(bytes).reason(), u"the step cannot be read"_s);
}
