#pragma once

#include "Fields/FieldReader.h"
#include "Library/LibraryStore.h"

#include <QHash>

/// The readers of a library's fields, in their order.
using FieldReaders = std::vector<std::shared_ptr<const FieldReader>>;

/// Finds records by a typed text: every word of it is in the text of one of their fields, whatever
/// its case and accents; or a field whose type is no text reads it as the record's value
/// ("March 4 2008" finds "3/4/2008").
///
/// \code
/// RecordSearch search(readers, u"ada 2008"_s);
/// while (records.next())
///     use(search.finds(records));
/// \endcode
class RecordSearch
{
public:
    RecordSearch(const FieldReaders &readers, const QString &typed);

    /// Whether there is nothing to look for, so that everything is found.
    bool isBlank() const { return _words.isEmpty(); }
    /// What is looked for.
    const QStringList &words() const { return _words; }
    bool finds(const RecordCursor &record);

    /// The fields that read the text as a value.
    QList<qsizetype> valueFields() const;
    bool findsValue(const RecordCursor &record) const;

    /// Whether all that has some words has others, too: "adam" has "ada".
    static bool have(const QStringList &words, const QStringList &others);

private:
    /// What a field reads of a text.
    struct TypedValue
    {
        qsizetype field;
        QVariant value;
    };

    QString textOf(const RecordCursor &record, qsizetype field);

    FieldReaders _readers;
    QStringList _words;
    QList<TypedValue> _values;
    /// The texts of values that were met before, by field.
    std::vector<QHash<QString, QString>> _known;
};
