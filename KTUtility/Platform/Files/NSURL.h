#pragma once

#include <KTUtility/KTUtilityExport.h>

#include <QMetaType>
#include <QString>

#include <optional>

/// A URL kept exactly as it was written.
///
/// Use it where the text of a URL must survive (links in notes, media URLs): QUrl lower-cases
/// hosts, encodes them and rejects names that are legal here. It checks what the platform checks,
/// which is which characters may stand in a URL, and no more.
///
/// \code
/// const auto url = NSURL::URLWithString(u"cobblemedia://Photo.0.jpg"_s);
/// url->absoluteString();    // "cobblemedia://Photo.0.jpg"
/// url->scheme();            // "cobblemedia"
/// NSURL::URLWithString(u"http://a b"_s);    // std::nullopt
/// NSURL::fileURLWithPath(u"/tmp/a b"_s)->absoluteString();    // "file:///tmp/a%20b"
/// \endcode
class KTUTILITY_EXPORT NSURL
{
public:
    /// The URL that \a text is (RFC 2396 and brackets).
    /// \return nothing for nil, the empty text, and texts that hold a character that may not stand
    /// in a URL: anything but ASCII, spaces, controls, quotation marks, angle brackets, backslashes,
    /// carets, backquotes, braces, bars, a "%" without two hexadecimal digits, a second "#".
    static std::optional<NSURL> URLWithString(const QString &text);

    /// The "file" URL of an absolute path.
    /// \return nothing for nil, relative paths, and paths that hold lone surrogates or NUL.
    static std::optional<NSURL> fileURLWithPath(const QString &path);

    /// The text that the URL was made from.
    const QString &absoluteString() const { return _text; }
    /// What stands before the first ":", in the case that was typed; nil for relative URLs.
    QString scheme() const;
    /// Whether the scheme is "file", in any case.
    bool isFileURL() const;
    /// The path: what stands behind the host and before "?" or "#", with its escapes replaced and
    /// without a "/" at its end. The path of "cobblemedia://Photo.0.jpg" is empty: that is a host.
    /// \return nil if there is no path ("mailto:ada"), or its escapes are no UTF-8.
    QString path() const;

    /// Whether both are written alike.
    friend bool operator==(const NSURL &left, const NSURL &right)
    {
        return left._text == right._text;
    }

private:
    explicit NSURL(const QString &text) : _text(text) {}

    QString _text;
};
