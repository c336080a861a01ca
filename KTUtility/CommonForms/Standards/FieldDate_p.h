#pragma once

// Private to the library. For fields of dates and times that read common forms.

#include "ShownDate_p.h"
#include "StandardDate_p.h"
#include <KTUtility/CommonForms/Text/KTReading.h>
#include <KTUtility/KTUtilityExport.h>
#include <KTUtility/Platform/Text/NSLocale.h>

#include <QString>

namespace KTPrivate {
/// A text as what the field itself shows, else as a date in a form that a standard gives.
struct FieldDate
{
    StandardDate::Answer answer = StandardDate::Answer::OtherForm;
    /// Whether a text in no form begins with a date of ISO 8601, so that it can only be read as
    /// that date with something behind it.
    bool beginsWithDate = false;
    bool hasTime = true; ///< whether the text says a time of day
    qint64 instant = 0;  ///< milliseconds since 1970
    KTReading reading;
    QString reason; ///< why it is refused, for people
};

/// Reads \a text so, for the field that shows dates with the context's formatter.
KTUTILITY_EXPORT FieldDate readFieldDate(const QString &text, const ShownDateContext &context,
                                         const NSLocale &locale);
} // namespace KTPrivate
