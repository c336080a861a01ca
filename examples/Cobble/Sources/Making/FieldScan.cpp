#include "FieldScan.h"

#include "Records/RecordScan.h"

#include <KTUtility/NSObject>

QList<FieldScan::Part> FieldScan::partsOf(const FieldPlan &plan)
{
    QList<Part> parts;
    for (const FieldPlan::Field &field : plan.fields()) {
        if (field.isRetyped)
            parts.append({field.origin, false, field.field.type, field.field.options});
    }
    for (const qsizetype place : plan.removed())
        parts.append({place, true, FieldType::Text, {}});
    // The order of the fields does not matter.
    std::sort(parts.begin(), parts.end(),
              [](const Part &one, const Part &other) { return one.field < other.field; });
    return parts;
}

FieldScan::FieldScan(const FieldPlan &plan) : _library(plan.library()), _parts(partsOf(plan))
{
    for (const Part &part : std::as_const(_parts)) {
        const LibraryField &before = _library.fields.at(part.field);
        LibraryField after = before;
        after.type = part.type;
        after.options = part.options;
        _conversions.push_back(part.isRemoved ? nullptr
                                              : std::make_unique<FieldConversion>(before, after));
    }
}

/// Of nothing yet.
FieldPreview FieldScan::begun() const
{
    FieldPreview preview;
    for (const Part &part : _parts) {
        if (part.isRemoved)
            preview.removed.insert(part.field, 0);
        else
            preview.converted.insert(part.field, {});
    }
    return preview;
}

void FieldScan::add(const RecordCursor &record, FieldPreview *preview) const
{
    for (qsizetype each = 0; each < _parts.size(); ++each) {
        const qsizetype field = _parts.at(each).field;
        if (const auto &conversion = _conversions.at(size_t(each)))
            conversion->add(record, field, &preview->converted[field]);
        else if (!NSObject::isNil(record.value(field)))
            ++preview->removed[field];
    }
}

Outcome<FieldPreview> FieldScan::run(LibraryStore &store, const std::function<bool()> &goesOn) const
{
    FieldPreview preview = begun();
    QList<qsizetype> fields;
    for (const Part &part : _parts)
        fields += part.field;
    const Outcome<RecordIds> ids = store.recordIds(_library);
    if (!ids)
        return ids.failure();
    RecordScan scan(store, _library, fields);
    scan.setGoesOn(goesOn);
    const Outcome<> done =
        scan.run(*ids, [&](const RecordCursor &record) { add(record, &preview); });
    return done ? Outcome<FieldPreview>(preview) : done.failure();
}
