#include "FieldConversion.h"

#include "Library/MediaInTables.h"
#include "Library/RecordTexts.h"
#include "Text/ISODateText.h"
#include "Text/Reasons.h"

#include <KTUtility/NSObject>

namespace {
/// How many values that cannot be read are shown.
constexpr qsizetype LongestList = 10;

/// Types of one family have the same values, and show them differently.
int familyOf(FieldType type)
{
    switch (type) {
    case FieldType::Number:
    case FieldType::Currency:
        return 1;
    case FieldType::Time:
    case FieldType::Date:
    case FieldType::DateTime:
        return 2;
    case FieldType::Duration:
        return 3;
    default:
        return 4;
    }
}

/// Digits with a point, dates of ISO 8601.
QString exactText(const QVariant &value)
{
    return value.metaType() == QMetaType::fromType<QDateTime>() ? isoDateText(value.toDateTime())
                                                                : NSObject::description(value);
}
} // namespace

FieldConversion::FieldConversion(const LibraryField &from, const LibraryField &to)
    : _from(from.reader()), _to(to.reader())
{
}

bool FieldConversion::keeps(const QVariant &value) const
{
    const bool isText = value.typeId() == QMetaType::QString;
    return isText ? _to->type() == FieldType::Text
                  : familyOf(_from->type()) == familyOf(_to->type());
}

QString FieldConversion::textOf(const QVariant &value) const
{
    return value.typeId() == QMetaType::QString ? value.toString()
                                                : RecordTexts::textOf(*_from, value);
}

/// Whether the text that is shown of a value says all of it: fields round numbers, and leave parts of
/// dates out.
bool FieldConversion::saysAll(const QString &text, const QVariant &value) const
{
    const Outcome<QVariant> read = _from->read(text);
    return value.typeId() == QMetaType::QString || (read && *read == value);
}

Outcome<QVariant> FieldConversion::convert(const QVariant &value) const
{
    if (NSObject::isNil(value) || keeps(value))
        return value;
    if (_to->type() == FieldType::Media && !MediaInTables::isURL(value))
        return Failure{Reasons::tr("it is no media file")};
    const QString text = textOf(value);
    if (saysAll(text, value))
        return _to->readTyped(text);
    if (_to->type() == FieldType::Text)
        return QVariant(exactText(value));
    return Failure{Reasons::tr("it has more digits or parts than its field shows")};
}

void FieldConversion::add(const RecordCursor &record, qsizetype field, Preview *preview) const
{
    const QVariant value = record.value(field);
    const Outcome<QVariant> converted = convert(value);
    if (NSObject::isNil(value))
        return;
    ++(converted ? preview->readCount : preview->unreadCount);
    if (!converted && preview->unread.size() < LongestList)
        preview->unread.append({record.id(), textOf(value), converted.reason()});
}

Outcome<FieldConversion::Preview>
FieldConversion::preview(LibraryStore &store, const Library &library, qsizetype field) const
{
    Preview preview;
    RecordCursor records = store.records(library);
    while (records.next())
        add(records, field, &preview);
    const Outcome<> read = records.outcome();
    return read ? Outcome<Preview>(preview) : read.failure();
}
