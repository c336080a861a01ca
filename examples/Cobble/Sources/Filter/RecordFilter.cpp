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

/// Finds the fields of a tree among those of a library that was opened anew.
struct FieldMover
{
    const FilterFields &from;
    const FilterFields &to;
    FilterNotation notation;
    /// Whether one of them has another name now.
    bool areRenamed = false;
    /// What one was called that is gone; nil if none is.
    QString missing;

    void move(FilterNode *node)
    {
        if (node->kind == FilterNode::Kind::Comparison)
            moveField(&node->comparison.field);
        for (FilterNode &part : node->parts)
            move(&part);
        // They will stand elsewhere in its text.
        for (FilterValue &value : node->comparison.values)
            value = areRenamed ? FilterValue{value.text} : value;
    }

    /// The text of a tree that was moved.
    QString textOf(const FilterNode &root, const QString &before) const
    {
        const bool isOther = areRenamed && missing.isNull();
        return isOther ? FilterWriter::textOf(root, to, notation) : before;
    }

    void moveField(qsizetype *field)
    {
        const QString column = from.field(*field).columnName;
        const QString name = from.nameOf(*field, notation);
        const qsizetype place = to.named(column, FilterNotation::Portable).valueOr(-1);
        if (place < 0 || to.field(place).columnName != column) {
            missing = name;
            return;
        }
        areRenamed = areRenamed || to.nameOf(place, notation) != name;
        *field = place;
    }
};

bool hasExpression(const FilterNode &node)
{
    return (node.kind == FilterNode::Kind::Comparison &&
            node.comparison.operation == FilterOperator::Matches) ||
           std::any_of(node.parts.begin(), node.parts.end(), hasExpression);
}

/// That a field is gone, where its name stands in a text.
FilterProblem problemWithField(const QString &name, const QString &text)
{
    const qsizetype place = text.indexOf(name, 0, Qt::CaseInsensitive);
    return {FilterTexts::tr("there is no field “%1”").arg(name), qMax<qsizetype>(place, 0),
            place < 0 ? 0 : name.size()};
}

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
    RecordFilter filter(text, fields, notation);
    if (text.trimmed().isEmpty())
        return filter;
    FilterParser parser(text, *fields, notation);
    if (const std::optional<FilterNode> root = parser.parse())
        filter.take(*root);
    else
        filter._problem = parser.problem();
    return filter;
}

/// Makes the condition of a tree, whose values are in the filter's notation.
void RecordFilter::take(const FilterNode &root)
{
    PredicateMaker maker{_fields, _notation, {}};
    _predicate = maker.of(root);
    _problem = maker.problem;
    if (!_problem)
        _root = root;
}

RecordFilter RecordFilter::withFields(const Fields &fields) const
{
    if (!_root)
        return fields ? read(_text, fields, _notation) : *this;
    FieldMover mover{*_fields, *fields, _notation, false, {}};
    FilterNode root = *_root;
    mover.move(&root);
    RecordFilter filter(mover.textOf(root, _text), fields, _notation);
    if (mover.missing.isNull())
        filter.take(root);
    else
        filter._problem = problemWithField(mover.missing, _text);
    return filter;
}

RecordFilter RecordFilter::both(const RecordFilter &first, const RecordFilter &second)
{
    if (first._problem || second._problem)
        return first._problem ? first : second;
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
    if (part.isEmpty() && _problem->position == 0)
        return Failure{_problem->reason};
    if (part.isEmpty())
        return Failure{
            FilterTexts::tr("%1 (behind “%2”)")
                .arg(_problem->reason, _text.first(_problem->position).trimmed().right(30))};
    return Failure{FilterTexts::tr("“%1”: %2").arg(part, _problem->reason)};
}

std::optional<FilterNode> RecordFilter::root(FilterNotation notation) const
{
    if (notation == _notation || !_root)
        return _root;
    return Renotation{*_fields, _notation, notation}.of(*_root);
}

QString RecordFilter::text(FilterNotation notation) const
{
    const std::optional<FilterNode> node = root(notation);
    return notation == _notation || !node ? _text : FilterWriter::textOf(*node, *_fields, notation);
}

bool RecordFilter::isSlow() const
{
    return _root && hasExpression(*_root);
}

QStringList RecordFilter::columns() const
{
    QStringList columns;
    if (_root)
        addColumns(*_root, *_fields, &columns);
    columns.removeDuplicates();
    return columns;
}
