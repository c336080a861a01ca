#pragma once

#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Numbers/NSNumberFormatter.h>
#include <KTUtility/Platform/Values/NSDecimalNumber.h>

#include <QString>

namespace KTPrivate {
/// Where the separators of a locale's numbers stand: groups of three digits before the point, or of
/// the locale's own sizes ("12,34,567" in India).
///
/// The lenient reader takes a separator that is not the point for one of groups wherever it stands,
/// so that "1,50" is 150 where the point is ".". This class finds that out without knowing how the
/// text was read: read strictly, one of its numbers must be the value that the reader gave.
///
/// \code
/// const DigitGroups groups(formatter);         // de_CH
/// groups.fit(u"1'234.50"_s, amount);           // true if amount is 1234.5
/// groups.fit(u"1,50"_s, NSDecimalNumber(150)); // false
/// \endcode
class KTUTILITY_EXPORT DigitGroups
{
public:
    /// Those of the locale and style of a formatter.
    explicit DigitGroups(const NSNumberFormatter &formatter);

    /// Whether a text that was read as \a value has its separators where groups end and where the
    /// fraction begins. True for a text without decimal digits.
    bool fit(const QString &text, const NSDecimalNumber &value) const;

private:
    struct Numeral;
    class Scanner;

    QString takeExponent(QString *text) const;
    bool isValue(const Numeral &numeral, const QString &exponent,
                 const NSDecimalNumber &value) const;
    bool isEven(const QStringList &groups) const;
    bool isPoint(QChar separator) const;

    int _groupSize;
    int _otherGroupSize;
    QString _points;
    QString _exponentSymbol;
};
} // namespace KTPrivate
