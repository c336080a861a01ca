#pragma once

// Private to the library. For what reads typed numbers, amounts and counts.

#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Text/NSLocale.h>

#include <QString>

#include <memory>

namespace KTPrivate {
/// The signs in the numbers of a locale, in the form of folded texts, and how its groups are cut.
struct KTUTILITY_EXPORT NumberSigns
{
    QString points;         ///< what separates the fraction; one unit for each sign
    QString groups;         ///< what separates groups of digits
    int groupSize = 3;      ///< of the group before the point
    int otherGroupSize = 3; ///< of the others: 2 in India
    QString exponent;       ///< what stands before an exponent
    /// Whether "/" is what people type before the fraction: keyboards of Persian, Kurdish and Pashto
    /// have it in the place of the decimal sign.
    bool hasSlashAsPoint = false;

    bool isPoint(char16_t unit) const { return points.contains(QChar(unit)); }
    bool isGroup(char16_t unit) const { return groups.contains(QChar(unit)); }

    /// Those of numbers; found out once for each locale.
    static std::shared_ptr<const NumberSigns> of(const NSLocale &locale);
    /// Those of amounts in a currency, which may be others ("1 234$50" escudos).
    static std::shared_ptr<const NumberSigns> ofMoney(const NSLocale &locale, const QString &code);
};
} // namespace KTPrivate
