#pragma once

#include <QString>
#include <QStringView>

namespace KTPrivate {
/// Reads plain numbers without ICU.
///
/// It decides only what is certain: whitespace, a sign, digits with a point and regular groups of
/// three, parentheses where they mean a negative number, and texts that begin with something that
/// no number begins with. Blanks of all kinds, the digits of all scripts and U+2212 are what they
/// stand for in ASCII. What it decides is what ICU's lenient parser answers (tests compare them
/// over a million texts); everything else is left undecided for ICU.
class NumberReader
{
public:
    enum Outcome { Undecided, Number, NoNumber };

    struct Result
    {
        Outcome outcome = Undecided;
        qsizetype begin = 0; ///< the first unit that is no whitespace
        qsizetype end = 0;   ///< behind the last unit read, or the error
        quint64 coefficient = 0;
        int fractionDigits = 0; ///< of the coefficient
        bool isNegative = false;
        bool hasPoint = false;
    };

    Result read(QStringView text) const;

    char16_t decimalSeparator = u'.';
    char16_t groupingSeparator = 0;  ///< 0 if groups are not read, or not plain ASCII ones
    bool usesGrouping = false;       ///< whether groups may be read at all
    bool hasRegularGroups = false;   ///< whether they are of three, so that blanks part them, too
    bool usesParentheses = false;    ///< "(5)" is -5; otherwise "-5" is
    char16_t notANumberStart = u'N'; ///< upper case; texts that begin so are left to ICU
};
} // namespace KTPrivate
