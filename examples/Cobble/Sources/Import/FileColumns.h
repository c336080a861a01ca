#pragma once

#include <QChar>
#include <QString>
#include <QStringList>

class RowSource;

/// The columns of a file as they were read, for which a user has chosen something by position.
///
/// \code
/// // Another separator cuts the rows into other columns.
/// if (!chosenFor.areSame(FileColumns::of(*rows, true)))
///     choices.clear();
/// \endcode
struct FileColumns
{
    /// \param hasHeaders whether the first row was read as that of the headers.
    static FileColumns of(const RowSource &rows, bool hasHeaders);

    /// Whether a position means the same column: the headers are the same, or the first row is taken
    /// for headers in one of them only.
    bool areSame(const FileColumns &other) const;

    QStringList headers;
    bool hasHeaders = true;
    QChar separator;
    QString encoding;
};
