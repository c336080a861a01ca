#include "FieldChanges.h"

#include "Appearance/Counts.h"
#include "Appearance/FieldTitle.h"
#include "Appearance/Sentence.h"
#include "Fields/FieldTypeTitles.h"
#include "Text/PrintableText.h"
#include "Text/ShortText.h"

namespace {
QString quotable(const QString &text)
{
    return printableText(ShortText::firstLine(text));
}

QString nameOfField(const LibraryField &field)
{
    return quotable(FieldTitle::of(field));
}
} // namespace

QList<FieldChanges::Value> FieldChanges::unreadIn(const FieldConversion::Preview &preview)
{
    QList<Value> values;
    for (const FieldConversion::Unread &each : preview.unread)
        values.append({tr("Record %1: “%2”").arg(Counts::number(each.record), quotable(each.text)),
                       Sentence::of(each.reason)});
    const qint64 more = preview.unreadCount - preview.unread.size();
    if (more > 0)
        values.append(
            {tr("and %1 more", nullptr, Counts::plural(more)).arg(Counts::number(more)), {}});
    return values;
}

QString FieldChanges::typeText(const QString &title, const QString &type,
                               const FieldConversion::Preview &preview)
{
    if (preview.unreadCount == 0)
        return tr("“%1” gets the type %2. All values can be read.").arg(title, type);
    return tr("“%1” gets the type %2. %3 value(s) cannot be read and will be emptied.", nullptr,
              Counts::plural(preview.unreadCount))
        .arg(title, type, Counts::number(preview.unreadCount));
}

FieldChanges::Change FieldChanges::ofType(const QString &title, const FieldPlan::Field &field,
                                          const Preview &preview)
{
    const QString type = FieldTypeTitles::titleOf(field.field.type);
    if (!preview || !preview->converted.contains(field.origin))
        return {tr("“%1” gets the type %2.").arg(title, type), {}};
    const FieldConversion::Preview converted = preview->converted.value(field.origin);
    return {typeText(title, type, converted), unreadIn(converted)};
}

QList<FieldChanges::Change>
FieldChanges::ofField(const FieldPlan &plan, const FieldPlan::Field &field, const Preview &preview)
{
    const QString title = nameOfField(field.field);
    if (field.origin < 0)
        return {{tr("“%1” is new.").arg(title), {}}};
    QList<Change> changes;
    if (plan.isRenamed(field))
        changes.append(
            {tr("“%1” gets the name “%2”.").arg(nameOfField(plan.before(field)), title), {}});
    if (field.isRetyped)
        changes.append(ofType(title, field, preview));
    if (plan.isShownAnew(field))
        changes.append({tr("“%1” is shown in another way.").arg(title), {}});
    return changes;
}

QString FieldChanges::removalText(const LibraryField &field, qsizetype place,
                                  const Preview &preview)
{
    const QString title = nameOfField(field);
    if (!preview || !preview->removed.contains(place))
        return tr("“%1” is removed.").arg(title);
    const qint64 count = preview->removed.value(place);
    if (count == 0)
        return tr("“%1” is removed. No record has a value there.").arg(title);
    return tr("“%1” is removed. %2 record(s) have a value there.", nullptr, Counts::plural(count))
        .arg(title, Counts::number(count));
}

QList<FieldChanges::Change> FieldChanges::of(const FieldPlan &plan, const Preview &preview)
{
    QList<Change> changes;
    for (const FieldPlan::Field &field : plan.fields())
        changes += ofField(plan, field, preview);
    for (const qsizetype place : plan.removed())
        changes.append({removalText(plan.library().fields.at(place), place, preview), {}});
    if (plan.isReordered())
        changes.append({tr("The fields get another order."), {}});
    return changes;
}
