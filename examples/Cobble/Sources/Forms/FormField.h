#pragma once

#include "Library/Library.h"

#include <KTUtility/NSKeyValueCodingObject>

#include <QObject>

/// A field of a library, as forms and tables are bound to it.
class FormField : public QObject
{
    Q_OBJECT
    Q_PROPERTY(QString key READ key CONSTANT)
    Q_PROPERTY(QString title READ title WRITE setTitle NOTIFY titleChanged)

public:
    explicit FormField(const LibraryField &field) : _field(field), _title(field.title()) {}

    const LibraryField &field() const { return _field; }
    /// Under which key its value is found in a record: the name of the column.
    const QString &key() const { return _field.columnName; }
    const QString &title() const { return _title; }
    void setTitle(const QString &title)
    {
        _title = title;
        Q_EMIT titleChanged();
    }

Q_SIGNALS:
    void titleChanged();

private:
    LibraryField _field;
    QString _title;
};

/// A record of a library: its values by the names of their columns, which can be observed.
class FormRecord : public QObject, public NSKeyValueCodingObject
{
    Q_OBJECT
    Q_INTERFACES(NSKeyValueCodingObject)

public:
    explicit FormRecord(const QVariantMap &values) : _values(values) {}

    const QVariantMap &values() const { return _values; }

    std::optional<QVariant> valueForKey(const QString &key) const override;
    bool setValueForKey(const QVariant &value, const QString &key) override;

private:
    QVariantMap _values;
};
