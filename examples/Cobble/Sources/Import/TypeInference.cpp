#include "TypeInference.h"

#include <KTUtility/KTCurrencyFormatter>

#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
/// Nine values in ten decide.
constexpr qsizetype Numerator = 9;
constexpr qsizetype Denominator = 10;

bool isMostly(qsizetype count, qsizetype all)
{
    return all > 0 && count * Denominator >= all * Numerator;
}

/// Digits with the usual punctuation, maybe with a country code and an extension.
bool looksLikePhone(const QString &text)
{
    static const QRegularExpression form(
        uR"(\A\+?[\s().,/\[\]{}-]*(\d[\s().,/\[\]{}-]*){5,15}((x|ext\.?)\s*\d+)?\z)"_s);
    return form.match(text).hasMatch();
}

/// Digits that are no number: "01067", "+49 170 1234567". As a number they would lose something.
bool looksLikeCode(const QString &text)
{
    static const QRegularExpression form(uR"(\A\s*(\+|0\s*\d))"_s);
    return form.match(text).hasMatch();
}

/// "26.05.2014": a date, which a formatter of numbers takes for one with groups of odd lengths.
bool looksLikeDate(const QString &text)
{
    static const QRegularExpression form(uR"(\A\s*\d{1,4}([./-])\d{1,2}\1\d{2,4}\s*\z)"_s);
    return form.match(text).hasMatch();
}

/// What of date and time a value that was read has.
struct Parts
{
    bool hasDate = false;
    bool hasTime = false;
};

/// \param pattern that which the text was read by.
Parts partsByPattern(const QString &pattern, const QString &text)
{
    if (pattern.isNull()) // ISO 8601, or a bare hour
        return {text.contains(u'-'), text.contains(u':') || !text.contains(u'-')};
    static const QString timeFields = u"hHkKma"_s;
    const bool hasTime = std::any_of(pattern.begin(), pattern.end(),
                                     [](QChar unit) { return timeFields.contains(unit); });
    return {pattern.contains(u'd'), hasTime};
}

bool isOfTime(const KTReadingPart &part)
{
    static const QStringList roles{u"hour"_s, u"minute"_s, u"second"_s, u"dayPeriod"_s, u"zone"_s};
    return roles.contains(part.role);
}

/// Of the text that was just read.
Parts partsOf(const FieldReader &reader, const QString &text)
{
    const QList<KTReadingPart> parts = reader.reading().parts;
    if (parts.isEmpty())
        return partsByPattern(reader.recentPattern(), text);
    const auto times = std::count_if(parts.begin(), parts.end(), isOfTime);
    return {times<parts.size(), times> 0};
}

/// How many of some values have which parts.
struct PartCounts
{
    qsizetype dates = 0;
    qsizetype times = 0;
    qsizetype both = 0;

    qsizetype all() const { return dates + times + both; }
    void add(const Parts &parts)
    {
        dates += parts.hasDate && !parts.hasTime;
        times += parts.hasTime && !parts.hasDate;
        both += parts.hasDate && parts.hasTime;
    }
};

/// \param fits whether so many are enough; if not, nobody asks for the counts.
PartCounts partCountsOf(const QStringList &values, const FieldReader &reader,
                        const std::function<bool(qsizetype)> &fits)
{
    PartCounts counts;
    qsizetype left = values.size();
    for (const QString &value : values) {
        if (!fits(counts.all() + left--))
            break;
        if (reader.read(value, true))
            counts.add(partsOf(reader, value));
    }
    return counts;
}

/// The currency that a text is in, if it is not the user's; nil if it is in none.
QString currencyBySignOf(const QString &text, const std::optional<NSLocale> &locale)
{
    KTCurrencyFormatter formatter;
    if (locale)
        formatter.setLocale(*locale);
    formatter.setRejectsUnevenGroups(true);
    QVariantMap options;
    return formatter.adjustForValue(text, &options)
               ? options.value(kKTFieldOption_currencyType).toString()
               : QString();
}

/// The code of a currency that a text names; nil if it names none.
QString codeIn(const QString &text)
{
    static const QRegularExpression form(uR"((?<![A-Za-z])[A-Z]{3}(?![A-Za-z]))"_s);
    const QString code = form.match(text).captured();
    return NSLocale::commonISOCurrencyCodes().contains(code) ? code : QString();
}
} // namespace

TypeInference::TypeInference(std::function<bool(const QString &)> isMedia, ColumnConventions told,
                             const std::optional<NSLocale> &locale)
    : _isMedia(std::move(isMedia)), _told(std::move(told)), _locale(locale)
{
}

TypeInference::~TypeInference() = default;
TypeInference::TypeInference(TypeInference &&other) noexcept = default;

void TypeInference::add(const QString &value)
{
    if (!isComplete() && !value.trimmed().isEmpty())
        _values.append(value);
}

bool TypeInference::fits(qsizetype count) const
{
    // Who says how a column is typed says what is in it, too.
    const bool isHalf = count > 0 && count * 2 >= _values.size();
    return isMostly(count, _values.size()) || (_told.isAny() && isHalf);
}

