#pragma once

#include <QMetaType>
#include <QString>

/// A column that an import would make, with all its names. It answers their keys, so that lists of
/// columns can be searched by any of them.
class ImportColumn
{
    Q_GADGET
    Q_PROPERTY(QString header MEMBER header)
    Q_PROPERTY(QString label MEMBER label)
    Q_PROPERTY(QString propertyString MEMBER propertyString)
    Q_PROPERTY(QString internalName MEMBER internalName)
    Q_PROPERTY(QString columnName MEMBER columnName)

public:
    /// As it is typed in the file; empty for columns without one.
    QString header;
    /// What people see.
    QString label;
    /// The identifier that the header alone would give; empty if it has no letters and digits.
    QString propertyString;
    /// The identifier, different from that of every column before, also for those who do not
    /// distinguish upper and lower case.
    QString internalName;
    /// The name of the column in the table.
    QString columnName;
};
