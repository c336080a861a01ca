#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <memory>

struct UConverter;

/// Decodes a text piece by piece. What is not in the encoding is an error, never a substitute.
///
/// \code
/// TextDecoder decoder(u"UTF-8"_s);
/// QString text;
/// decoder.decode("Stra\xc3", false, &text);    // "Stra"
/// decoder.decode("\x9f" "e", true, &text);     // "Straße"
/// \endcode
class TextDecoder
{
public:
    /// \param encoding one of TextEncodings::names().
    explicit TextDecoder(const QString &encoding);
    ~TextDecoder();
    TextDecoder(TextDecoder &&other) noexcept;

    /// Appends the next piece of a text.
    /// \param isLast whether the text ends with the bytes.
    /// \return false if they are not in the encoding; then the text in front of that is appended.
    bool decode(QByteArrayView bytes, bool isLast, QString *text);

private:
    struct Close
    {
        void operator()(UConverter *converter) const;
    };

    bool decodeUtf8(QByteArrayView bytes, bool isLast, QString *text);
    bool convert(QByteArrayView bytes, bool isLast, QString *text);

    std::unique_ptr<UConverter, Close> _converter;
    bool _isUtf8;
    /// The beginning of a character whose end was not there yet.
    QByteArray _beginning;
};
