#include <KTUtility/NSPropertyListSerialization>

#include <KTUtility/NSObject>
#include <KTUtility/Platform/Values/UTC_p.h>

#include "support/TestSupport.h"

#include <QDateTime>

#include <bit>
#include <cmath>

using namespace NSPropertyListSerialization;
using namespace Qt::StringLiterals;

namespace {
QByteArray bigEndian(quint64 number, int size)
{
    QByteArray bytes;
    for (int shift = 8 * (size - 1); shift >= 0; shift -= 8)
        bytes += char(number >> shift);
    return bytes;
}

/// The last 32 bytes of a binary list; tests break one number at a time.
struct Trailer
{
    quint64 offsetSize = 8;
    quint64 referenceSize = 2;
    quint64 count = 0;
    quint64 root = 0;
    quint64 table = 0;

    QByteArray bytes() const
    {
        return QByteArray(6, '\0') + bigEndian(offsetSize, 1) + bigEndian(referenceSize, 1) +
               bigEndian(count, 8) + bigEndian(root, 8) + bigEndian(table, 8);
    }
};

/// Binary lists object by object: texts, numbers and containers are given as their bytes.
/// References take two bytes, offsets eight; the first object is the root.
QByteArray listOf(
    const QList<QByteArray> &objects,
    const std::function<void(Trailer &)> &change = [](Trailer &) {})
{
    QByteArray bytes = "bplist00";
    QByteArray table;
    for (const QByteArray &object : objects) {
        table += bigEndian(quint64(bytes.size()), 8);
        bytes += object;
    }
    Trailer trailer;
    trailer.count = quint64(objects.size());
    trailer.table = quint64(bytes.size());
    change(trailer);
    return bytes + table + trailer.bytes();
}

QByteArray counted(int kind, quint64 count)
{
    if (count < 15)
        return bigEndian(quint64(kind) << 4 | count, 1);
    return bigEndian(quint64(kind) << 4 | 15, 1) + "\x13" + bigEndian(count, 8);
}

QByteArray text(const QByteArray &ascii)
{
    return counted(0x5, quint64(ascii.size())) + ascii;
}

QByteArray references(int kind, const QList<int> &objects, int perItem = 1)
{
    QByteArray bytes = counted(kind, quint64(objects.size() / perItem));
    for (const int object : objects)
        bytes += bigEndian(quint64(object), 2);
    return bytes;
}

QByteArray array(const QList<int> &objects)
{
    return references(0xA, objects);
}

QByteArray dictionary(const QList<int> &keysThenValues)
{
    return references(0xD, keysThenValues, 2);
}

QByteArray real(double value)
{
    return bigEndian(std::bit_cast<quint64>(value), 8);
}

QByteArray bytesOf(std::initializer_list<int> values)
{
    QByteArray bytes;
    for (const int value : values)
        bytes += char(value);
    return bytes;
}

QVariant valueOf(const QByteArray &object)
{
    QString error;
    const QVariant value = propertyListFromData(listOf({object}), &error);
    EXPECT_TRUE(error.isEmpty()) << error.toStdString();
    return value;
}

bool isRejected(const QByteArray &data)
{
    QString error;
    const QVariant value = propertyListFromData(data, &error);
    return !value.isValid() && !error.isEmpty();
}

/// A list with one of everything.
QByteArray sampleList()
{
    return listOf({
        dictionary({1, 2, 3, 4, 5, 6}),
        text("name"),
        text("list"),
        text("when"),
        counted(0x6, 2) + bytesOf({0x00, 0xE9, 0x20, 0xAC}),
        array({7, 8, 9, 10}),
        bytesOf({0x33}) + real(0.5),
        bytesOf({0x10, 0xFF}),
        bytesOf({0x09}),
        counted(0x4, 3) + "abc",
        bytesOf({0x22, 0x3F, 0x80, 0, 0}),
    });
}
} // namespace

TEST(PropertyListBinaryReader, AListWithOneOfEverythingIsRead)
{
    QString error;
    const QVariantMap map = propertyListFromData(sampleList(), &error).toMap();
    EXPECT_TRUE(error.isEmpty()) << error.toStdString();
    const QVariantList list = {255LL, true, QByteArray("abc"), 1.0};
    EXPECT_EQ(map.value(u"name"_s), QVariant(u"é€"_s));
    EXPECT_EQ(map.value(u"list"_s).toList(), list);
    EXPECT_EQ(map.value(u"when"_s).toDateTime(),
              QDateTime(QDate(2001, 1, 1), QTime(0, 0, 0, 500), KTPrivate::UTC));
}

