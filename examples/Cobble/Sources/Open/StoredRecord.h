#pragma once

#include "Forms/FormField.h"

#include <memory>

class OpenLibrary;

/// A record of an open library: setting a value writes it to the database.
///
/// A value that cannot be written is not taken; OpenLibrary::change() or refused() says why, and
/// whoever observes the record is notified of the value that it has, in the next iteration of the
/// event loop.
class StoredRecord : public FormRecord, public std::enable_shared_from_this<StoredRecord>
{
    Q_OBJECT

public:
    StoredRecord(OpenLibrary *library, qint64 id, const QVariantMap &values)
        : FormRecord(values), _library(library), _number(id)
    {
    }

    qint64 id() const { return _number; }
    bool setValueForKey(const QVariant &value, const QString &key) override;
    /// Takes a value that the database has.
    void setSavedValue(const QVariant &value, const QString &key);

private:
    OpenLibrary *_library;
    qint64 _number;
};
