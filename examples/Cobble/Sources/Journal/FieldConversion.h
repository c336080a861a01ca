#pragma once

#include "Fields/FieldReader.h"
#include "Library/LibraryStore.h"
#include "Text/Outcome.h"

#include <memory>

/// What the values of a field become when it gets another type.
///
/// Numbers stay what they are as amounts, and dates as times; all others are read anew, as if
/// somebody had typed what the field has shown. So texts that the old type could not read get
/// another chance. Nothing is rounded: where a field shows less than the value, a text gets all of it,
/// and other types do not read it.
///
/// \code
/// const FieldConversion conversion(before, after);
/// const auto preview = conversion.preview(store, library, 2);
/// if (preview && preview->unreadCount == 0)
///     step.changeType(library, 2, after.type, after.options,
///                     [&](const QVariant &value) { return conversion.convert(value); });
/// \endcode
class FieldConversion
{
public:
    /// A value that cannot be read.
    struct Unread
    {
        qint64 record = 0;
        QString text;
        QString reason;
    };

    struct Preview
    {
        qint64 readCount = 0;
        qint64 unreadCount = 0;
        /// The first of those that cannot be read, 10 at most.
        QList<Unread> unread;
    };

    /// \param from the field as it is.
    /// \param to the field with the type and the settings that it shall have.
    FieldConversion(const LibraryField &from, const LibraryField &to);

    /// The value in the field of the new type; nil for nil. Fails for what cannot be read.
    Outcome<QVariant> convert(const QVariant &value) const;
    /// Counts in what would become of a record's value in a field; nil does not count.
    void add(const RecordCursor &record, qsizetype field, Preview *preview) const;
    /// What would become of all values of a field.
    Outcome<Preview> preview(LibraryStore &store, const Library &library, qsizetype field) const;

private:
    QString textOf(const QVariant &value) const;
    bool saysAll(const QString &text, const QVariant &value) const;
    bool keeps(const QVariant &value) const;

    std::unique_ptr<FieldReader> _from;
    std::unique_ptr<FieldReader> _to;
};
