#pragma once

#include <QList>
#include <QString>
#include <QStringList>

/// A line of a vCard (RFC 6350, RFC 2426, and version 2.1): "item1.TEL;TYPE=home:+49 30 1234".
///
/// \code
/// const auto line = VCardLine::fromText(u"TEL;TYPE=home,voice:555-0101"_s);
/// line->name;                // "TEL"
/// line->hasType(u"HOME");    // true
/// line->parts();             // {"555-0101"}
/// \endcode
struct VCardLine
{
    /// The lines of a text, with those that are folded put together.
    static QList<VCardLine> linesOf(const QString &text);
    /// \return nothing if it is no line of a vCard.
    static std::optional<VCardLine> fromText(const QString &text);

    /// In capitals, without the group before it.
    QString name;
    /// The parameters, as "TYPE=home"; in version 2.1 also "HOME" alone.
    QStringList parameters;
    /// As it stands there; in quoted-printable already decoded.
    QString value;

    /// The value of a parameter; nil if there is none.
    /// \param wanted in capitals.
    QString parameter(QStringView wanted) const;
    /// Whether it is of a type, such as "HOME" or "CELL".
    /// \param type in capitals.
    bool hasType(QStringView type) const;
    /// The value's parts between semicolons, without their escapes.
    QStringList parts() const;
    /// The whole value without its escapes.
    QString text() const;
    /// The bytes of a value in base64; empty for others.
    QByteArray data() const;
};
