#pragma once

// Private to the library. For what reads texts that mean a decimal: numbers, money, durations.

#include <KTUtility/CommonForms/Text/FoldedText_p.h>
#include <KTUtility/CommonForms/Text/KTReading.h>

#include <KTUtility/Platform/Values/NSDecimalNumber.h>

#include <QStringList>

namespace KTPrivate {
/// What a grammar made of a text.
struct KTUTILITY_EXPORT TypedDecimal
{
    enum class Outcome {
        Unknown, ///< the text is not of this grammar
        Read,    ///< it means the value
        Refused, ///< it is of this grammar, and a rule forbids it
    };

    Outcome outcome = Outcome::Unknown;
    NSDecimalNumber value;
    KTReading reading;
    QString reason;              ///< why it was refused, for people, in English
    QStringList reasonArguments; ///< for "%1" and so on in it

    bool isUnknown() const { return outcome == Outcome::Unknown; }
    bool isRead() const { return outcome == Outcome::Read; }
    bool isRefused() const { return outcome == Outcome::Refused; }

    /// Why it was refused, in the language of the program as it is now.
    QString translatedReason() const;

    static TypedDecimal refused(const QString &reason, const QStringList &arguments = {})
    {
        return {Outcome::Refused, {}, {}, reason, arguments};
    }
};

/// How grammars compute: all digits are kept, and nothing is raised.
inline const NSDecimalNumberBehaviors *exactDecimals()
{
    static const NSDecimalNumberHandler behavior(NSRoundPlain, NSDecimalNoScale, false, false,
                                                 false, false);
    return &behavior;
}

/// A part of a folded text as a part of a reading.
inline KTReadingPart partOf(const FoldedText &text, qsizetype begin, qsizetype end,
                            const QString &role, const QString &meaning)
{
    return {text.rangeInText(begin, end - begin), role, meaning};
}
} // namespace KTPrivate
