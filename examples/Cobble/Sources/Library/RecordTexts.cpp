#include "RecordTexts.h"

#include <KTUtility/NSObject>

using namespace Qt::StringLiterals;

namespace {
/// Phone numbers are texts that their field knows how to show; of other types a text is what could
/// not be read.
bool isShownAsItIs(FieldType type, const QVariant &value)
{
    return value.typeId() == QMetaType::QString && type != FieldType::Phone;
}
} // namespace

RecordTexts::RecordTexts(const Library &library)
{
    for (const LibraryField &field : library.fields) {
        _titles += field.title();
        _readers.push_back(field.reader());
    }
}

QString RecordTexts::textOf(const FieldReader &reader, const QVariant &value)
{
    if (NSObject::isNil(value))
        return u""_s;
    if (!reader.formatter() || isShownAsItIs(reader.type(), value))
        return value.toString();
    return reader.formatter()->stringForObjectValue(value);
}

QString RecordTexts::textOf(qsizetype field, const QVariant &value) const
{
    return textOf(*_readers[size_t(field)], value);
}

template<typename Record>
QStringList RecordTexts::textsIn(const Record &record) const
{
    QStringList texts;
    for (qsizetype field = 0; field < _titles.size(); ++field)
        texts += textOf(field, record.value(field));
    return texts;
}

QStringList RecordTexts::textsOf(const RecordCursor &record) const
{
    return textsIn(record);
}

QStringList RecordTexts::textsOf(const RecordRows &record) const
{
    return textsIn(record);
}
