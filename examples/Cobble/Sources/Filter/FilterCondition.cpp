#include "FilterCondition.h"

#include "ComparedText.h"
#include "DatePeriod.h"
#include "FilterSpan.h"
#include "FilterTexts.h"

#include <KTUtility/NSCalendar>
#include <KTUtility/NSException>
#include <KTUtility/NSObject>

#include <QDateTime>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {
using Fields = std::shared_ptr<const FilterFields>;
using Test = std::function<bool(const QVariant &value)>;

/// So often an expression tries another way to match a text: some milliseconds long.
const QString MatchLimit = u"(*LIMIT_MATCH=1000000)"_s;
/// Of an expression in a sentence.
constexpr qsizetype LongestShown = 60;

/// What could not be found out is not false.
bool isMatch(const QRegularExpression &expression, const QString &typed, const QString &text)
{
    const QRegularExpressionMatch match = expression.match(text);
    if (!match.isValid())
        NSException::raise(
            NSInvalidArgumentException,
            FilterTexts::tr("it takes too long to find out what matches “%1”")
                .arg(typed.size() > LongestShown ? typed.left(LongestShown) + u'…' : typed));
    return match.hasMatch();
}

bool isNothing(const QVariant &value)
{
    return NSObject::isNil(value) ||
           (value.typeId() == QMetaType::QString && value.toString().isEmpty());
}

/// Makes what is compared of a comparison's values, and says what is wrong with them.
class ConditionMaker
{
public:
    ConditionMaker(const FilterComparison &comparison, const Fields &fields,
                   FilterNotation notation)
        : _comparison(comparison), _fields(fields), _notation(notation)
    {
    }

    /// Empty if a value cannot be read.
    Test make()
    {
        if (_comparison.operation == FilterOperator::Empty)
            return isNothing;
        if (_comparison.operation == FilterOperator::During)
            return during();
        if (_comparison.operation == FilterOperator::Matches)
            return matching();
        if (FilterOperators::isForTexts(_comparison.operation))
            return ofTexts();
        return readSpans() ? ofSpans() : Test();
    }

    const FilterProblem &problem() const { return _problem; }

private:
    /// The value that is compared with; everything but lists and ranges has one.
    const FilterValue &value() const { return _comparison.values.constFirst(); }

    Test refuse(const QString &reason, const FilterValue &value)
    {
        _problem = {reason, value.position, value.length};
        return {};
    }

    bool readSpans()
    {
        for (const FilterValue &each : _comparison.values) {
            Outcome<FilterSpan> span =
                FilterSpan::read(each.text, _comparison.field, *_fields, _notation);
            if (!span) {
                (void)refuse(span.reason(), each);
                return false;
            }
            span->setPassesOver(_comparison.passesOver);
            _spans.push_back(*span);
        }
        return true;
    }

    /// Phone numbers are compared as the field shows them.
    std::function<QVariant(const QVariant &)> comparedValue() const
    {
        if (_fields->field(_comparison.field).type != FieldType::Phone)
            return [](const QVariant &each) { return each; };
        return [fields = _fields, field = _comparison.field](const QVariant &each) {
            return QVariant(fields->textOf(field, each));
        };
    }

    Test ofSpans() const
    {
        const auto compared = comparedValue();
        if (_comparison.operation == FilterOperator::Between)
            return [low = _spans.at(0), high = _spans.at(1), compared](const QVariant &each) {
                const QVariant value = compared(each);
                return low.compare(value) >= 0 && high.compare(value) <= 0;
            };
        if (_comparison.operation == FilterOperator::In)
            return [spans = _spans, compared](const QVariant &each) {
                const QVariant value = compared(each);
                return std::any_of(spans.begin(), spans.end(), [&](const FilterSpan &span) {
                    return span.compare(value) == 0;
                });
            };
        return [span = _spans.front(), compared, isFulfilled = order()](const QVariant &each) {
            return isFulfilled(span.compare(compared(each)));
        };
    }

