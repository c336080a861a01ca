#pragma once

#include "ColumnChoice.h"
#include "FileColumns.h"

#include <KTUtility/KTDatabaseBundle>

#include <QChar>
#include <QMap>
#include <QString>
#include <QStringList>

#include <optional>

/// What an import is asked for.
struct ImportRequest
{
    QString path;
    QString libraryName;
    std::optional<QChar> separator;
    /// Whether the file may be a pipe or a device, at which whoever reads waits for whoever writes.
    bool takesPipes = true;
    /// What the file is encoded in; see TextSource::ofFile().
    QString encoding;
    /// Whether its first row holds the headers.
    bool hasHeaders = true;
    /// That in which the values were typed; nil for the user's.
    QString locale;
    /// What is wanted of columns by their positions in the file.
    ColumnChoices columns;
    /// The columns that these were chosen for; they do not count if the file has others.
    std::optional<FileColumns> chosenFor;
    /// The headers of columns that are left out.
    QStringList skipped;
    /// Other headers for some.
    QMap<QString, QString> newHeaders;
    /// The types of the columns of some headers, whatever their values look like.
    QMap<QString, FieldType> types;
    /// The headers of the columns that hold media, whatever their values look like.
    QStringList mediaHeaders;
    /// What is said of how the columns of some headers are typed.
    QMap<QString, ColumnConventions> conventions;
    /// Whether a library of the same name is replaced.
    bool replaces = false;
    /// Whether nothing is to be written.
    bool isDryRun = false;
    /// How many threads read values; 0 for as many as there are processors.
    int threads = 0;
    KTDatabaseBundle bundle = KTDatabaseBundle(QString());

    /// What a library is called unless it is given a name.
    static QString libraryNameForFile(const QString &path);
};