TEST(PropertyListBinaryReader, IntegersOfAllWidthsAreRead)
{
    EXPECT_EQ(valueOf(bytesOf({0x10, 0x80})), QVariant(128LL));
    EXPECT_EQ(valueOf("\x11" + bigEndian(0xFFFF, 2)), QVariant(65535LL));
    EXPECT_EQ(valueOf("\x12" + bigEndian(0xFFFFFFFF, 4)), QVariant(4294967295LL));
    EXPECT_EQ(valueOf("\x13" + bigEndian(quint64(INT64_MIN), 8)), QVariant(qlonglong(INT64_MIN)));
    const auto wide = [](quint64 high, quint64 low) -> QByteArray {
        return "\x14" + bigEndian(high, 8) + bigEndian(low, 8);
    };
    EXPECT_EQ(valueOf(wide(0, UINT64_MAX)), QVariant(qulonglong(UINT64_MAX)));
    EXPECT_EQ(valueOf(wide(0, 5)), QVariant(5LL));
    EXPECT_EQ(valueOf(wide(UINT64_MAX, UINT64_MAX)), QVariant(-1LL));
    EXPECT_TRUE(isRejected(listOf({wide(1, 0)})));
    EXPECT_TRUE(isRejected(listOf({wide(UINT64_MAX, 0)})));
    EXPECT_TRUE(isRejected(listOf({"\x15" + QByteArray(32, '\0')})));
}

TEST(PropertyListBinaryReader, RealsAndDatesAreRead)
{
    EXPECT_TRUE(std::signbit(valueOf("\x23" + real(-0.0)).toDouble()));
    EXPECT_TRUE(std::isnan(valueOf("\x23" + real(std::nan(""))).toDouble()));
    EXPECT_EQ(valueOf("\x33" + real(-86400)).toDateTime(),
              QDateTime(QDate(2000, 12, 31), QTime(0, 0), KTPrivate::UTC));
    EXPECT_EQ(valueOf("\x33" + real(-0.25)).toDateTime().time(), QTime(23, 59, 59, 750));
    for (const double seconds : {std::nan(""), HUGE_VAL, -HUGE_VAL, 1e300, -1e18})
        EXPECT_TRUE(isRejected(listOf({"\x33" + real(seconds)}))) << seconds;
    EXPECT_TRUE(isRejected(listOf({bytesOf({0x20, 0})})));
}

TEST(PropertyListBinaryReader, TextsDataAndReferencesAreRead)
{
    const QVariant empty = valueOf(text(""));
    EXPECT_EQ(empty, QVariant(u""_s));
    EXPECT_FALSE(NSObject::isNil(empty));
    EXPECT_EQ(valueOf(text(QByteArray(1 << 20, 'a'))).toString().size(), 1 << 20);
    EXPECT_EQ(valueOf(counted(0x6, 1) + bytesOf({0xD8, 0x00})).toString(), QString(QChar(0xD800)));
    EXPECT_EQ(valueOf(text(QByteArray("a\0b", 3))).toString().size(), 3);
    const QVariantMap reference = {{u"CF$UID"_s, 258LL}};
    EXPECT_EQ(valueOf(bytesOf({0x81, 1, 2})).toMap(), reference);
    EXPECT_TRUE(isRejected(listOf({"\x8F" + QByteArray(16, '\0')})));
    EXPECT_TRUE(isNSNull(valueOf(QByteArray("\0", 1))));
    EXPECT_EQ(valueOf(bytesOf({0x08})), QVariant(false));
}

TEST(PropertyListBinaryReader, SetsAreListsAndSharedObjectsAreReadEachTime)
{
    const QVariantList expected = {u"a"_s, u"a"_s};
    EXPECT_EQ(propertyListFromData(listOf({references(0xC, {1, 1}), text("a")})).toList(),
              expected);
    QList<int> many;
    for (int index = 0; index < 1000; ++index)
        many += 1;
    EXPECT_EQ(propertyListFromData(listOf({array(many), text("a")})).toList().size(), 1000);
}

TEST(PropertyListBinaryReader, KeysMustBeTexts)
{
    EXPECT_TRUE(isRejected(listOf({dictionary({1, 1}), bytesOf({0x10, 1})})));
    EXPECT_TRUE(isRejected(listOf({dictionary({1, 1}), array({})})));
    EXPECT_EQ(propertyListFromData(listOf({dictionary({1, 1}), text("k")})).toMap().size(), 1);
}

TEST(PropertyListBinaryReader, UnknownObjectsAreRejected)
{
    for (int marker = 0; marker < 256; ++marker) {
        const int kind = marker >> 4;
        const bool isUnknown = kind == 0x7 || kind == 0x9 || kind == 0xB || kind == 0xE ||
                               kind == 0xF ||
                               (kind == 0 && marker != 0 && marker != 8 && marker != 9);
        if (isUnknown) {
            EXPECT_TRUE(isRejected(listOf({bytesOf({marker}) + QByteArray(40, '\0')}))) << marker;
        }
    }
}

