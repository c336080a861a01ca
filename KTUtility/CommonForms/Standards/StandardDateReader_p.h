#pragma once

#include "StandardDate_p.h"
#include <KTUtility/CommonForms/Text/TextCursor_p.h>

namespace KTPrivate {
/// Reads what the standards' forms of dates have in common, from left to right, and notes the parts.
class StandardDateReader
{
public:
    StandardDateReader(const FoldedText &text, const NSLocale &locale)
        : _text(text), _locale(locale), _cursor(text.text())
    {
    }

protected:
    // Each returns whether it was read; the place is where it was if not.

    /// So many digits as a part of the date.
    std::optional<int> takePart(qsizetype count, QStringView role);
    /// A number of one to two digits as a part of the date.
    std::optional<int> takeShortPart(QStringView role);
    /// "14:30", "14:30:05"; hours have one or two digits.
    bool takeClock();
    /// ".5" or ",5" of a second.
    bool takeSecondsFraction();
    /// The digits behind a point or comma, which are of so many milliseconds; the result is added
    /// to the time.
    bool takeFractionOf(qint64 milliseconds);
    /// The zone at this place.
    bool takeZone(const TypedZone &zone);

    void addPart(qsizetype begin, QStringView role, const QString &meaning);
    /// Sets the day; refuses the date if there is none.
    void setDay(int year, int month, int day);
    /// Refuses the date, unless it is refused already.
    void refuse(const QString &reason);
    /// The result of a text that is of a form: read, or refused.
    StandardDate result(const QString &form);

    const FoldedText &_text;
    const NSLocale &_locale;
    TextCursor _cursor;
    StandardDate _date;

private:
    bool isClockHere() const;
    void setFraction(qint64 milliseconds);
};
} // namespace KTPrivate
