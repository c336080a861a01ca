#pragma once

#include "support/TestField.h"

#include <QJsonArray>
#include <QJsonObject>
#include <QList>
#include <QVariantList>

#include <memory>
#include <vector>

/// The elements of a row of the collection tables, as objects and as what a dynamic list holds.
class CollectionRow
{
public:
    explicit CollectionRow(const QJsonObject &row);

    QString operation() const { return _row.value(QStringLiteral("op")).toString(); }
    QJsonValue argument(const char *name) const;
    QString text(const char *name) const;
    QJsonValue expected() const { return _row.value(QStringLiteral("out")); }
    QJsonValue value(const char *name) const { return _row.value(QLatin1String(name)); }

    /// The elements: objects for JSON objects, texts for texts.
    const QVariantList &elements() const { return _elements; }
    /// The objects among the elements.
    const QList<TestField *> &fields() const { return _fields; }
    /// The values of a list argument; {"at": i} is element i itself.
    QVariantList values(const char *name) const;
    QVariant valueOf(const QJsonValue &json) const;

    /// What the tables hold for results: identifiers of objects, texts, numbers, lists of these.
    static QJsonValue jsonOf(const QVariant &value);
    static QJsonArray jsonOf(const QVariantList &values);
    static QJsonArray jsonOf(const QList<TestField *> &fields);
    static QJsonArray sorted(const QJsonArray &array);

private:
    TestField *fieldFrom(const QJsonObject &json);

    QJsonObject _row;
    std::vector<std::unique_ptr<TestField>> _objects;
    QList<TestField *> _fields;
    QVariantList _elements;
};
