#include "KTColumnReading.h"

#include "ColumnClocks_p.h"
#include "ColumnDates_p.h"
#include "ColumnNumbers_p.h"
#include <KTUtility/Platform/Files/NSBundle.h>
#include <KTUtility/Platform/Numbers/NSFormatter.h>

#include <algorithm>

using namespace KTPrivate;
using namespace Qt::StringLiterals;

namespace {
/// One in so many texts may contradict what the others decide.
constexpr qsizetype MostContradicting = 10;

unsigned bitOf(size_t index)
{
    return 1U << index;
}

unsigned possibleIn(KTColumnReading::Kind kind, const QString &text)
{
    switch (kind) {
    case KTColumnReading::Dates:
        return ColumnDates::possibleOrders(text);
    case KTColumnReading::Numbers:
    case KTColumnReading::Amounts:
        return ColumnNumbers::possiblePoints(text);
    case KTColumnReading::Durations:
        return ColumnClocks::possibleUnits(text);
    }
    return 0;
}

/// What the locale has for a kind: the units of its dates, or the sign before its fractions.
QString localeFormOf(KTColumnReading::Kind kind, const NSLocale &locale)
{
    switch (kind) {
    case KTColumnReading::Dates:
        return ColumnDates::unitsOf(locale);
    case KTColumnReading::Numbers:
        return ColumnNumbers::signOf(locale, false);
    case KTColumnReading::Amounts:
        return ColumnNumbers::signOf(locale, true);
    case KTColumnReading::Durations:
        break;
    }
    return {};
}

size_t indexOf(KTColumnReading::Kind kind, const QString &localeForm)
{
    switch (kind) {
    case KTColumnReading::Dates:
        return ColumnDates::orderOf(localeForm);
    case KTColumnReading::Numbers:
    case KTColumnReading::Amounts:
        return ColumnNumbers::pointOf(localeForm);
    case KTColumnReading::Durations:
        break;
    }
    return 0;
}

/// Whether the locale has every text of a convention as it is. With a sign of its own before the
/// fraction, as in Arabic, it may take the convention's for one of groups.
bool isLocaleForm(KTColumnReading::Kind kind, const QString &localeForm, size_t index)
{
    const bool isNumeric = kind == KTColumnReading::Numbers || kind == KTColumnReading::Amounts;
    return isNumeric ? KTColumnReading::conventionsOf(kind).at(qsizetype(index)) == localeForm
                     : index == indexOf(kind, localeForm);
}
} // namespace

KTColumnReading::KTColumnReading(Kind kind, const NSLocale &locale)
    : _kind(kind)
    , _locale(locale)
    , _localeForm(localeFormOf(kind, locale))
    , _localeIndex(indexOf(kind, _localeForm))
{
}

const QStringList &KTColumnReading::conventionsOf(Kind kind)
{
    static const std::array<QStringList, 3> conventions{
        QStringList{u"dmy"_s, u"mdy"_s, u"ymd"_s},
        QStringList{u"."_s, u","_s},
        QStringList{u"h:m"_s, u"m:s"_s},
    };
    const size_t index = kind == Dates ? 0 : kind == Durations ? 2 : 1;
    return conventions[index];
}

unsigned KTColumnReading::allConventions() const
{
    return bitOf(size_t(conventionsOf(_kind).size())) - 1;
}

void KTColumnReading::add(const QString &text)
{
    const unsigned possible = possibleIn(_kind, text);
    ++_counts[possible];
    if (_firstTexts[possible].size() < MostListed)
        _firstTexts[possible].append(_textCount);
    ++_textCount;
}

bool KTColumnReading::setConvention(const QString &convention)
{
    const qsizetype index = conventionsOf(_kind).indexOf(convention);
    if (index < 0 && !convention.isNull())
        return false;
    _toldIndex = int(index);
    return true;
}

// --- What decides

/// How many texts are possible, but not in a convention.
qsizetype KTColumnReading::countAgainst(size_t index) const
{
    qsizetype count = 0;
    for (unsigned possible = 1; possible < MostSets; ++possible)
        count += possible & bitOf(index) ? 0 : _counts[possible];
    return count;
}

/// How many texts are possible in some conventions and not in all.
qsizetype KTColumnReading::decidingTexts() const
{
    qsizetype count = 0;
    const unsigned all = allConventions();
    for (unsigned possible = 1; possible < all; ++possible)
        count += _counts[possible];
    return count;
}

