// Binary property lists ("bplist00"): objects, a table of their offsets, and a trailer of 32 bytes
// with the sizes of offsets and references, the number of objects, the root and the table's place.
// Every number that comes from the file is checked before it is used.

#include "PropertyListBinaryReader_p.h"

#include "NSPropertyListSerialization.h"
#include <KTUtility/Platform/Values/NSObject.h>
#include <KTUtility/Platform/Values/UTC_p.h>

#include <QDateTime>
#include <QtEndian>

#include <algorithm>
#include <bit>
#include <cmath>
#include <vector>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
using NSPropertyListSerialization::MaximumDepth;

constexpr qsizetype HeaderSize = 8;
constexpr qsizetype TrailerSize = 32;
/// How many values are made from one file; shared objects count each time that they are used.
constexpr int MaximumValues = 1'000'000;
/// How many bytes of texts and data are made from one file, counted in the same way.
constexpr quint64 MaximumBytes = quint64(64) << 20;

struct Failure
{
    QString reason;
};

[[noreturn]] void fail(const char *reason)
{
    throw Failure{QString::fromLatin1(reason)};
}

class BinaryReader
{
public:
    explicit BinaryReader(const QByteArray &data) : _data(data) {}

    QVariant read()
    {
        readTrailer();
        return readObject(_root, 0);
    }

private:
    /// A big-endian number of 1 to 8 bytes.
    quint64 readNumber(quint64 offset, quint64 size) const
    {
        if (size == 0 || size > 8 || offset > quint64(_end) || size > quint64(_end) - offset)
            fail("a number beyond the end");
        quint64 number = 0;
        for (quint64 index = 0; index < size; ++index)
            number = number << 8 | quint8(_data[qsizetype(offset + index)]);
        return number;
    }

    void readTrailer()
    {
        if (_data.size() < HeaderSize + TrailerSize)
            fail("too short");
        _end = _data.size();
        const quint64 trailer = quint64(_data.size() - TrailerSize);
        _offsetSize = readNumber(trailer + 6, 1);
        _referenceSize = readNumber(trailer + 7, 1);
        _count = readNumber(trailer + 8, 8);
        _root = readNumber(trailer + 16, 8);
        _table = readNumber(trailer + 24, 8);
        _end = _data.size() - TrailerSize;
        if (_offsetSize == 0 || _offsetSize > 8 || _referenceSize == 0 || _referenceSize > 8)
            fail("sizes out of range");
        if (_table < quint64(HeaderSize) || _table > quint64(_end) ||
            _count > (quint64(_end) - _table) / _offsetSize)
            fail("the table of objects is beyond the end");
    }

    quint64 offsetOf(quint64 reference) const
    {
        if (reference >= _count)
            fail("a reference to no object");
        const quint64 offset = readNumber(_table + reference * _offsetSize, _offsetSize);
        if (offset < quint64(HeaderSize) || offset >= _table)
            fail("an object outside of the file");
        return offset;
    }

    /// The count in an object's marker, or in the integer behind it. Moves \a offset to the data.
    quint64 readCount(quint64 &offset, quint64 bytesPerItem) const
    {
        quint64 count = quint8(_data[qsizetype(offset)]) & 0x0F;
        ++offset;
        if (count == 0x0F) {
            const quint64 marker = readNumber(offset, 1);
            if (marker >> 4 != 0x1 || (marker & 0x0F) > 3)
                fail("a count that is no integer");
            const quint64 size = quint64(1) << (marker & 0x0F);
            count = readNumber(offset + 1, size);
            offset += 1 + size;
        }
        if (offset > _table || count > (_table - offset) / bytesPerItem)
            fail("more items than the file can hold");
        return count;
    }

    static QVariant unsignedInteger(quint64 value)
    {
        return value > quint64(INT64_MAX) ? QVariant(value) : QVariant(qlonglong(value));
    }

    QVariant readInteger(quint64 offset) const
    {
        const quint64 size = quint64(1) << (quint8(_data[qsizetype(offset)]) & 0x0F);
        if (size == 16) {
            const quint64 high = readNumber(offset + 1, 8);
            const quint64 low = readNumber(offset + 9, 8);
            if (high == 0)
                return unsignedInteger(low);
            if (high == ~quint64(0) && qint64(low) < 0)
                return QVariant(qlonglong(low));
            fail("an integer of more than 64 bits");
        }
        if (size > 8)
            fail("an integer of unknown size");
        // Up to 4 bytes are unsigned, 8 are signed.
        return QVariant(qlonglong(readNumber(offset + 1, size)));
    }

    double readDouble(quint64 offset, quint64 size) const
    {
        if (size == 4)
            return double(std::bit_cast<float>(quint32(readNumber(offset, 4))));
        if (size == 8)
            return std::bit_cast<double>(readNumber(offset, 8));
        fail("a real number of unknown size");
    }