    bool (*order() const)(std::partial_ordering)
    {
        switch (_comparison.operation) {
        case FilterOperator::Less:
            return [](std::partial_ordering order) { return order < 0; };
        case FilterOperator::LessOrEqual:
            return [](std::partial_ordering order) { return order <= 0; };
        case FilterOperator::Greater:
            return [](std::partial_ordering order) { return order > 0; };
        case FilterOperator::GreaterOrEqual:
            return [](std::partial_ordering order) { return order >= 0; };
        case FilterOperator::NotEqual:
            return [](std::partial_ordering order) { return order != 0; };
        default:
            return [](std::partial_ordering order) { return order == 0; };
        }
    }

    Test during()
    {
        const std::optional<DatePeriod> period = DatePeriod::read(value().text);
        if (period)
            return [period = *period, zone = NSCalendar::systemTimeZone()](const QVariant &each) {
                return each.metaType() == QMetaType::fromType<QDateTime>() &&
                       period.contains(each.toDateTime().toTimeZone(zone).date());
            };
        // A day is a period, too.
        if (readSpans())
            return [day = _spans.front()](const QVariant &each) { return day.compare(each) == 0; };
        return refuse(FilterTexts::tr("it is no month, no year and no month of a year"), value());
    }

    /// What the field shows, as it is compared.
    std::function<QString(const QVariant &)> shownText() const
    {
        return [fields = _fields, field = _comparison.field,
                passesOver = _comparison.passesOver](const QVariant &each) {
            return ComparedText::of(fields->textOf(field, each), passesOver);
        };
    }

    Test ofTexts() const
    {
        const auto shown = shownText();
        const QString part = ComparedText::of(value().text, _comparison.passesOver);
        switch (_comparison.operation) {
        case FilterOperator::Contains:
            return [=](const QVariant &each) {
                return !isNothing(each) && shown(each).contains(part);
            };
        case FilterOperator::BeginsWith:
            return [=](const QVariant &each) {
                return !isNothing(each) && shown(each).startsWith(part);
            };
        case FilterOperator::EndsWith:
            return [=](const QVariant &each) {
                return !isNothing(each) && shown(each).endsWith(part);
            };
        default:
            const NSPredicate like =
                NSPredicate::predicateWithFormat(u"SELF LIKE %@", {QVariant(part)});
            return [=](const QVariant &each) {
                return !isNothing(each) && like.evaluateWithObject(QVariant(shown(each)));
            };
        }
    }

    /// The letters of an expression stay as they are: "\S" is not "\s".
    Test matching()
    {
        const bool ignoresCase = _comparison.passesOver.contains(u'c');
        const QString accents = _comparison.passesOver.contains(u'd') ? u"d"_s : u""_s;
        const QRegularExpression expression(
            MatchLimit +
                QRegularExpression::anchoredPattern(ComparedText::of(value().text, accents)),
            QRegularExpression::DotMatchesEverythingOption |
                QRegularExpression::UseUnicodePropertiesOption |
                (ignoresCase ? QRegularExpression::CaseInsensitiveOption
                             : QRegularExpression::NoPatternOption));
        // "a)|(b" would be one between the parentheses that make it match the whole text.
        const QRegularExpression typedAlone(value().text);
        for (const QRegularExpression &each : {typedAlone, expression}) {
            if (!each.isValid())
                return refuse(
                    FilterTexts::tr("it is no regular expression: %1").arg(each.errorString()),
                    value());
        }
        return [expression, typed = value().text, accents, fields = _fields,
                field = _comparison.field](const QVariant &each) {
            const QString text = ComparedText::of(fields->textOf(field, each), accents);
            return !isNothing(each) && isMatch(expression, typed, text);
        };
    }

    const FilterComparison &_comparison;
    const Fields &_fields;
    FilterNotation _notation;
    std::vector<FilterSpan> _spans;
    FilterProblem _problem;
};
} // namespace

NSPredicate FilterCondition::of(const FilterComparison &comparison, const Fields &fields,
                                FilterNotation notation, FilterProblem *problem)
{
    ConditionMaker maker(comparison, fields, notation);
    const Test test = maker.make();
    if (!test) {
        *problem = maker.problem();
        return {};
    }
    return NSPredicate::predicateWithBlock(
        [test, isNegated = comparison.isNegated](const QVariant &value) {
            return test(value) != isNegated;
        });
}
