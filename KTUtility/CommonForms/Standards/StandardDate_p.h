#pragma once

// Private to the library. For fields of dates and times, which read the standards before all else.

#include <KTUtility/CommonForms/Text/FoldedText_p.h>
#include <KTUtility/CommonForms/Text/KTReading.h>
#include <KTUtility/CommonForms/Zones/TypedZone_p.h>
#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Text/NSLocale.h>

#include <QList>
#include <QString>

#include <optional>

namespace KTPrivate {
class TimeZoneRules;

/// A time of day as it was typed, which need not exist.
struct KTUTILITY_EXPORT StandardTime
{
    int hour = 0; ///< 24 at the end of a day
    int minute = 0;
    int second = 0; ///< 60 in a leap second
    int millisecond = 0;

    /// Whether there is such a time; a leap second may be one.
    bool exists() const;
    bool isLeapSecond() const { return second == 60; }
    /// Since the day began; a leap second counts as the one before it.
    qint64 milliseconds() const;
};

/// A date or time in one of the forms that standards give: ISO 8601 and RFC 3339, RFC 5322 (mail),
/// RFC 850 (old web servers), asctime() and the command "date", ECMAScript's Date.
///
/// They mean the same in every locale. docs/common-forms.md says what is read of them, and what is
/// not though the standard has it.
struct KTUTILITY_EXPORT StandardDate
{
    enum class Answer : quint8 {
        OtherForm, ///< the text is in none of the forms
        Read,
        Refused ///< the text is in a form, but means nothing: 30 February
    };

    Answer answer = Answer::OtherForm;
    /// Whether a text in no form begins with a date in a form: "2008-03-05 at noon".
    bool beginsWithDate = false;
    /// "iso8601.date", "rfc5322", …
    QString form;
    /// Days since 1970; none if the text is a time of day.
    std::optional<qint64> day;
    /// None if the text is a day.
    std::optional<StandardTime> time;
    /// Not read if the text has none.
    TypedZone zone;
    /// A place whose clocks have to agree with the zone ("[Europe/Berlin]").
    TypedZone place;
    QList<KTReadingPart> parts;
    /// Why it is refused, for people.
    QString reason;

    bool isRead() const { return answer == Answer::Read; }
};

/// Reads the whole text as a date, a time, or both, in one of the forms.
/// \param locale is that of a zone's name behind a time.
KTUTILITY_EXPORT StandardDate readStandardDate(const FoldedText &text, const NSLocale &locale);

/// What a standard date leaves to the field in which it is typed.
struct StandardDateContext
{
    const TimeZoneRules &rules; ///< of the field's zone
    qint64 today = 0;           ///< as clocks in that zone show it, days since 1970
    qint64 timeOfDays = 0;      ///< of a day without time, in milliseconds
};

/// The instant that a date means, in milliseconds since 1970. Refuses the date, with a reason, if
/// there is none: a leap second where none can be, a zone that contradicts the offset.
KTUTILITY_EXPORT std::optional<qint64> instantOf(StandardDate *date,
                                                 const StandardDateContext &context);
} // namespace KTPrivate
