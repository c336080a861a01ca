#include "TypeInference.h"

#include <KTUtility/KTCurrencyFormatter>

#include <QHash>
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
Parts partsOf(const QString &pattern, const QString &text)
{
    if (pattern.isNull()) // ISO 8601, or a bare hour
        return {text.contains(u'-'), text.contains(u':') || !text.contains(u'-')};
    static const QString timeFields = u"hHkKma"_s;
    const bool hasTime = std::any_of(pattern.begin(), pattern.end(),
                                     [](QChar unit) { return timeFields.contains(unit); });
    return {pattern.contains(u'd'), hasTime};
}

/// How many of some values have which parts.
struct PartCounts
{
    qsizetype dates = 0;
    qsizetype times = 0;
    qsizetype both = 0;

    qsizetype all() const { return dates + times + both; }
};

PartCounts partCountsOf(const QStringList &values)
{
    const FieldReader reader(FieldType::DateTime);
    PartCounts counts;
    for (const QString &value : values) {
        if (!reader.read(value, true))
            continue;
        const Parts parts = partsOf(reader.recentPattern(), value);
        counts.dates += parts.hasDate && !parts.hasTime;
        counts.times += parts.hasTime && !parts.hasDate;
        counts.both += parts.hasDate && parts.hasTime;
    }
    return counts;
}

/// How many values name each currency other than the user's.
QHash<QString, qsizetype> currencyVotesIn(const QStringList &values)
{
    QHash<QString, qsizetype> votes;
    for (const QString &value : values) {
        KTCurrencyFormatter formatter;
        formatter.setRejectsUnevenGroups(true);
        QVariantMap options;
        if (formatter.adjustForValue(value, &options))
            ++votes[options.value(kKTFieldOption_currencyType).toString()];
    }
    return votes;
}
} // namespace

TypeInference::TypeInference(std::function<bool(const QString &)> isMedia)
    : _isMedia(std::move(isMedia))
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
    return isMostly(count, _values.size());
}

qsizetype TypeInference::countRead(const FieldReader &reader) const
{
    const bool isNumeric =
        reader.type() == FieldType::Number || reader.type() == FieldType::Currency;
    return std::count_if(_values.begin(), _values.end(), [&](const QString &value) {
        return !(isNumeric && looksLikeDate(value)) && bool(reader.read(value, true));
    });
}

std::unique_ptr<FieldReader> TypeInference::numberReader() const
{
    if (std::any_of(_values.begin(), _values.end(), looksLikeCode))
        return nullptr;
    auto number = std::make_unique<FieldReader>(FieldType::Number);
    return fits(countRead(*number)) ? std::move(number) : currencyReader();
}

std::unique_ptr<FieldReader> TypeInference::reader() const
{
    if (auto number = numberReader())
        return number;
    auto duration = std::make_unique<FieldReader>(FieldType::Duration);
    if (fits(countRead(*duration)))
        return duration;
    if (auto date = dateReader())
        return date;
    return std::make_unique<FieldReader>(textType());
}

/// Of the types whose formatters read every text.
FieldType TypeInference::textType() const
{
    if (fits(std::count_if(_values.begin(), _values.end(), looksLikePhone)))
        return FieldType::Phone;
    const bool isMedia = _isMedia && fits(std::count_if(_values.begin(), _values.end(), _isMedia));
    return isMedia ? FieldType::Media : FieldType::Text;
}

/// In the user's currency, or in that which most of the values name.
std::unique_ptr<FieldReader> TypeInference::currencyReader() const
{
    auto reader = std::make_unique<FieldReader>(FieldType::Currency);
    const qsizetype own = countRead(*reader);
    if (fits(own))
        return reader;
    const QHash<QString, qsizetype> votes = currencyVotesIn(_values);
    const auto winner = std::max_element(votes.begin(), votes.end());
    if (winner == votes.end() || !fits(own + *winner))
        return nullptr;
    reader->formatter()->setOptions({{kKTFieldOption_currencyType, winner.key()}});
    return fits(countRead(*reader)) ? std::move(reader) : nullptr;
}

std::unique_ptr<FieldReader> TypeInference::dateReader() const
{
    const PartCounts counts = partCountsOf(_values);
    if (!fits(counts.all()))
        return nullptr;
    if (counts.both == 0 && isMostly(counts.dates, counts.all()))
        return std::make_unique<FieldReader>(FieldType::Date);
    const bool isTime = isMostly(counts.times, counts.all());
    return std::make_unique<FieldReader>(isTime ? FieldType::Time : FieldType::DateTime);
}
