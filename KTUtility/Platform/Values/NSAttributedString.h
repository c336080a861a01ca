#pragma once

#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Text/NSRange.h>

#include <QList>
#include <QString>
#include <QTextCharFormat>
#include <QTextLayout>

/// A text with attributes over parts of it, ready for QTextLayout and QTextDocument.
///
/// Attributes are properties of QTextCharFormat. The runs do not overlap, stand in the order of
/// the text, and cover only what has attributes. Positions count UTF-16 units.
///
/// \code
/// NSAttributedString note(u"see www.example.com"_s);
/// note.addAttribute(NSLinkAttributeName, u"http://www.example.com"_s, {4, 15});
/// note.attribute(NSLinkAttributeName, 5).toString();    // "http://www.example.com"
/// layout.setText(note.string());
/// layout.setFormats(note.formats());
/// \endcode
class KTUTILITY_EXPORT NSAttributedString
{
public:
    NSAttributedString() = default;
    /// A text without attributes.
    explicit NSAttributedString(const QString &string) : _string(string) {}
    /// A text with the same attributes all over.
    NSAttributedString(const QString &string, const QTextCharFormat &attributes);

    /// The text without attributes.
    const QString &string() const { return _string; }
    /// How many UTF-16 units the text has.
    qsizetype length() const { return _string.size(); }

    /// The runs of attributes.
    const QList<QTextLayout::FormatRange> &formats() const { return _formats; }

    /// All attributes at \a index; none outside of the text.
    QTextCharFormat attributesAtIndex(qsizetype index) const;
    /// One attribute at \a index (a QTextFormat::Property); nil if it is not set there.
    QVariant attribute(int name, qsizetype atIndex) const;

    /// Sets one attribute over \a range and leaves the others as they are.
    /// \throws NSException NSRangeException if the range is not inside of the text.
    void addAttribute(int name, const QVariant &value, NSRange range);
    /// Sets all attributes of \a attributes over \a range; others stay.
    /// \throws NSException NSRangeException if the range is not inside of the text.
    void addAttributes(const QTextCharFormat &attributes, NSRange range);

    /// Whether both have the same text and each unit of it the same attributes.
    friend KTUTILITY_EXPORT bool operator==(const NSAttributedString &left,
                                            const NSAttributedString &right);

private:
    qsizetype splitAt(qsizetype position);

    QString _string;
    QList<QTextLayout::FormatRange> _formats;
};

/// The link of a text: a URL's text. A link is also marked as an anchor, as Qt expects.
inline constexpr int NSLinkAttributeName = QTextFormat::AnchorHref;
/// The colour of the letters, a QBrush.
inline constexpr int NSForegroundColorAttributeName = QTextFormat::ForegroundBrush;
/// The line under the letters, a QTextCharFormat::UnderlineStyle.
inline constexpr int NSUnderlineStyleAttributeName = QTextFormat::TextUnderlineStyle;
