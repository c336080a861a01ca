#pragma once

#include "Outcome.h"

#include <QFile>

#include <functional>
#include <memory>
#include <optional>

class TextDecoder;

/// Reads a text from its beginning to its end, in blocks; see TextSource, which makes readers.
class TextReader
{
public:
    /// What tells a file from others, and from itself when it was changed.
    struct Identity
    {
        quint64 device = 0;
        quint64 number = 0;
        qint64 size = 0;
        qint64 changed = 0; ///< in nanoseconds

        static Identity of(const QFile &file);
        bool operator==(const Identity &other) const;
    };

    /// A file of text.
    struct File
    {
        QString path;
        QString encoding;
        /// Bytes before the text: the byte order mark.
        qint64 markLength = 0;
        Identity identity;
    };

    /// How much is read at once unless more is asked for, in bytes.
    static constexpr qint64 BlockSize = 1 << 17;

    explicit TextReader(const QString &text);
    explicit TextReader(const File &file);
    ~TextReader();
    TextReader(TextReader &&other) noexcept;

    /// Appends what comes next.
    /// \param size about so many bytes of the file.
    /// \return false at the end of the text; it fails where the file cannot be read, has changed, or
    /// is no text in its encoding, with the number of the line.
    Outcome<bool> readMore(QString *text, qint64 size = BlockSize);

    /// \param goesOn is asked while a file is looked through for why it is no text in its encoding; then
    /// the reader fails as cancelled.
    void setGoesOn(const std::function<bool()> &goesOn) { _goesOn = goesOn; }

    /// Why something is no text at all.
    static Failure notText();

private:
    Outcome<bool> readText(QString *text, qint64 size);
    Outcome<bool> readFile(QString *text, qint64 size);
    Outcome<> open();
    Outcome<> checkSame() const;
    Failure notInEncoding() const;

    QString _text;
    qsizetype _position = 0;
    std::optional<File> _source;
    std::unique_ptr<QFile> _file;
    std::unique_ptr<TextDecoder> _decoder;
    bool _isAtEnd = false;
    std::function<bool()> _goesOn;
};
