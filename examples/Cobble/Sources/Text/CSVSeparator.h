#pragma once

#include <QList>
#include <QString>

#include <optional>

/// Finding out what separates the fields of a text.
namespace CSVSeparator {
/// A first line "sep=;" by which spreadsheets name the separator of the lines that follow.
struct Directive
{
    QChar separator;
    /// The length of the line with its line break, in UTF-16 units.
    qsizetype length = 0;
};

/// Whether \a character can separate fields: all but quotes, line breaks, NUL and halves of
/// surrogate pairs.
bool isUsable(QChar character);

/// The separator that a person asked for: one character, "\t", or one of the names comma,
/// semicolon, tab, pipe and space in any case; nothing for any other text.
///
/// \code
/// CSVSeparator::fromName(u"semicolon");    // ';'
/// CSVSeparator::fromName(u"::");           // nothing
/// \endcode
std::optional<QChar> fromName(QStringView name);

/// The name of a separator for people: "comma", or the character itself if it has no name.
QString nameOf(QChar separator);

/// The directive that \a text begins with, if it does.
std::optional<Directive> directiveOf(QStringView text);

/// The separators that files of the user's locale may have, the likeliest first: what
/// KTInternational says, then comma, semicolon, tab and pipe.
QList<QChar> candidates();

/// The separator that \a text seems to be written with: the one of candidates() that stands equally
/// often, outside of quotes and at least once, in most of the first rows that hold any text. The
/// earlier in their order wins a tie, and the first one where there is none of them.
QChar sniffed(QStringView text);
} // namespace CSVSeparator