    QVariant readDate(quint64 offset) const
    {
        // Seconds since the first instant of 2001.
        const double seconds = readDouble(offset + 1, 8);
        if (!std::isfinite(seconds) || std::abs(seconds) > 1e12)
            fail("a date out of range");
        const double milliseconds = std::floor((seconds + 978307200.0) * 1000 + 0.5);
        return QDateTime::fromMSecsSinceEpoch(qint64(milliseconds), UTC);
    }

    /// Counts what is made, so that few objects used many times cannot fill the memory.
    void spend(quint64 bytes)
    {
        _bytes += bytes;
        if (_bytes > MaximumBytes)
            fail("too much text and data");
    }

    QVariant readText(quint64 offset, bool isUtf16)
    {
        const quint64 count = readCount(offset, isUtf16 ? 2 : 1);
        spend(count * 2);
        const char *bytes = _data.constData() + offset;
        if (!isUtf16)
            return QString::fromLatin1(bytes, qsizetype(count));
        QString text(qsizetype(count), Qt::Uninitialized);
        qFromBigEndian<char16_t>(bytes, qsizetype(count), text.data());
        return text;
    }

    QVariant readData(quint64 offset)
    {
        const quint64 count = readCount(offset, 1);
        spend(count);
        return _data.mid(qsizetype(offset), qsizetype(count));
    }

    QVariant readArray(quint64 offset, int depth)
    {
        const quint64 count = readCount(offset, _referenceSize);
        QVariantList array;
        for (quint64 index = 0; index < count; ++index)
            array +=
                readObject(readNumber(offset + index * _referenceSize, _referenceSize), depth + 1);
        return array;
    }

    QVariant readDictionary(quint64 offset, int depth)
    {
        const quint64 count = readCount(offset, 2 * _referenceSize);
        QVariantMap dictionary;
        for (quint64 index = 0; index < count; ++index) {
            const quint64 key = offset + index * _referenceSize;
            const QString name = readKey(readNumber(key, _referenceSize), depth + 1);
            const quint64 value = key + count * _referenceSize;
            dictionary.insert(name, readObject(readNumber(value, _referenceSize), depth + 1));
        }
        return dictionary;
    }

    /// A text that may be the key of many dictionaries: it is made once, and counted each time.
    QString readKey(quint64 reference, int depth)
    {
        constexpr size_t MostKeys = 16;
        const auto known = std::ranges::find(_keys, reference, &Key::reference);
        if (known != _keys.end()) {
            countValue(depth);
            spend(known->bytes);
            return known->text;
        }
        const quint64 before = _bytes;
        const QVariant name = readObject(reference, depth);
        if (name.typeId() != QMetaType::QString)
            fail("a key that is no text");
        if (_keys.size() == MostKeys)
            _keys.clear();
        _keys.push_back({reference, _bytes - before, name.toString()});
        return _keys.back().text;
    }

    void countValue(int depth)
    {
        if (depth > MaximumDepth || ++_values > MaximumValues)
            fail("nested too deep or too many values");
    }

    QVariant readUID(quint64 offset) const
    {
        const quint64 size = (quint8(_data[qsizetype(offset)]) & 0x0F) + 1u;
        return QVariantMap{{u"CF$UID"_s, unsignedInteger(readNumber(offset + 1, size))}};
    }

    QVariant readConstant(quint8 marker) const
    {
        if (marker == 0x00)
            return NSNull();
        if (marker != 0x08 && marker != 0x09)
            fail("an unknown constant");
        return marker == 0x09;
    }

    QVariant readObject(quint64 reference, int depth)
    {
        countValue(depth);
        const quint64 offset = offsetOf(reference);
        const quint8 marker = quint8(_data[qsizetype(offset)]);
        switch (marker >> 4) {
        case 0x0:
            return readConstant(marker);
        case 0x1:
            return readInteger(offset);
        case 0x2:
            return readDouble(offset + 1, quint64(1) << (marker & 0x0F));
        case 0x3:
            return readDate(offset);
        case 0x4:
            return readData(offset);
        case 0x5:
        case 0x6:
            return readText(offset, marker >> 4 == 0x6);
        case 0x8:
            return readUID(offset);
        case 0xA:
        case 0xC:
            return readArray(offset, depth);
        case 0xD:
            return readDictionary(offset, depth);
        default:
            fail("an object of unknown kind");
        }
    }

    struct Key
    {
        quint64 reference;
        quint64 bytes; ///< that are counted for it
        QString text;
    };

    const QByteArray &_data;
    std::vector<Key> _keys;
    qsizetype _end = 0;
    quint64 _offsetSize = 0;
    quint64 _referenceSize = 0;
    quint64 _count = 0;
    quint64 _root = 0;
    quint64 _table = 0;
    int _values = 0;
    quint64 _bytes = 0;
};
} // namespace

QVariant KTPrivate::readBinaryPropertyList(const QByteArray &data, QString *error)
{
    try {
        return BinaryReader(data).read();
    } catch (const Failure &failure) {
        *error = u"binary property list: "_s + failure.reason;
        return {};
    }
}