qsizetype TypeInference::countRead(const FieldReader &reader) const
{
    const bool isNumeric =
        reader.type() == FieldType::Number || reader.type() == FieldType::Currency;
    qsizetype count = 0;
    qsizetype left = _values.size();
    for (const QString &value : _values) {
        count += !(isNumeric && looksLikeDate(value)) && bool(reader.read(value, true));
        // Of too few, nobody asks how many.
        if (!fits(count + --left))
            break;
    }
    return count;
}

/// One that reads by what the values say together.
TypeInference::Reader TypeInference::newReader(FieldType type, bool readsCommonForms) const
{
    auto reader = std::make_unique<FieldReader>(type, _locale);
    reader->setReadsCommonForms(readsCommonForms);
    std::optional<KTColumnReading> column = _told.newColumnFor(*reader);
    if (!column)
        return reader;
    for (const QString &value : _values)
        column->add(value);
    reader->setColumn(*column);
    return reader;
}

TypeInference::Reader TypeInference::reader() const
{
    Reader found = toldReader(false);
    if (!found)
        found = toldReader(true);
    if (!found)
        found = readerWith(false);
    if (found->type() == FieldType::Text)
        found = readerWith(true);
    found->setReadsCommonForms(true);
    return found;
}

TypeInference::Reader TypeInference::readerOf(FieldType type) const
{
    auto known = std::make_unique<FieldReader>(type, _locale);
    if (type != FieldType::Currency)
        return known;
    Reader found = currencyReader(true);
    if (!found && !_told.currency().isNull())
        known->formatter()->setOptions({{kKTFieldOption_currencyType, _told.currency()}});
    return found ? std::move(found) : std::move(known);
}

TypeInference::Reader TypeInference::durationReader(bool readsCommonForms) const
{
    auto duration = newReader(FieldType::Duration, readsCommonForms);
    return fits(countRead(*duration)) ? std::move(duration) : nullptr;
}

/// Of the type that something is told about; nothing if nothing is, or if too few values are of it.
TypeInference::Reader TypeInference::toldReader(bool readsCommonForms) const
{
    Reader reader;
    if (!_told.conventionOf(KTColumnReading::Durations).isNull())
        reader = durationReader(readsCommonForms);
    if (!reader && !_told.order.isNull())
        reader = dateReader(readsCommonForms);
    if (reader && reader->type() == FieldType::Time)
        reader = nullptr;
    if (!reader && !_told.point.isNull())
        reader = numberReader(readsCommonForms);
    return reader;
}

TypeInference::Reader TypeInference::readerWith(bool readsCommonForms) const
{
    if (auto number = numberReader(readsCommonForms))
        return number;
    if (auto duration = durationReader(readsCommonForms))
        return duration;
    if (auto date = dateReader(readsCommonForms))
        return date;
    return std::make_unique<FieldReader>(textType(), _locale);
}

/// Of the types whose formatters read every text.
FieldType TypeInference::textType() const
{
    if (fits(std::count_if(_values.begin(), _values.end(), looksLikePhone)))
        return FieldType::Phone;
    const bool isMedia = _isMedia && fits(std::count_if(_values.begin(), _values.end(), _isMedia));
    return isMedia ? FieldType::Media : FieldType::Text;
}

TypeInference::Reader TypeInference::numberReader(bool readsCommonForms) const
{
    if (std::any_of(_values.begin(), _values.end(), looksLikeCode))
        return nullptr;
    auto number = newReader(FieldType::Number, readsCommonForms);
    const bool isMoney = !_told.currency().isNull();
    return fits(countRead(*number)) && !isMoney ? std::move(number)
                                                : currencyReader(readsCommonForms);
}

/// The currencies that the values may be in: the one that is told, or the user's, those that values
/// name, and those of their signs.
QStringList TypeInference::currenciesFor(const FieldReader &reader) const
{
    if (!_told.currency().isNull())
        return {_told.currency()};
    QStringList codes{reader.currencyType()};
    for (const QString &value : _values)
        codes += codeIn(value);
    if (!fits(countRead(reader))) {
        for (const QString &value : _values)
            codes += currencyBySignOf(reader.column()->textForLocale(value), _locale);
    }
    codes.removeDuplicates();
    codes.removeAll(QString());
    return codes;
}

/// In the first of the currencies in which most of the values can be read.
TypeInference::Reader TypeInference::currencyReader(bool readsCommonForms) const
{
    Reader best;
    qsizetype most = 0;
    for (const QString &code : currenciesFor(*newReader(FieldType::Currency, readsCommonForms))) {
        auto reader = newReader(FieldType::Currency, readsCommonForms);
        if (code != reader->currencyType())
            reader->formatter()->setOptions({{kKTFieldOption_currencyType, code}});
        const qsizetype count = countRead(*reader);
        if (count <= most)
            continue;
        most = count;
        best = std::move(reader);
    }
    return fits(most) ? std::move(best) : nullptr;
}

TypeInference::Reader TypeInference::dateReader(bool readsCommonForms) const
{
    const auto reader = newReader(FieldType::DateTime, readsCommonForms);
    const PartCounts counts =
        partCountsOf(_values, *reader, [this](qsizetype count) { return fits(count); });
    if (!fits(counts.all()))
        return nullptr;
    if (counts.both == 0 && isMostly(counts.dates, counts.all()))
        return newReader(FieldType::Date, readsCommonForms);
    const bool isTime = isMostly(counts.times, counts.all());
    return newReader(isTime ? FieldType::Time : FieldType::DateTime, readsCommonForms);
}