TEST(PropertyListBinaryReader, CountsAreCheckedAgainstTheBytes)
{
    for (const int kind : {0x4, 0x5, 0x6, 0xA, 0xC, 0xD}) {
        for (const quint64 count : {quint64(14), quint64(1000), quint64(INT64_MAX),
                                    quint64(UINT64_MAX), quint64(1) << 63, quint64(1) << 60})
            EXPECT_TRUE(isRejected(listOf({counted(kind, count)}))) << kind << ' ' << count;
    }
    EXPECT_TRUE(isRejected(listOf({bytesOf({0x5F, 0x50})})));
    EXPECT_TRUE(isRejected(listOf({bytesOf({0x5F, 0x14}) + QByteArray(16, '\0')})));
}

TEST(PropertyListBinaryReader, TheTrailerIsChecked)
{
    const auto rejectedWith = [](const std::function<void(Trailer &)> &change) {
        return isRejected(listOf({array({1}), text("a")}, change));
    };
    EXPECT_FALSE(rejectedWith([](Trailer &) {}));
    for (const quint64 size : {0, 9, 16, 255}) {
        EXPECT_TRUE(rejectedWith([&](Trailer &trailer) { trailer.offsetSize = size; }));
        EXPECT_TRUE(rejectedWith([&](Trailer &trailer) { trailer.referenceSize = size; }));
    }
    for (const quint64 number :
         {quint64(3), quint64(1) << 61, quint64(1) << 63, quint64(UINT64_MAX)}) {
        EXPECT_TRUE(rejectedWith([&](Trailer &trailer) { trailer.count = number; }));
        EXPECT_TRUE(rejectedWith([&](Trailer &trailer) { trailer.root = number; }));
        EXPECT_TRUE(rejectedWith([&](Trailer &trailer) { trailer.table = number; }));
    }
    EXPECT_TRUE(rejectedWith([](Trailer &trailer) { trailer.count = 0; }));
    EXPECT_TRUE(rejectedWith([](Trailer &trailer) { trailer.table = 8; }));
}

TEST(PropertyListBinaryReader, CyclesAndDepthAreErrors)
{
    EXPECT_TRUE(isRejected(listOf({array({0})})));
    EXPECT_TRUE(isRejected(listOf({array({1, 1}), array({0, 0})})));
    EXPECT_TRUE(isRejected(listOf({dictionary({1, 0}), text("k")})));
    const auto nested = [](int depth) {
        QList<QByteArray> objects;
        for (int index = 0; index < depth; ++index)
            objects += array({index + 1});
        return listOf(objects + QList<QByteArray>{text("a")});
    };
    EXPECT_TRUE(propertyListFromData(nested(MaximumDepth)).isValid());
    EXPECT_TRUE(isRejected(nested(MaximumDepth + 1)));
    EXPECT_TRUE(isRejected(nested(60'000)));
}

TEST(PropertyListBinaryReader, SharedObjectsCannotFillTheMemory)
{
    QList<QByteArray> laughs;
    for (int index = 0; index < 40; ++index)
        laughs += array({index + 1, index + 1});
    EXPECT_TRUE(isRejected(listOf(laughs + QList<QByteArray>{text("ha")})));

    const QList<int> many(60'000, 1);
    EXPECT_TRUE(isRejected(listOf({array(many), text(QByteArray(1 << 20, 'a'))})));
    EXPECT_TRUE(
        isRejected(listOf({array(many), counted(0x4, 1 << 20) + QByteArray(1 << 20, 'a')})));
}

TEST(PropertyListBinaryReader, EveryTruncationIsRejectedOrAValue)
{
    const QByteArray whole = sampleList();
    for (qsizetype size = 0; size < whole.size(); ++size) {
        QString error;
        const QVariant value = propertyListFromData(whole.first(size), &error);
        EXPECT_NE(value.isValid(), !error.isEmpty()) << size;
    }
}

TEST(PropertyListBinaryReader, EveryChangedByteGivesAnErrorOrAValue)
{
    const QByteArray whole = sampleList();
    int rejected = 0;
    for (qsizetype index = 8; index < whole.size(); ++index) {
        for (int byte = 0; byte < 256; ++byte) {
            QByteArray changed = whole;
            changed[index] = char(byte);
            QString error;
            const QVariant value = propertyListFromData(changed, &error);
            EXPECT_NE(value.isValid(), !error.isEmpty()) << index << ' ' << byte;
            rejected += !value.isValid();
        }
    }
    EXPECT_GT(rejected, 0);
}

TEST(PropertyListBinaryReader, OtherVersionsAreNotBinaryLists)
{
    EXPECT_TRUE(isRejected(QByteArray(sampleList()).replace("bplist00", "bplist15")));
    EXPECT_TRUE(isRejected("bplist00"));
    EXPECT_TRUE(isRejected("bplist00" + QByteArray(32, '\0')));
    EXPECT_TRUE(isRejected("bplist00" + QByteArray(100, '\xFF')));
}
