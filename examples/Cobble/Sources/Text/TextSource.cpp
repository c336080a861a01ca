#include "TextSource.h"

#include "Reasons.h"
#include "TextEncodings.h"

#include <QFileInfo>
#include <QTemporaryFile>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
constexpr qint64 ChunkSize = 1 << 20;
/// So many bytes are enough to guess by.
constexpr qsizetype SampleSize = 1 << 16;
/// So many lines are read until it is asked whether to go on.
constexpr qint64 LinesPerQuestion = 4096;

struct EncodingMark
{
    QByteArray bytes;
    QString encoding;
};

/// The byte order mark that a file begins with; empty if it has none.
EncodingMark markIn(QByteArrayView beginning)
{
    for (const EncodingMark &mark :
         {EncodingMark{"\xef\xbb\xbf", u"UTF-8"_s}, EncodingMark{"\xff\xfe", u"UTF-16LE"_s},
          EncodingMark{"\xfe\xff", u"UTF-16BE"_s}}) {
        if (beginning.startsWith(mark.bytes))
            return mark;
    }
    return {};
}

bool isPlain(QByteArrayView line)
{
    return std::all_of(line.begin(), line.end(), [](char byte) { return byte >= 0; });
}

Failure notWanted()
{
    return {Reasons::tr("it was cancelled"), true};
}

bool mayGoOn(const std::function<bool()> &goesOn)
{
    return !goesOn || goesOn();
}

/// The lines that are no ASCII, which tell encodings from each other.
QByteArray tellingLinesIn(QFile &file, const std::function<bool()> &goesOn)
{
    QByteArray lines;
    for (qint64 count = 1; lines.size() < SampleSize; ++count) {
        if (count % LinesPerQuestion == 0 && !mayGoOn(goesOn))
            break;
        const QByteArray line = file.readLine(SampleSize);
        if (line.isEmpty())
            break;
        if (!isPlain(line))
            lines += line;
    }
    return lines;
}

bool hasBeenReadTo(QFile &file, QIODevice &to, Outcome<> *outcome)
{
    const QByteArray chunk = file.read(ChunkSize);
    if (file.error() != QFileDevice::NoError)
        *outcome = Failure{file.errorString()};
    else if (to.pos() == 0 && chunk.startsWith(QByteArrayView("\0\0", 2)))
        *outcome = TextReader::notText(); // maybe a device without an end
    else if (to.write(chunk) < chunk.size())
        *outcome = Failure{to.errorString()};
    else if (to.pos() > TextSource::SizeLimit)
        *outcome = Failure{Reasons::tr("larger than 1 GB")};
    return !*outcome || chunk.isEmpty();
}

/// Whether a file says how large it is and can be read again.
bool isPlainFile(const QFile &file)
{
    return !file.isSequential() && file.size() > 0;
}
} // namespace

Outcome<TextSource> TextSource::ofFile(const QString &path, const QString &encoding,
                                       const GoesOn &goesOn)
{
    TextSource source;
    const Outcome<> used = source.useFile(path, encoding, goesOn);
    if (!used)
        return used.failure();
    return source;
}

Outcome<> TextSource::useFile(const QString &path, const QString &encoding, const GoesOn &goesOn)
{
    if (QFileInfo(path).isDir())
        return Failure{Reasons::tr("is a folder, not a file")};
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return Failure{file.errorString()};
    _file.path = path;
    _file.identity = TextReader::Identity::of(file);
    const Outcome<> copied = isPlainFile(file) ? Outcome<>() : copy(file, goesOn);
    return copied.andThen([&] { return findEncoding(encoding, goesOn); });
}

Outcome<> TextSource::copy(QFile &file, const GoesOn &goesOn)
{
    _copy = std::make_shared<QTemporaryFile>();
    if (!_copy->open())
        return Failure{_copy->errorString()};
    Outcome<> outcome;
    while (!hasBeenReadTo(file, *_copy, &outcome)) {
        if (!mayGoOn(goesOn))
            return notWanted();
    }
    if (outcome && !_copy->flush())
        return Failure{_copy->errorString()};
    _file.path = _copy->fileName();
    _file.identity = TextReader::Identity::of(*_copy);
    return outcome;
}

Outcome<> TextSource::findEncoding(const QString &asked, const GoesOn &goesOn)
{
    QFile file(_file.path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return Failure{file.errorString()};
    const EncodingMark mark = markIn(file.read(3));
    if (file.error() != QFileDevice::NoError)
        return Failure{file.errorString()};
    const bool isMarked = !mark.encoding.isNull();
    const bool isTold = !asked.isNull() && asked != TextEncodings::Automatic;
    if (isMarked && isTold && asked != mark.encoding)
        return Failure{Reasons::tr("the file is marked as %1, not %2").arg(mark.encoding, asked)};
    _file.encoding = isTold ? asked : isMarked ? mark.encoding : u"UTF-8"_s;
    _file.markLength = mark.bytes.size();
    if (_file.identity.size == _file.markLength)
        return Failure{Reasons::tr("the file is empty")};
    return asked == TextEncodings::Automatic && !isMarked ? guessEncoding(goesOn) : Outcome<>();
}

/// Reads all of a text.
Outcome<bool> TextSource::readThrough(const GoesOn &goesOn) const
{
    TextReader whole = reader();
    whole.setGoesOn(goesOn);
    Outcome<bool> isRead = true;
    for (QString text; isRead && *isRead; text.resize(0))
        isRead = mayGoOn(goesOn) ? whole.readMore(&text, ChunkSize) : notWanted();
    return isRead;
}

/// Guesses only for what is no UTF-8.
Outcome<> TextSource::guessEncoding(const GoesOn &goesOn)
{
    const Outcome<bool> isRead = readThrough(goesOn);
    if (isRead || isRead.isCancelled())
        return isRead ? Outcome<>() : isRead.failure();
    QFile file(_file.path);
    if (!file.open(QIODevice::ReadOnly))
        return Failure{file.errorString()};
    const QByteArray lines = tellingLinesIn(file, goesOn);
    file.seek(0);
    const QByteArray beginning = file.read(SampleSize);
    const bool hasZeros = beginning.contains('\0');
    const QString guessed = TextEncodings::guessed(hasZeros ? beginning : lines);
    if (guessed.isNull() || (hasZeros && !guessed.startsWith(u"UTF-16")))
        return isRead.failure();
    _file.encoding = guessed;
    return {};
}

TextReader TextSource::reader() const
{
    return _file.path.isNull() ? TextReader(_text) : TextReader(_file);
}
