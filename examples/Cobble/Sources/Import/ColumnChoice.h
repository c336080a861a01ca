#pragma once

#include "ColumnConventions.h"
#include "Text/Outcome.h"

#include <QMap>
#include <QString>
#include <QStringList>

#include <optional>

struct ImportRequest;

/// What a user wants of one column of a file that is imported.
struct ColumnChoice
{
    bool isSkipped = false;
    /// Whether its texts may name any file; see MediaSources.
    bool isTrusted = false;
    /// Its header in the library, if not that of the file.
    std::optional<QString> header;
    /// Its type, if that is not to be found out.
    std::optional<FieldType> type;
    ColumnConventions conventions;
};

/// Those of all columns, by their positions in the file from 0.
using ColumnChoices = QMap<qsizetype, ColumnChoice>;

/// What a request says of columns, by position or by header. A header that no column has is an
/// error; of several columns with the same one, the first is meant.
Outcome<ColumnChoices> columnChoicesOf(const ImportRequest &request, const QStringList &headers);
