#include "PlainDurations.h"

namespace {
constexpr qsizetype MostFirstDigits = 4;
constexpr int Sixty = 60;

/// Whether a run behind a colon has two digits that are minutes or seconds.
bool isSixtieth(const PlainText &text, qsizetype index)
{
    return text.between(index - 1) == u":" && text.run(index).length == 2;
}
} // namespace

int PlainDurations::countFor(const PlainText &text) const
{
    const qsizetype count = text.runCount();
    const bool isClock = (count == 2 || count == 3) && text.before().isEmpty() &&
                         text.behind().isEmpty() && text.run(0).length <= MostFirstDigits &&
                         isSixtieth(text, 1) && (count == 2 || isSixtieth(text, 2));
    if (!isClock)
        return 0;
    return count == 2 ? 2 : 1;
}

QVariant PlainDurations::valueOf(const PlainText &text, int way)
{
    qint64 length = text.run(0).value;
    for (qsizetype index = 1; index < text.runCount(); ++index) {
        if (text.run(index).value >= Sixty)
            return {};
        length = length * Sixty + text.run(index).value;
    }
    const bool isOfMinutes = text.runCount() == 2 && way == 0;
    return isOfMinutes ? length * Sixty : length;
}
