#pragma once

#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Text/NSRange.h>

#include <QList>
#include <QString>
#include <QVariant>

/// A part of a typed text that decided what was read: "5", as the day of a date.
struct KTReadingPart
{
    /// Where it stands in the text, in UTF-16 units.
    NSRange range;
    /// What it was taken for, in CLDR's words: "day", "month", "dayPeriod", "currency", "unit".
    QString role;
    /// What it means there, for people: "3", "PM", "EUR".
    QString meaning;

    friend bool operator==(const KTReadingPart &, const KTReadingPart &) = default;
};

/// How a formatter understood the text that it read last: in which form, by which parts of the text,
/// and whether the text could have been meant otherwise.
///
/// Made by formatters that read common forms, see KTReadingFormatter::reading(). For telling people
/// what a field understood before it is stored, and for finding out why a text was not read.
///
/// \code
/// KTDateTimeFormatter formatter;                           // in the user's locale, here en_US
/// formatter.setReadsCommonForms(true);
/// QVariant value;
/// formatter.getObjectValue(&value, u"Wed 5 March 2008"_s);
/// formatter.reading().form;                                // "common.date"
/// formatter.reading().parts.at(1).role;                    // "day"
/// \endcode
struct KTUTILITY_EXPORT KTReading
{
    /// The name of the form, which does not change from one release to the next; nil if the text was
    /// not read. docs/common-forms.md lists them all.
    QString form;
    /// The parts in the order in which they stand in the text; words that decide nothing ("the",
    /// "at") are left out. None where the form takes the whole text at once.
    QList<KTReadingPart> parts;
    /// The identifier of the zone in which a date or time was read; nil for what has none.
    QString zone;
    /// What the text means in its other reading, if there is one; nil if it can mean nothing else.
    QVariant alternative;
    /// The form of the other reading, which may be that of the reading itself.
    QString alternativeForm;

    /// Whether a text was read.
    bool isRead() const { return !form.isNull(); }
    /// Whether the text could have been meant otherwise.
    bool isAmbiguous() const { return alternative.isValid(); }
};
