#pragma once

#include "Fields/FieldType.h"

#include <QList>
#include <QMetaType>
#include <QSet>
#include <QString>
#include <QVariantMap>

#include <optional>

class FieldReader;

/// A field of a stored library: its names, its type, and the settings of its formatter.
struct LibraryField
{
    QString columnName;
    /// As it stood in the imported file; may be empty.
    QString header;
    QString label;
    QString propertyName;
    FieldType type = FieldType::Text;
    QVariantMap options;

    /// What people see above the field: the header, else the label, else the column's name.
    QString title() const;
    /// A reader with the field's settings, in the user's locale.
    std::unique_ptr<FieldReader> reader() const;
};

/// A library in the database: a table with a catalogue of its fields. It answers the keys of its
/// names, so that lists of libraries can be searched by them.
class Library
{
    Q_GADGET
    Q_PROPERTY(QString name MEMBER name)
    Q_PROPERTY(QString tableName MEMBER tableName)

public:
    QString name;
    QString libraryEntityName;
    QString entityName;
    QString tableName;
    QList<LibraryField> fields;

    /// The names of the columns that hold media.
    QSet<QString> mediaColumns() const;
};

namespace Libraries {
/// The one with a name; if no other, the one whose name differs in case only; nothing if there is
/// none.
std::optional<Library> named(const QString &name, const QList<Library> &libraries);
} // namespace Libraries
