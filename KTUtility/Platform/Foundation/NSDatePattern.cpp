#include "NSDatePattern_p.h"

#include <QHash>
#include <QMutex>
#include <QMutexLocker>

#include <atomic>

namespace {
/// More patterns than any application has; the texts of patterns may come from outside.
constexpr int Capacity = 4096;

quint64 nextNumber()
{
    static std::atomic<quint64> last = 0;
    return ++last;
}

bool isLetter(char16_t unit)
{
    return (unit >= u'A' && unit <= u'Z') || (unit >= u'a' && unit <= u'z');
}

/// The letters of fields that are numbers however often the letter stands there.
bool isAlwaysNumber(char16_t letter)
{
    return QStringView(u"YyudehHmsSDFwWkK").contains(letter);
}

qsizetype endOfRun(QStringView text, qsizetype start)
{
    qsizetype end = start;
    while (end < text.size() && text[end] == text[start])
        ++end;
    return end;
}

qsizetype endOfQuoted(QStringView text, qsizetype start)
{
    const qsizetype end = text.indexOf(u'\'', start + 1);
    return end < 0 ? text.size() : end + 1;
}

/// The letters of the number fields that follow each other from \a start.
int countOfNumberLetters(QStringView text, qsizetype start)
{
    qsizetype at = start;
    while (at < text.size()) {
        const qsizetype end = endOfRun(text, at);
        const char16_t letter = text[at].unicode();
        if (!isAlwaysNumber(letter) && !(letter == u'M' && end - at < 3))
            break;
        at = end;
    }
    return int(at - start);
}
} // namespace

NSDatePattern::NSDatePattern(const QString &pattern)
    : text(pattern), number(nextNumber()), isBareHour(pattern == u"ha")
{
    for (qsizetype at = 0; at < text.size();) {
        const char16_t unit = text[at].unicode();
        const qsizetype end = unit == u'\'' ? endOfQuoted(text, at) : endOfRun(text, at);
        if (isLetter(unit) && (unit == u'M' || unit == u'L') && end - at >= 3)
            hasMonthName = true;
        if (unit == u'y' && yearLetters == 0) {
            yearLetters = int(end - at);
            beforeYear = text.left(at);
            digitsAfterYear = countOfNumberLetters(text, end);
        }
        at = end;
    }
}

bool NSDatePattern::takesYearOf(int digits) const
{
    switch (yearLetters) {
    case 1:
        return digits == 2 || digits == 4;
    case 2:
    case 4:
        return digits == yearLetters;
    default:
        return true;
    }
}

std::shared_ptr<const NSDatePattern> NSDatePattern::patternOf(const QString &text)
{
    static QMutex mutex;
    static QHash<QString, std::shared_ptr<const NSDatePattern>> known;
    const QMutexLocker lock(&mutex);
    if (known.size() >= Capacity && !known.contains(text))
        known.clear();
    std::shared_ptr<const NSDatePattern> &pattern = known[text];
    if (!pattern)
        pattern = std::make_shared<const NSDatePattern>(text);
    return pattern;
}
