#include "TextReader.h"

#include "LineBreaks.h"
#include "Reasons.h"
#include "TextDecoder.h"

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {
constexpr qint64 NanosecondsPerSecond = 1'000'000'000;

/// Whether a character of some bytes is NUL.
bool holdsNul(QByteArrayView bytes, bool isUtf16)
{
    if (!isUtf16)
        return bytes.contains('\0');
    for (qsizetype index = 0; index + 1 < bytes.size(); index += 2) {
        if (bytes[index] == '\0' && bytes[index + 1] == '\0')
            return true;
    }
    return false;
}

bool isUtf16(const QString &encoding)
{
    return encoding.startsWith(u"UTF-16");
}

/// Counts the line breaks of a text that comes in pieces.
class LineCounter
{
public:
    void add(QStringView piece)
    {
        if (piece.isEmpty())
            return;
        // The two halves of one.
        _count -= _endsWithReturn && piece.startsWith(u'\n');
        _count += lineBreakCount(piece);
        _endsWithReturn = piece.endsWith(u'\r');
    }
    qint64 count() const { return _count; }

private:
    qint64 _count = 0;
    bool _endsWithReturn = false;
};
} // namespace

TextReader::Identity TextReader::Identity::of(const QFile &file)
{
    struct stat status = {};
    if (::fstat(file.handle(), &status) != 0)
        return {};
    return {quint64(status.st_dev), quint64(status.st_ino), qint64(status.st_size),
            status.st_mtim.tv_sec * NanosecondsPerSecond + status.st_mtim.tv_nsec};
}

bool TextReader::Identity::operator==(const Identity &other) const
{
    return device == other.device && number == other.number && size == other.size &&
           changed == other.changed;
}

TextReader::TextReader(const QString &text) : _text(text) {}

TextReader::TextReader(const File &file) : _source(file) {}

TextReader::~TextReader() = default;
TextReader::TextReader(TextReader &&other) noexcept = default;

Failure TextReader::notText()
{
    return {Reasons::tr("not a text file")};
}

Outcome<bool> TextReader::readMore(QString *text, qint64 size)
{
    return _source ? readFile(text, size) : readText(text, size);
}

Outcome<bool> TextReader::readText(QString *text, qint64 size)
{
    const QStringView piece = QStringView(_text).mid(_position, size);
    *text += piece;
    _position += piece.size();
    return !piece.isEmpty();
}

Outcome<> TextReader::open()
{
    _file = std::make_unique<QFile>(_source->path);
    if (!_file->open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return Failure{_file->errorString()};
    _decoder = std::make_unique<TextDecoder>(_source->encoding);
    return checkSame().andThen([this] {
        return _file->seek(_source->markLength) ? Outcome<>() : Failure{_file->errorString()};
    });
}

/// Whoever has read a file once relies on reading the same again.
Outcome<> TextReader::checkSame() const
{
    return Identity::of(*_file) == _source->identity
               ? Outcome<>()
               : Failure{Reasons::tr("the file was changed while it was read")};
}

Outcome<bool> TextReader::readFile(QString *text, qint64 size)
{
    if (const Outcome<> opened = _file ? Outcome<>() : open(); !opened)
        return opened.failure();
    if (_isAtEnd)
        return false;
    const QByteArray bytes = _file->read(size);
    if (_file->error() != QFileDevice::NoError)
        return Failure{_file->errorString()};
    _isAtEnd = bytes.isEmpty();
    const qsizetype before = text->size();
    const bool isDecoded = _decoder->decode(bytes, _isAtEnd, text);
    // A file that is cut off while it is read is no text in its encoding, either.
    if (const Outcome<> same = _isAtEnd || !isDecoded ? checkSame() : Outcome<>(); !same)
        return same.failure();
    if (QStringView(*text).sliced(before).contains(QChar::Null))
        return notText();
    if (!isDecoded)
        return notInEncoding();
    return !_isAtEnd || text->size() > before;
}

/// Reads the file once more: binary files are called what they are.
Failure TextReader::notInEncoding() const
{
    QFile file(_source->path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered) || !file.seek(_source->markLength))
        return {file.errorString()};
    TextDecoder decoder(_source->encoding);
    LineCounter lines;
    bool isDecoded = true;
    for (bool isLast = false; !isLast;) {
        const QByteArray bytes = file.read(BlockSize);
        isLast = bytes.isEmpty();
        if (_goesOn && !_goesOn())
            return {Reasons::tr("it was cancelled"), true};
        if (holdsNul(bytes, isUtf16(_source->encoding)))
            return notText();
        QString text;
        if (isDecoded) {
            isDecoded = decoder.decode(bytes, isLast, &text);
            lines.add(text);
        }
    }
    const QString name = isUtf16(_source->encoding) ? u"UTF-16"_s : _source->encoding;
    return {Reasons::tr("not a text file in %1 (line %2)").arg(name).arg(lines.count() + 1)};
}