size_t KTColumnReading::decidedIndex(Basis *basis) const
{
    const qsizetype deciding = decidingTexts();
    *basis = deciding > 0 ? Values : Locale;
    size_t best = _localeIndex;
    const auto count = size_t(conventionsOf(_kind).size());
    for (size_t index = 0; index < count; ++index) {
        if (countAgainst(index) < countAgainst(best))
            best = index;
    }
    if (countAgainst(best) * MostContradicting <= deciding)
        return best;
    *basis = Mixed;
    return _localeIndex;
}

size_t KTColumnReading::conventionIndex() const
{
    Basis basis;
    return _toldIndex >= 0 ? size_t(_toldIndex) : decidedIndex(&basis);
}

QString KTColumnReading::convention() const
{
    return conventionsOf(_kind).at(qsizetype(conventionIndex()));
}

KTColumnReading::Basis KTColumnReading::basis() const
{
    Basis basis = Told;
    if (_toldIndex < 0)
        decidedIndex(&basis);
    return basis;
}

QString KTColumnReading::localeConvention() const
{
    return conventionsOf(_kind).at(qsizetype(_localeIndex));
}

KTColumnReading::Decision KTColumnReading::decision() const
{
    if (_toldIndex >= 0)
        return {size_t(_toldIndex), true};
    Basis basis;
    const size_t index = decidedIndex(&basis);
    return {index, basis == Values};
}

// --- Counts

qsizetype KTColumnReading::ambiguousCount() const
{
    return _counts[allConventions()];
}

qsizetype KTColumnReading::decidingCount(const QString &convention) const
{
    const qsizetype index = conventionsOf(_kind).indexOf(convention);
    return index < 0 ? 0 : decidingTexts() - countAgainst(size_t(index));
}

qsizetype KTColumnReading::contradictionCount() const
{
    return countAgainst(conventionIndex());
}

QList<qsizetype> KTColumnReading::contradictions() const
{
    const unsigned wanted = bitOf(conventionIndex());
    QList<qsizetype> texts;
    for (unsigned possible = 1; possible < MostSets; ++possible) {
        if (!(possible & wanted))
            texts += _firstTexts[possible];
    }
    std::sort(texts.begin(), texts.end());
    return texts.first(std::min(texts.size(), MostListed));
}

bool KTColumnReading::contradicts(const QString &text) const
{
    const unsigned possible = possibleIn(_kind, text);
    return possible != 0 && !(possible & bitOf(conventionIndex()));
}

// --- Reading

/// Where the locale has two orders, formatters that read common forms go by another one than those
/// that do not; the name of the month is the same to both.
QString KTColumnReading::reorderedDate(const QString &text, size_t index) const
{
    const QString named = ColumnDates::haveOrderWithoutYear(_localeForm, _locale)
                              ? text
                              : ColumnDates::withMonthName(text, index, _locale);
    return named != text ? named : ColumnDates::reordered(text, index, _localeForm);
}

QString KTColumnReading::typedInLocale(const QString &text, unsigned possible,
                                       const Decision &decision) const
{
    const size_t index = decision.index;
    if (!decision.holds || !(possible & bitOf(index)) || isLocaleForm(_kind, _localeForm, index))
        return text;
    switch (_kind) {
    case Dates:
        return reorderedDate(text, index);
    case Numbers:
    case Amounts:
        return ColumnNumbers::withSign(text, index, _localeForm);
    case Durations:
        return ColumnClocks::withHours(text);
    }
    return text;
}

QString KTColumnReading::textForLocale(const QString &text) const
{
    return typedInLocale(text, possibleIn(_kind, text), decision());
}

bool KTColumnReading::getObjectValue(const NSFormatter &formatter, QVariant *value,
                                     const QString &text, QString *errorDescription) const
{
    // Once for both questions: columns are long.
    const Decision decided = decision();
    const unsigned possible = decided.holds ? possibleIn(_kind, text) : 0;
    if (possible == 0 || (possible & bitOf(decided.index)))
        return formatter.getObjectValue(value, typedInLocale(text, possible, decided),
                                        errorDescription);
    if (value)
        *value = QVariant();
    if (errorDescription)
        *errorDescription = contradictionDescription();
    return false;
}

QString KTColumnReading::contradictionDescription()
{
    return NSBundle::mainBundle().localizedStringForKey(
        u"The text contradicts what the other texts of its column are read by."_s);
}
