#pragma once

#include <QList>
#include <QObject>
#include <QStringList>
#include <QTemporaryDir>

#include <memory>

/// What an importer makes of a file: texts in columns.
struct CobbleTable
{
    QStringList titles;
    /// The types of the columns: "text", "phone", "media", "date", "number" and so on, as `cobble
    /// parse` calls them; "" or a shorter list leaves a type to be found.
    QStringList typeNames;
    /// Rows may be shorter than the titles.
    QList<QStringList> rows;
    /// A folder for files that rows name by their paths; removed with the table. Null if there are
    /// none.
    std::shared_ptr<QTemporaryDir> files;
};

/// What the principal class of an importer implements. Importers lie in "PlugIns/Importers".
/// CobbleExporter shows how such a class looks.
class CobbleImporter
{
public:
    virtual ~CobbleImporter() = default;

    /// The extensions of the files that it reads, in small letters.
    virtual QStringList fileTypes() const = 0;
    /// Reads a file's text.
    /// \param error receives why the result is false.
    virtual bool readTable(const QString &text, CobbleTable *table, QString *error) = 0;
};

Q_DECLARE_INTERFACE(CobbleImporter, "org.cobble.Cobble.Importer/1")
