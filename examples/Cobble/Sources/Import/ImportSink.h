#pragma once

#include "Fields/FieldReader.h"

#include <QVariantList>

#include <memory>
#include <vector>

/// What an import does with the values that it reads.
///
/// The first begin() or addRow() that fails ends the import.
class ImportSink
{
public:
    virtual ~ImportSink() = default;

    /// The types of the columns are known now.
    virtual Outcome<> begin(const std::vector<std::unique_ptr<FieldReader>> &readers) = 0;
    /// Stores the media file that a text in a column names, so that the value is its media URL. If
    /// it fails, the text is kept as it was typed.
    virtual Outcome<QVariant> storeMedia(qsizetype column, const QString &text) = 0;
    /// What is to become of a value that is read; asked in any thread, before addRow().
    virtual QVariant prepared(const QVariant &value) const { return value; }
    /// Whether prepared() gives values as StoredValue::forDatabase() does; then texts that are like
    /// others of their column may be prepared without it (see PlainColumn).
    virtual bool keepsStoredValues() const { return false; }
    /// A row of what prepared() gave: nil for empty fields, texts for those that could not be read,
    /// and for media what storeMedia() gave.
    virtual Outcome<> addRow(const QVariantList &values) = 0;
};
