#include "FieldPlan.h"

#include "Fields/FieldReader.h"
#include "Journal/FieldConversion.h"
#include "Text/Reasons.h"

#include <KTUtility/KTOptionsKeys>

#include <algorithm>

using namespace Qt::StringLiterals;

FieldPlan::FieldPlan(const Library &library) : _library(library)
{
    for (qsizetype place = 0; place < library.fields.size(); ++place)
        _fields.append({.field = library.fields.at(place), .origin = place});
}

LibraryField FieldPlan::newField(const QString &title, FieldType type)
{
    LibraryField field;
    field.header = title.trimmed();
    field.type = type;
    const QString currency = FieldReader(type).currencyType();
    if (!currency.isNull())
        field.options.insert(kKTFieldOption_currencyType, currency);
    return field;
}

QList<qsizetype> FieldPlan::removed() const
{
    QSet<qsizetype> staying;
    for (const Field &field : _fields)
        staying += field.origin;
    QList<qsizetype> places;
    for (qsizetype place = 0; place < _library.fields.size(); ++place) {
        if (!staying.contains(place))
            places += place;
    }
    return places;
}

// --- Changes ------------------------------------------------------------------------------------

void FieldPlan::add(const LibraryField &field, qsizetype place)
{
    _fields.insert(place < 0 ? _fields.size() : place, Field{.field = field});
}

void FieldPlan::rename(qsizetype place, const QString &title)
{
    Field &renamed = _fields[place];
    renamed.field.header = title.trimmed();
    if (renamed.origin < 0)
        return;
    const LibraryField &old = before(renamed);
    const bool isBack = title == old.title();
    renamed.field.header = isBack ? old.header : title.trimmed();
    renamed.field.label = isBack ? old.label : QString();
}

void FieldPlan::move(qsizetype from, qsizetype to)
{
    _fields[from].isMoved = true;
    _fields.move(from, to);
}

void FieldPlan::setType(qsizetype place, FieldType type, const QVariantMap &options)
{
    Field &changed = _fields[place];
    changed.field.type = type;
    changed.field.options = options;
    changed.isRetyped = changed.origin >= 0;
}

void FieldPlan::keepType(qsizetype place)
{
    Field &kept = _fields[place];
    kept.field.type = before(kept).type;
    kept.field.options = before(kept).options;
    kept.isRetyped = false;
}

void FieldPlan::setOptions(qsizetype place, const QVariantMap &options)
{
    _fields[place].field.options = options;
}

// --- What is changed ----------------------------------------------------------------------------

bool FieldPlan::isRenamed(const Field &field) const
{
    return field.origin >= 0 &&
           (field.field.header != before(field).header || field.field.label != before(field).label);
}

bool FieldPlan::isShownAnew(const Field &field) const
{
    return field.origin >= 0 && !field.isRetyped && field.field.options != before(field).options;
}

bool FieldPlan::isReordered() const
{
    qsizetype last = -1;
    for (const Field &each : _fields) {
        if (each.origin >= 0 && std::exchange(last, each.origin) > each.origin)
            return true;
    }
    return false;
}

QList<FieldPlan::Change> FieldPlan::changesOf(const Field &field) const
{
    const std::pair<bool, QString> kinds[] = {
        {field.origin < 0, StepKinds::AddField},
        {isRenamed(field), StepKinds::RenameField},
        {field.isRetyped, StepKinds::ChangeType},
        {isShownAnew(field), StepKinds::ChangeOptions},
        {field.origin >= 0 && field.isMoved && isReordered(), StepKinds::MoveField}};
    QList<Change> changes;
    for (const auto &[isPlanned, kind] : kinds) {
        if (isPlanned)
            changes.append({kind, field.field.title()});
    }
    return changes;
}

QList<FieldPlan::Change> FieldPlan::changes() const
{
    QList<Change> changes;
    for (const Field &field : _fields)
        changes += changesOf(field);
    for (const qsizetype place : removed())
        changes.append({StepKinds::RemoveField, _library.fields.at(place).title()});
    return changes;
}

