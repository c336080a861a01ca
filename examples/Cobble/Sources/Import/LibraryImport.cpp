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
    const QString currency = reader.currencyType();
    return currency.isNull() ? QVariantMap() : QVariantMap{{kKTFieldOption_currencyType, currency}};
}

/// Why a media file could not be stored.
QString reasonForNo(const NSURL &url)
{
    if (url.scheme() == u"http")
        return u"it cannot be downloaded"_s;
    return NSFileManager::fileExistsAtPath(url.path()) ? u"it cannot be copied"_s
                                                       : u"there is no such file"_s;
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

Outcome<> LibraryImport::removeOther()
{
    const Outcome<QList<Library>> others = _transaction.store().libraries();
    if (!others)
        return others.failure();
    const std::optional<Library> other = Libraries::named(_library.name, *others);
    return other ? _transaction.removeLibrary(*other) : Outcome<>();
}

Outcome<> LibraryImport::makeNamesUnique()
{
    const Outcome<QList<Library>> others = _transaction.store().libraries();
    if (!others)
        return others.failure();
    _library.name = KTAdditions::uniqueStringWithBase(*others, _library.name);
    _library.tableName = KTAdditions::internalCaseInsensitiveUniqueStringWithBase(
        *others, _library.tableName, u"tableName"_s);
    return {};
}

Outcome<> LibraryImport::begin(const std::vector<std::unique_ptr<FieldReader>> &readers)
{
    for (size_t column = 0; column < readers.size(); ++column) {
        LibraryField &field = _library.fields[qsizetype(column)];
        field.type = readers[column]->type();
        field.options = optionsOf(*readers[column]);
    }
    const Outcome<> isFree = _replaces ? removeOther() : Outcome<>();
    return isFree.andThen([this] { return makeNamesUnique(); }).andThen([this] {
        return _transaction.store().create(_library);
    });
}

Outcome<QVariant> LibraryImport::storeMedia(const QString &text)
{
    const std::optional<NSURL> url = MediaReference::urlIn(text, _folder);
    if (!url)
        return Failure{u"it names no file"_s};
    const std::optional<NSURL> stored = _transaction.storeMedia(*url);
    if (!stored)
        return Failure{reasonForNo(*url)};
    return QVariant(stored->absoluteString());
}

Outcome<> LibraryImport::addRow(const QVariantList &values)
{
    const Outcome<> added = _transaction.store().insert(values);
    _recordCount += added ? 1 : 0;
    return added;
}
