#include "LibraryImport.h"

#include "MediaReference.h"

#include <KTUtility/KTCurrencyFormatter>
#include <KTUtility/NSArray_KTAdditions>
#include <KTUtility/NSFileManager>
#include <KTUtility/NSString_KTNaming>

using namespace Qt::StringLiterals;

namespace {
LibraryField fieldFor(const ImportColumn &column)
{
    LibraryField field;
    field.columnName = column.columnName;
    field.header = column.header;
    field.label = column.label;
    field.propertyName = column.internalName;
    return field;
}

/// The settings that were found for the column, and not those of the locale.
QVariantMap optionsOf(const FieldReader &reader)
{
    const auto *const currency = qobject_cast<const KTCurrencyFormatter *>(reader.formatter());
    return currency ? QVariantMap{{kKTFieldOption_currencyType, currency->currencyType()}}
                    : QVariantMap();
}

FieldReading notStored(const QString &reason)
{
    FieldReading reading;
    reading.reason = reason;
    return reading;
}
} // namespace

LibraryImport::LibraryImport(ImportTransaction &transaction, const ImportSchema &schema,
                             const QString &folder, bool replaces)
    : _transaction(transaction), _folder(folder), _replaces(replaces)
{
    _library.name = schema.libraryName;
    _library.libraryEntityName = schema.libraryEntityName;
    _library.entityName = schema.entityName;
    _library.tableName = schema.tableName;
    for (const ImportColumn &column : schema.columns)
        _library.fields += fieldFor(column);
}

bool LibraryImport::removeOther()
{
    const std::optional<Library> other = _transaction.store().libraryNamed(_library.name);
    return other ? _transaction.removeLibrary(*other) : errorText().isNull();
}

/// \return false if the other names cannot be read.
bool LibraryImport::makeNamesUnique()
{
    const QList<Library> others = _transaction.store().libraries();
    _library.name = KTAdditions::uniqueStringWithBase(others, _library.name);
    _library.tableName = KTAdditions::internalCaseInsensitiveUniqueStringWithBase(
        others, _library.tableName, u"tableName"_s);
    return errorText().isNull();
}

bool LibraryImport::begin(const std::vector<std::unique_ptr<FieldReader>> &readers)
{
    for (size_t column = 0; column < readers.size(); ++column) {
        LibraryField &field = _library.fields[qsizetype(column)];
        field.type = readers[column]->type();
        field.options = optionsOf(*readers[column]);
    }
    if (_replaces && !removeOther())
        return false;
    return makeNamesUnique() && _transaction.store().create(_library);
}

FieldReading LibraryImport::storeMedia(const QString &text)
{
    const std::optional<NSURL> url = MediaReference::urlIn(text, _folder);
    if (!url)
        return notStored(u"it names no file"_s);
    const std::optional<NSURL> stored = _transaction.storeMedia(*url);
    if (stored)
        return {true, stored->absoluteString(), {}, {}};
    if (url->scheme() == u"http")
        return notStored(u"it cannot be downloaded"_s);
    return notStored(NSFileManager::fileExistsAtPath(url->path()) ? u"it cannot be copied"_s
                                                                  : u"there is no such file"_s);
}

bool LibraryImport::addRow(const QVariantList &values)
{
    const bool isAdded = _transaction.store().insert(values);
    _recordCount += isAdded;
    return isAdded;
}

QString LibraryImport::errorText() const
{
    return _transaction.store().errorText();
}
