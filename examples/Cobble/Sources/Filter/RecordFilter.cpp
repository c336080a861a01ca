#include "RecordFilter.h"

#include "DatePeriod.h"
#include "FilterCondition.h"
#include "FilterParser.h"
#include "FilterSpan.h"
#include "FilterTexts.h"
#include "FilterWriter.h"

#include <KTUtility/NSKeyValueCoding>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {
/// Makes the condition of a tree.
struct PredicateMaker
{
    const RecordFilter::Fields &fields;
    FilterNotation notation;
    std::optional<FilterProblem> problem;

    NSPredicate of(const FilterNode &node)
    {
        return node.kind == FilterNode::Kind::Comparison ? ofComparison(node.comparison)
                                                         : ofParts(node);
    }

    NSPredicate ofComparison(const FilterComparison &comparison)
    {
        FilterProblem found;
        const NSPredicate ofValue = FilterCondition::of(comparison, fields, notation, &found);
        if (ofValue.isNil()) {
            problem = found;
            return {};
        }
        const QString key = fields->field(comparison.field).columnName;
        return NSPredicate::predicateWithBlock([key, ofValue](const QVariant &record) {
            return ofValue.evaluateWithObject(NSKeyValueCoding::valueForKey(record, key));
        });
    }

    NSPredicate ofParts(const FilterNode &node)
    {
        std::vector<NSPredicate> parts;
        for (const FilterNode &part : node.parts) {
            parts.push_back(of(part));
            if (problem)
                return {};
        }
        return NSPredicate::predicateWithBlock([kind = node.kind, parts](const QVariant &record) {
            const auto accepts = [&record](const NSPredicate &part) {
                return part.evaluateWithObject(record);
            };
            if (kind == FilterNode::Kind::All)
                return std::all_of(parts.begin(), parts.end(), accepts);
            const bool isAny = std::any_of(parts.begin(), parts.end(), accepts);
            return kind == FilterNode::Kind::Any ? isAny : !isAny;
        });
    }
};

/// Writes values in another notation.
struct Renotation
{
    const FilterFields &fields;
    FilterNotation from;
    FilterNotation to;

    QString valueText(const FilterComparison &comparison, const QString &text) const
    {
        const bool isText = FilterOperators::isForTexts(comparison.operation);
        const auto period =
            comparison.operation == FilterOperator::During ? DatePeriod::read(text) : std::nullopt;
        if (period)
            return to == FilterNotation::Portable ? period->portableText() : period->text();
        const Outcome<FilterSpan> span =
            isText ? Failure{} : FilterSpan::read(text, comparison.field, fields, from);
        const QString rewritten = span ? span->text(to, comparison.field, fields) : QString();
        return rewritten.isNull() ? text : rewritten;
    }

    FilterNode of(FilterNode node) const
    {
        for (FilterValue &value : node.comparison.values)
            value.text = valueText(node.comparison, value.text);
        for (FilterNode &part : node.parts)
            part = of(std::move(part));
        return node;
    }
};

void addColumns(const FilterNode &node, const FilterFields &fields, QStringList *columns)
{
    if (node.kind == FilterNode::Kind::Comparison)
        *columns += fields.field(node.comparison.field).columnName;
    for (const FilterNode &part : node.parts)
        addColumns(part, fields, columns);
}
} // namespace

RecordFilter RecordFilter::read(const QString &text, const Fields &fields, FilterNotation notation)
{
    RecordFilter filter;
    filter._text = text;
    filter._notation = notation;
    filter._fields = fields;
    if (text.trimmed().isEmpty())
        return filter;
    FilterParser parser(text, *fields, notation);
    std::optional<FilterNode> root = parser.parse();
    if (!root) {
        filter._problem = parser.problem();
        return filter;
    }
    PredicateMaker maker{fields, notation, {}};
    filter._predicate = maker.of(*root);
    filter._problem = maker.problem;
    if (!filter._problem)
        filter._root = std::move(root);
    else
        filter._predicate = {};
    return filter;
}

RecordFilter RecordFilter::both(const RecordFilter &first, const RecordFilter &second)
{
    if (!first._root || !second._root)
        return first._root ? first : second;
    RecordFilter filter = first;
    filter._root = FilterNode{FilterNode::Kind::All, {}, {*first._root, *second._root}};
    filter._predicate = NSPredicate::predicateWithBlock(
        [one = first._predicate, other = second._predicate](const QVariant &record) {
            return one.evaluateWithObject(record) && other.evaluateWithObject(record);
        });
    return filter;
}

Outcome<> RecordFilter::outcome() const
{
    if (!_problem)
        return {};
    const QString part = _text.mid(_problem->position, _problem->length).trimmed();
    if (part.isEmpty())
        return Failure{
            FilterTexts::tr("%1 (behind “%2”)")
                .arg(_problem->reason, _text.first(_problem->position).trimmed().right(30))};
    return Failure{FilterTexts::tr("“%1”: %2").arg(part, _problem->reason)};
}

QString RecordFilter::text(FilterNotation notation) const
{
    if (notation == _notation || !_root)
        return _text;
    return FilterWriter::textOf(Renotation{*_fields, _notation, notation}.of(*_root), *_fields,
                                notation);
}

QStringList RecordFilter::columns() const
{
    QStringList columns;
    if (_root)
        addColumns(*_root, *_fields, &columns);
    columns.removeDuplicates();
    return columns;
}
