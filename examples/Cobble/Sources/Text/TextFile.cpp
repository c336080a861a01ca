#include "TextFile.h"

#include "LineBreaks.h"

#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>

using namespace Qt::StringLiterals;

namespace {
constexpr qint64 ChunkSize = 1 << 20;

const QString NotText = u"not a text file"_s;

QString fail(QString *errorDescription, const QString &reason)
{
    if (errorDescription)
        *errorDescription = reason;
    return {};
}

QString notInEncoding(QLatin1StringView encoding, qint64 line)
{
    return u"not a text file in %1 (line %2)"_s.arg(encoding).arg(line);
}

/// nil if the data is not entirely in the encoding.
QString decoded(QByteArrayView data, QStringConverter::Encoding encoding)
{
    QStringDecoder decoder(encoding, QStringConverter::Flag::Stateless |
                                         QStringConverter::Flag::ConvertInitialBom);
    const QString text = decoder.decode(data);
    if (decoder.hasError())
        return {};
    return text.isNull() ? u""_s : text;
}

qsizetype endOfByteLine(QByteArrayView data, qsizetype start)
{
    while (start < data.size() && data[start] != '\n' && data[start] != '\r')
        ++start;
    return start;
}

/// The first line that is not UTF-8. Line breaks never are part of a longer sequence, so that each
/// line can be looked at by itself.
qint64 firstLineNotInUtf8(QByteArrayView data)
{
    qint64 line = 1;
    for (qsizetype start = 0; start < data.size(); ++line) {
        const qsizetype end = endOfByteLine(data, start);
        if (decoded(data.sliced(start, end - start), QStringConverter::Utf8).isNull())
            break;
        start = end + (data.sliced(end).startsWith("\r\n") ? 2 : 1);
    }
    return line;
}

/// The position of the first half of a surrogate pair that stands alone, or the size.
qsizetype firstLoneSurrogate(QStringView text)
{
    for (qsizetype index = 0; index < text.size(); ++index) {
        if (!text[index].isSurrogate())
            continue;
        const bool isPair = text[index].isHighSurrogate() && index + 1 < text.size() &&
                            text[index + 1].isLowSurrogate();
        if (!isPair)
            return index;
        ++index;
    }
    return text.size();
}

QString textOfUtf8(QByteArrayView data, QString *errorDescription)
{
    // Looked at before decoding, so that binary files are called what they are.
    if (data.contains('\0'))
        return fail(errorDescription, NotText);
    const QString text = decoded(data, QStringConverter::Utf8);
    return text.isNull() ? fail(errorDescription,
                                notInEncoding(QLatin1StringView("UTF-8"), firstLineNotInUtf8(data)))
                         : text;
}

QString textOfUtf16(QByteArrayView data, QStringConverter::Encoding encoding,
                    QString *errorDescription)
{
    QString text = decoded(data.chopped(data.size() % 2), encoding);
    if (text.contains(QChar::Null))
        return fail(errorDescription, NotText);
    const qsizetype broken = firstLoneSurrogate(text);
    if (broken < text.size() || data.size() % 2 != 0) {
        const qint64 line = 1 + lineBreakCount(QStringView(text).first(broken));
        return fail(errorDescription, notInEncoding(QLatin1StringView("UTF-16"), line));
    }
    return text;
}

/// Everything that the file holds; false if it cannot be read to its end or is too large. What
/// begins with NUL bytes is not read on: it may be a device without an end.
bool readAll(QFile *file, QByteArray *data, QString *errorDescription)
{
    while (true) {
        const QByteArray chunk = file->read(ChunkSize);
        if (file->error() != QFileDevice::NoError) {
            fail(errorDescription, file->errorString());
            return false;
        }
        if (chunk.isEmpty())
            return true;
        *data += chunk;
        if (data->size() > TextFile::SizeLimit) {
            fail(errorDescription, u"larger than 1 GB"_s);
            return false;
        }
        if (data->startsWith(QByteArrayView("\0\0", 2)))
            return true;
    }
}
} // namespace

QString TextFile::textOfData(const QByteArray &data, QString *errorDescription)
{
    const QByteArrayView bytes(data);
    if (bytes.startsWith("\xef\xbb\xbf"))
        return textOfUtf8(bytes.sliced(3), errorDescription);
    if (bytes.startsWith("\xff\xfe"))
        return textOfUtf16(bytes.sliced(2), QStringConverter::Utf16LE, errorDescription);
    if (bytes.startsWith("\xfe\xff"))
        return textOfUtf16(bytes.sliced(2), QStringConverter::Utf16BE, errorDescription);
    return textOfUtf8(bytes, errorDescription);
}

QString TextFile::textOfFile(const QString &path, QString *errorDescription)
{
    if (QFileInfo(path).isDir())
        return fail(errorDescription, u"is a folder, not a file"_s);
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return fail(errorDescription, file.errorString());
    QByteArray data;
    if (!readAll(&file, &data, errorDescription))
        return {};
    QString text = textOfData(data, errorDescription);
    if (text.isEmpty() && !text.isNull())
        return fail(errorDescription, u"the file is empty"_s);
    return text;
}
