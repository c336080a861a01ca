#include "ExportCommand.h"

#include "AlignedTable.h"
#include "BundleOption.h"
#include "LibraryStore.h"
#include "PlugIns.h"
#include "RecordTexts.h"
#include "StoredLibrary.h"
#include "UserSettings.h"

#include <QFileInfo>
#include <QSaveFile>
#include <QTextStream>

namespace {
const QString ToOption = QStringLiteral("to");

/// The records of a library for an exporter.
class LibraryRecords : public CobbleRecordSource
{
public:
    LibraryRecords(LibraryStore &store, const Library &library)
        : _library(library), _texts(library), _records(store.records(library))
    {
    }

    QString libraryName() const override { return _library.name; }
    QStringList fieldTitles() const override
    {
        QStringList titles;
        for (const LibraryField &field : _library.fields)
            titles += field.header;
        return titles;
    }
    QStringList fieldNames() const override
    {
        QStringList names;
        for (const LibraryField &field : _library.fields)
            names += field.propertyName;
        return names;
    }
    bool next() override
    {
        const bool hasNext = _records.next();
        _count += hasNext;
        return hasNext;
    }
    QVariant value(qsizetype field) const override { return _records.value(field); }
    QString text(qsizetype field) const override
    {
        return _texts.textOf(field, _records.value(field));
    }

    qint64 count() const { return _count; }
    QString errorText() const { return _records.errorText(); }

private:
    Library _library;
    RecordTexts _texts;
    RecordCursor _records;
    qint64 _count = 0;
};

QString mistakeIn(const QCommandLineParser &parser)
{
    const QStringList names = parser.positionalArguments();
    if (names.size() != 1)
        return QStringLiteral("export needs the name of one library");
    if (parser.value(ToOption).isEmpty())
        return QStringLiteral("export needs --to and the name of a file");
    const QString mistake = BundleOption::mistakeIn(parser);
    return mistake.isNull() ? UserSettings::mistakeInLocale(UserSettings::localeIn(parser))
                            : mistake;
}

/// What an exporter throws is its failure, not the host's.
bool runExporter(CobbleExporter &exporter, CobbleRecordSource &records, const QString &fileType,
                 QIODevice *to, QString *error)
{
    bool isDone = false;
    const QString failure =
        PlugIns::failureOf([&] { isDone = exporter.exportRecords(records, fileType, to, error); });
    if (!failure.isNull())
        *error = QStringLiteral("the exporter failed: %1").arg(failure);
    return isDone;
}

ExitCode exportLibrary(LibraryStore &store, const Library &library, const QString &path,
                       CommandContext &context)
{
    const PlugIns plugIns;
    const QString fileType = QFileInfo(path).suffix().toLower();
    CobbleExporter *const exporter = plugIns.exporterFor(fileType);
    if (!exporter)
        return context.fail(path,
                            QStringLiteral("there is no exporter for '%1'; there are %2")
                                .arg(fileType, plugIns.exportedTypes().join(QStringLiteral(", "))));
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return context.fail(path, file.errorString());
    LibraryRecords records(store, library);
    QString error;
    if (!runExporter(*exporter, records, fileType, &file, &error))
        return context.fail(path, error);
    if (const QString reason = records.errorText(); !reason.isNull())
        return context.fail(library.name, reason);
    if (!file.commit())
        return context.fail(path, file.errorString());
    context.out() << QStringLiteral("Exported %1 of the library '%2' to %3\n")
                         .arg(recordCountText(records.count()), printableText(library.name),
                              printableText(path));
    return ExitCode::Success;
}

ExitCode runExport(const QCommandLineParser &parser, CommandContext &context)
{
    const KTDatabaseBundle bundle = BundleOption::bundleIn(parser);
    const auto store = StoredLibrary::openStore(bundle, context);
    if (!store)
        return ExitCode::Failure;
    const QString name = parser.positionalArguments().first();
    const std::optional<Library> library = StoredLibrary::find(*store, bundle, name, context);
    if (!library)
        return ExitCode::Failure;
    const LocaleScope scope(UserSettings::localeIn(parser));
    return exportLibrary(*store, *library, parser.value(ToOption), context);
}
} // namespace

ExitCode runExportCommand(const QStringList &arguments, CommandContext &context)
{
    QCommandLineParser parser;
    parser.addOption({ToOption, QString(), QStringLiteral("FILE")});
    BundleOption::add(&parser);
    UserSettings::addLocaleOption(&parser);
    return context.run(arguments, &parser, mistakeIn, runExport);
}
