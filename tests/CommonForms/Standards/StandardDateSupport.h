#pragma once

#include <KTUtility/CommonForms/Standards/StandardDate_p.h>
#include <KTUtility/Platform/Dates/CivilDate_p.h>
#include <KTUtility/Platform/Values/UTC_p.h>
#include <KTUtility/Platform/Zones/TimeZoneRules_p.h>

#include "support/Zones.h"

#include <QDateTime>

// What the tests of the standards' forms share.

/// A text in New York on 20 February 2008, where days without time are at noon: "iso8601.date
/// 2008-03-05T17:00:00Z" (the instant), "refused: …" or "other".
inline QString standardReading(const QString &text, const char *locale = "en_US")
{
    using namespace KTPrivate;
    StandardDate date = readStandardDate(FoldedText(text), NSLocale(QString::fromLatin1(locale)));
    if (date.answer == StandardDate::Answer::OtherForm)
        return QStringLiteral("other");
    const StandardDateContext context{TimeZoneRules::rulesOf(testing_support::newYork()),
                                      Civil::daysOf(2008, 2, 20), 43'200'000};
    const auto instant = date.isRead() ? instantOf(&date, context) : std::nullopt;
    if (!instant)
        return QStringLiteral("refused: ") + date.reason;
    const QDateTime utc = QDateTime::fromMSecsSinceEpoch(*instant, UTC);
    const bool isWhole = *instant % 1000 == 0;
    return date.form + u' ' + utc.toString(isWhole ? Qt::ISODate : Qt::ISODateWithMs);
}
