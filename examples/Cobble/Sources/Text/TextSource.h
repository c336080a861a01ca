#pragma once

#include "Outcome.h"
#include "TextReader.h"

#include <functional>
#include <memory>

class QTemporaryFile;

/// A text, or that of a file, which can be read as often as it takes and never lies in memory as a
/// whole.
///
/// What can be read only once, a pipe, is copied into a temporary file. A file that changes between
/// two readings is an error of the second one, or of the first if it changes meanwhile.
///
/// \code
/// const Outcome<TextSource> source = TextSource::ofFile(path);
/// TextReader reader = source->reader();
/// QString text;
/// while (*reader.readMore(&text))
///     use(text);
/// \endcode
class TextSource
{
public:
    /// What may be copied of a pipe, and read into memory, in bytes.
    static constexpr qint64 SizeLimit = qint64(1) << 30;

    explicit TextSource(const QString &text) : _text(text) {}

    /// Opens a file. It fails where the file is missing, a folder, unreadable or empty; the reason does
    /// not name the file.
    /// \param encoding one of TextEncodings::names(); nil for UTF-8 with or without a byte order mark,
    /// or UTF-16 with one; TextEncodings::Automatic to guess where it is none of these. A file that
    /// is marked as something else is an error.
    /// \param goesOn is asked now and then, where the whole file has to be read; may be empty.
    static Outcome<TextSource> ofFile(const QString &path, const QString &encoding = {},
                                      const std::function<bool()> &goesOn = {});

    /// The encoding, one of TextEncodings::names(); nil for a text.
    const QString &encoding() const { return _file.encoding; }
    /// What reads it from the beginning, which must not outlive this.
    TextReader reader() const;

private:
    TextSource() = default;
    using GoesOn = std::function<bool()>;

    Outcome<> useFile(const QString &path, const QString &encoding, const GoesOn &goesOn);
    Outcome<> copy(QFile &file, const GoesOn &goesOn);
    Outcome<> findEncoding(const QString &asked, const GoesOn &goesOn);
    Outcome<bool> readThrough(const GoesOn &goesOn) const;
    Outcome<> guessEncoding(const GoesOn &goesOn);

    QString _text;
    TextReader::File _file;
    std::shared_ptr<QTemporaryFile> _copy;
};