StepTitle FieldPlan::title() const
{
    const QList<Change> all = changes();
    StepTitle title{StepKinds::ChangeFields, {{StepParameters::Library, _library.name}}};
    if (all.size() != 1)
        return title;
    title.kind = all.first().first;
    title.parameters.insert(StepParameters::Field, all.first().second);
    return title;
}

Outcome<> FieldPlan::checkTitle(qsizetype place) const
{
    const Field &checked = _fields.at(place);
    if (checked.origin >= 0 && !isRenamed(checked))
        return {};
    const QString title = checked.field.header.trimmed();
    if (title.isEmpty())
        return Failure{Reasons::tr("a field needs a name")};
    const auto count = std::count_if(_fields.begin(), _fields.end(), [&title](const Field &each) {
        return each.field.title().trimmed().compare(title, Qt::CaseInsensitive) == 0;
    });
    return count > 1 ? Failure{Reasons::tr("there is a field of that name")} : Outcome<>();
}

Outcome<> FieldPlan::check() const
{
    Outcome<> checked;
    for (qsizetype place = 0; place < _fields.size(); ++place)
        checked = checked.andThen([&] { return checkTitle(place); });
    return checked;
}

// --- Making it ----------------------------------------------------------------------------------

/// Empties what cannot be read, as often as that may be.
StepRecorder::Conversion FieldPlan::conversionFor(const Field &field) const
{
    const auto conversion = std::make_shared<FieldConversion>(before(field), field.field);
    return [conversion, left = _emptied.value(field.origin)](
               const QVariant &value) mutable -> Outcome<QVariant> {
        const Outcome<QVariant> converted = conversion->convert(value);
        if (converted || left-- > 0)
            return converted.valueOr(QVariant());
        return Failure{Reasons::tr("meanwhile there are more values that cannot be read")};
    };
}

/// What one field becomes, wherever it stands.
Outcome<Library> FieldPlan::makeField(StepRecorder &step, const Library &library,
                                      const Field &field) const
{
    if (field.origin < 0)
        return step.addField(library, field.field);
    Outcome<Library> made = library;
    if (isRenamed(field))
        made = step.renameField(*made, field.origin, field.field.header);
    if (made && field.isRetyped)
        made = step.changeType(*made, field.origin, field.field.type, field.field.options,
                               conversionFor(field));
    if (made && isShownAnew(field))
        made = step.changeOptions(*made, field.origin, field.field.options);
    return made;
}

/// All fields, the new ones behind those that were there.
Outcome<Library> FieldPlan::makeFields(StepRecorder &step) const
{
    Outcome<Library> made = _library;
    for (const Field &field : _fields) {
        if (made)
            made = makeField(step, *made, field);
    }
    return made;
}

/// From behind, so that those before keep their places.
Outcome<Library> FieldPlan::removeFields(StepRecorder &step, const Library &library) const
{
    const QList<qsizetype> places = removed();
    Outcome<Library> left = library;
    for (auto place = places.rbegin(); place != places.rend(); ++place) {
        if (left)
            left = step.removeField(*left, *place);
    }
    return left;
}

/// The places of the fields when those are gone that go, and the new ones stand at the end.
QList<qsizetype> FieldPlan::orderAfterRemoval() const
{
    const QList<qsizetype> gone = removed();
    qsizetype end = _library.fields.size() - gone.size();
    QList<qsizetype> order;
    for (const Field &field : _fields) {
        const auto before = std::lower_bound(gone.begin(), gone.end(), field.origin) - gone.begin();
        order += field.origin < 0 ? end++ : field.origin - before;
    }
    return order;
}

Outcome<> FieldPlan::make(StepRecorder &step) const
{
    Outcome<Library> made = makeFields(step);
    if (made)
        made = removeFields(step, *made);
    const QList<qsizetype> order = orderAfterRemoval();
    if (made && !std::is_sorted(order.begin(), order.end()))
        made = step.reorderFields(*made, order);
    return made ? Outcome<>() : made.failure();
}
