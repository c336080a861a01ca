#include "DateFormatterAccess_p.h"

#include "DateWriter_p.h"
#include "NSDateFormatterPrivate_p.h"
#include "NaturalLanguageDate_p.h"

using namespace KTPrivate;

bool DateFormatterAccess::parse(const NSDateFormatter &formatter, const DateText &text,
                                DateMatch *match)
{
    return formatter._private->parse(text, match);
}

void DateFormatterAccess::setFormatOfStyle(NSDateFormatter &formatter, const QString &format)
{
    formatter.setDateFormat(format);
    formatter._private->hasStyleInFormat = true;
}

QDateTime DateFormatterAccess::dateOf(const NSDateFormatter &formatter, qint64 time)
{
    return formatter._private->dateOf(time);
}

std::optional<bool> DateFormatterAccess::parseWithoutICU(const NSDateFormatter &formatter,
                                                         const DateText &text, DateMatch *match)
{
    using DateMatcher::Answer;
    const NSDateFormatter::Private &settings = *formatter._private;
    const Answer answer = DateMatcher::match(settings.pattern(), settings.reading(), text, match);
    return answer == Answer::Undecided ? std::nullopt : std::optional(answer == Answer::Matched);
}

bool DateFormatterAccess::parseWithICU(const NSDateFormatter &formatter, const DateText &text,
                                       DateMatch *match)
{
    return formatter._private->parseWithICU(text, match);
}

QString DateFormatterAccess::stringWithoutICU(const NSDateFormatter &formatter,
                                              const QDateTime &date)
{
    const NSDateFormatter::Private &settings = *formatter._private;
    QString text;
    const bool isWritten =
        DateWriter::write(settings.pattern(), settings.environment(), settings.rules(),
                          date.toMSecsSinceEpoch(), nullptr, &text);
    return isWritten ? text : QString();
}

QString DateFormatterAccess::stringWithICU(const NSDateFormatter &formatter, const QDateTime &date)
{
    const NSDateFormatter::Private &settings = *formatter._private;
    return DateEngine::engineOf(settings.environment(), settings.rules(), settings.isLenient)
        .stringOf(settings.pattern(), date.toMSecsSinceEpoch());
}

void DateFormatterAccess::setClock(qint64 (*clock)())
{
    NaturalLanguageDate::setClock(clock);
}
