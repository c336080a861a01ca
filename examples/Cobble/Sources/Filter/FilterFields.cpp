#include "FilterFields.h"

#include "ComparedText.h"
#include "FilterTexts.h"
#include "Library/RecordTexts.h"

using namespace Qt::StringLiterals;

namespace {
/// The names of a field, the first ones before the others.
QStringList namesOf(const LibraryField &field)
{
    return {field.title(), field.header, field.label, field.propertyName, field.columnName};
}

constexpr size_t KindsOfNames = 5;
constexpr size_t ColumnNames = 4;

QString foldedName(const QString &name)
{
    return ComparedText::of(name.simplified());
}

Failure ambiguous(const QString &name)
{
    return {FilterTexts::tr("several fields are called “%1”").arg(name)};
}
} // namespace

FilterFields::FilterFields(const Library &library)
    : _library(library), _exact(KindsOfNames), _folded(KindsOfNames)
{
    for (qsizetype index = 0; index < count(); ++index)
        add(index);
}

void FilterFields::add(qsizetype index)
{
    _readers.push_back(field(index).reader());
    const QStringList names = namesOf(field(index));
    for (qsizetype kind = 0; kind < names.size(); ++kind) {
        const QString &name = names.at(kind);
        if (name.trimmed().isEmpty())
            continue;
        _exact[size_t(kind)].insert(name, index);
        _folded[size_t(kind)].insert(foldedName(name), index);
        _longestName = qMax(_longestName, name.size());
    }
}

QString FilterFields::textOf(qsizetype index, const QVariant &value) const
{
    return RecordTexts::textOf(reader(index), value);
}

Outcome<qsizetype> FilterFields::named(const QString &name, FilterNotation notation) const
{
    const size_t first = notation == FilterNotation::Portable ? ColumnNames : 0;
    const QString folded = foldedName(name);
    for (const auto *const indexes : {&_exact, &_folded}) {
        const QString &key = indexes == &_exact ? name : folded;
        for (size_t kind = first; kind < KindsOfNames; ++kind) {
            const QList<qsizetype> found = indexes->at(kind).values(key);
            if (found.size() > 1)
                return ambiguous(name);
            if (found.size() == 1)
                return found.first();
        }
    }
    return Failure{FilterTexts::tr("there is no field “%1”").arg(name)};
}

QString FilterFields::nameOf(qsizetype index, FilterNotation notation) const
{
    if (notation == FilterNotation::Portable)
        return field(index).columnName;
    for (const QString &name : namesOf(field(index))) {
        const bool isPlain = !name.isEmpty() && name == name.simplified();
        if (isPlain && named(name).valueOr(-1) == index)
            return name;
    }
    return field(index).columnName;
}
