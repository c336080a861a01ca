#pragma once

#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Text/NSCharacterSet.h>

#include <QString>

/// Reads a text from left to right, a piece a call.
///
/// Every call first skips whitespace and newlines, or what setCharactersToBeSkipped() says instead;
/// a call that finds nothing returns false and leaves the location where it was before the skip.
/// Results are written only on success, and each may be null. Locations count UTF-16 units. Linear
/// in the length of the text.
///
/// \code
/// NSScanner scanner(u"  width: 12.5 mm");
/// QString name;
/// double width = 0;
/// scanner.scanUpToString(u":", &name);    // "width"
/// scanner.scanString(u":");
/// scanner.scanDouble(&width);             // 12.5
/// scanner.isAtEnd();                      // false: "mm" is left
/// \endcode
class KTUTILITY_EXPORT NSScanner
{
public:
    /// A scanner over a copy of \a text, at its start.
    explicit NSScanner(const QString &text);
    /// A scanner over a copy of a part of a text, at its start.
    explicit NSScanner(QStringView text);

    /// The text that is scanned.
    const QString &string() const { return _text; }

    /// The position from which it goes on.
    qsizetype scanLocation() const { return _location; }
    /// Moves to \a location, at most the length of the text.
    /// \throws NSException NSRangeException beyond it.
    void setScanLocation(qsizetype location);

    /// Whitespace and newlines unless set; the empty set switches the skipping off.
    void setCharactersToBeSkipped(const NSCharacterSet &set);

    /// Whether capital and small letters differ; they do not unless set.
    bool caseSensitive() const { return _caseSensitive; }
    /// Whether scanString() and scanUpToString() distinguish upper and lower case; they do not at
    /// first. Scans of character sets always do.
    void setCaseSensitive(bool caseSensitive) { _caseSensitive = caseSensitive; }

    /// True if nothing but skippable characters is left.
    bool isAtEnd() const;

    /// The run of members of \a set that starts here.
    bool scanCharactersFromSet(const NSCharacterSet &set, QString *intoString = nullptr);
    /// The run up to the next member of \a set, or to the end; false if a member stands here.
    bool scanUpToCharactersFromSet(const NSCharacterSet &set, QString *intoString = nullptr);
    /// \a string itself, in a canonically equivalent form (Unicode, chapter 3.7); the result is
    /// the text as it stands in the source.
    bool scanString(QStringView string, QString *intoString = nullptr);
    /// The text up to \a string, or to the end; false if \a string stands here.
    bool scanUpToString(QStringView string, QString *intoString = nullptr);

    /// A decimal integer with a sign and whitespace after it; too large ones become the limits.
    bool scanInt(qint32 *value = nullptr);
    /// The same as scanInt() with 64 bits.
    bool scanLongLong(qint64 *value = nullptr);
    /// A hexadecimal integer, "0x" or "0X" before it or not; too large ones become the maximum.
    bool scanHexInt(quint32 *value = nullptr);
    /// The same as scanHexInt() with 64 bits.
    bool scanHexLongLong(quint64 *value = nullptr);
    /// A floating point number with "." and an exponent that counts only if digits follow it.
    bool scanDouble(double *value = nullptr);

private:
    qsizetype skipped() const;
    bool finish(qsizetype start, qsizetype end, QString *result);
    qsizetype lengthOfMatch(QStringView string, qsizetype at) const;

    QString _text;
    qsizetype _location = 0;
    NSCharacterSet _skipped = NSCharacterSet::whitespaceAndNewlineCharacterSet();
    bool _caseSensitive = false;
};
