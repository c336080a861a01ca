#pragma once

#include "ColumnConventions.h"

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
    QString locale;
    /// The headers of the columns that hold media, whatever their values look like.
    QStringList mediaHeaders;
    /// What is said of how the columns of some headers are typed.
    QMap<QString, ColumnConventions> conventions;
    /// Whether a library of the same name is replaced.
    bool replaces = false;
    /// Whether nothing is to be written.
    bool isDryRun = false;
    KTDatabaseBundle bundle = KTDatabaseBundle(QString());

    /// What a library is called unless it is given a name.
    static QString libraryNameForFile(const QString &path);
};
