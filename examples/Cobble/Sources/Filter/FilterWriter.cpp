#include "FilterWriter.h"

#include "FilterParser.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {
QString quoted(const QString &text)
{
    QString escaped = text;
    return u'"' + escaped.replace(u'\\', u"\\\\"_s).replace(u'"', u"\\\""_s) + u'"';
}

bool isOfTexts(FieldType type)
{
    return type == FieldType::Text || type == FieldType::Media;
}

/// Whether a value is read as it stands, also as an element of a list.
bool isPlain(const QString &text)
{
    static const QRegularExpression special(
        uR"(\A\z|\A\s|\s\z|["'(){}\[\],;&|!=<>]|\b(?:and|or|not)\b)"_s,
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::UseUnicodePropertiesOption);
    return !text.contains(special);
}

QString nameText(qsizetype field, const FilterFields &fields, FilterNotation notation)
{
    const QString name = fields.nameOf(field, notation);
    static const QRegularExpression plain(uR"(\A[\p{L}\p{M}\p{N}_ ]+\z)"_s);
    static const QRegularExpression words(
        uR"(\b(?:and|or|not|is|in|between|contains|like|matches|begins|ends)\b)"_s,
        QRegularExpression::CaseInsensitiveOption);
    const bool isBare = notation == FilterNotation::Typed && isPlain(name) &&
                        plain.match(name).hasMatch() && !name.contains(words);
    return isBare ? name : quoted(name);
}

QString valueText(const FilterValue &value, const FilterComparison &comparison,
                  const FilterFields &fields)
{
    const bool isText = isOfTexts(fields.field(comparison.field).type) ||
                        FilterOperators::isForTexts(comparison.operation);
    return isText || !isPlain(value.text) ? quoted(value.text) : value.text;
}

QString valuesText(const FilterComparison &comparison, const FilterFields &fields)
{
    QStringList texts;
    for (const FilterValue &value : comparison.values)
        texts += valueText(value, comparison, fields);
    if (comparison.operation == FilterOperator::Between)
        return texts.join(u" AND "_s);
    const QString list = texts.join(u"; "_s);
    return comparison.operation == FilterOperator::In ? QString(u'(' + list + u')') : list;
}

QString optionsText(const FilterComparison &comparison, const FilterFields &fields)
{
    const bool isText = isOfTexts(fields.field(comparison.field).type) ||
                        FilterOperators::isForTexts(comparison.operation);
    const bool passesOverAll = comparison.passesOver.size() == 2;
    const bool isUsed = isText && comparison.operation != FilterOperator::Empty && !passesOverAll;
    return isUsed ? QString(u'[' + comparison.passesOver + u']') : QString();
}

QString joinedText(const FilterNode &node, const FilterFields &fields, FilterNotation notation)
{
    QStringList texts;
    for (const FilterNode &part : node.parts) {
        const QString text = FilterWriter::textOf(part, fields, notation);
        const bool isJoined =
            part.kind == FilterNode::Kind::All || part.kind == FilterNode::Kind::Any;
        texts += isJoined ? QString(u'(' + text + u')') : text;
    }
    return texts.join(node.kind == FilterNode::Kind::Any ? u" OR "_s : u" AND "_s);
}
} // namespace

QString FilterWriter::textOf(const FilterComparison &comparison, const FilterFields &fields,
                             FilterNotation notation)
{
    const bool isWord = FilterOperators::isWord(comparison.operation);
    QStringList parts;
    if (comparison.isNegated && !isWord)
        parts += u"NOT"_s;
    parts += nameText(comparison.field, fields, notation);
    parts += FilterOperators::spelled(comparison.operation, comparison.isNegated && isWord) +
             optionsText(comparison, fields);
    if (comparison.operation != FilterOperator::Empty)
        parts += valuesText(comparison, fields);
    return parts.join(u' ');
}

QString FilterWriter::textOf(const FilterNode &node, const FilterFields &fields,
                             FilterNotation notation)
{
    switch (node.kind) {
    case FilterNode::Kind::Comparison:
        return textOf(node.comparison, fields, notation);
    case FilterNode::Kind::Not:
        return u"NOT ("_s + textOf(node.parts.front(), fields, notation) + u')';
    default:
        return joinedText(node, fields, notation);
    }
}
