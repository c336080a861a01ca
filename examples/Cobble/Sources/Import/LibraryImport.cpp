#include "LibraryImport.h"

#include "Library/LibraryNames.h"
#include "Library/StoredValue.h"
#include "Text/Reasons.h"

#include <KTUtility/KTCurrencyFormatter>
#include <KTUtility/NSArray_KTAdditions>
#include <KTUtility/NSPathUtilities>
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
} // namespace

LibraryImport::LibraryImport(ImportTransaction &transaction, const ImportSchema &schema,
                             const Settings &settings)
    : _transaction(transaction), _settings(settings)
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
    const Outcome<ReplacedLibrary> replaced =
        ReplacedLibrary::find(_transaction.store(), _transaction.bundle(), _library.name);
    if (!replaced)
        return replaced.failure();
    _replaced = *replaced;
    return _replaced.library() ? _transaction.removeLibrary(*_replaced.library()) : Outcome<>();
}

Outcome<> LibraryImport::makeNamesUnique()
{
    const Outcome<QList<Library>> others = _transaction.store().libraries();
    const Outcome<QStringList> tables = _transaction.store().tableNames();
    if (!others || !tables)
        return others ? tables.failure() : others.failure();
    _library.name = KTAdditions::uniqueStringWithBase(*others, _library.name);
    // Also tables of libraries that were removed stay for a while.
    _library.tableName = LibraryNames::unique(_library.tableName, *tables);
    return {};
}

Outcome<> LibraryImport::begin(const std::vector<std::unique_ptr<FieldReader>> &readers)
{
    for (size_t column = 0; column < readers.size(); ++column) {
        LibraryField &field = _library.fields[qsizetype(column)];
        field.type = readers[column]->type();
        field.options = optionsOf(*readers[column]);
    }
    const Outcome<> isFree = _settings.replaces ? removeOther() : Outcome<>();
    return isFree.andThen([this] { return makeNamesUnique(); }).andThen([this] {
        return _transaction.create(_library);
    });
}

/// The file to copy, or a URL of the bundle.
Outcome<NSURL> LibraryImport::fileOf(const NSURL &url) const
{
    if (url.scheme() == u"http")
        return _settings.downloads.fileOf(url);
    // What the bundle has is not copied.
    if (_transaction.bundle().isMediaURL(url))
        return url;
    const Outcome<> checked = MediaSources::check(url.path());
    if (!checked)
        return checked.failure();
    return url;
}

void LibraryImport::end(const QString &text, const QString &reason)
{
    if (_ended)
        _ended = ReplacedLibrary::loss(_recordCount + 1, text, reason);
}

/// For what is no file that could be stored.
Failure LibraryImport::without(const QString &text, const QString &reason)
{
    if (_replaced.loses(text))
        end(text, reason);
    return {reason};
}

/// For what is there and could not be stored.
Failure LibraryImport::withoutCopy(const QString &text, const NSURL &file)
{
    if (_transaction.bundle().isMediaURL(file))
        return without(text, Reasons::tr("there is no such file"));
    const QString name = NSString::lastPathComponent(file.path());
    const Outcome<> checked =
        MediaSources::checkName(_transaction.bundle().fileNameWithMediaInstanceNumber(name));
    if (!checked)
        return without(text, checked.reason());
    const QString reason = Reasons::tr("it cannot be copied");
    end(text, reason);
    return {reason};
}

Outcome<QVariant> LibraryImport::storeMedia(qsizetype column, const QString &text)
{
    const Outcome<NSURL> url = _settings.sources.urlIn(column, text);
    if (!url)
        return without(text, url.reason());
    const Outcome<NSURL> file = fileOf(*url);
    if (!file)
        return without(text, file.reason());
    const std::optional<NSURL> stored = _transaction.storeMedia(*file, _settings.meanwhile);
    if (!stored)
        return withoutCopy(text, *file);
    return QVariant(stored->absoluteString());
}

QVariant LibraryImport::prepared(const QVariant &value) const
{
    return StoredValue::forDatabase(value);
}

Outcome<> LibraryImport::addRow(const QVariantList &values)
{
    const Outcome<> added =
        _ended.andThen([&] { return _transaction.store().insertStored(values); });
    _recordCount += added ? 1 : 0;
    return added;
}
