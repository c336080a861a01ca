#pragma once

#include "Fields/FieldReader.h"

#include <QVariantList>

#include <memory>
#include <vector>

/// What an import does with the values that it reads.
///
/// The first function that gives false ends the import; errorText() says why.
class ImportSink
{
public:
    virtual ~ImportSink() = default;

    /// The types of the columns are known now.
    virtual bool begin(const std::vector<std::unique_ptr<FieldReader>> &readers) = 0;
    /// Stores the media file that a text names, so that the value is its media URL.
    virtual FieldReading storeMedia(const QString &text) = 0;
    /// A row: values, nil for empty fields, texts for those that could not be read.
    virtual bool addRow(const QVariantList &values) = 0;
    virtual QString errorText() const = 0;
};
