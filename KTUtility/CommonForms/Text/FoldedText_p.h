#pragma once

// Private to the library. For whatever looks for words and digits in typed texts.

#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Text/NSRange.h>

#include <QString>
#include <QStringView>
#include <QVarLengthArray>

namespace KTPrivate {
/// A typed text in one form for all ways of typing it, and the way back to what was typed:
/// - no upper case, no accents on Latin and Greek letters, compatibility characters as plain ones
///   (not so fractions and superscripts: "1½" is not 11/2, and "5²" not 52);
/// - decimal digits of all scripts as ASCII's;
/// - one blank for each run of blanks, none at the ends; marks that nobody sees are left out;
/// - "-" for all dashes and minus signs, "'" for all apostrophes.
///
/// Short texts need no memory of the heap.
class KTUTILITY_EXPORT FoldedText
{
public:
    /// No more of a text is looked at: nobody types as much into a field.
    static constexpr qsizetype MaximumLength = 1024;

    explicit FoldedText(QStringView text);

    /// Whether the text was too long to be looked at; then it is empty.
    bool isTooLong() const { return _isTooLong; }
    QStringView text() const { return {_units.data(), _units.size()}; }
    /// Where a part of the folded text stands in what was typed.
    NSRange rangeInText(qsizetype begin, qsizetype length) const;

    /// The same form for a word or sign that is looked for.
    static QString folded(QStringView text);

private:
    void foldASCII(QStringView text);
    void foldOthers(QStringView text);
    void appendCharacter(char32_t character, qsizetype position);
    void append(char16_t unit, qsizetype position);

    QVarLengthArray<char16_t, 96> _units;
    /// Of each unit of the folded text, where what it comes from begins in the typed text.
    QVarLengthArray<quint16, 96> _positions;
    qsizetype _end = 0; ///< of what was typed, without blanks at the end
    bool _isTooLong = false;
};
} // namespace KTPrivate
