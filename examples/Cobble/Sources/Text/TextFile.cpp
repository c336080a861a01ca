#include "TextFile.h"

#include "LineBreaks.h"
#include "Reasons.h"

#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>

using namespace Qt::StringLiterals;

namespace {
constexpr qint64 ChunkSize = 1 << 20;

Failure notText()
{
    return {Reasons::tr("not a text file")};
}

Failure notInEncoding(QLatin1StringView encoding, qint64 line)
{
    return {Reasons::tr("not a text file in %1 (line %2)").arg(encoding).arg(line)};
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

Outcome<QString> textOfUtf8(QByteArrayView data)
{
    // Looked at before decoding, so that binary files are called what they are.
    if (data.contains('\0'))
        return notText();
    QString text = decoded(data, QStringConverter::Utf8);
    if (text.isNull())
        return notInEncoding(QLatin1StringView("UTF-8"), firstLineNotInUtf8(data));
    return text;
}

Outcome<QString> textOfUtf16(QByteArrayView data, QStringConverter::Encoding encoding)
{
    QString text = decoded(data.chopped(data.size() % 2), encoding);
    if (text.contains(QChar::Null))
        return notText();
    const qsizetype broken = firstLoneSurrogate(text);
    if (broken == text.size() && data.size() % 2 == 0)
        return text;
    const qint64 line = 1 + lineBreakCount(QStringView(text).first(broken));
    return notInEncoding(QLatin1StringView("UTF-16"), line);
}

/// Everything that the file holds. What begins with NUL bytes is not read on: it may be a device
/// without an end.
Outcome<QByteArray> readAll(QFile &file)
{
    QByteArray data;
    while (!data.startsWith(QByteArrayView("\0\0", 2))) {
        const QByteArray chunk = file.read(ChunkSize);
        if (file.error() != QFileDevice::NoError)
            return Failure{file.errorString()};
        if (chunk.isEmpty())
            break;
        data += chunk;
        if (data.size() > TextFile::SizeLimit)
            return Failure{Reasons::tr("larger than 1 GB")};
    }
    return data;
}
} // namespace

Outcome<QString> TextFile::textOfData(const QByteArray &data)
{
    const QByteArrayView bytes(data);
    if (bytes.startsWith("\xef\xbb\xbf"))
        return textOfUtf8(bytes.sliced(3));
    if (bytes.startsWith("\xff\xfe"))
        return textOfUtf16(bytes.sliced(2), QStringConverter::Utf16LE);
    if (bytes.startsWith("\xfe\xff"))
        return textOfUtf16(bytes.sliced(2), QStringConverter::Utf16BE);
    return textOfUtf8(bytes);
}

Outcome<QString> TextFile::textOfFile(const QString &path)
{
    if (QFileInfo(path).isDir())
        return Failure{Reasons::tr("is a folder, not a file")};
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return Failure{file.errorString()};
    const Outcome<QByteArray> data = readAll(file);
    if (!data)
        return data.failure();
    Outcome<QString> text = textOfData(*data);
    if (text && text->isEmpty())
        return Failure{Reasons::tr("the file is empty")};
    return text;
}
