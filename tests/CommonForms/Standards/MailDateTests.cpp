// Dates as programs write them in English.

#include "StandardDateSupport.h"
#include "support/TestSupport.h"

using namespace Qt::StringLiterals;

namespace {
using Rows = QList<std::pair<QString, QString>>;

/// The same in every locale.
void expectReadings(const Rows &rows)
{
    for (const char *const locale : {"en_US", "de_DE", "ja_JP"}) {
        for (const auto &[text, expected] : rows)
            EXPECT_EQ(standardReading(text, locale), expected) << locale << ' ' << qPrintable(text);
    }
}
} // namespace

TEST(MailDate, ReadsMail)
{
    expectReadings({
        {u"Wed, 5 Mar 2008 14:30:00 +0100"_s, u"rfc5322 2008-03-05T13:30:00Z"_s},
        {u"Wed, 5 Mar 2008 14:30:00 +0100 (CET)"_s, u"rfc5322 2008-03-05T13:30:00Z"_s},
        {u"wed, 05 mar 2008 14:30 GMT"_s, u"rfc5322 2008-03-05T14:30:00Z"_s},
        {u"Wed,5 Mar 2008 14:30:00 UT"_s, u"rfc5322 2008-03-05T14:30:00Z"_s},
        {u"5 Mar 08 14:30 EST"_s, u"rfc5322 2008-03-05T19:30:00Z"_s},
        {u"5 Mar 2008 14:30:00 PDT"_s, u"rfc5322 2008-03-05T21:30:00Z"_s},
        {u"5 Mar 2008 14:30:00 CST"_s, u"rfc5322 2008-03-05T20:30:00Z"_s},
        {u"1 Jan 49 00:00 GMT"_s, u"rfc5322 2049-01-01T00:00:00Z"_s},
        {u"1 Jan 50 00:00 GMT"_s, u"rfc5322 1950-01-01T00:00:00Z"_s},
        {u"5 Mar 108 14:30 GMT"_s, u"rfc5322 2008-03-05T14:30:00Z"_s},
        {u"Wed, 31 Dec 2008 23:59:60 GMT"_s, u"rfc5322 2008-12-31T23:59:59Z"_s},
    });
}

TEST(MailDate, ReadsWhatProgramsWrite)
{
    expectReadings({
        {u"Wednesday, 05-Mar-08 14:30:00 GMT"_s, u"rfc850 2008-03-05T14:30:00Z"_s},
        {u"Wed, 05-Mar-2008 14:30:00 GMT"_s, u"rfc850 2008-03-05T14:30:00Z"_s},
        {u"Wed Mar  5 14:30:00 2008"_s, u"asctime 2008-03-05T19:30:00Z"_s},
        {u"Wed Mar  5 14:30:00 CET 2008"_s, u"asctime 2008-03-05T13:30:00Z"_s},
        {u"Wed Mar  5 02:30:00 PM UTC 2008"_s, u"asctime 2008-03-05T14:30:00Z"_s},
        {u"Wed Mar  5 12:30:00 AM UTC 2008"_s, u"asctime 2008-03-05T00:30:00Z"_s},
        {u"Wed  5 Mar 14:30:00 UTC 2008"_s, u"asctime 2008-03-05T14:30:00Z"_s},
        {u"Wed Mar 5 14:30:00 2008 +0100"_s, u"asctime 2008-03-05T13:30:00Z"_s},
        {u"Wed Mar 05 2008 14:30:00 GMT+0100 (Central European Standard Time)"_s,
         u"ecmascript 2008-03-05T13:30:00Z"_s},
    });
}

TEST(MailDate, RefusesWhatContradictsItself)
{
    expectReadings({
        {u"Thu, 5 Mar 2008 14:30:00 +0100"_s,
         u"refused: The date is on another day of the week."_s},
        {u"Thu Mar 5 14:30:00 2008"_s, u"refused: The date is on another day of the week."_s},
        {u"30 Feb 2008 14:30 GMT"_s, u"refused: The month has no such day."_s},
        {u"5 Mar 2008 25:30 GMT"_s, u"refused: There is no such time of day."_s},
        {u"Wed Mar 5 14:30:00 IST 2008"_s, u"refused: There are several zones of this name."_s},
    });
}

TEST(MailDate, LeavesOtherFormsAlone)
{
    expectReadings({
        {u"5 Mar 2008 14:30"_s, u"other"_s},
        {u"5 March 2008 14:30 GMT"_s, u"other"_s},
        {u"Wed, 5 Mar 2008"_s, u"other"_s},
        {u"Wed 5 Mar 2008 14:30 GMT"_s, u"other"_s},
        {u"Wed Mar 5 14:30:00"_s, u"other"_s},
        {u"Wed Mar 5 14:30:00 PM CET 2008"_s, u"other"_s},
        {u"Wed Mar 5 14:30:00 2008 x"_s, u"other"_s},
        {u"Wed, 5 Mar 2008 14:30:00 +0100 (CET"_s, u"other"_s},
        {u"Wed, 5 Mar 2008 14:30:00 +0100 (a) b"_s, u"other"_s},
        {u"wednesday: 5"_s, u"other"_s},
        {u"mar:"_s, u"other"_s},
        {u"5 mar:"_s, u"other"_s},
    });
}
